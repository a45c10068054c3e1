// Windows in a sheet of paper through which model space is seen.
#pragma once

#include "DbEntity.h"
#include "Ge/GePoint2d.h"

/** A VIEWPORT of a paper space. */
class OdDbViewport : public OdDbEntity
{
public:
    ODDB_DECLARE_MEMBERS(OdDbViewport);

    OdGePoint3d centerPoint() const;
    void setCenterPoint(const OdGePoint3d& point);
    double width() const;
    void setWidth(double width);
    double height() const;
    void setHeight(double height);
    /** 1 for the sheet itself, greater for a window on it, 0 for one that is not active. */
    OdInt16 number() const;
    bool isOn() const;

    OdGePoint2d viewCenter() const;
    OdGePoint3d viewTarget() const;
    OdGeVector3d viewDirection() const;
    double viewHeight() const;
    double twistAngle() const;
    double lensLength() const;
    /** Drawing units of the paper per drawing unit of model space; 0 when the view has no height. */
    double customScale() const;

protected:
    bool subWorldDraw(OdGiWorldDraw* worldDraw) const override;
};

using OdDbViewportPtr = OdSmartPtr<OdDbViewport>;
