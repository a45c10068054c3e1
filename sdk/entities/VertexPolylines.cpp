// Polylines whose vertices are entities of their own: flat ones and those in space.
#include "Db2dPolyline.h"
#include "Db3dPolyline.h"
#include "Gi/GiWorldDraw.h"
#include "entities/Drawing.h"
#include "entities/Fields.h"
#include "entities/Subentities.h"

using namespace entityfields;
using drawing::BulgeVertex;
using entitytables::k2dPolyline;
using entitytables::k3dPolyline;

namespace
{

enum Flag
{
    kClosed = 1,
    kFitted = 2,
    kSplined = 4,
    kPlinegen = 128
};

enum CurveType
{
    kQuadratic = 5,
    kCubic = 6
};

/// The vertices of a flat polyline that its shape goes through: control points of a spline do not count.
std::vector<BulgeVertex> shapeOf(const OdDb2dPolyline& polyline)
{
    const Reader fields = read<k2dPolyline>(polyline);
    const double startWidth = fields.real(40);
    const double endWidth = fields.real(41);
    std::vector<BulgeVertex> shape;
    oddb::visitSubentities(*polyline.subentities(),
                           [&](const OdDbEntity& element)
                           {
                               const OdDb2dVertexPtr vertex = OdDb2dVertex::cast(&element);
                               if (vertex.isNull() || vertex->vertexType() == OdDb::k2dSplineCtlVertex)
                                   return;
                               const Reader data = read<entitytables::k2dVertex>(*vertex);
                               const OdGePoint3d at = data.point(10);
                               shape.push_back({at.x, at.y, data.real(42), data.has(40) ? data.real(40) : startWidth,
                                                data.has(41) ? data.real(41) : endWidth});
                           });
    return shape;
}

std::vector<OdGePoint3d> shapeOf(const OdDb3dPolyline& polyline)
{
    std::vector<OdGePoint3d> shape;
    oddb::visitSubentities(*polyline.subentities(),
                           [&shape](const OdDbEntity& element)
                           {
                               const OdDb3dPolylineVertexPtr vertex = OdDb3dPolylineVertex::cast(&element);
                               if (!vertex.isNull() && vertex->vertexType() != OdDb::k3dControlVertex)
                                   shape.push_back(vertex->position());
                           });
    return shape;
}

OdGePoint3d worldPoint(const OdDb2dPolyline& polyline, const BulgeVertex& vertex)
{
    return ocs::frameOf(polyline.normal()).toWorld(OdGePoint3d(vertex.x, vertex.y, polyline.elevation()));
}

} // namespace

OdDb2dPolyline::OdDb2dPolyline() : m_vertices(std::make_unique<oddb::SubentityList>()) {}

OdDb2dPolyline::~OdDb2dPolyline() = default;

oddb::SubentityList* OdDb2dPolyline::subentities() const
{
    return m_vertices.get();
}

OdDb::Poly2dType OdDb2dPolyline::polyType() const
{
    const Reader fields = read<k2dPolyline>(*this);
    if (fields.flag(70, kSplined))
        return fields.integer(75) == kQuadratic ? OdDb::k2dQuadSplinePoly : OdDb::k2dCubicSplinePoly;
    return fields.flag(70, kFitted) ? OdDb::k2dFitCurvePoly : OdDb::k2dSimplePoly;
}

void OdDb2dPolyline::makeClosed()
{
    setFlag(*this, k2dPolyline, 70, kClosed, true);
}

void OdDb2dPolyline::makeOpen()
{
    setFlag(*this, k2dPolyline, 70, kClosed, false);
}

double OdDb2dPolyline::defaultStartWidth() const
{
    return read<k2dPolyline>(*this).real(40);
}

double OdDb2dPolyline::defaultEndWidth() const
{
    return read<k2dPolyline>(*this).real(41);
}

double OdDb2dPolyline::elevation() const
{
    return read<k2dPolyline>(*this).point(10).z;
}

void OdDb2dPolyline::setElevation(double elevation)
{
    setPoint(*this, k2dPolyline, 10, OdGePoint3d(0.0, 0.0, elevation));
}

double OdDb2dPolyline::thickness() const
{
    return read<k2dPolyline>(*this).real(39);
}

void OdDb2dPolyline::setThickness(double thickness)
{
    setReal(*this, k2dPolyline, 39, thickness);
}

void OdDb2dPolyline::setNormal(const OdGeVector3d& normal)
{
    setVector(*this, k2dPolyline, 210, requireDirection(normal));
}

OdDbObjectId OdDb2dPolyline::appendVertex(OdDb2dVertex* vertex)
{
    return oddb::appendSubentity(*this, *m_vertices, vertex);
}

OdDbObjectIteratorPtr OdDb2dPolyline::vertexIterator() const
{
    assertReadEnabled();
    return oddb::newIterator(*m_vertices);
}

bool OdDb2dPolyline::isPlanar() const
{
    return true;
}

bool OdDb2dPolyline::isClosed() const
{
    return read<k2dPolyline>(*this).flag(70, kClosed);
}

OdResult OdDb2dPolyline::getStartPoint(OdGePoint3d& point) const
{
    const std::vector<BulgeVertex> shape = shapeOf(*this);
    if (shape.empty())
        return eInvalidExtents;
    point = worldPoint(*this, shape.front());
    return eOk;
}

OdResult OdDb2dPolyline::getEndPoint(OdGePoint3d& point) const
{
    const std::vector<BulgeVertex> shape = shapeOf(*this);
    if (shape.empty())
        return eInvalidExtents;
    point = worldPoint(*this, isClosed() ? shape.front() : shape.back());
    return eOk;
}

bool OdDb2dPolyline::subWorldDraw(OdGiWorldDraw* worldDraw) const
{
    const Reader fields = read<k2dPolyline>(*this);
    drawing::setThickness(*worldDraw, fields.real(39));
    drawing::drawBulgePolyline(*worldDraw, shapeOf(*this), fields.flag(70, kClosed), ocs::frameOf(fields.normal()),
                               fields.point(10).z, fields.flag(70, kPlinegen));
    return true;
}

OdDb3dPolyline::OdDb3dPolyline() : m_vertices(std::make_unique<oddb::SubentityList>()) {}

OdDb3dPolyline::~OdDb3dPolyline() = default;

oddb::SubentityList* OdDb3dPolyline::subentities() const
{
    return m_vertices.get();
}

OdDb::Poly3dType OdDb3dPolyline::polyType() const
{
    const Reader fields = read<k3dPolyline>(*this);
    if (!fields.flag(70, kSplined))
        return OdDb::k3dSimplePoly;
    return fields.integer(75) == kQuadratic ? OdDb::k3dQuadSplinePoly : OdDb::k3dCubicSplinePoly;
}

void OdDb3dPolyline::makeClosed()
{
    setFlag(*this, k3dPolyline, 70, kClosed, true);
}

void OdDb3dPolyline::makeOpen()
{
    setFlag(*this, k3dPolyline, 70, kClosed, false);
}

OdDbObjectId OdDb3dPolyline::appendVertex(OdDb3dPolylineVertex* vertex)
{
    return oddb::appendSubentity(*this, *m_vertices, vertex);
}

OdDbObjectIteratorPtr OdDb3dPolyline::vertexIterator() const
{
    assertReadEnabled();
    return oddb::newIterator(*m_vertices);
}

bool OdDb3dPolyline::isClosed() const
{
    return read<k3dPolyline>(*this).flag(70, kClosed);
}

OdResult OdDb3dPolyline::getStartPoint(OdGePoint3d& point) const
{
    const std::vector<OdGePoint3d> shape = shapeOf(*this);
    if (shape.empty())
        return eInvalidExtents;
    point = shape.front();
    return eOk;
}

OdResult OdDb3dPolyline::getEndPoint(OdGePoint3d& point) const
{
    const std::vector<OdGePoint3d> shape = shapeOf(*this);
    if (shape.empty())
        return eInvalidExtents;
    point = isClosed() ? shape.front() : shape.back();
    return eOk;
}

bool OdDb3dPolyline::subWorldDraw(OdGiWorldDraw* worldDraw) const
{
    std::vector<OdGePoint3d> shape = shapeOf(*this);
    if (isClosed() && !shape.empty())
        shape.push_back(shape.front());
    worldDraw->geometry().polyline(static_cast<OdInt32>(shape.size()), shape.data());
    return true;
}
