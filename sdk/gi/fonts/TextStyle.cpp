// Implements text styles.
#include "Gi/GiTextStyle.h"

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
