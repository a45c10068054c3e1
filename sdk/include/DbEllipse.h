// Ellipses and their arcs.
#pragma once

#include "DbCurve.h"

/** An ELLIPSE or an arc of one: center + cos(t) majorAxis + sin(t) minorAxis for t from startParam to endParam. The
    minor axis stands on the normal and on the major axis. */
class OdDbEllipse : public OdDbCurve
{
public:
    ODDB_DECLARE_MEMBERS(OdDbEllipse);

    OdGePoint3d center() const;
    void setCenter(const OdGePoint3d& center);
    OdGeVector3d majorAxis() const;
    OdGeVector3d minorAxis() const;
    /** Length of the minor axis over length of the major axis. */
    double radiusRatio() const;
    /** Sets the whole shape. Throws OdError(eInvalidInput), and changes nothing, when an axis is the zero vector or the
        ratio is not in (0, 1]. Parameters are in radians. */
    void set(const OdGePoint3d& center, const OdGeVector3d& unitNormal, const OdGeVector3d& majorAxis,
             double radiusRatio, double startParam = 0.0, double endParam = 6.28318530717958647692);
    double startParam() const;
    double endParam() const;

    bool isPlanar() const override;
    bool isClosed() const override;
    OdResult getStartPoint(OdGePoint3d& point) const override;
    OdResult getEndPoint(OdGePoint3d& point) const override;

protected:
    bool subWorldDraw(OdGiWorldDraw* worldDraw) const override;
};

using OdDbEllipsePtr = OdSmartPtr<OdDbEllipse>;
