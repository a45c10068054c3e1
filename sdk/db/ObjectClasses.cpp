// The runtime classes of dictionaries, tables, records, layouts and their helpers, bases first.
#include "DbClasses.h"

#include "DbBlockTable.h"
#include "DbBlockTableRecord.h"
#include "DbDictionary.h"
#include "DbDimStyleTable.h"
#include "DbDimStyleTableRecord.h"
#include "DbIdMapping.h"
#include "DbLayerTable.h"
#include "DbLayerTableRecord.h"
#include "DbLayout.h"
#include "DbLinetypeTable.h"
#include "DbLinetypeTableRecord.h"
#include "DbObjectIterator.h"
#include "DbRegAppTable.h"
#include "DbRegAppTableRecord.h"
#include "DbSSet.h"
#include "DbTextStyleTable.h"
#include "DbTextStyleTableRecord.h"
#include "DbUCSTable.h"
#include "DbUCSTableRecord.h"
#include "DbViewTable.h"
#include "DbViewTableRecord.h"
#include "DbViewportTable.h"
#include "DbViewportTableRecord.h"
#include "DbXrecord.h"
#include "RecordTables.h"
#include "rx/ClassRows.h"

ODRX_NO_CONS_DEFINE_MEMBERS(OdDbDictionaryIterator, OdRxDictionaryIterator);
ODRX_NO_CONS_DEFINE_MEMBERS(OdDbSymbolTableIterator, OdRxObject);
ODDB_DEFINE_MEMBERS(OdDbDictionary, OdDbObject, DBOBJECT_CONSTR, L"DICTIONARY");
ODDB_DEFINE_MEMBERS(OdDbDictionaryWithDefault, OdDbDictionary, DBOBJECT_CONSTR, L"ACDBDICTIONARYWDFLT");
ODDB_DEFINE_MEMBERS(OdDbXrecord, OdDbObject, DBOBJECT_CONSTR, L"XRECORD");
ODDB_DEFINE_MEMBERS(OdDbPlotSettings, OdDbObject, DBOBJECT_CONSTR, L"PLOTSETTINGS");
ODDB_DEFINE_MEMBERS(OdDbLayout, OdDbPlotSettings, DBOBJECT_CONSTR, L"LAYOUT");

ODDB_DEFINE_MEMBERS(OdDbSymbolTable, OdDbObject, EMPTY_CONSTR, nullptr);
ODDB_DEFINE_MEMBERS(OdDbBlockTable, OdDbSymbolTable, DBOBJECT_CONSTR, nullptr);
ODDB_DEFINE_MEMBERS(OdDbLayerTable, OdDbSymbolTable, DBOBJECT_CONSTR, nullptr);
ODDB_DEFINE_MEMBERS(OdDbLinetypeTable, OdDbSymbolTable, DBOBJECT_CONSTR, nullptr);
ODDB_DEFINE_MEMBERS(OdDbTextStyleTable, OdDbSymbolTable, DBOBJECT_CONSTR, nullptr);
ODDB_DEFINE_MEMBERS(OdDbDimStyleTable, OdDbSymbolTable, DBOBJECT_CONSTR, nullptr);
ODDB_DEFINE_MEMBERS(OdDbRegAppTable, OdDbSymbolTable, DBOBJECT_CONSTR, nullptr);
ODDB_DEFINE_MEMBERS(OdDbUCSTable, OdDbSymbolTable, DBOBJECT_CONSTR, nullptr);
ODDB_DEFINE_MEMBERS(OdDbViewTable, OdDbSymbolTable, DBOBJECT_CONSTR, nullptr);
ODDB_DEFINE_MEMBERS(OdDbViewportTable, OdDbSymbolTable, DBOBJECT_CONSTR, nullptr);

ODDB_DEFINE_MEMBERS(OdDbSymbolTableRecord, OdDbObject, EMPTY_CONSTR, nullptr);
ODDB_DEFINE_MEMBERS(OdDbBlockTableRecord, OdDbSymbolTableRecord, DBOBJECT_CONSTR, L"BLOCK_RECORD");
ODDB_DEFINE_MEMBERS(OdDbLayerTableRecord, OdDbSymbolTableRecord, DBOBJECT_CONSTR, L"LAYER");
ODDB_DEFINE_MEMBERS(OdDbLinetypeTableRecord, OdDbSymbolTableRecord, DBOBJECT_CONSTR, L"LTYPE");
ODDB_DEFINE_MEMBERS(OdDbTextStyleTableRecord, OdDbSymbolTableRecord, DBOBJECT_CONSTR, L"STYLE");
ODDB_DEFINE_MEMBERS(OdDbDimStyleTableRecord, OdDbSymbolTableRecord, DBOBJECT_CONSTR, L"DIMSTYLE");
ODDB_DEFINE_MEMBERS(OdDbRegAppTableRecord, OdDbSymbolTableRecord, DBOBJECT_CONSTR, L"APPID");
ODDB_DEFINE_MEMBERS(OdDbUCSTableRecord, OdDbSymbolTableRecord, DBOBJECT_CONSTR, L"UCS");
ODDB_DEFINE_MEMBERS(OdDbAbstractViewTableRecord, OdDbSymbolTableRecord, EMPTY_CONSTR, nullptr);
ODDB_DEFINE_MEMBERS(OdDbViewTableRecord, OdDbAbstractViewTableRecord, DBOBJECT_CONSTR, L"VIEW");
ODDB_DEFINE_MEMBERS(OdDbViewportTableRecord, OdDbAbstractViewTableRecord, DBOBJECT_CONSTR, L"VPORT");

namespace oddb
{

namespace
{

constexpr auto kClasses =
    odlayers::rowsOf<OdDbDictionaryIterator, OdDbSymbolTableIterator, OdDbDictionary, OdDbDictionaryWithDefault,
                     OdDbXrecord, OdDbPlotSettings, OdDbLayout, OdDbSymbolTable, OdDbBlockTable, OdDbLayerTable,
                     OdDbLinetypeTable, OdDbTextStyleTable, OdDbDimStyleTable, OdDbRegAppTable, OdDbUCSTable,
                     OdDbViewTable, OdDbViewportTable, OdDbSymbolTableRecord, OdDbBlockTableRecord,
                     OdDbLayerTableRecord, OdDbLinetypeTableRecord, OdDbTextStyleTableRecord, OdDbDimStyleTableRecord,
                     OdDbRegAppTableRecord, OdDbUCSTableRecord, OdDbAbstractViewTableRecord, OdDbViewTableRecord,
                     OdDbViewportTableRecord, OdDbSelectionSetIterator, OdSelectionSet, OdDbSelectionSet,
                     OdDbSelectionMethod, OdDbVisualSelection, OdDbIdMappingIter, OdDbIdMapping>();

} // namespace

void registerObjectClasses()
{
    odlayers::startClasses(kClasses);
    registerRecordTables();
}

void unregisterObjectClasses()
{
    odlayers::endClasses(kClasses);
}

} // namespace oddb
