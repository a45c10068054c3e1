// The records that every drawing has, and the layout that is shown.
#include "BlockCore.h"
#include "DatabaseImpl.h"
#include "DbRegAppTable.h"
#include "DbRegAppTableRecord.h"
#include "ObjectCore.h"
#include "OdError.h"
#include "RecordTables.h"

using oddb::SymbolTable;

OdDbObjectId OdDbDatabase::currentLayoutId() const
{
    const OdDbBlockTableRecordPtr block = OdDbBlockTableRecord::cast(getActiveLayoutBTRId().openObject());
    return block.isNull() ? OdDbObjectId() : block->getLayoutId();
}

OdDbObjectId OdDbDatabase::getLayerZeroId() const
{
    return oddb::findSymbol(*this, SymbolTable::Layer, "0");
}

OdDbObjectId OdDbDatabase::getLinetypeByLayerId() const
{
    return oddb::findSymbol(*this, SymbolTable::Linetype, "ByLayer");
}

OdDbObjectId OdDbDatabase::getLinetypeByBlockId() const
{
    return oddb::findSymbol(*this, SymbolTable::Linetype, "ByBlock");
}

OdDbObjectId OdDbDatabase::getLinetypeContinuousId() const
{
    return oddb::findSymbol(*this, SymbolTable::Linetype, "Continuous");
}

OdDbObjectId OdDbDatabase::getTextStyleStandardId() const
{
    return oddb::findSymbol(*this, SymbolTable::TextStyle, "Standard");
}

OdDbObjectId OdDbDatabase::getDimStyleStandardId() const
{
    return oddb::findSymbol(*this, SymbolTable::DimStyle, "Standard");
}

OdDbObjectId OdDbDatabase::getRegAppAcadId() const
{
    return oddb::findSymbol(*this, SymbolTable::RegApp, "ACAD");
}

bool OdDbDatabase::newRegApp(const OdString& name)
{
    if (oddb::findSymbol(*this, SymbolTable::RegApp, odStringToUtf8(name)))
        return false;
    const OdDbRegAppTablePtr table(getRegAppTableId().safeOpenObject(OdDb::kForWrite));
    const OdDbRegAppTableRecordPtr record = OdDbRegAppTableRecord::createObject();
    record->setName(name);
    table->add(record);
    return true;
}
