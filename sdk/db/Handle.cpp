// Handles as text: the one place that reads and writes them.
#include "DbHandle.h"

namespace
{

int digitValue(unsigned long character)
{
    if (character >= '0' && character <= '9')
        return static_cast<int>(character - '0');
    if (character >= 'A' && character <= 'F')
        return static_cast<int>(character - 'A') + 10;
    if (character >= 'a' && character <= 'f')
        return static_cast<int>(character - 'a') + 10;
    return -1;
}

template<class Char>
std::basic_string_view<Char> trimBlanks(std::basic_string_view<Char> text)
{
    auto isBlank = [](Char character) { return character == ' ' || character == '\t'; };
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

template<class Char>
bool parseHexadecimal(std::basic_string_view<Char> text, OdDbHandle& handle)
{
    text = trimBlanks(text);
    if (text.empty())
        return false;
    OdUInt64 value = 0;
    for (const Char character : text)
    {
        const int digit = digitValue(static_cast<unsigned long>(character));
        if (digit < 0 || value >> 60 != 0)
            return false;
        value = value << 4 | static_cast<OdUInt64>(digit);
    }
    handle = value;
    return true;
}

} // namespace

OdDbHandle::OdDbHandle(const OdString& text)
{
    parse(text.view(), *this);
}

OdDbHandle::OdDbHandle(const wchar_t* text)
{
    if (text)
        parse(std::wstring_view(text), *this);
}

OdDbHandle::OdDbHandle(const char* text)
{
    if (text)
        parse(std::string_view(text), *this);
}

bool OdDbHandle::parse(std::string_view text, OdDbHandle& handle)
{
    return parseHexadecimal(text, handle);
}

bool OdDbHandle::parse(std::wstring_view text, OdDbHandle& handle)
{
    return parseHexadecimal(text, handle);
}

std::string OdDbHandle::text() const
{
    char digits[16];
    int first = 16;
    OdUInt64 rest = m_value;
    do
    {
        digits[--first] = "0123456789ABCDEF"[rest & 15];
        rest >>= 4;
    } while (rest != 0);
    return std::string(digits + first, digits + 16);
}

OdString OdDbHandle::ascii() const
{
    return odUtf8ToString(text());
}
