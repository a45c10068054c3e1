// The ranges of group codes as a table.
#include "GroupCodes.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace oddb
{

namespace
{

struct Range
{
    int first;
    int last;
    GroupValue value;
};

constexpr Range kRanges[] = {
    {0, 4, GroupValue::Text},        {5, 5, GroupValue::Handle},       {6, 9, GroupValue::Text},
    {10, 19, GroupValue::Point},     {20, 59, GroupValue::Real},       {60, 79, GroupValue::Int16},
    {90, 99, GroupValue::Int32},     {100, 102, GroupValue::Text},     {105, 105, GroupValue::Handle},
    {110, 119, GroupValue::Point},   {120, 149, GroupValue::Real},     {160, 169, GroupValue::Int64},
    {170, 179, GroupValue::Int16},   {210, 219, GroupValue::Point},    {220, 239, GroupValue::Real},
    {270, 289, GroupValue::Int16},   {290, 299, GroupValue::Boolean},  {300, 309, GroupValue::Text},
    {310, 319, GroupValue::Binary},  {320, 369, GroupValue::Handle},   {370, 389, GroupValue::Int16},
    {390, 399, GroupValue::Handle},  {400, 409, GroupValue::Int16},    {410, 419, GroupValue::Text},
    {420, 429, GroupValue::Int32},   {430, 439, GroupValue::Text},     {440, 459, GroupValue::Int32},
    {460, 469, GroupValue::Real},    {470, 479, GroupValue::Text},     {480, 481, GroupValue::Handle},
    {1000, 1003, GroupValue::Text},  {1004, 1004, GroupValue::Binary}, {1005, 1005, GroupValue::Handle},
    {1006, 1009, GroupValue::Text},  {1010, 1013, GroupValue::Point},  {1014, 1059, GroupValue::Real},
    {1060, 1070, GroupValue::Int16}, {1071, 1071, GroupValue::Int32},
};

constexpr int kHighestCode = std::end(kRanges)[-1].last;

// The ranges laid out code by code: this is asked for every group of a drawing.
constexpr auto kValues = []
{
    std::array<GroupValue, kHighestCode + 1> values{};
    for (const Range& range : kRanges)
        for (int code = range.first; code <= range.last; ++code)
            values[static_cast<std::size_t>(code)] = range.value;
    return values;
}();

struct ReferenceRange
{
    int first;
    int last;
    OdDb::ReferenceType type;
};

constexpr ReferenceRange kReferences[] = {
    {330, 339, OdDb::kSoftPointerRef},   {340, 349, OdDb::kHardPointerRef}, {350, 359, OdDb::kSoftOwnershipRef},
    {360, 369, OdDb::kHardOwnershipRef}, {390, 399, OdDb::kHardPointerRef}, {480, 481, OdDb::kHardPointerRef},
    {1005, 1005, OdDb::kSoftPointerRef},
};

template<class Row, std::size_t Count>
const Row* findRange(const Row (&rows)[Count], int code)
{
    const Row* found = std::lower_bound(std::begin(rows), std::end(rows), code,
                                        [](const Row& row, int wanted) { return row.last < wanted; });
    return found != std::end(rows) && found->first <= code ? found : nullptr;
}

} // namespace

GroupValue groupValue(int code)
{
    return code >= 0 && code <= kHighestCode ? kValues[static_cast<std::size_t>(code)] : GroupValue::None;
}

std::optional<OdDb::ReferenceType> referenceType(int code)
{
    const ReferenceRange* range = findRange(kReferences, code);
    return range ? std::optional(range->type) : std::nullopt;
}

} // namespace oddb
