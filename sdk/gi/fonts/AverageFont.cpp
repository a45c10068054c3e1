// Implements the measures of characters with a table of advance widths.
#include "gi/fonts/AverageFont.h"

#include <algorithm>
#include <cstdint>
#include <string_view>

namespace fonts
{

namespace
{

constexpr double kCapitalHeight = 718.0; // of the face the table below describes, in the table's units
constexpr std::uint16_t kOtherWidth = 556;
constexpr std::uint16_t kFullWidth = 1000;

// Advances of the characters 0x20 to 0x7E, 1000 units to the em.
constexpr std::uint16_t kWidths[] = {
    278,  278, 355, 556, 556, 889, 667, 191, 333, 333, 389, 584, 278, 333, 278, 278, // blank to slash
    556,  556, 556, 556, 556, 556, 556, 556, 556, 556, 278, 278, 584, 584, 584, 556, // 0 to question mark
    1015, 667, 667, 722, 722, 667, 611, 778, 722, 278, 500, 667, 556, 833, 722, 778, // @ to O
    667,  778, 722, 667, 611, 722, 667, 944, 667, 667, 611, 278, 278, 278, 469, 556, // P to underscore
    333,  556, 556, 500, 556, 556, 278, 556, 556, 222, 222, 500, 222, 833, 556, 556, // grave accent to o
    556,  556, 333, 500, 278, 556, 500, 722, 500, 500, 500, 334, 260, 334, 584,      // p to tilde
};

struct Range
{
    wchar_t first;
    wchar_t last;
};

// Blocks whose characters are as wide as they are high.
constexpr Range kFullWidthRanges[] = {{0x1100, 0x115F}, {0x2E80, 0xA4CF}, {0xAC00, 0xD7A3},   {0xF900, 0xFAFF},
                                      {0xFE30, 0xFE6F}, {0xFF00, 0xFF60}, {0x1F300, 0x1FAFF}, {0x20000, 0x3FFFD}};

bool isFullWidth(wchar_t character)
{
    return std::any_of(std::begin(kFullWidthRanges), std::end(kFullWidthRanges),
                       [character](const Range& range) { return character >= range.first && character <= range.last; });
}

bool isCombining(wchar_t c)
{
    return (c >= 0x0300 && c <= 0x036F) || (c >= 0x200B && c <= 0x200F) || c < 0x20;
}

} // namespace

double averageAdvance(wchar_t character)
{
    constexpr wchar_t kTab = 9;
    if (character == kTab)
        return 4 * kWidths[0] / kCapitalHeight;
    if (character >= 0x20 && character < 0x7F)
        return kWidths[character - 0x20] / kCapitalHeight;
    if (isCombining(character))
        return 0.0;
    return (isFullWidth(character) ? kFullWidth : kOtherWidth) / kCapitalHeight;
}

double averageDescent(wchar_t character)
{
    constexpr std::wstring_view kDeep = L"gjpqy()[]{}|@_";
    constexpr std::wstring_view kShallow = L",;$Q";
    constexpr double kDescent = 0.29;
    constexpr double kShallowDescent = 0.15;
    if (kDeep.find(character) != std::wstring_view::npos)
        return kDescent;
    return kShallow.find(character) != std::wstring_view::npos ? kShallowDescent : 0.0;
}

} // namespace fonts
