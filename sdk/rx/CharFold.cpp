// Upper and lower case of characters, the same for every user.
#include "OdString.h"

#include <cwctype>
#include <locale.h>

namespace
{

// The character tables of Unicode, whatever the language of the user is.
locale_t neutralLocale()
{
    static const locale_t locale = []
    {
        const locale_t unicode = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
        return unicode ? unicode : newlocale(LC_CTYPE_MASK, "C", nullptr);
    }();
    return locale;
}

constexpr bool isAsciiLetter(OdChar character, OdChar first)
{
    return character >= first && character <= first + 25;
}

constexpr bool isAscii(OdChar character)
{
    return character >= 0 && character < 0x80;
}

} // namespace

OdChar odToUpper(OdChar character)
{
    if (isAscii(character))
        return isAsciiLetter(character, L'a') ? character - 32 : character;
    return static_cast<OdChar>(towupper_l(static_cast<wint_t>(character), neutralLocale()));
}

OdChar odToLower(OdChar character)
{
    if (isAscii(character))
        return isAsciiLetter(character, L'A') ? character + 32 : character;
    return static_cast<OdChar>(towlower_l(static_cast<wint_t>(character), neutralLocale()));
}

OdChar odCaseFold(OdChar character)
{
    constexpr OdChar kDottedCapitalI = 0x130;
    constexpr OdChar kDotlessSmallI = 0x131;
    if (isAscii(character))
        return isAsciiLetter(character, L'A') ? character + 32 : character;
    if (character == kDottedCapitalI || character == kDotlessSmallI)
        return character;
    return odToLower(odToUpper(character));
}

int odCompareNoCase(std::wstring_view first, std::wstring_view second)
{
    const std::size_t common = std::min(first.size(), second.size());
    for (std::size_t i = 0; i < common; ++i)
    {
        if (first[i] == second[i])
            continue;
        const OdChar a = odCaseFold(first[i]);
        const OdChar b = odCaseFold(second[i]);
        if (a != b)
            return a < b ? -1 : 1;
    }
    return first.size() == second.size() ? 0 : first.size() < second.size() ? -1 : 1;
}

bool odEqualsNoCase(std::wstring_view first, std::wstring_view second)
{
    return first.size() == second.size() && odCompareNoCase(first, second) == 0;
}
