// The kinds of values by code, laid out so that the scanner finds each with one look.
#include "ValueKind.h"

#include "db/GroupCodes.h"

#include <array>

namespace dxf
{
namespace
{

constexpr int kCommentCode = 999;
constexpr std::size_t kCodes = kHighestCode - kLowestCode + 1;

ValueKind kindOf(oddb::GroupValue value)
{
    switch (value)
    {
    case oddb::GroupValue::Point:
    case oddb::GroupValue::Real:
        return ValueKind::Real;
    case oddb::GroupValue::Int16:
        return ValueKind::Int16;
    case oddb::GroupValue::Int32:
        return ValueKind::Int32;
    case oddb::GroupValue::Int64:
        return ValueKind::Int64;
    case oddb::GroupValue::Boolean:
        return ValueKind::Bool;
    case oddb::GroupValue::Handle:
        return ValueKind::Handle;
    case oddb::GroupValue::Binary:
        return ValueKind::Bytes;
    default:
        return ValueKind::Text;
    }
}

std::array<ValueKind, kCodes> layOut()
{
    std::array<ValueKind, kCodes> kinds{};
    for (int code = kLowestCode; code <= kHighestCode; ++code)
        kinds[static_cast<std::size_t>(code - kLowestCode)] = kindOf(oddb::groupValue(code));
    kinds[kCommentCode - kLowestCode] = ValueKind::Comment;
    return kinds;
}

const std::array<ValueKind, kCodes> kKinds = layOut();

} // namespace

ValueKind valueKind(int code)
{
    return isGroupCode(code) ? kKinds[static_cast<std::size_t>(code - kLowestCode)] : ValueKind::Text;
}

} // namespace dxf
