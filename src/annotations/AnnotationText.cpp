// Texts are placed by what two probes measure, so that a text looks centred whether or not it has letters that go below
// the base line:
//
//   top    ---- H ---- gjpqy ----
//               H      gjpqy            the line is "H", or "Hgjpqy" when the text has one of these letters
//   bottom ------------gjpqy ----
//
// Both count from the place of the MTEXT. With height h of the box and padding p the place is
//   top: h/2 - p - top of "H"      middle: -(top + bottom)/2      bottom: -h/2 + p - bottom
#include "annotations/AnnotationText.h"

#include <algorithm>

#include "Ge/GeExtents3d.h"

namespace Annotation
{

namespace
{

constexpr double kLeastSpacing = 0.25;
constexpr double kGreatestSpacing = 4.0;
constexpr double kLeastLength = 0.01;
constexpr const OdChar* kDescenders = L"gjpqy";
constexpr const OdChar* kCapital = L"H";
constexpr const OdChar* kCapitalAndDescenders = L"Hgjpqy";
constexpr const OdChar* kPlaceholder = L"[...]";
constexpr OdUInt8 kPlaceholderGrey = 192;

// ---- Looks
// -----------------------------------------------------------------------------------------------------------

bool NeedsPlaceholder(const AnnotationProperties& properties)
{
    return properties.text.isEmpty() && !properties.HasVisibleDecoration();
}

OdString InFont(const AnnotationProperties& properties, const OdString& strText)
{
    OdString strInFont(OdDbMText::fontChange());
    strInFont.append(properties.font.view());
    strInFont.append(L";");
    strInFont.append(strText.view());
    return strInFont;
}

void SetColor(const AnnotationProperties& properties, OdDbMText& text)
{
    OdCmColor color = properties.textColor;
    OdCmTransparency transparency = properties.textTransparency;
    if (NeedsPlaceholder(properties))
    {
        color.setRGB(kPlaceholderGrey, kPlaceholderGrey, kPlaceholderGrey);
        if (transparency.alpha() == 0)
            transparency = OdCmTransparency();
    }
    text.setColor(color, true);
    text.setTransparency(transparency, true);
}

void SetLooks(const AnnotationProperties& properties, OdDbMText& text, OdDbObjectId idTextStyle)
{
    text.setTextStyle(idTextStyle);
    if (properties.fontSize > 0.0)
        text.setTextHeight(properties.fontSize);
    text.setLineSpacingFactor(std::clamp(properties.lineSpacingFactor, kLeastSpacing, kGreatestSpacing));
    text.setLineSpacingStyle(OdDb::kAtLeast);
    text.setHorizontalMode(static_cast<OdDb::TextHorzMode>(properties.horizontalAlignment));
    text.setVerticalMode(static_cast<OdDb::TextVertMode>(properties.verticalAlignment));
    SetColor(properties, text);
}

void SetBox(const AnnotationProperties& properties, OdDbMText& text)
{
    const double fMargin = EffectivePadding(properties);
    text.setWidth(properties.fitToText ? 0.0 : ContentLength(properties.width, fMargin));
    text.setHeight(properties.fitToText ? 0.0 : ContentLength(properties.height, fMargin));
}

// ---- Size
// ------------------------------------------------------------------------------------------------------------

OdGeExtents3d ExtentsOf(const OdDbMText& text)
{
    OdGeExtents3d extents(OdGePoint3d::kOrigin, OdGePoint3d::kOrigin);
    text.getGeomExtents(extents);
    return extents;
}

/// Gives the box the size of the text and the padding around it.
void FitBox(AnnotationProperties& properties, const OdDbMText& text, const TextReach& reach)
{
    const double fMargins = 2.0 * EffectivePadding(properties);
    properties.width = std::max(text.actualWidth() + fMargins, kLeastLength);
    properties.height = std::max(std::max(text.actualHeight(), reach.Height()) + fMargins, kLeastLength);
}

// ---- Place
// -----------------------------------------------------------------------------------------------------------

double PlaceAcross(const AnnotationProperties& properties, const OdDbMText& text)
{
    if (properties.fitToText)
    {
        // The box fits what is seen of the text, so that is what stands in its middle.
        const OdGeExtents3d extents = ExtentsOf(text);
        return -(extents.minPoint().x + extents.maxPoint().x) / 2.0;
    }
    const double fEdge = properties.width / 2.0 - EffectivePadding(properties);
    const OdDb::TextHorzMode eMode = text.horizontalMode();
    return eMode == OdDb::kTextLeft ? -fEdge : eMode == OdDb::kTextRight ? fEdge : 0.0;
}

double PlaceUpward(const AnnotationProperties& properties, const TextReach& reach)
{
    const double fEdge = properties.height / 2.0 - EffectivePadding(properties);
    switch (reach.eVertical)
    {
    case OdDb::kTextTop:
        return fEdge - reach.fCapital;
    case OdDb::kTextVertMid:
        return -(reach.fTop + reach.fBottom) / 2.0;
    default:
        return -fEdge - reach.fBottom;
    }
}

void SetPlace(const AnnotationProperties& properties, OdDbMText& text, const TextReach& reach)
{
    text.setLocation(OdGePoint3d(PlaceAcross(properties, text), PlaceUpward(properties, reach), 0.0));
}

// ---- Contents
// --------------------------------------------------------------------------------------------------------

void SetContents(const AnnotationProperties& properties, OdDbMText& text)
{
    text.setContents(NeedsPlaceholder(properties) ? OdString(kPlaceholder) : InFont(properties, properties.text));
}

OdGeExtents3d Probe(const AnnotationProperties& properties, OdDbMText& text, const OdChar* pszLetters)
{
    text.setContents(InFont(properties, pszLetters));
    return ExtentsOf(text);
}

} // namespace

double EffectivePadding(const AnnotationProperties& properties)
{
    return properties.HasVisibleDecoration() ? properties.padding : 0.0;
}

double ContentLength(double fLength, double fMargin)
{
    return std::max(fLength - 2.0 * fMargin, kLeastLength);
}

TextReach CTextMeasure::Measure(const AnnotationProperties& properties, OdDbMText& text)
{
    const bool bDescends = properties.text.findOneOf(kDescenders) >= 0;
    const OdDb::TextVertMode eVertical = text.verticalMode();
    const Key key(std::wstring(properties.font.view()), text.textHeight(), eVertical, bDescends);
    if (const auto found = m_known.find(key); found != m_known.end())
        return found->second;
    text.setLocation(OdGePoint3d::kOrigin);
    const OdGeExtents3d capital = Probe(properties, text, kCapital);
    const OdGeExtents3d line = bDescends ? Probe(properties, text, kCapitalAndDescenders) : capital;
    return m_known[key] = {capital.maxPoint().y, line.maxPoint().y, line.minPoint().y, eVertical};
}

// What differs from one text to the next comes last, for texts share what they were before.
void FillText(AnnotationProperties& properties, OdDbMText& text, OdDbObjectId idTextStyle, CTextMeasure& measure)
{
    SetLooks(properties, text, idTextStyle);
    SetBox(properties, text);
    const TextReach reach = measure.Measure(properties, text);
    if (!properties.fitToText)
    {
        SetPlace(properties, text, reach);
        SetContents(properties, text);
        return;
    }
    SetContents(properties, text);
    text.setLocation(OdGePoint3d::kOrigin);
    FitBox(properties, text, reach);
    SetPlace(properties, text, reach);
}

} // namespace Annotation
