// The rectangle along the axes that something lies in.
#pragma once

#include "Ge/GeMatrix2d.h"
#include "Ge/GePoint2d.h"

/** An OdGeExtents2d is a rectangle along the axes, given by its least and its greatest corner, or no rectangle at all.
   It is a plain value; a new one is no rectangle, and becomes one with the first point added. */
class OdGeExtents2d
{
public:
    static const OdGeExtents2d kInvalid;

    constexpr OdGeExtents2d() = default;
    /** The corners are taken as they are. */
    constexpr OdGeExtents2d(const OdGePoint2d& minPoint, const OdGePoint2d& maxPoint) : m_min(minPoint), m_max(maxPoint)
    {
    }

    const OdGePoint2d& minPoint() const { return m_min; }
    const OdGePoint2d& maxPoint() const { return m_max; }
    OdGePoint2d center() const { return m_min + (m_max - m_min) / 2.0; }
    OdGeVector2d diagonal() const { return m_max - m_min; }

    /** The corners are taken as they are. */
    void set(const OdGePoint2d& minPoint, const OdGePoint2d& maxPoint)
    {
        m_min = minPoint;
        m_max = maxPoint;
    }
    /** The rectangle of two opposite corners. */
    void comparingSet(const OdGePoint2d& first, const OdGePoint2d& second);
    void reset() { *this = OdGeExtents2d(); }

    /** False for no rectangle: when the least corner lies beyond the greatest one. */
    bool isValidExtents() const { return m_min.x <= m_max.x && m_min.y <= m_max.y; }

    /** Grows so that it holds the point, the points, what another one holds (no rectangle adds nothing). A coordinate
       that is no number adds nothing. */
    OdGeExtents2d& addPoint(const OdGePoint2d& point)
    {
        m_min = {point.x < m_min.x ? point.x : m_min.x, point.y < m_min.y ? point.y : m_min.y};
        m_max = {point.x > m_max.x ? point.x : m_max.x, point.y > m_max.y ? point.y : m_max.y};
        return *this;
    }
    OdGeExtents2d& addPoints(const OdGePoint2dArray& points);
    OdGeExtents2d& addExt(const OdGeExtents2d& other)
    {
        return other.isValidExtents() ? addPoint(other.m_min).addPoint(other.m_max) : *this;
    }
    /** Grows so that it also holds itself moved by the vector. */
    void expandBy(const OdGeVector2d& vector);
    /** Moves. */
    void translate(const OdGeVector2d& vector);
    /** Becomes the rectangle around the corners as mapped; no rectangle stays none. */
    void transformBy(const OdGeMatrix2d& xform);

    /** True when the point, all of the other one, lies inside or on the border, at most tol outside. */
    bool contains(const OdGePoint2d& point, const OdGeTol& tol = OdGeContext::gTol) const;
    bool contains(const OdGeExtents2d& other, const OdGeTol& tol = OdGeContext::gTol) const;
    /** True when the two have no point in common. */
    bool isDisjoint(const OdGeExtents2d& other, const OdGeTol& tol = OdGeContext::gTol) const;

    bool isEqualTo(const OdGeExtents2d& other, const OdGeTol& tol = OdGeContext::gTol) const;
    bool operator==(const OdGeExtents2d& other) const { return isEqualTo(other); }

private:
    OdGePoint2d m_min{1.e20, 1.e20};
    OdGePoint2d m_max{-1.e20, -1.e20};
};
