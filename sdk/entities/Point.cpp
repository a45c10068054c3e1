// Points.
#include "DbPoint.h"
#include "Gi/GiWorldDraw.h"
#include "entities/Drawing.h"
#include "entities/Fields.h"

using namespace entityfields;
using entitytables::kPoint;

OdGePoint3d OdDbPoint::position() const
{
    return read<kPoint>(*this).point(10);
}

void OdDbPoint::setPosition(const OdGePoint3d& point)
{
    setPoint(*this, kPoint, 10, point);
}

double OdDbPoint::thickness() const
{
    return read<kPoint>(*this).real(39);
}

void OdDbPoint::setThickness(double thickness)
{
    setReal(*this, kPoint, 39, thickness);
}

void OdDbPoint::setNormal(const OdGeVector3d& normal)
{
    setVector(*this, kPoint, 210, requireDirection(normal));
}

double OdDbPoint::ecsRotation() const
{
    return read<kPoint>(*this).angle(50);
}

void OdDbPoint::setEcsRotation(double rotation)
{
    setAngle(*this, kPoint, 50, rotation);
}

bool OdDbPoint::subWorldDraw(OdGiWorldDraw* worldDraw) const
{
    const Reader fields = read<kPoint>(*this);
    const OdGePoint3d point = fields.point(10);
    const OdGeVector3d normal = fields.normal();
    drawing::setThickness(*worldDraw, fields.real(39));
    worldDraw->geometry().polyline(1, &point, &normal);
    return true;
}
