// Mapping the plane.
#include "Ge/GeMatrix2d.h"

#include <cmath>

#include "OdError.h"

namespace
{

// Carries out a mapping that leaves the origin in place about another point.
OdGeMatrix2d about(const OdGePoint2d& center, const OdGeMatrix2d& linear)
{
    return OdGeMatrix2d::translation(center.asVector()) * linear * OdGeMatrix2d::translation(-center.asVector());
}

OdGeMatrix2d fromAxes(const OdGeVector2d& xAxis, const OdGeVector2d& yAxis)
{
    return OdGeMatrix2d().setCoordSystem(OdGePoint2d(), xAxis, yAxis);
}

} // namespace

OdGeMatrix2d OdGeMatrix2d::translation(const OdGeVector2d& vector)
{
    return OdGeMatrix2d().setCoordSystem(vector.asPoint(), OdGeVector2d(1.0, 0.0), OdGeVector2d(0.0, 1.0));
}

OdGeMatrix2d OdGeMatrix2d::rotation(double angle, const OdGePoint2d& center)
{
    const OdGeVector2d xAxis(std::cos(angle), std::sin(angle));
    return about(center, fromAxes(xAxis, xAxis.perpVector()));
}

OdGeMatrix2d OdGeMatrix2d::scaling(double factor, const OdGePoint2d& center)
{
    return about(center, fromAxes({factor, 0.0}, {0.0, factor}));
}

OdGeMatrix2d OdGeMatrix2d::mirroring(const OdGePoint2d& point)
{
    return scaling(-1.0, point);
}

OdGeMatrix2d OdGeMatrix2d::mirroring(const OdGePoint2d& point, const OdGeVector2d& direction)
{
    const double sqrd = direction.lengthSqrd();
    if (!(sqrd > 0.0))
        odThrow(eInvalidInput);
    const double cosine = (direction.x * direction.x - direction.y * direction.y) / sqrd;
    const double sine = 2.0 * direction.x * direction.y / sqrd;
    return about(point, fromAxes({cosine, sine}, {sine, -cosine}));
}

OdGeMatrix2d& OdGeMatrix2d::setCoordSystem(const OdGePoint2d& origin, const OdGeVector2d& xAxis,
                                           const OdGeVector2d& yAxis)
{
    const double values[3][3] = {{xAxis.x, yAxis.x, origin.x}, {xAxis.y, yAxis.y, origin.y}, {0.0, 0.0, 1.0}};
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 3; ++column)
            entry[row][column] = values[row][column];
    return *this;
}

void OdGeMatrix2d::getCoordSystem(OdGePoint2d& origin, OdGeVector2d& xAxis, OdGeVector2d& yAxis) const
{
    xAxis = {entry[0][0], entry[1][0]};
    yAxis = {entry[0][1], entry[1][1]};
    origin = {entry[0][2], entry[1][2]};
}

OdGeMatrix2d OdGeMatrix2d::operator*(const OdGeMatrix2d& right) const
{
    OdGeMatrix2d product;
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 3; ++column)
        {
            double sum = 0.0;
            for (int i = 0; i < 3; ++i)
                sum += entry[row][i] * right.entry[i][column];
            product.entry[row][column] = sum;
        }
    return product;
}

OdGePoint2d OdGeMatrix2d::operator*(const OdGePoint2d& point) const
{
    return (*this * point.asVector()).asPoint() + translation();
}

OdGeVector2d OdGeMatrix2d::operator*(const OdGeVector2d& vector) const
{
    return {entry[0][0] * vector.x + entry[0][1] * vector.y, entry[1][0] * vector.x + entry[1][1] * vector.y};
}

double OdGeMatrix2d::det() const
{
    return entry[0][0] * entry[1][1] - entry[0][1] * entry[1][0];
}

bool OdGeMatrix2d::isSingular(const OdGeTol& tol) const
{
    const double sizes = std::hypot(entry[0][0], entry[1][0]) * std::hypot(entry[0][1], entry[1][1]);
    return !(std::fabs(det()) > tol.equalVector() * sizes);
}

OdGeMatrix2d OdGeMatrix2d::inverse() const
{
    if (isSingular())
        odThrow(eNonInvertibleMatrix);
    const double d = det();
    const OdGeMatrix2d linear = fromAxes({entry[1][1] / d, -entry[1][0] / d}, {-entry[0][1] / d, entry[0][0] / d});
    return linear * translation(-translation());
}

bool OdGeMatrix2d::isEqualTo(const OdGeMatrix2d& other, const OdGeTol& tol) const
{
    for (int row = 0; row < 3; ++row)
        for (int column = 0; column < 3; ++column)
            if (!(std::fabs(entry[row][column] - other.entry[row][column]) <= tol.equalPoint()))
                return false;
    return true;
}
