// Arcs of circles. An arc is a circle's data and two angles, each in its own part of the groups.
#include "DbArc.h"
#include "Gi/GiWorldDraw.h"
#include "entities/Drawing.h"
#include "entities/Fields.h"

using namespace entityfields;
using entitytables::kArc;
using entitytables::kCircle;

namespace
{

OdGePoint3d pointAt(const OdDbArc& arc, double angle)
{
    const Reader circle = read<kCircle>(arc);
    const ocs::Frame frame = ocs::frameOf(circle.normal());
    return frame.toWorld(circle.point(10)) + frame.direction(angle) * circle.real(40);
}

} // namespace

OdGePoint3d OdDbArc::center() const
{
    const Reader circle = read<kCircle>(*this);
    return ocs::frameOf(circle.normal()).toWorld(circle.point(10));
}

void OdDbArc::setCenter(const OdGePoint3d& center)
{
    setPoint(*this, kCircle, 10, ocs::frameOf(normal()).fromWorld(center));
}

double OdDbArc::radius() const
{
    return read<kCircle>(*this).real(40);
}

void OdDbArc::setRadius(double radius)
{
    requireNotNegative(radius);
    setReal(*this, kCircle, 40, radius);
}

double OdDbArc::startAngle() const
{
    return read<kArc>(*this).angle(50);
}

void OdDbArc::setStartAngle(double angle)
{
    setAngle(*this, kArc, 50, angle);
}

double OdDbArc::endAngle() const
{
    return read<kArc>(*this).angle(51);
}

void OdDbArc::setEndAngle(double angle)
{
    setAngle(*this, kArc, 51, angle);
}

double OdDbArc::thickness() const
{
    return read<kCircle>(*this).real(39);
}

void OdDbArc::setThickness(double thickness)
{
    setReal(*this, kCircle, 39, thickness);
}

void OdDbArc::setNormal(const OdGeVector3d& normal)
{
    const OdGePoint3d place = center();
    setVector(*this, kCircle, 210, requireDirection(normal));
    setCenter(place);
}

bool OdDbArc::isPlanar() const
{
    return true;
}

bool OdDbArc::isClosed() const
{
    return false;
}

OdResult OdDbArc::getStartPoint(OdGePoint3d& point) const
{
    point = pointAt(*this, startAngle());
    return eOk;
}

OdResult OdDbArc::getEndPoint(OdGePoint3d& point) const
{
    point = pointAt(*this, endAngle());
    return eOk;
}

bool OdDbArc::subWorldDraw(OdGiWorldDraw* worldDraw) const
{
    const Reader circle = read<kCircle>(*this);
    const Reader arc = read<kArc>(*this);
    const ocs::Frame frame = ocs::frameOf(circle.normal());
    const double start = arc.angle(50);
    drawing::setThickness(*worldDraw, circle.real(39));
    worldDraw->geometry().circularArc(frame.toWorld(circle.point(10)), circle.real(40), frame.z, frame.direction(start),
                                      ocs::sweepOf(start, arc.angle(51)));
    return true;
}
