// Mapping space.
#include "Ge/GeMatrix3d.h"

#include <algorithm>
#include <cmath>

#include "Ge/GePlane.h"
#include "OdError.h"

namespace
{

// Carries out a mapping that leaves the origin in place about another point.
OdGeMatrix3d about(const OdGePoint3d& center, const OdGeMatrix3d& linear)
{
    return OdGeMatrix3d::translation(center.asVector()) * linear * OdGeMatrix3d::translation(-center.asVector());
}

OdGeMatrix3d fromAxes(const OdGeVector3d& xAxis, const OdGeVector3d& yAxis, const OdGeVector3d& zAxis)
{
    return OdGeMatrix3d().setCoordSystem(OdGePoint3d(), xAxis, yAxis, zAxis);
}

OdGeVector3d unitOf(const OdGeVector3d& vector)
{
    const double length = vector.length();
    if (!(length > 0.0) || !std::isfinite(length))
        odThrow(eInvalidInput);
    return vector / length;
}

} // namespace

OdGeMatrix3d OdGeMatrix3d::translation(const OdGeVector3d& vector)
{
    return OdGeMatrix3d().setTranslation(vector);
}

OdGeMatrix3d OdGeMatrix3d::rotation(double angle, const OdGeVector3d& axis, const OdGePoint3d& center)
{
    const OdGeVector3d n = unitOf(axis);
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    const double t = 1.0 - c;
    return about(center, fromAxes({c + t * n.x * n.x, t * n.x * n.y + s * n.z, t * n.x * n.z - s * n.y},
                                  {t * n.x * n.y - s * n.z, c + t * n.y * n.y, t * n.y * n.z + s * n.x},
                                  {t * n.x * n.z + s * n.y, t * n.y * n.z - s * n.x, c + t * n.z * n.z}));
}

OdGeMatrix3d OdGeMatrix3d::scaling(double factor, const OdGePoint3d& center)
{
    return scaling(OdGeScale3d(factor), center);
}

OdGeMatrix3d OdGeMatrix3d::scaling(const OdGeScale3d& scale, const OdGePoint3d& center)
{
    return about(center, fromAxes({scale.sx, 0.0, 0.0}, {0.0, scale.sy, 0.0}, {0.0, 0.0, scale.sz}));
}

OdGeMatrix3d OdGeMatrix3d::mirroring(const OdGePlane& plane)
{
    const OdGeVector3d n = plane.normal();
    const auto mirrored = [&n](const OdGeVector3d& axis) { return axis - n * (2.0 * axis.dotProduct(n)); };
    return about(plane.origin(),
                 fromAxes(mirrored({1.0, 0.0, 0.0}), mirrored({0.0, 1.0, 0.0}), mirrored({0.0, 0.0, 1.0})));
}

OdGeMatrix3d OdGeMatrix3d::mirroring(const OdGePoint3d& point)
{
    return scaling(-1.0, point);
}

OdGeMatrix3d OdGeMatrix3d::mirroring(const OdGePoint3d& point, const OdGeVector3d& direction)
{
    const OdGeVector3d n = unitOf(direction);
    const auto mirrored = [&n](const OdGeVector3d& axis) { return n * (2.0 * axis.dotProduct(n)) - axis; };
    return about(point, fromAxes(mirrored({1.0, 0.0, 0.0}), mirrored({0.0, 1.0, 0.0}), mirrored({0.0, 0.0, 1.0})));
}

OdGeMatrix3d OdGeMatrix3d::alignCoordSys(const OdGePoint3d& fromOrigin, const OdGeVector3d& fromXAxis,
                                         const OdGeVector3d& fromYAxis, const OdGeVector3d& fromZAxis,
                                         const OdGePoint3d& toOrigin, const OdGeVector3d& toXAxis,
                                         const OdGeVector3d& toYAxis, const OdGeVector3d& toZAxis)
{
    const OdGeMatrix3d from = OdGeMatrix3d().setCoordSystem(fromOrigin, fromXAxis, fromYAxis, fromZAxis);
    const OdGeMatrix3d to = OdGeMatrix3d().setCoordSystem(toOrigin, toXAxis, toYAxis, toZAxis);
    return to * from.inverse();
}

OdGeMatrix3d OdGeMatrix3d::planeToWorld(const OdGeVector3d& normal)
{
    const OdGeVector3d zAxis = unitOf(normal);
    const OdGeVector3d xAxis = zAxis.perpVector();
    return fromAxes(xAxis, zAxis.crossProduct(xAxis), zAxis);
}

OdGeMatrix3d OdGeMatrix3d::planeToWorld(const OdGePlane& plane)
{
    OdGePoint3d origin;
    OdGeVector3d uAxis;
    OdGeVector3d vAxis;
    plane.getCoordSystem(origin, uAxis, vAxis);
    return OdGeMatrix3d().setCoordSystem(origin, uAxis, vAxis, plane.normal());
}

// The axes are at right angles and of length 1, so that turning rows to columns maps back exactly.
OdGeMatrix3d OdGeMatrix3d::worldToPlane(const OdGeVector3d& normal)
{
    return planeToWorld(normal).transpose();
}

OdGeMatrix3d OdGeMatrix3d::worldToPlane(const OdGePlane& plane)
{
    return planeToWorld(plane).inverse();
}

OdGeMatrix3d& OdGeMatrix3d::setCoordSystem(const OdGePoint3d& origin, const OdGeVector3d& xAxis,
                                           const OdGeVector3d& yAxis, const OdGeVector3d& zAxis)
{
    for (unsigned row = 0; row < 3; ++row)
    {
        entry[row][0] = xAxis[row];
        entry[row][1] = yAxis[row];
        entry[row][2] = zAxis[row];
        entry[row][3] = origin[row];
        entry[3][row] = 0.0;
    }
    entry[3][3] = 1.0;
    return *this;
}

void OdGeMatrix3d::getCoordSystem(OdGePoint3d& origin, OdGeVector3d& xAxis, OdGeVector3d& yAxis,
                                  OdGeVector3d& zAxis) const
{
    origin = getCsOrigin();
    xAxis = getCsXAxis();
    yAxis = getCsYAxis();
    zAxis = getCsZAxis();
}

OdGeMatrix3d& OdGeMatrix3d::setTranslation(const OdGeVector3d& vector)
{
    entry[0][3] = vector.x;
    entry[1][3] = vector.y;
    entry[2][3] = vector.z;
    return *this;
}

OdGeMatrix3d OdGeMatrix3d::operator*(const OdGeMatrix3d& right) const
{
    OdGeMatrix3d product;
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 4; ++column)
        {
            double sum = 0.0;
            for (int i = 0; i < 4; ++i)
                sum += entry[row][i] * right.entry[i][column];
            product.entry[row][column] = sum;
        }
    return product;
}

double OdGeMatrix3d::det() const
{
    return getCsXAxis().dotProduct(getCsYAxis().crossProduct(getCsZAxis()));
}

bool OdGeMatrix3d::isSingular(const OdGeTol& tol) const
{
    const double sizes = getCsXAxis().length() * getCsYAxis().length() * getCsZAxis().length();
    return !(std::fabs(det()) > tol.equalVector() * sizes);
}

OdGeMatrix3d OdGeMatrix3d::inverse() const
{
    if (isSingular())
        odThrow(eNonInvertibleMatrix);
    const double d = det();
    const OdGeVector3d rowX = getCsYAxis().crossProduct(getCsZAxis()) / d;
    const OdGeVector3d rowY = getCsZAxis().crossProduct(getCsXAxis()) / d;
    const OdGeVector3d rowZ = getCsXAxis().crossProduct(getCsYAxis()) / d;
    const OdGeMatrix3d linear = fromAxes(rowX, rowY, rowZ).transpose();
    OdGeMatrix3d inverted = linear;
    return inverted.setTranslation(-(linear * translation()));
}

OdGeMatrix3d OdGeMatrix3d::transpose() const
{
    OdGeMatrix3d transposed;
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 4; ++column)
            transposed.entry[row][column] = entry[column][row];
    return transposed;
}

double OdGeMatrix3d::scale() const
{
    return std::max({getCsXAxis().length(), getCsYAxis().length(), getCsZAxis().length()});
}

bool OdGeMatrix3d::isUniScaledOrtho(const OdGeTol& tol) const
{
    const OdGeVector3d axes[] = {getCsXAxis(), getCsYAxis(), getCsZAxis()};
    const double size = scale();
    const double allowed = tol.equalVector() * size;
    for (int i = 0; i < 3; ++i)
    {
        const bool isAlike = std::fabs(axes[i].length() - size) <= allowed;
        const bool isSquare = std::fabs(axes[i].dotProduct(axes[(i + 1) % 3])) <= allowed * size;
        if (!isAlike || !isSquare)
            return false;
    }
    return size > 0.0;
}

bool OdGeMatrix3d::isPerspective(const OdGeTol& tol) const
{
    const double difference =
        std::fabs(entry[3][0]) + std::fabs(entry[3][1]) + std::fabs(entry[3][2]) + std::fabs(entry[3][3] - 1.0);
    return difference > tol.equalVector();
}

bool OdGeMatrix3d::isFinite() const
{
    for (const auto& row : entry)
        if (!std::all_of(std::begin(row), std::end(row), [](double value) { return std::isfinite(value); }))
            return false;
    return true;
}

bool OdGeMatrix3d::isEqualTo(const OdGeMatrix3d& other, const OdGeTol& tol) const
{
    for (int row = 0; row < 4; ++row)
        for (int column = 0; column < 4; ++column)
            if (!(std::fabs(entry[row][column] - other.entry[row][column]) <= tol.equalPoint()))
                return false;
    return true;
}
