// Arcs of circles.
#pragma once

#include "DbCurve.h"

/** An ARC: it runs counter-clockwise about the normal from the start angle to the end angle. Angles are in radians from
    the x axis of the arc's own plane. */
class OdDbArc : public OdDbCurve
{
public:
    ODDB_DECLARE_MEMBERS(OdDbArc);

    /** The centre in world coordinates. */
    OdGePoint3d center() const;
    void setCenter(const OdGePoint3d& center);
    double radius() const;
    /** Throws OdError(eInvalidInput) for a radius that is negative or not finite. */
    void setRadius(double radius);
    double startAngle() const;
    void setStartAngle(double angle);
    double endAngle() const;
    void setEndAngle(double angle);
    double thickness() const;
    void setThickness(double thickness);
    /** The centre stays where it is. Throws OdError(eInvalidInput) for the zero vector. */
    void setNormal(const OdGeVector3d& normal);

    bool isPlanar() const override;
    bool isClosed() const override;
    OdResult getStartPoint(OdGePoint3d& point) const override;
    OdResult getEndPoint(OdGePoint3d& point) const override;

protected:
    bool subWorldDraw(OdGiWorldDraw* worldDraw) const override;
};

using OdDbArcPtr = OdSmartPtr<OdDbArc>;
