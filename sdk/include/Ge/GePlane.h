// Planes.
#pragma once

#include "Ge/GePoint3d.h"

/** An OdGePlane is a plane through a point, with axes of its own. It is a plain value; a new one is that of the world's
   x and y axes. */
class OdGePlane
{
public:
    static const OdGePlane kXYPlane;
    static const OdGePlane kYZPlane;
    static const OdGePlane kZXPlane;

    OdGePlane() = default;
    /** With the axes that drawings give to that normal (OdGeMatrix3d::planeToWorld). Throws OdError (eInvalidInput) for
       a normal of no length. */
    OdGePlane(const OdGePoint3d& origin, const OdGeVector3d& normal);
    /** Throws OdError (eInvalidInput) for axes that are parallel. */
    OdGePlane(const OdGePoint3d& origin, const OdGeVector3d& uAxis, const OdGeVector3d& vAxis);

    const OdGePoint3d& origin() const { return m_origin; }
    OdGePoint3d pointOnPlane() const { return m_origin; }
    /** Of length 1. */
    OdGeVector3d normal() const;
    void getCoordSystem(OdGePoint3d& origin, OdGeVector3d& uAxis, OdGeVector3d& vAxis) const;

    /** How far the point lies above the plane; negative below. */
    double signedDistanceTo(const OdGePoint3d& point) const;
    OdGePoint3d project(const OdGePoint3d& point) const;

private:
    OdGePoint3d m_origin;
    OdGeVector3d m_uAxis{1.0, 0.0, 0.0};
    OdGeVector3d m_vAxis{0.0, 1.0, 0.0};
};
