// Implements the keeping of traits.
#include "gi/Traits.h"

OdGiSubEntityTraitsData::OdGiSubEntityTraitsData()
{
    color.setColorMethod(OdCmEntityColor::kByLayer);
    transparency.setMethod(OdCmTransparency::kByLayer);
}

void OdGiSubEntityTraitsToData::setColor(OdUInt16 colorIndex)
{
    OdCmEntityColor color;
    color.setColorIndex(colorIndex);
    setTrueColor(color);
}

OdUInt16 OdGiSubEntityTraitsToData::color() const
{
    return m_values.color.colorIndex();
}
