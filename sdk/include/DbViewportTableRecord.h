// Viewports of the model: how the screen is divided, and what each part shows.
#pragma once

#include "DbAbstractViewTableRecord.h"

/** An OdDbViewportTableRecord is one part of the screen. Those shown at present are all named "*Active"; several
   records of one name form a configuration. */
class OdDbViewportTableRecord : public OdDbAbstractViewTableRecord
{
public:
    ODDB_DECLARE_MEMBERS(OdDbViewportTableRecord);

    /** The place on the screen, whose corners are (0, 0) and (1, 1). */
    OdGePoint2d lowerLeftCorner() const;
    OdGePoint2d upperRightCorner() const;

    /** The width follows from the height and the proportions of the screen. */
    double width() const override;
    void setWidth(double width) override;

protected:
    OdDbViewportTableRecord();
};
using OdDbViewportTableRecordPtr = OdSmartPtr<OdDbViewportTableRecord>;
