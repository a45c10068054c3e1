// Names as keys of hash tables, without regard to case: nothing is copied to look one up.
#pragma once

#include <cstddef>
#include <cstdint>

#include "OdString.h"

namespace odkeys
{

struct FoldedHash
{
    // As good as folded: upper and lower case are one bit apart, and characters that fall together are still compared.
    static OdChar spread(OdChar character)
    {
        const OdChar folded = odIsAscii(character) ? character : odCaseFoldBeyondAscii(character);
        return odIsAscii(folded) ? folded | 0x20 : folded;
    }

    // The same for two neighbours at once.
    static std::uint64_t spreadPair(OdChar first, OdChar second)
    {
        const auto join = [](OdChar low, OdChar high)
        { return static_cast<std::uint32_t>(low) | std::uint64_t{static_cast<std::uint32_t>(high)} << 32; };
        return odIsAscii(first | second) ? join(first | 0x20, second | 0x20) : join(spread(first), spread(second));
    }

    std::size_t operator()(const OdString& key) const
    {
        constexpr std::uint64_t kPrime = 1099511628211u;
        const std::wstring_view text = key.view();
        std::uint64_t hash = text.size();
        std::size_t at = 0;
        for (; at + 1 < text.size(); at += 2)
            hash = (hash ^ spreadPair(text[at], text[at + 1])) * kPrime;
        if (at < text.size())
            hash = (hash ^ static_cast<std::uint64_t>(spread(text[at]))) * kPrime;
        return hash ^ hash >> 32;
    }
};

struct FoldedEqual
{
    bool operator()(const OdString& first, const OdString& second) const { return odEqualsNoCase(first, second); }
};

} // namespace odkeys
