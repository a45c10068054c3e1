// User coordinate systems that have a name.
#pragma once

#include "DbSymbolTable.h"
#include "Ge/GePoint3d.h"
#include "Ge/GeVector3d.h"

/** An OdDbUCSTableRecord is one named coordinate system. */
class OdDbUCSTableRecord : public OdDbSymbolTableRecord
{
public:
    ODDB_DECLARE_MEMBERS(OdDbUCSTableRecord);

    OdGePoint3d origin() const;
    void setOrigin(const OdGePoint3d& origin);
    OdGeVector3d xAxis() const;
    OdGeVector3d yAxis() const;
    /** Throws OdError(eInvalidInput), and changes nothing, unless the axes have a direction and are perpendicular. */
    void setAxes(const OdGeVector3d& xAxis, const OdGeVector3d& yAxis);

protected:
    OdDbUCSTableRecord();
};
using OdDbUCSTableRecordPtr = OdSmartPtr<OdDbUCSTableRecord>;
