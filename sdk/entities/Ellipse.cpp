// Ellipses and their arcs.
#include <cmath>

#include "DbEllipse.h"
#include "Gi/GiWorldDraw.h"
#include "OdError.h"
#include "entities/Drawing.h"
#include "entities/Fields.h"

using namespace entityfields;
using entitytables::kEllipse;

namespace
{

struct Shape
{
    OdGePoint3d center;
    OdGeVector3d major;
    OdGeVector3d minor;
    double start;
    double end;

    OdGePoint3d at(double t) const { return center + major * std::cos(t) + minor * std::sin(t); }
};

Shape shapeOf(const OdDbEllipse& ellipse)
{
    const Reader fields = read<kEllipse>(ellipse);
    Shape shape{fields.point(10), fields.vector(11), {}, fields.real(41), fields.real(42)};
    shape.minor = fields.normal().crossProduct(shape.major) * fields.real(40);
    shape.end = shape.start + ocs::sweepOf(shape.start, shape.end);
    return shape;
}

} // namespace

OdGePoint3d OdDbEllipse::center() const
{
    return read<kEllipse>(*this).point(10);
}

void OdDbEllipse::setCenter(const OdGePoint3d& center)
{
    setPoint(*this, kEllipse, 10, center);
}

OdGeVector3d OdDbEllipse::majorAxis() const
{
    return read<kEllipse>(*this).vector(11);
}

OdGeVector3d OdDbEllipse::minorAxis() const
{
    return shapeOf(*this).minor;
}

double OdDbEllipse::radiusRatio() const
{
    return read<kEllipse>(*this).real(40);
}

void OdDbEllipse::set(const OdGePoint3d& center, const OdGeVector3d& unitNormal, const OdGeVector3d& majorAxis,
                      double radiusRatio, double startParam, double endParam)
{
    const OdGeVector3d normal = requireDirection(unitNormal);
    requireDirection(majorAxis);
    requirePositive(radiusRatio);
    if (radiusRatio > 1.0 || !std::isfinite(startParam) || !std::isfinite(endParam))
        throw OdError(eInvalidInput);
    setPoint(*this, kEllipse, 10, center);
    setVector(*this, kEllipse, 11, majorAxis);
    setVector(*this, kEllipse, 210, normal);
    setReal(*this, kEllipse, 40, radiusRatio);
    setReal(*this, kEllipse, 41, startParam);
    setReal(*this, kEllipse, 42, endParam);
}

double OdDbEllipse::startParam() const
{
    return read<kEllipse>(*this).real(41);
}

double OdDbEllipse::endParam() const
{
    return read<kEllipse>(*this).real(42);
}

bool OdDbEllipse::isPlanar() const
{
    return true;
}

bool OdDbEllipse::isClosed() const
{
    const Shape shape = shapeOf(*this);
    return OdEqual(shape.end - shape.start, Oda2PI, 1e-9);
}

OdResult OdDbEllipse::getStartPoint(OdGePoint3d& point) const
{
    const Shape shape = shapeOf(*this);
    point = shape.at(shape.start);
    return eOk;
}

OdResult OdDbEllipse::getEndPoint(OdGePoint3d& point) const
{
    const Shape shape = shapeOf(*this);
    point = shape.at(shape.end);
    return eOk;
}

bool OdDbEllipse::subWorldDraw(OdGiWorldDraw* worldDraw) const
{
    const Shape shape = shapeOf(*this);
    worldDraw->geometry().ellipArc(shape.center, shape.major, shape.minor, shape.start, shape.end);
    return true;
}
