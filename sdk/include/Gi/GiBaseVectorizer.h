// What every client of shapes needs: drawables that draw each other, with nested coordinates and looks.
#pragma once

#include <memory>
#include <vector>

#include "Gi/GiGeometry.h"
#include "Gi/GiSubEntityTraitsData.h"
#include "Gi/GiWorldDraw.h"
#include "StaticRxObject.h"

namespace gi
{
class Inheritance;
}

/** Ties the receiver of shapes to the looks. A client derives from it, and its receiver from OdGiGeometrySimplifier;
    geometry().draw(drawable) draws something. One thread at a time. */
class OdGiBaseVectorizer : public OdGiWorldDraw
{
public:
    explicit OdGiBaseVectorizer(OdGiRegenType regenType);
    ~OdGiBaseVectorizer() override;

    OdGiSubEntityTraits& subEntityTraits() const override { return m_traits; }
    OdGiRegenType regenType() const override { return m_regenType; }
    bool regenAbort() const override { return false; }
    double deviation() const override { return 0.0; }

    OdGiSubEntityTraitsToData& traits() const { return m_traits; }

    /** The looks in force with what they take over from layers and from the block references around: colour,
        linetype, line weight and transparency are never by layer or by block. A linetype without pattern is null, a
        line weight in hundredths of millimetres or kLnWtByLwDefault, a layer that of what is on layer "0" of a block.
        Layers are read once; what changes in them during the life of the client is not seen. */
    const OdGiSubEntityTraitsData& effectiveTraits() const;

    /** Whether the layer of the looks in force is shown: neither frozen nor switched off; and whether it is frozen. */
    bool isLayerShown() const;
    bool isLayerFrozen() const;

    /** True unless only the shape is of interest; setAttributes is then not asked for. */
    virtual bool wantsTraits() const { return m_regenType != kOdGiForExtents; }

protected:
    /** Asked before anything is drawn, with what its setAttributes has returned and its looks in force. Returns false
        for what is not to be drawn. */
    virtual bool isShown(const OdGiDrawable& drawable, OdUInt32 flags);

private:
    friend class OdGiGeometrySimplifier;

    gi::Inheritance& inheritance() const;

    mutable OdStaticRxObject<OdGiSubEntityTraitsToData> m_traits;
    mutable std::unique_ptr<gi::Inheritance> m_inheritance;
    OdGiRegenType m_regenType;
};
