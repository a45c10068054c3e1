// Meshes whose vertices are entities of their own: nets of M by N points, and faces between listed points.
#include <algorithm>
#include <array>
#include <cstdlib>

#include "DbPolyFaceMesh.h"
#include "DbPolygonMesh.h"
#include "Gi/GiWorldDraw.h"
#include "entities/Fields.h"
#include "entities/Subentities.h"

using namespace entityfields;
using entitytables::kPolyFaceMesh;
using entitytables::kPolygonMesh;

namespace
{

enum Flag
{
    kMClosed = 1,
    kNClosed = 32
};

constexpr int kCorners = 4;

std::vector<OdGePoint3d> pointsOf(const OdDbPolygonMesh& mesh)
{
    std::vector<OdGePoint3d> points;
    oddb::visitSubentities(*mesh.subentities(),
                           [&points](const OdDbEntity& element)
                           {
                               const OdDbPolygonMeshVertexPtr vertex = OdDbPolygonMeshVertex::cast(&element);
                               if (!vertex.isNull() && vertex->vertexType() != OdDb::k3dControlVertex)
                                   points.push_back(vertex->position());
                           });
    return points;
}

/// Lines through every stride-th point, count of them from first, and back to first when closed.
void drawNetLine(OdGiGeometry& geometry, const std::vector<OdGePoint3d>& points, std::size_t first, std::size_t stride,
                 std::size_t count, bool closed)
{
    std::vector<OdGePoint3d> line;
    for (std::size_t i = 0; i < count; ++i)
        line.push_back(points[first + i * stride]);
    if (closed)
        line.push_back(points[first]);
    geometry.polyline(static_cast<OdInt32>(line.size()), line.data());
}

struct FaceMesh
{
    std::vector<OdGePoint3d> points;
    std::vector<std::array<int, kCorners>> faces;
};

FaceMesh dataOf(const OdDbPolyFaceMesh& mesh)
{
    FaceMesh data;
    oddb::visitSubentities(*mesh.subentities(),
                           [&data](const OdDbEntity& element)
                           {
                               if (const OdDbPolyFaceMeshVertexPtr vertex = OdDbPolyFaceMeshVertex::cast(&element);
                                   !vertex.isNull())
                                   data.points.push_back(vertex->position());
                               else if (const OdDbFaceRecordPtr face = OdDbFaceRecord::cast(&element); !face.isNull())
                               {
                                   const Reader corners = read<entitytables::kFaceRecord>(*face);
                                   data.faces.push_back({corners.integer(71), corners.integer(72), corners.integer(73),
                                                         corners.integer(74)});
                               }
                           });
    return data;
}

void drawFace(OdGiGeometry& geometry, const FaceMesh& mesh, const std::array<int, kCorners>& face)
{
    OdGePoint3d corners[kCorners];
    OdInt32 count = 0;
    for (const int corner : face)
    {
        const auto index = static_cast<std::size_t>(std::llabs(corner));
        if (index > 0 && index <= mesh.points.size())
            corners[count++] = mesh.points[index - 1];
    }
    if (count > 0)
        geometry.polygon(count, corners);
}

} // namespace

OdDbPolygonMesh::OdDbPolygonMesh() : m_vertices(std::make_unique<oddb::SubentityList>()) {}

OdDbPolygonMesh::~OdDbPolygonMesh() = default;

oddb::SubentityList* OdDbPolygonMesh::subentities() const
{
    return m_vertices.get();
}

OdInt16 OdDbPolygonMesh::mSize() const
{
    return static_cast<OdInt16>(read<kPolygonMesh>(*this).integer(71));
}

OdInt16 OdDbPolygonMesh::nSize() const
{
    return static_cast<OdInt16>(read<kPolygonMesh>(*this).integer(72));
}

bool OdDbPolygonMesh::isMClosed() const
{
    return read<kPolygonMesh>(*this).flag(70, kMClosed);
}

bool OdDbPolygonMesh::isNClosed() const
{
    return read<kPolygonMesh>(*this).flag(70, kNClosed);
}

OdDbObjectId OdDbPolygonMesh::appendVertex(OdDbPolygonMeshVertex* vertex)
{
    return oddb::appendSubentity(*this, *m_vertices, vertex);
}

OdDbObjectIteratorPtr OdDbPolygonMesh::vertexIterator() const
{
    assertReadEnabled();
    return oddb::newIterator(*m_vertices);
}

bool OdDbPolygonMesh::subWorldDraw(OdGiWorldDraw* worldDraw) const
{
    const std::vector<OdGePoint3d> points = pointsOf(*this);
    OdGiGeometry& geometry = worldDraw->geometry();
    const auto n = static_cast<std::size_t>(std::max<OdInt16>(nSize(), 0));
    if (n == 0 || points.size() % n != 0)
    {
        geometry.polyline(static_cast<OdInt32>(points.size()), points.data());
        return true;
    }
    // Smoothed meshes have more rows than their size says, so the rows are counted.
    const std::size_t m = points.size() / n;
    for (std::size_t row = 0; row < m; ++row)
        drawNetLine(geometry, points, row * n, 1, n, isNClosed());
    for (std::size_t column = 0; column < n && m > 0; ++column)
        drawNetLine(geometry, points, column, n, m, isMClosed());
    return true;
}

OdDbPolyFaceMesh::OdDbPolyFaceMesh() : m_vertices(std::make_unique<oddb::SubentityList>()) {}

OdDbPolyFaceMesh::~OdDbPolyFaceMesh() = default;

oddb::SubentityList* OdDbPolyFaceMesh::subentities() const
{
    return m_vertices.get();
}

OdInt16 OdDbPolyFaceMesh::numVertices() const
{
    return static_cast<OdInt16>(read<kPolyFaceMesh>(*this).integer(71));
}

OdInt16 OdDbPolyFaceMesh::numFaces() const
{
    return static_cast<OdInt16>(read<kPolyFaceMesh>(*this).integer(72));
}

OdDbObjectId OdDbPolyFaceMesh::appendVertex(OdDbPolyFaceMeshVertex* vertex)
{
    const OdDbObjectId id = oddb::appendSubentity(*this, *m_vertices, vertex);
    setInteger(*this, kPolyFaceMesh, 71, numVertices() + 1);
    return id;
}

OdDbObjectId OdDbPolyFaceMesh::appendFaceRecord(OdDbFaceRecord* face)
{
    const OdDbObjectId id = oddb::appendSubentity(*this, *m_vertices, face);
    setInteger(*this, kPolyFaceMesh, 72, numFaces() + 1);
    return id;
}

OdDbObjectIteratorPtr OdDbPolyFaceMesh::vertexIterator() const
{
    assertReadEnabled();
    return oddb::newIterator(*m_vertices);
}

bool OdDbPolyFaceMesh::subWorldDraw(OdGiWorldDraw* worldDraw) const
{
    const FaceMesh mesh = dataOf(*this);
    for (const std::array<int, kCorners>& face : mesh.faces)
        drawFace(worldDraw->geometry(), mesh, face);
    return true;
}
