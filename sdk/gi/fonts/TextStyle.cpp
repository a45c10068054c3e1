// Implements text styles.
#include "Gi/GiTextStyle.h"

#include <tuple>

bool OdGiTextStyle::operator==(const OdGiTextStyle& other) const
{
    const auto numbers = [](const OdGiTextStyle& style)
    { return std::tie(style.m_textSize, style.m_xScale, style.m_obliquingAngle, style.m_trackingPercent); };
    const auto switches = [](const OdGiTextStyle& style)
    {
        return std::tie(style.m_bold, style.m_italic, style.m_underlined, style.m_overlined, style.m_striked,
                        style.m_vertical);
    };
    const auto names = [](const OdGiTextStyle& style)
    { return std::tie(style.m_fileName, style.m_bigFontFileName, style.m_typeface); };
    return numbers(*this) == numbers(other) && switches(*this) == switches(other) && names(*this) == names(other);
}

void OdGiTextStyle::setFileName(const OdString& fileName)
{
    m_fileName = fileName;
    m_typeface.empty();
    m_bold = false;
    m_italic = false;
    m_font = nullptr;
}

void OdGiTextStyle::font(OdString& typeface, bool& bold, bool& italic) const
{
    typeface = m_typeface;
    bold = m_bold;
    italic = m_italic;
}

void OdGiTextStyle::setFont(const OdString& typeface, bool bold, bool italic)
{
    m_typeface = typeface;
    m_bold = bold;
    m_italic = italic;
    m_font = nullptr;
}
