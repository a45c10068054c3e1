// Which groups of which classes hold places, directions, lengths and angles.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace transform
{

enum class Role : std::uint8_t
{
    Place,          ///< a point of the world
    UnseenPlace,    ///< a point of the world at which nothing is seen
    PlaneDirection, ///< the normal: it stays at a right angle to the plane
    Direction,      ///< a vector of the world that takes part in scaling
    PlacePlane,     ///< a point in the entity's own coordinates, two or three coordinates
    Elevation,      ///< the height of the entity's plane above the origin
    ElevationPoint, ///< the same as the third coordinate of a point whose others mean nothing
    Length,         ///< a length along any direction
    AnglePlane,     ///< degrees from the x axis of the entity's plane
    TurnPlane,      ///< as AnglePlane, zero where it is missing, unless group 11 gives the direction
    Thickness,      ///< a length along the normal
    Matrix          ///< sixteen numbers of a matrix, row by row
};

struct RoleRow
{
    int code;
    Role role;
    bool isPath = false; ///< the points of this code are the vertices of a line
};

/// The roles in one part of an entity's groups. Some parts hold blocks of groups between a text that ends with an
/// opening brace and one that begins with a closing brace; their rows name that text.
struct RoleSection
{
    const char* marker;
    const char* block; ///< empty outside of blocks
    std::span<const RoleRow> rows;
    bool anyMatrix = false; ///< the places alone hold the shape, so that skewing does no harm
};

/// The section for a marker and block, null when nothing in it moves.
const RoleSection* findRoles(std::string_view marker, std::string_view block);

} // namespace transform
