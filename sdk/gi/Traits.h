// The looks in force while a drawable is drawn, and how looks "by block" and layer "0" follow from the block reference
// around it.
#pragma once

#include "Gi/GiSubEntityTraits.h"

namespace gi
{

/// The values of all traits at one moment.
struct TraitValues
{
    OdCmEntityColor color;
    OdDbStub* layer = nullptr;
    OdDbStub* linetype = nullptr;
    double linetypeScale = 1.0;
    OdDb::LineWeight lineWeight = OdDb::kLnWtByLayer;
    OdCmTransparency transparency;
    OdGiFillType fillType = kOdGiFillNever;
    double thickness = 0.0;
    OdGsMarker marker = 0;

    TraitValues();
};

/// Keeps the traits that a drawable sets.
class Traits : public OdGiSubEntityTraits
{
public:
    const TraitValues& values() const { return m_values; }
    void setValues(const TraitValues& values) { m_values = values; }

    void setColor(OdUInt16 colorIndex) override;
    void setTrueColor(const OdCmEntityColor& color) override { m_values.color = color; }
    void setLayer(OdDbStub* layerId) override { m_values.layer = layerId; }
    void setLineType(OdDbStub* linetypeId) override { m_values.linetype = linetypeId; }
    void setLineTypeScale(double scale) override { m_values.linetypeScale = scale; }
    void setLineWeight(OdDb::LineWeight lineWeight) override { m_values.lineWeight = lineWeight; }
    void setTransparency(const OdCmTransparency& transparency) override { m_values.transparency = transparency; }
    void setFillType(OdGiFillType fillType) override { m_values.fillType = fillType; }
    void setThickness(double thickness) override { m_values.thickness = thickness; }
    void setSelectionMarker(OdGsMarker marker) override { m_values.marker = marker; }

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
    TraitValues m_values;
};

/// What the traits of a part of a block become within a reference that has the traits outer: colour, linetype,
/// transparency and line weight "by block" are the reference's, and so is the layer of what lies on layer "0".
void inheritFromBlock(TraitValues& part, const TraitValues& outer);

} // namespace gi
