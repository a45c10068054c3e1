// Implements the looks of what is drawn.
#include "render/Looks.h"

#include <algorithm>
#include <cmath>

#include "DbLinetypeTableRecord.h"

namespace render
{

namespace
{

constexpr int kDefaultLineWeight = 25; ///< hundredths of a millimetre

} // namespace

Looks::Looks(const Color& background, double thinnestLine, double lineWeightScale, double linetypeScale)
    : m_background(background), m_thinnestLine(thinnestLine), m_lineWeightScale(lineWeightScale),
      m_linetypeScale(linetypeScale)
{
}

Color Looks::colorOf(const OdGiSubEntityTraitsData& traits) const
{
    Color color;
    if (traits.color.isNone())
    {
        color = m_background;
        color.alpha = 255;
        return color;
    }
    const bool isForeground = traits.color.isForeground() ||
                              (!traits.color.isByColor() && traits.color.colorIndex() % 256 == 0) ||
                              (traits.color.isByACI() && traits.color.colorIndex() == OdCmEntityColor::kACIforeground);
    if (isForeground)
        color = m_background.isLight() || m_background.alpha == 0 ? Color{0, 0, 0, 255} : Color{255, 255, 255, 255};
    else
        color = {traits.color.red(), traits.color.green(), traits.color.blue(), 255};
    color.alpha = traits.transparency.alpha();
    return color;
}

double Looks::widthOf(const OdGiSubEntityTraitsData& traits) const
{
    const int hundredths = traits.lineWeight >= 0 ? static_cast<int>(traits.lineWeight) : kDefaultLineWeight;
    return std::max(hundredths / 100.0 * m_lineWeightScale, m_thinnestLine);
}

const std::vector<double>& Looks::lengthsOf(OdDbStub* linetype)
{
    const auto [place, isNew] = m_lengths.try_emplace(linetype);
    const OdDbLinetypeTableRecordPtr record =
        isNew ? OdDbLinetypeTableRecord::cast(OdDbObjectId(linetype).openObject()) : OdDbLinetypeTableRecordPtr();
    for (int i = 0; !record.isNull() && i < record->numDashes(); ++i)
        place->second.push_back(record->dashLengthAt(i));
    return place->second;
}

const LinePattern* Looks::patternOf(const OdGiSubEntityTraitsData& traits)
{
    if (!traits.linetype)
        return nullptr;
    const double scale = m_linetypeScale * traits.linetypeScale * m_unitScale;
    m_pattern.lengths.clear();
    m_pattern.total = 0.0;
    for (const double length : lengthsOf(traits.linetype))
    {
        m_pattern.lengths.push_back(length * scale);
        m_pattern.total += std::fabs(length * scale);
    }
    return m_pattern.isVisible() && std::isfinite(m_pattern.total) ? &m_pattern : nullptr;
}

} // namespace render
