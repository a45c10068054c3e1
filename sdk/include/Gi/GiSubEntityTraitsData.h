// The looks in force at one moment.
#pragma once

#include "Gi/GiSubEntityTraits.h"

/** The values of all traits. It is a plain value; a new one is by layer in all respects. */
struct OdGiSubEntityTraitsData
{
    OdGiSubEntityTraitsData();
    bool operator==(const OdGiSubEntityTraitsData& other) const = default;

    OdCmEntityColor color;
    OdDbStub* layer = nullptr;
    OdDbStub* linetype = nullptr;
    double linetypeScale = 1.0;
    OdDb::LineWeight lineWeight = OdDb::kLnWtByLayer;
    OdCmTransparency transparency;
    OdGiFillType fillType = kOdGiFillNever;
    double thickness = 0.0;
    OdGsMarker marker = 0;
};

/** Keeps the traits that a drawable sets. */
class OdGiSubEntityTraitsToData : public OdGiSubEntityTraits
{
public:
    const OdGiSubEntityTraitsData& values() const { return m_values; }
    void setValues(const OdGiSubEntityTraitsData& values)
    {
        m_values = values;
        ++m_changes;
    }
    /** Another number after every change. */
    OdUInt64 changes() const { return m_changes; }

    void setColor(OdUInt16 colorIndex) override;
    void setTrueColor(const OdCmEntityColor& color) override { change().color = color; }
    void setLayer(OdDbStub* layerId) override { change().layer = layerId; }
    void setLineType(OdDbStub* linetypeId) override { change().linetype = linetypeId; }
    void setLineTypeScale(double scale) override { change().linetypeScale = scale; }
    void setLineWeight(OdDb::LineWeight lineWeight) override { change().lineWeight = lineWeight; }
    void setTransparency(const OdCmTransparency& transparency) override { change().transparency = transparency; }
    void setFillType(OdGiFillType fillType) override { change().fillType = fillType; }
    void setThickness(double thickness) override { change().thickness = thickness; }
    void setSelectionMarker(OdGsMarker marker) override { change().marker = marker; }

    OdUInt16 color() const override;
    OdCmEntityColor trueColor() const override { return m_values.color; }
    OdDbStub* layer() const override { return m_values.layer; }
    OdDbStub* lineType() const override { return m_values.linetype; }
    double lineTypeScale() const override { return m_values.linetypeScale; }
    OdDb::LineWeight lineWeight() const override { return m_values.lineWeight; }
    OdCmTransparency transparency() const override { return m_values.transparency; }
    OdGiFillType fillType() const override { return m_values.fillType; }
    double thickness() const override { return m_values.thickness; }

private:
    OdGiSubEntityTraitsData& change()
    {
        ++m_changes;
        return m_values;
    }

    OdGiSubEntityTraitsData m_values;
    OdUInt64 m_changes = 0;
};
