// What views and viewports have in common: where they look at the drawing from, and how much of it they show.
#pragma once

#include "DbSymbolTable.h"
#include "Ge/GePoint2d.h"
#include "Ge/GePoint3d.h"
#include "Ge/GeVector3d.h"

/** An OdDbAbstractViewTableRecord looks at the drawing: at a target point from a direction. It shows a rectangle around
   a centre, which is given in the coordinates of the picture. Setting operations throw OdError(eNotOpenForWrite), and
    OdError(eInvalidInput) for values without meaning; nothing is changed then. */
class OdDbAbstractViewTableRecord : public OdDbSymbolTableRecord
{
public:
    ODDB_DECLARE_MEMBERS(OdDbAbstractViewTableRecord);

    OdGePoint2d centerPoint() const;
    void setCenterPoint(const OdGePoint2d& center);
    double height() const;
    void setHeight(double height);
    virtual double width() const;
    virtual void setWidth(double width);
    OdGePoint3d target() const;
    void setTarget(const OdGePoint3d& target);
    /** From the target to the eye. */
    OdGeVector3d viewDirection() const;
    void setViewDirection(const OdGeVector3d& direction);
    /** The turn of the picture in radians. */
    double viewTwist() const;
    void setViewTwist(double angle);
    double lensLength() const;

protected:
    /** The group codes under which a class keeps what it has in common with the others. */
    struct Codes
    {
        int center, height, width, target, direction, twist, lens;
    };
    explicit OdDbAbstractViewTableRecord(const Codes& codes) : m_codes(codes) {}
    const Codes& codes() const { return m_codes; }

private:
    Codes m_codes;
};
using OdDbAbstractViewTableRecordPtr = OdSmartPtr<OdDbAbstractViewTableRecord>;
