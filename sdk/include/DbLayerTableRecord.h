// Layers: what entities of one kind have in common, and whether they are shown.
#pragma once

#include "CmColor.h"
#include "DbEnums.h"
#include "DbSymbolTable.h"

/** An OdDbLayerTableRecord is one layer. Reading operations throw OdError(eNotOpenForRead) on a layer that is not open;
    every set... operation throws OdError(eNotOpenForWrite) unless the layer is open for write or not yet in a
    database, and changes nothing then. */
class OdDbLayerTableRecord : public OdDbSymbolTableRecord
{
public:
    ODDB_DECLARE_MEMBERS(OdDbLayerTableRecord);

    bool isFrozen() const;
    void setIsFrozen(bool frozen);
    bool isOff() const;
    void setIsOff(bool off);
    bool isLocked() const;
    void setIsLocked(bool locked);
    bool isPlottable() const;
    void setIsPlottable(bool plottable);

    OdCmColor color() const;
    /** Throws OdError(eInvalidInput), and changes nothing, for a colour that is by layer or by block. */
    void setColor(const OdCmColor& color);
    OdUInt16 colorIndex() const;
    /** Throws OdError(eInvalidInput), and changes nothing, for an index that is not from 1 to 255. */
    void setColorIndex(OdUInt16 colorIndex);

    /** The linetype, null when the layer names one that does not exist. */
    OdDbObjectId linetypeObjectId() const;
    /** Throws OdError(eInvalidInput), and changes nothing, for an id that is no linetype. */
    void setLinetypeObjectId(OdDbObjectId linetypeId);

    OdDb::LineWeight lineWeight() const;
    void setLineWeight(OdDb::LineWeight lineWeight);

    /** Opaque unless the layer says otherwise; kept in the extended data of the application AcCmTransparency. */
    OdCmTransparency transparency() const;

    OdDbObjectId plotStyleNameId() const;
    OdDbObjectId materialId() const;

    /** What the layer is for, in words; kept in the extended data of the application AcAecLayerStandard. */
    OdString description() const;

protected:
    OdDbLayerTableRecord();
};
using OdDbLayerTableRecordPtr = OdSmartPtr<OdDbLayerTableRecord>;
