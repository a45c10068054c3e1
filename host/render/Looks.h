// What the looks of drawings come to on a page: colours, widths in pixels, dashes in pixels.
#pragma once

#include <unordered_map>

#include "Gi/GiSubEntityTraitsData.h"
#include "render/Color.h"
#include "render/LinePattern.h"

namespace render
{

class Looks
{
public:
    /// lineWeightScale is the pixels of a millimetre of line weight; linetypeScale that of the whole drawing.
    Looks(const Color& background, double thinnestLine, double lineWeightScale, double linetypeScale);

    /// Colour 7 is black on a light background and white on a dark one; no colour is the background's.
    Color colorOf(const OdGiSubEntityTraitsData& traits) const;
    double widthOf(const OdGiSubEntityTraitsData& traits) const;
    /// Null for a line without pattern, or one too fine to be seen. Valid until the next call.
    const LinePattern* patternOf(const OdGiSubEntityTraitsData& traits);

    /// The pixels of a drawing unit in what is drawn next.
    void setUnitScale(double pixels) { m_unitScale = pixels; }

    const Color& background() const { return m_background; }

private:
    const std::vector<double>& lengthsOf(OdDbStub* linetype);

    Color m_background;
    double m_thinnestLine;
    double m_lineWeightScale;
    double m_linetypeScale;
    double m_unitScale = 1.0;
    std::unordered_map<OdDbStub*, std::vector<double>> m_lengths;
    LinePattern m_pattern;
};

} // namespace render
