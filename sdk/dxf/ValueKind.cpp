// The kinds of values by code, laid out so that the scanner finds each with one look.
#include "ValueKind.h"

#include "db/GroupCodes.h"

namespace dxf
{
namespace
{

constexpr int kCommentCode = 999;

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

auto layOut()
{
    std::remove_const_t<decltype(kValueKinds)> kinds{};
    for (int code = kLowestCode; code <= kHighestCode; ++code)
        kinds[static_cast<std::size_t>(code - kLowestCode)] = kindOf(oddb::groupValue(code));
    kinds[kCommentCode - kLowestCode] = ValueKind::Comment;
    return kinds;
}

} // namespace

const std::array<ValueKind, kHighestCode - kLowestCode + 1> kValueKinds = layOut();

} // namespace dxf
