// Dimension styles: how dimensions look.
#pragma once

#include "DbSymbolTable.h"

/** An OdDbDimStyleTableRecord is one dimension style. All its settings are kept; those that are asked for have
   operations here, named as the settings are. */
class OdDbDimStyleTableRecord : public OdDbSymbolTableRecord
{
public:
    ODDB_DECLARE_MEMBERS(OdDbDimStyleTableRecord);

    double dimscale() const;
    void setDimscale(double scale);
    double dimtxt() const;
    void setDimtxt(double height);
    double dimasz() const;
    void setDimasz(double size);
    int dimdec() const;
    void setDimdec(int decimals);
    OdDbObjectId dimtxsty() const;

protected:
    OdDbDimStyleTableRecord();
};
using OdDbDimStyleTableRecordPtr = OdSmartPtr<OdDbDimStyleTableRecord>;
