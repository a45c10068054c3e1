// Draws hatches: areas of one colour, or lines of a pattern within them.
#include <cmath>

#include "DbHatch.h"
#include "Gi/GiWorldDraw.h"
#include "entities/Fields.h"
#include "entities/HatchPattern.h"
#include "entities/Ocs.h"

using namespace entityfields;
using entitytables::kHatch;
using hatcharea::Outline;
using hatcharea::Part;

namespace
{

constexpr double kFinestPart = 4.0; ///< lines nearer than this many deviations of curves cannot be told apart

/// The plane of a hatch.
struct Plane
{
    ocs::Frame frame;
    double elevation = 0.0;

    OdGePoint3d at(const OdGePoint2d& point) const { return frame.toWorld(OdGePoint3d(point.x, point.y, elevation)); }
};

/// A part as one face: its first outline, and the others behind it as further outlines of the same face.
void fillPart(OdGiGeometry& geometry, const Part& part, const Plane& plane)
{
    std::vector<OdGePoint3d> vertices;
    std::vector<OdInt32> face;
    for (const Outline& outline : part)
    {
        const auto count = static_cast<OdInt32>(outline.size());
        face.push_back(face.empty() ? count : -count);
        for (const OdGePoint2d& point : outline)
        {
            face.push_back(static_cast<OdInt32>(vertices.size()));
            vertices.push_back(plane.at(point));
        }
    }
    geometry.shell(static_cast<OdInt32>(vertices.size()), vertices.data(), static_cast<OdInt32>(face.size()),
                   face.data());
}

/// What shows a gradient: the middle between its colours. Null when the hatch is none.
std::optional<OdCmEntityColor> gradientColor(const Reader& fields)
{
    if (fields.integer(450) == 0)
        return std::nullopt;
    int count = 0;
    int red = 0;
    int green = 0;
    int blue = 0;
    for (const oddb::GroupView& group : fields.groups())
    {
        if (group.code() != 421)
            continue;
        const auto rgb = static_cast<OdUInt32>(group.integer());
        red += rgb >> 16 & 0xFF;
        green += rgb >> 8 & 0xFF;
        blue += rgb & 0xFF;
        ++count;
    }
    if (count == 0)
        return std::nullopt;
    return OdCmEntityColor(static_cast<OdUInt8>(red / count), static_cast<OdUInt8>(green / count),
                           static_cast<OdUInt8>(blue / count));
}

void fillWithColor(OdGiWorldDraw& worldDraw, const std::vector<Part>& parts, const Plane& plane)
{
    worldDraw.subEntityTraits().setFillType(kOdGiFillAlways);
    for (const Part& part : parts)
        fillPart(worldDraw.geometry(), part, plane);
}

void fillWithLines(OdGiWorldDraw& worldDraw, const Reader& fields, const std::vector<Part>& parts, const Plane& plane)
{
    const OdGeVector3d normal = plane.frame.z;
    const hatchpattern::Draw drawDash = [&](const OdGePoint2d& from, const OdGePoint2d& to)
    {
        const OdGePoint3d ends[2] = {plane.at(from), plane.at(to)};
        const bool isDot = from.x == to.x && from.y == to.y;
        worldDraw.geometry().polyline(isDot ? 1 : 2, ends, &normal);
    };
    const double finest = worldDraw.deviation() * kFinestPart;
    for (const hatchpattern::Lines& lines : hatchpattern::readPattern(fields.groups(), fields.atom()))
    {
        for (const Part& part : parts)
        {
            if (hatchpattern::drawLines(lines, part, finest, drawDash) || worldDraw.regenAbort())
                continue;
            // Too fine to be seen as lines: they are seen as an area that lets half of what is behind through.
            worldDraw.subEntityTraits().setTransparency(OdCmTransparency(static_cast<OdUInt8>(128)));
            return fillWithColor(worldDraw, parts, plane);
        }
    }
}

} // namespace

bool OdDbHatch::subWorldDraw(OdGiWorldDraw* worldDraw) const
{
    const Reader fields = read<kHatch>(*this);
    const Plane plane{ocs::frameOf(fields.normal()), fields.point(10).z};
    const std::vector<hatchloops::Loop> loops = hatchloops::readLoops(fields.groups(), fields.atom());
    if (worldDraw->regenType() == kOdGiForExtents)
    {
        for (const hatchloops::Loop& loop : loops)
            hatchloops::drawLoop(*worldDraw, loop, plane.frame, plane.elevation);
        return true;
    }
    const std::vector<Part> parts =
        hatcharea::partsOf(hatcharea::outlinesOf(loops, worldDraw->deviation()), fields.integer(75));
    const std::optional<OdCmEntityColor> gradient = gradientColor(fields);
    if (gradient)
        worldDraw->subEntityTraits().setTrueColor(*gradient);
    if (gradient || fields.integer(70) != 0)
        fillWithColor(*worldDraw, parts, plane);
    else
        fillWithLines(*worldDraw, fields, parts, plane);
    return true;
}
