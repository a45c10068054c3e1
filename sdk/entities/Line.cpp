// Straight lines, rays and construction lines.
#include "DbLine.h"
#include "DbXline.h"
#include "Gi/GiWorldDraw.h"
#include "entities/Drawing.h"
#include "entities/Fields.h"

using namespace entityfields;
using entitytables::kLine;
using entitytables::kRay;
using entitytables::kXline;

OdGePoint3d OdDbLine::startPoint() const
{
    return read<kLine>(*this).point(10);
}

void OdDbLine::setStartPoint(const OdGePoint3d& point)
{
    setPoint(*this, kLine, 10, point);
}

OdGePoint3d OdDbLine::endPoint() const
{
    return read<kLine>(*this).point(11);
}

void OdDbLine::setEndPoint(const OdGePoint3d& point)
{
    setPoint(*this, kLine, 11, point);
}

double OdDbLine::thickness() const
{
    return read<kLine>(*this).real(39);
}

void OdDbLine::setThickness(double thickness)
{
    setReal(*this, kLine, 39, thickness);
}

void OdDbLine::setNormal(const OdGeVector3d& normal)
{
    setVector(*this, kLine, 210, requireDirection(normal));
}

bool OdDbLine::isClosed() const
{
    return false;
}

OdResult OdDbLine::getStartPoint(OdGePoint3d& point) const
{
    point = startPoint();
    return eOk;
}

OdResult OdDbLine::getEndPoint(OdGePoint3d& point) const
{
    point = endPoint();
    return eOk;
}

bool OdDbLine::subWorldDraw(OdGiWorldDraw* worldDraw) const
{
    const Reader line = read<kLine>(*this);
    const OdGePoint3d points[2] = {line.point(10), line.point(11)};
    const OdGeVector3d normal = line.normal();
    drawing::setThickness(*worldDraw, line.real(39));
    worldDraw->geometry().polyline(2, points, &normal);
    return true;
}

OdGePoint3d OdDbXline::basePoint() const
{
    return read<kXline>(*this).point(10);
}

void OdDbXline::setBasePoint(const OdGePoint3d& point)
{
    setPoint(*this, kXline, 10, point);
}

OdGeVector3d OdDbXline::unitDir() const
{
    return read<kXline>(*this).vector(11);
}

void OdDbXline::setUnitDir(const OdGeVector3d& direction)
{
    setVector(*this, kXline, 11, requireDirection(direction));
}

bool OdDbXline::subWorldDraw(OdGiWorldDraw* worldDraw) const
{
    worldDraw->geometry().xline(basePoint(), basePoint() + unitDir());
    return true;
}

OdGePoint3d OdDbRay::basePoint() const
{
    return read<kRay>(*this).point(10);
}

void OdDbRay::setBasePoint(const OdGePoint3d& point)
{
    setPoint(*this, kRay, 10, point);
}

OdGeVector3d OdDbRay::unitDir() const
{
    return read<kRay>(*this).vector(11);
}

void OdDbRay::setUnitDir(const OdGeVector3d& direction)
{
    setVector(*this, kRay, 11, requireDirection(direction));
}

OdResult OdDbRay::getStartPoint(OdGePoint3d& point) const
{
    point = basePoint();
    return eOk;
}

bool OdDbRay::subWorldDraw(OdGiWorldDraw* worldDraw) const
{
    worldDraw->geometry().ray(basePoint(), basePoint() + unitDir());
    return true;
}
