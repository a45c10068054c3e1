// Flat polylines that hold their vertices themselves. The groups of one vertex are those from its 10 to the next 10.
#include <algorithm>
#include <cmath>

#include "DbPolyline.h"
#include "Gi/GiWorldDraw.h"
#include "OdError.h"
#include "db/KnownEdits.h"
#include "entities/Drawing.h"
#include "entities/Fields.h"

using namespace entityfields;
using drawing::BulgeVertex;
using entitytables::kPolyline;

namespace
{

enum Flag
{
    kClosed = 1,
    kPlinegen = 128
};

struct Vertex : BulgeVertex
{
    std::int64_t identifier = 0;
    bool hasWidths = false;
};

bool belongsToVertex(int code)
{
    return code == 10 || code == 20 || (code >= 40 && code <= 42) || code == 91;
}

void takeValue(Vertex& vertex, const oddb::GroupView& group)
{
    switch (group.code())
    {
    case 20:
        vertex.y = group.real();
        break;
    case 40:
        vertex.startWidth = group.real();
        vertex.hasWidths = true;
        break;
    case 41:
        vertex.endWidth = group.real();
        vertex.hasWidths = true;
        break;
    case 42:
        vertex.bulge = group.real();
        break;
    case 91:
        vertex.identifier = group.integer();
        break;
    default:
        break;
    }
}

/// Calls visit with each group of the polyline's part.
template<class Visit>
void visitSection(const Groups& groups, oddb::Atom atom, Visit visit)
{
    bool inside = false;
    for (const oddb::GroupView& group : groups)
    {
        if (group.beginsSection())
            inside = group.code() == 100 && group.atom() == atom;
        else if (inside)
            visit(group);
    }
}

std::vector<Vertex> verticesOf(const Reader& fields)
{
    constexpr std::size_t kUsual = 8;
    std::vector<Vertex> vertices;
    vertices.reserve(kUsual);
    visitSection(fields.groups(), fields.atom(),
                 [&vertices](const oddb::GroupView& group)
                 {
                     if (group.code() == 10)
                     {
                         vertices.emplace_back();
                         vertices.back().x = group.real();
                     }
                     else if (!vertices.empty())
                         takeValue(vertices.back(), group);
                 });
    return vertices;
}

std::vector<Vertex> verticesOf(const OdDbPolyline& polyline)
{
    return verticesOf(read<kPolyline>(polyline));
}

Vertex& vertexAt(std::vector<Vertex>& vertices, unsigned int index)
{
    if (index >= vertices.size())
        throw OdError(eInvalidIndex);
    return vertices[index];
}

void appendVertex(oddb::GroupsBuilder& groups, const Vertex& vertex)
{
    groups.point(10, vertex.x, vertex.y);
    if (vertex.hasWidths)
        groups.real(40, vertex.startWidth).real(41, vertex.endWidth);
    if (vertex.bulge != 0.0)
        groups.real(42, vertex.bulge);
    if (vertex.identifier != 0)
        groups.integer(91, vertex.identifier);
}

/// Copies the groups with the vertices at the place of the first old one, or behind all else of the polyline's part
/// (before a normal) when there was none.
Groups withVertices(const Groups& groups, oddb::Atom atom, const std::vector<Vertex>& vertices)
{
    oddb::GroupsBuilder copy;
    bool inside = false;
    bool placed = false;
    const auto place = [&]
    {
        if (inside && !placed)
        {
            for (const Vertex& vertex : vertices)
                appendVertex(copy, vertex);
            placed = true;
        }
    };
    for (const oddb::GroupView& group : groups)
    {
        const bool old = inside && belongsToVertex(group.code());
        if (old || group.beginsSection() || group.code() == 210)
            place();
        if (group.beginsSection())
            inside = group.code() == 100 && group.atom() == atom;
        if (!old)
            copy.append(group);
    }
    place();
    return copy.finish();
}

/// As withVertices, with their number.
Groups withVerticesCounted(const OdDbPolyline& polyline, const Reader& fields, const std::vector<Vertex>& vertices)
{
    const Groups edited = withVertices(fields.groups(), fields.atom(), vertices);
    return oddb::withInteger(edited, classOf(polyline), kPolyline, 90, static_cast<std::int64_t>(vertices.size()));
}

void putVertices(OdDbPolyline& polyline, const std::vector<Vertex>& vertices)
{
    oddb::ObjectCore::changeGroups(polyline, withVerticesCounted(polyline, read<kPolyline>(polyline), vertices));
}

/// Reads the vertices, lets edit change the one at index, and puts them back.
template<class Edit>
void editVertex(OdDbPolyline& polyline, unsigned int index, Edit edit)
{
    std::vector<Vertex> vertices = verticesOf(polyline);
    edit(vertexAt(vertices, index));
    putVertices(polyline, vertices);
}

/// Where a further vertex goes, and the number of those in front of it.
struct LastVertex
{
    const std::uint8_t* end = nullptr; ///< null when there is no vertex
    unsigned int count = 0;
};

LastVertex lastVertexOf(const Reader& fields)
{
    LastVertex last;
    visitSection(fields.groups(), fields.atom(),
                 [&last](const oddb::GroupView& group)
                 {
                     if (!belongsToVertex(group.code()))
                         return;
                     last.end = group.next();
                     last.count += group.code() == 10 ? 1 : 0;
                 });
    return last;
}

/// As withVertices, for one more behind all that are there.
Groups withVertexBehind(const OdDbPolyline& polyline, const Reader& fields, const LastVertex& last,
                        const oddb::GroupsBuilder& vertex)
{
    const Groups& groups = fields.groups();
    const std::int64_t count = last.count + 1;
    const std::optional<oddb::GroupView> number = groups.find(fields.atom(), 90);
    const bool isCountedBefore = number && number->next() <= last.end;
    oddb::GroupsBuilder edited;
    edited.appendItems(groups.begin()->item(), isCountedBefore ? number->item() : last.end);
    if (isCountedBefore)
        edited.integer(90, count).appendItems(number->next(), last.end);
    edited.appendItems(vertex.begin(), vertex.end()).appendItems(last.end, groups.end()->item());
    const Groups built = edited.build();
    return isCountedBefore ? built : oddb::withInteger(built, classOf(polyline), kPolyline, 90, count);
}

void putWidths(Vertex& vertex, double start, double end)
{
    vertex.hasWidths = start >= 0.0 || end >= 0.0;
    vertex.startWidth = std::max(start, 0.0);
    vertex.endWidth = std::max(end, 0.0);
}

} // namespace

unsigned int OdDbPolyline::numVerts() const
{
    const Reader fields = read<kPolyline>(*this);
    unsigned int count = 0;
    visitSection(fields.groups(), fields.atom(),
                 [&count](const oddb::GroupView& group) { count += group.code() == 10 ? 1 : 0; });
    return count;
}

void OdDbPolyline::getPointAt(unsigned int index, OdGePoint2d& point) const
{
    std::vector<Vertex> vertices = verticesOf(*this);
    const Vertex& vertex = vertexAt(vertices, index);
    point = OdGePoint2d(vertex.x, vertex.y);
}

void OdDbPolyline::getPointAt(unsigned int index, OdGePoint3d& point) const
{
    OdGePoint2d flat;
    getPointAt(index, flat);
    point = ocs::frameOf(normal()).toWorld(OdGePoint3d(flat.x, flat.y, elevation()));
}

void OdDbPolyline::setPointAt(unsigned int index, const OdGePoint2d& point)
{
    editVertex(*this, index,
               [&point](Vertex& vertex)
               {
                   vertex.x = point.x;
                   vertex.y = point.y;
               });
}

double OdDbPolyline::getBulgeAt(unsigned int index) const
{
    std::vector<Vertex> vertices = verticesOf(*this);
    return vertexAt(vertices, index).bulge;
}

void OdDbPolyline::setBulgeAt(unsigned int index, double bulge)
{
    editVertex(*this, index, [bulge](Vertex& vertex) { vertex.bulge = bulge; });
}

void OdDbPolyline::getWidthsAt(unsigned int index, double& startWidth, double& endWidth) const
{
    std::vector<Vertex> vertices = verticesOf(*this);
    const Vertex& vertex = vertexAt(vertices, index);
    startWidth = vertex.startWidth;
    endWidth = vertex.endWidth;
}

void OdDbPolyline::setWidthsAt(unsigned int index, double startWidth, double endWidth)
{
    editVertex(*this, index, [=](Vertex& vertex) { putWidths(vertex, startWidth, endWidth); });
}

void OdDbPolyline::removeVertexAt(unsigned int index)
{
    std::vector<Vertex> vertices = verticesOf(*this);
    vertexAt(vertices, index);
    vertices.erase(vertices.begin() + index);
    putVertices(*this, vertices);
}

void OdDbPolyline::addVertexAt(unsigned int index, const OdGePoint2d& point, double bulge, double startWidth,
                               double endWidth)
{
    Vertex vertex;
    vertex.x = point.x;
    vertex.y = point.y;
    vertex.bulge = bulge;
    putWidths(vertex, startWidth, endWidth);
    oddb::GroupsBuilder groups;
    appendVertex(groups, vertex);
    const Reader fields = read<kPolyline>(*this);
    const auto insert = [&]
    {
        if (const LastVertex last = lastVertexOf(fields); last.count > 0 && last.count == index)
            return withVertexBehind(*this, fields, last, groups);
        std::vector<Vertex> vertices = verticesOf(fields);
        if (index > vertices.size())
            throw OdError(eInvalidIndex);
        vertices.insert(vertices.begin() + index, vertex);
        return withVerticesCounted(*this, fields, vertices);
    };
    static constexpr char kInsert = 0;
    const oddb::RowEdit edit(&kInsert, isA(), static_cast<int>(index), groups);
    oddb::ObjectCore::changeGroups(*this, oddb::resultOfEdit(*this, fields.groups(), edit, insert));
}

void OdDbPolyline::reset(bool reuse, unsigned int numVerts)
{
    std::vector<Vertex> vertices = verticesOf(*this);
    vertices.resize(reuse ? std::min<std::size_t>(numVerts, vertices.size()) : 0);
    for (Vertex& vertex : vertices)
    {
        vertex.bulge = 0.0;
        putWidths(vertex, -1.0, -1.0);
    }
    putVertices(*this, vertices);
}

void OdDbPolyline::setClosed(bool closed)
{
    setFlag(*this, kPolyline, 70, kClosed, closed);
}

double OdDbPolyline::getConstantWidth() const
{
    const Reader fields = read<kPolyline>(*this);
    const std::vector<Vertex> vertices = verticesOf(fields);
    const double width = fields.real(43);
    if (vertices.empty() || !vertices.front().hasWidths)
        return width;
    const double first = vertices.front().startWidth;
    const bool same =
        std::all_of(vertices.begin(), vertices.end(),
                    [first](const Vertex& vertex) { return vertex.startWidth == first && vertex.endWidth == first; });
    return same ? first : 0.0;
}

void OdDbPolyline::setConstantWidth(double width)
{
    requireNotNegative(width);
    std::vector<Vertex> vertices = verticesOf(*this);
    const bool ownWidths =
        std::any_of(vertices.begin(), vertices.end(), [](const Vertex& vertex) { return vertex.hasWidths; });
    for (Vertex& vertex : vertices)
        putWidths(vertex, -1.0, -1.0);
    if (ownWidths)
        putVertices(*this, vertices);
    setReal(*this, kPolyline, 43, width);
}

bool OdDbPolyline::hasBulges() const
{
    const std::vector<Vertex> vertices = verticesOf(*this);
    return std::any_of(vertices.begin(), vertices.end(), [](const Vertex& vertex) { return vertex.bulge != 0.0; });
}

bool OdDbPolyline::hasWidth() const
{
    const std::vector<Vertex> vertices = verticesOf(*this);
    return read<kPolyline>(*this).real(43) > 0.0 ||
           std::any_of(vertices.begin(), vertices.end(),
                       [](const Vertex& vertex) { return vertex.startWidth > 0.0 || vertex.endWidth > 0.0; });
}

bool OdDbPolyline::hasPlinegen() const
{
    return read<kPolyline>(*this).flag(70, kPlinegen);
}

void OdDbPolyline::setPlinegen(bool plinegen)
{
    setFlag(*this, kPolyline, 70, kPlinegen, plinegen);
}

double OdDbPolyline::elevation() const
{
    return read<kPolyline>(*this).real(38);
}

void OdDbPolyline::setElevation(double elevation)
{
    setReal(*this, kPolyline, 38, elevation);
}

double OdDbPolyline::thickness() const
{
    return read<kPolyline>(*this).real(39);
}

void OdDbPolyline::setThickness(double thickness)
{
    setReal(*this, kPolyline, 39, thickness);
}

void OdDbPolyline::setNormal(const OdGeVector3d& normal)
{
    setVector(*this, kPolyline, 210, requireDirection(normal));
}

bool OdDbPolyline::isPlanar() const
{
    return true;
}

bool OdDbPolyline::isClosed() const
{
    return read<kPolyline>(*this).flag(70, kClosed);
}

OdResult OdDbPolyline::getStartPoint(OdGePoint3d& point) const
{
    if (numVerts() == 0)
        return eInvalidExtents;
    getPointAt(0, point);
    return eOk;
}

OdResult OdDbPolyline::getEndPoint(OdGePoint3d& point) const
{
    const unsigned int count = numVerts();
    if (count == 0)
        return eInvalidExtents;
    getPointAt(isClosed() ? 0 : count - 1, point);
    return eOk;
}

bool OdDbPolyline::subWorldDraw(OdGiWorldDraw* worldDraw) const
{
    const Reader fields = read<kPolyline>(*this);
    const double constantWidth = fields.real(43);
    const std::vector<Vertex> vertices = verticesOf(fields);
    std::vector<BulgeVertex> shape;
    shape.reserve(vertices.size());
    for (const Vertex& vertex : vertices)
    {
        shape.push_back(vertex);
        if (!vertex.hasWidths)
            shape.back().startWidth = shape.back().endWidth = constantWidth;
    }
    drawing::setThickness(*worldDraw, fields.real(39));
    drawing::drawBulgePolyline(*worldDraw, std::move(shape), fields.flag(70, kClosed), ocs::frameOf(fields.normal()),
                               fields.real(38), fields.flag(70, kPlinegen));
    return true;
}
