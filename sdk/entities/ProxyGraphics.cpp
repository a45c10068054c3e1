// Implements finding the picture of a proxy and its box, and moving it.
#include "entities/ProxyGraphics.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

namespace proxygraphics
{

namespace
{

constexpr int kPictureCode = 310;
constexpr std::size_t kPart = 127; // bytes of a picture in one group

void append(std::string& bytes, std::int32_t value)
{
    bytes.append(reinterpret_cast<const char*>(&value), sizeof value);
}

void append(std::string& bytes, double value)
{
    bytes.append(reinterpret_cast<const char*>(&value), sizeof value);
}

/// Calls visit for each group of the common part, and with false for all others.
template<class Visit>
void visitCommonPart(const oddb::Groups& groups, Visit visit)
{
    int sections = 0;
    for (const oddb::GroupView& group : groups)
    {
        sections += group.beginsSection() ? 1 : 0;
        visit(group, sections <= 1);
    }
}

OdGeExtents3d readBox(std::string_view data)
{
    double c[6];
    if (data.size() < sizeof c)
        return {};
    std::memcpy(c, data.data(), sizeof c);
    if (!std::all_of(std::begin(c), std::end(c), [](double number) { return std::isfinite(number); }))
        return {};
    const OdGeExtents3d box(OdGePoint3d(c[0], c[1], c[2]), OdGePoint3d(c[3], c[4], c[5]));
    return box;
}

void appendBox(std::string& bytes, const OdGeExtents3d& box)
{
    append(bytes, static_cast<std::int32_t>(kHead + 6 * sizeof(double)));
    append(bytes, kExtents);
    for (const OdGePoint3d& corner : {box.minPoint(), box.maxPoint()})
        for (const double coordinate : {corner.x, corner.y, corner.z})
            append(bytes, coordinate);
}

void appendMatrix(std::string& bytes, const OdGeMatrix3d& xform)
{
    append(bytes, static_cast<std::int32_t>(kHead + 16 * sizeof(double)));
    append(bytes, kPushMatrix);
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 4; ++column)
            append(bytes, xform[row][column]);
}

/// The picture inside of a matrix; its box, which is no shape, stands in front.
std::string transformed(std::string_view picture, const OdGeMatrix3d& xform)
{
    std::string pieces;
    std::string_view drawn = picture.substr(kHead);
    OdGeExtents3d box;
    bool isFirst = true;
    visitPieces(picture,
                [&](std::int32_t kind, std::string_view data)
                {
                    if (isFirst && kind == kExtents)
                    {
                        box = readBox(data);
                        drawn = picture.substr(2 * kHead + data.size());
                    }
                    isFirst = false;
                    return false;
                });
    if (box.isValidExtents())
    {
        box.transformBy(xform);
        appendBox(pieces, box);
    }
    appendMatrix(pieces, xform);
    pieces.append(drawn);
    append(pieces, static_cast<std::int32_t>(kHead));
    append(pieces, kPopMatrix);

    std::string result;
    append(result, static_cast<std::int32_t>(kHead + pieces.size()));
    append(result, load<std::int32_t>(picture, sizeof(std::int32_t)) + 2);
    return result + pieces;
}

void appendPicture(oddb::GroupsBuilder& groups, std::string_view picture)
{
    for (; !picture.empty(); picture.remove_prefix(std::min(picture.size(), kPart)))
        groups.binary(kPictureCode, picture.substr(0, kPart));
}

} // namespace

std::string pictureOf(const oddb::Groups& groups)
{
    std::string picture;
    visitCommonPart(groups,
                    [&](const oddb::GroupView& group, bool isCommon)
                    {
                        if (isCommon && group.code() == kPictureCode)
                            picture += group.binary();
                    });
    return picture;
}

OdGeExtents3d boxOf(const oddb::Groups& groups)
{
    OdGeExtents3d box;
    visitPieces(pictureOf(groups),
                [&](std::int32_t kind, std::string_view data)
                {
                    if (kind == kExtents)
                        box = readBox(data);
                    return kind != kExtents;
                });
    return box;
}

oddb::Groups transformed(const oddb::Groups& groups, const OdGeMatrix3d& xform)
{
    const std::string before = pictureOf(groups);
    if (before.size() < kHead)
        return groups;
    const std::string picture = transformed(before, xform);
    oddb::GroupsBuilder moved;
    bool isWritten = false;
    visitCommonPart(groups,
                    [&](const oddb::GroupView& group, bool isCommon)
                    {
                        if (isCommon && (group.code() == 92 || group.code() == 160))
                            moved.integer(group.code(), static_cast<std::int64_t>(picture.size()));
                        else if (!isCommon || group.code() != kPictureCode)
                            moved.append(group);
                        else if (!std::exchange(isWritten, true))
                            appendPicture(moved, picture);
                    });
    return moved.finish();
}

} // namespace proxygraphics
