// Implements texts of one character set.
#include "OdAnsiString.h"

#include <cstring>

#include "OdCharMapper.h"

const OdAnsiString OdAnsiString::kEmpty;

OdAnsiString::OdAnsiString(const char* source, OdCodePageId codePage)
    : m_bytes(source ? source : ""), m_codePage(codePage)
{
}

OdAnsiString::OdAnsiString(const char* source, int length, OdCodePageId codePage) : m_codePage(codePage)
{
    if (source && length > 0)
        m_bytes.assign(source, static_cast<std::size_t>(length));
}

OdAnsiString::OdAnsiString(std::string source, OdCodePageId codePage) : m_bytes(std::move(source)), m_codePage(codePage)
{
}

OdAnsiString::OdAnsiString(const OdString& source, OdCodePageId codePage) : m_codePage(codePage)
{
    OdCharMapper::unicodeToCodepage(source.view(), codePage, m_bytes);
}

OdAnsiString::OdAnsiString(const OdChar* source, OdCodePageId codePage) : OdAnsiString(OdString(source), codePage) {}

OdAnsiString& OdAnsiString::operator+=(const OdAnsiString& other)
{
    if (other.m_codePage == m_codePage)
        m_bytes += other.m_bytes;
    else
        OdCharMapper::unicodeToCodepage(OdString(other).view(), m_codePage, m_bytes);
    return *this;
}
