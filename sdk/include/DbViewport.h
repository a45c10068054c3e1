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

    /** What is seen: the point that is looked at, from where, and the middle and height of the picture in the plane
       that is looked at. The width follows from the proportions of the viewport. Setting operations throw
        OdError(eNotOpenForWrite), and OdError(eInvalidInput) for values without meaning; nothing is changed then. */
    OdGePoint2d viewCenter() const;
    void setViewCenter(const OdGePoint2d& center);
    OdGePoint3d viewTarget() const;
    void setViewTarget(const OdGePoint3d& target);
    /** From the target to the eye. */
    OdGeVector3d viewDirection() const;
    void setViewDirection(const OdGeVector3d& direction);
    double viewHeight() const;
    void setViewHeight(double height);
    /** The turn of the picture in radians. */
    double twistAngle() const;
    void setTwistAngle(double angle);
    double lensLength() const;
    /** Drawing units of the paper per drawing unit of model space; 0 when the view has no height. */
    double customScale() const;

    /** The layers that are frozen in this viewport. */
    void getFrozenLayerList(OdDbObjectIdArray& layerIds) const;
    /** The entity whose shape the viewport has, null for a rectangle. */
    OdDbObjectId nonRectClipEntityId() const;

protected:
    bool subWorldDraw(OdGiWorldDraw* worldDraw) const override;
};

using OdDbViewportPtr = OdSmartPtr<OdDbViewport>;
