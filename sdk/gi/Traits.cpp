// Implements the keeping and inheriting of traits.
#include "gi/Traits.h"

#include <algorithm>
#include <string_view>

#include "db/SymbolNames.h"

namespace gi
{

namespace
{

constexpr OdUInt16 kByLayer = 256;

bool isByBlock(std::string_view linetype)
{
    constexpr std::string_view kName = "byblock";
    return std::equal(linetype.begin(), linetype.end(), kName.begin(), kName.end(),
                      [](char letter, char wanted) { return (letter | 0x20) == wanted; });
}

} // namespace

TraitValues::TraitValues()
{
    color.setColorMethod(OdCmEntityColor::kByLayer);
    transparency.setMethod(OdCmTransparency::kByLayer);
}

void Traits::setColor(OdUInt16 colorIndex)
{
    m_values.color = OdCmEntityColor();
    if (colorIndex == 0)
        m_values.color.setColorMethod(OdCmEntityColor::kByBlock);
    else if (colorIndex == kByLayer)
        m_values.color.setColorMethod(OdCmEntityColor::kByLayer);
    else
    {
        m_values.color.setColorMethod(OdCmEntityColor::kByACI);
        m_values.color.setColorIndex(static_cast<OdInt16>(colorIndex));
    }
}

OdUInt16 Traits::color() const
{
    return m_values.color.colorIndex();
}

void inheritFromBlock(TraitValues& part, const TraitValues& outer)
{
    if (oddb::symbolName(part.layer) == "0")
        part.layer = outer.layer;
    if (isByBlock(oddb::symbolName(part.linetype)))
        part.linetype = outer.linetype;
    if (part.color.isByBlock())
        part.color = outer.color;
    if (part.transparency.method() == OdCmTransparency::kByBlock)
        part.transparency = outer.transparency;
    if (part.lineWeight == OdDb::kLnWtByBlock)
        part.lineWeight = outer.lineWeight;
}

} // namespace gi
