// Circles.
#include "DbCircle.h"
#include "Gi/GiWorldDraw.h"
#include "entities/Drawing.h"
#include "entities/Fields.h"

using namespace entityfields;
using entitytables::kCircle;

OdGePoint3d OdDbCircle::center() const
{
    const Reader circle = read<kCircle>(*this);
    return ocs::frameOf(circle.normal()).toWorld(circle.point(10));
}

void OdDbCircle::setCenter(const OdGePoint3d& center)
{
    setPoint(*this, kCircle, 10, ocs::frameOf(normal()).fromWorld(center));
}

double OdDbCircle::radius() const
{
    return read<kCircle>(*this).real(40);
}

void OdDbCircle::setRadius(double radius)
{
    requireNotNegative(radius);
    setReal(*this, kCircle, 40, radius);
}

double OdDbCircle::thickness() const
{
    return read<kCircle>(*this).real(39);
}

void OdDbCircle::setThickness(double thickness)
{
    setReal(*this, kCircle, 39, thickness);
}

void OdDbCircle::setNormal(const OdGeVector3d& normal)
{
    const OdGePoint3d place = center();
    setVector(*this, kCircle, 210, requireDirection(normal));
    setCenter(place);
}

bool OdDbCircle::isPlanar() const
{
    return true;
}

bool OdDbCircle::isClosed() const
{
    return true;
}

OdResult OdDbCircle::getStartPoint(OdGePoint3d& point) const
{
    const Reader circle = read<kCircle>(*this);
    const ocs::Frame frame = ocs::frameOf(circle.normal());
    point = frame.toWorld(circle.point(10)) + frame.x * circle.real(40);
    return eOk;
}

OdResult OdDbCircle::getEndPoint(OdGePoint3d& point) const
{
    return getStartPoint(point);
}

bool OdDbCircle::subWorldDraw(OdGiWorldDraw* worldDraw) const
{
    const Reader circle = read<kCircle>(*this);
    const ocs::Frame frame = ocs::frameOf(circle.normal());
    drawing::setThickness(*worldDraw, circle.real(39));
    worldDraw->geometry().circularArc(frame.toWorld(circle.point(10)), circle.real(40), frame.z, frame.x, Oda2PI);
    return true;
}
