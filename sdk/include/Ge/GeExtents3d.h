// The box along the axes that something lies in.
#pragma once

#include "Ge/GeExtents2d.h"
#include "Ge/GeMatrix3d.h"
#include "Ge/GePoint3d.h"

/** An OdGeExtents3d is a box along the axes, given by its least and its greatest corner, or no box at all. It is a
   plain value; a new one is no box, and becomes one with the first point added. */
class OdGeExtents3d
{
public:
    static const OdGeExtents3d kInvalid;

    constexpr OdGeExtents3d() = default;
    /** The corners are taken as they are. */
    constexpr OdGeExtents3d(const OdGePoint3d& minPoint, const OdGePoint3d& maxPoint) : m_min(minPoint), m_max(maxPoint)
    {
    }

    const OdGePoint3d& minPoint() const { return m_min; }
    const OdGePoint3d& maxPoint() const { return m_max; }
    OdGePoint3d center() const { return m_min + (m_max - m_min) / 2.0; }
    OdGeVector3d diagonal() const { return m_max - m_min; }

    /** The corners are taken as they are. */
    void set(const OdGePoint3d& minPoint, const OdGePoint3d& maxPoint);
    /** The box of two opposite corners. */
    void comparingSet(const OdGePoint3d& first, const OdGePoint3d& second);
    void reset() { *this = OdGeExtents3d(); }

    /** False for no box: when the least corner lies beyond the greatest one. */
    bool isValidExtents() const;

    /** Grows so that it holds the point, the points, what another one holds (no box adds nothing). A coordinate that is
       no number adds nothing. */
    OdGeExtents3d& addPoint(const OdGePoint3d& point);
    OdGeExtents3d& addPoints(const OdGePoint3dArray& points);
    OdGeExtents3d& addExt(const OdGeExtents3d& other);
    /** Grows so that it also holds itself moved by the vector. */
    void expandBy(const OdGeVector3d& vector);
    /** Moves. */
    void translate(const OdGeVector3d& vector);
    /** Becomes the box around the corners as mapped; no box stays none. */
    void transformBy(const OdGeMatrix3d& xform);
    void convert2d(OdGeExtents2d& extents) const;

    /** True when the point, all of the other one, lies inside or on the border, at most tol outside. */
    bool contains(const OdGePoint3d& point, const OdGeTol& tol = OdGeContext::gTol) const;
    bool contains(const OdGeExtents3d& other, const OdGeTol& tol = OdGeContext::gTol) const;
    /** True when the two have no point in common. */
    bool isDisjoint(const OdGeExtents3d& other, const OdGeTol& tol = OdGeContext::gTol) const;

    bool isEqualTo(const OdGeExtents3d& other, const OdGeTol& tol = OdGeContext::gTol) const;
    bool operator==(const OdGeExtents3d& other) const { return isEqualTo(other); }

private:
    OdGePoint3d m_min{1.e20, 1.e20, 1.e20};
    OdGePoint3d m_max{-1.e20, -1.e20, -1.e20};
};
