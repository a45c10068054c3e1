// Names as keys of hash tables, without regard to case: nothing is copied to look one up.
#pragma once

#include <cstddef>

#include "OdString.h"

namespace odkeys
{

inline std::size_t hashOf(std::wstring_view key, auto foldCharacter)
{
    std::size_t hash = 14695981039346656037u;
    for (const OdChar character : key)
        hash = (hash ^ static_cast<std::size_t>(foldCharacter(character))) * 1099511628211u;
    return hash;
}

struct FoldedHash
{
    // As good as folded: upper and lower case are one bit apart, and characters that fall together are still compared.
    static OdChar spread(OdChar character)
    {
        const OdChar folded = odIsAscii(character) ? character : odCaseFoldBeyondAscii(character);
        return odIsAscii(folded) ? folded | 0x20 : folded;
    }

    std::size_t operator()(const OdString& key) const
    {
        return hashOf(key.view(), [](OdChar character) { return spread(character); });
    }
};

struct FoldedEqual
{
    bool operator()(const OdString& first, const OdString& second) const { return odEqualsNoCase(first, second); }
};

} // namespace odkeys
