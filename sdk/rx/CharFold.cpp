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

} // namespace

OdChar odToUpperBeyondAscii(OdChar character)
{
    return static_cast<OdChar>(towupper_l(static_cast<wint_t>(character), neutralLocale()));
}

OdChar odToLowerBeyondAscii(OdChar character)
{
    return static_cast<OdChar>(towlower_l(static_cast<wint_t>(character), neutralLocale()));
}

OdChar odCaseFoldBeyondAscii(OdChar character)
{
    constexpr OdChar kDottedCapitalI = 0x130;
    constexpr OdChar kDotlessSmallI = 0x131;
    if (character == kDottedCapitalI || character == kDotlessSmallI)
        return character;
    return odToLower(odToUpper(character));
}

// Texts that are compared are the same to the letter more often than not, which is found out at many characters a time.
int odCompareNoCase(std::wstring_view first, std::wstring_view second)
{
    if (first == second)
        return 0;
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
    if (first.size() != second.size())
        return false;
    if (first == second)
        return true;
    for (std::size_t i = 0; i < first.size(); ++i)
        if (first[i] != second[i] && odCaseFold(first[i]) != odCaseFold(second[i]))
            return false;
    return true;
}
