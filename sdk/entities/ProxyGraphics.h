// The picture that an entity of an unknown class brings along, as binary groups (310) of its common part:
//
//   picture = int32 size of all, int32 number of pieces, piece...
//   piece   = int32 size with this head, int32 kind, data
//   kind 1  = extents: six doubles, least corner and greatest corner
//   kind 29 = coordinates that follow are mapped by a matrix: sixteen doubles, row by row
//   kind 31 = end of the innermost kind 29
//
// All numbers are little-endian. ProxyPainter.h has the other kinds.
#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "Ge/GeExtents3d.h"
#include "Ge/GeMatrix3d.h"
#include "db/Groups.h"

namespace proxygraphics
{

constexpr std::int32_t kExtents = 1;
constexpr std::int32_t kPushMatrix = 29;
constexpr std::int32_t kPopMatrix = 31;
constexpr std::size_t kHead = 2 * sizeof(std::int32_t);

/// The bytes of the picture; none when there is no picture.
std::string pictureOf(const oddb::Groups& groups);

template<class T>
T load(std::string_view bytes, std::size_t at)
{
    T value;
    std::memcpy(&value, bytes.data() + at, sizeof value);
    return value;
}

/// Calls visit(kind, data) for the pieces in turn until one is damaged or visit returns false.
template<class Visit>
void visitPieces(std::string_view picture, Visit visit)
{
    for (std::size_t at = kHead; at + kHead <= picture.size();)
    {
        const auto size = load<std::int32_t>(picture, at);
        if (size < static_cast<std::int32_t>(kHead) || static_cast<std::size_t>(size) > picture.size() - at)
            return;
        const auto kind = load<std::int32_t>(picture, at + sizeof(std::int32_t));
        if (!visit(kind, picture.substr(at + kHead, static_cast<std::size_t>(size) - kHead)))
            return;
        at += static_cast<std::size_t>(size);
    }
}

/// The box that the picture says it fills; no box when there is no picture or it does not say.
OdGeExtents3d boxOf(const oddb::Groups& groups);

/// A copy of the groups in which the picture, if there is one, is mapped by the matrix.
oddb::Groups transformed(const oddb::Groups& groups, const OdGeMatrix3d& xform);

} // namespace proxygraphics
