// Planes.
#include "Ge/GePlane.h"

#include "Ge/GeMatrix3d.h"
#include "OdError.h"

OdGePlane::OdGePlane(const OdGePoint3d& origin, const OdGeVector3d& normal) : m_origin(origin)
{
    const OdGeMatrix3d axes = OdGeMatrix3d::planeToWorld(normal);
    m_uAxis = axes.getCsXAxis();
    m_vAxis = axes.getCsYAxis();
}

OdGePlane::OdGePlane(const OdGePoint3d& origin, const OdGeVector3d& uAxis, const OdGeVector3d& vAxis)
    : m_origin(origin), m_uAxis(uAxis), m_vAxis(vAxis)
{
    const double size = uAxis.length() * vAxis.length();
    if (!(uAxis.crossProduct(vAxis).length() > OdGeContext::gTol.equalVector() * size))
        odThrow(eInvalidInput);
}

OdGeVector3d OdGePlane::normal() const
{
    return m_uAxis.crossProduct(m_vAxis).normal(OdGeTol(0.0));
}

void OdGePlane::getCoordSystem(OdGePoint3d& origin, OdGeVector3d& uAxis, OdGeVector3d& vAxis) const
{
    origin = m_origin;
    uAxis = m_uAxis;
    vAxis = m_vAxis;
}

double OdGePlane::signedDistanceTo(const OdGePoint3d& point) const
{
    return (point - m_origin).dotProduct(normal());
}

OdGePoint3d OdGePlane::project(const OdGePoint3d& point) const
{
    return point - normal() * signedDistanceTo(point);
}
