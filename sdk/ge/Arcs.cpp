// Arcs of circles and ellipses. The extents of all come from one rule: along an axis, a cos t + b sin t is greatest and
// least where t is the angle of (a, b) or half a turn further.
#include <cmath>

#include "Ge/GeCircArc2d.h"
#include "Ge/GeCircArc3d.h"
#include "Ge/GeEllipArc3d.h"
#include "OdError.h"
#include "OdaDefs.h"

namespace
{

// The first parameter of that angle at or behind the start.
double firstFrom(double start, double angle)
{
    return start + std::fmod(std::fmod(angle - start, Oda2PI) + Oda2PI, Oda2PI);
}

// Calls take for the parameters between start and end where a cos t + b sin t turns round.
template<class Take>
void forEachTurn(double a, double b, double start, double end, Take take)
{
    const double angle = std::atan2(b, a);
    for (const double turn : {angle, angle + OdaPI})
        if (const double parameter = firstFrom(start, turn); parameter <= end)
            take(parameter);
}

bool isFullTurn(double sweep)
{
    return sweep >= Oda2PI - 1.e-10;
}

} // namespace

OdGePoint3d OdGeEllipArc3d::evalPoint(double parameter) const
{
    return m_center + m_major * std::cos(parameter) + m_minor * std::sin(parameter);
}

OdGeEllipArc3d& OdGeEllipArc3d::transformBy(const OdGeMatrix3d& xform)
{
    m_center.transformBy(xform);
    m_major.transformBy(xform);
    m_minor.transformBy(xform);
    return *this;
}

OdGeExtents3d OdGeEllipArc3d::getGeomExtents() const
{
    OdGeExtents3d extents;
    extents.addPoint(evalPoint(m_start)).addPoint(evalPoint(m_end));
    for (unsigned axis = 0; axis < 3; ++axis)
        forEachTurn(m_major[axis], m_minor[axis], m_start, m_end,
                    [&](double parameter) { extents.addPoint(evalPoint(parameter)); });
    return extents;
}

OdGeCircArc2d::OdGeCircArc2d(const OdGePoint2d& center, double radius) : m_center(center), m_radius(radius) {}

OdGeCircArc2d::OdGeCircArc2d(const OdGePoint2d& center, double radius, double startAngle, double endAngle,
                             bool isClockWise)
    : m_center(center), m_radius(radius), m_startAngle(startAngle), m_endAngle(endAngle), m_clockWise(isClockWise)
{
}

OdGeCircArc2d::OdGeCircArc2d(const OdGePoint2d& start, const OdGePoint2d& end, double bulge) : m_clockWise(bulge < 0.0)
{
    const OdGeVector2d chord = end - start;
    const double length = chord.length();
    if (!(length > 0.0) || bulge == 0.0 || !std::isfinite(length) || !std::isfinite(bulge))
        odThrow(eDegenerateGeometry);
    const double toCenter = (1.0 - bulge * bulge) / (4.0 * bulge);
    m_center = start + chord / 2.0 + chord.perpVector() * toCenter;
    m_radius = length * (1.0 + bulge * bulge) / (4.0 * std::fabs(bulge));
    const OdGeVector2d arm = start - m_center;
    m_startAngle = m_clockWise ? std::atan2(-arm.y, arm.x) : std::atan2(arm.y, arm.x);
    m_endAngle = m_startAngle + 4.0 * std::atan(std::fabs(bulge));
}

bool OdGeCircArc2d::isClosed() const
{
    return isFullTurn(sweepAngle());
}

OdGePoint2d OdGeCircArc2d::evalPoint(double angle) const
{
    const double sine = std::sin(angle);
    return m_center + OdGeVector2d(std::cos(angle), m_clockWise ? -sine : sine) * m_radius;
}

OdGeExtents2d OdGeCircArc2d::getGeomExtents() const
{
    OdGeExtents2d extents;
    extents.addPoint(startPoint()).addPoint(endPoint());
    const auto add = [&](double angle) { extents.addPoint(evalPoint(angle)); };
    forEachTurn(1.0, 0.0, m_startAngle, m_endAngle, add);
    forEachTurn(0.0, 1.0, m_startAngle, m_endAngle, add);
    return extents;
}

OdGeCircArc3d::OdGeCircArc3d(const OdGePoint3d& center, const OdGeVector3d& normal, double radius)
    : m_center(center), m_radius(radius)
{
    const OdGeMatrix3d axes = OdGeMatrix3d::planeToWorld(normal);
    m_normal = axes.getCsZAxis();
    m_refVec = axes.getCsXAxis();
}

OdGeCircArc3d::OdGeCircArc3d(const OdGePoint3d& center, const OdGeVector3d& normal, const OdGeVector3d& refVec,
                             double radius, double startAngle, double endAngle)
    : m_center(center), m_normal(normal.normal()), m_radius(radius), m_startAngle(startAngle), m_endAngle(endAngle)
{
    const OdGeVector3d inPlane = refVec - m_normal * refVec.dotProduct(m_normal);
    if (normal.isZeroLength() || inPlane.isZeroLength())
        odThrow(eInvalidInput);
    m_refVec = inPlane.normal();
}

bool OdGeCircArc3d::isClosed() const
{
    return isFullTurn(sweepAngle());
}

OdGePoint3d OdGeCircArc3d::evalPoint(double angle) const
{
    const OdGeVector3d across = m_normal.crossProduct(m_refVec);
    return m_center + (m_refVec * std::cos(angle) + across * std::sin(angle)) * m_radius;
}

OdGeExtents3d OdGeCircArc3d::getGeomExtents() const
{
    const OdGeVector3d across = m_normal.crossProduct(m_refVec);
    return OdGeEllipArc3d(m_center, m_refVec * m_radius, across * m_radius, m_startAngle, m_endAngle).getGeomExtents();
}
