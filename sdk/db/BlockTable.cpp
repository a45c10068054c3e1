// The table of blocks, and the tables that add nothing to what all tables are.
#include "DbBlockTable.h"

#include "BlockCore.h"
#include "DbDatabase.h"
#include "DbDimStyleTable.h"
#include "DbLayerTable.h"
#include "DbLinetypeTable.h"
#include "DbRegAppTable.h"
#include "DbTextStyleTable.h"
#include "DbUCSTable.h"
#include "DbViewTable.h"
#include "DbViewportTable.h"
#include "ObjectCore.h"
#include "SymbolTableCore.h"

using oddb::SymbolTable;

OdDbLayerTable::OdDbLayerTable() : OdDbSymbolTable(SymbolTable::Layer) {}
OdDbLinetypeTable::OdDbLinetypeTable() : OdDbSymbolTable(SymbolTable::Linetype) {}
OdDbTextStyleTable::OdDbTextStyleTable() : OdDbSymbolTable(SymbolTable::TextStyle) {}
OdDbDimStyleTable::OdDbDimStyleTable() : OdDbSymbolTable(SymbolTable::DimStyle) {}
OdDbRegAppTable::OdDbRegAppTable() : OdDbSymbolTable(SymbolTable::RegApp) {}
OdDbUCSTable::OdDbUCSTable() : OdDbSymbolTable(SymbolTable::Ucs) {}
OdDbViewTable::OdDbViewTable() : OdDbSymbolTable(SymbolTable::View) {}
OdDbViewportTable::OdDbViewportTable() : OdDbSymbolTable(SymbolTable::Viewport) {}
OdDbBlockTable::OdDbBlockTable() : OdDbSymbolTable(SymbolTable::Block) {}

OdDbObjectId OdDbViewportTable::getActiveViewportId() const
{
    return getAt(L"*Active");
}

OdDbObjectId OdDbBlockTable::getModelSpaceId() const
{
    assertReadEnabled();
    return isDBRO() ? database()->getModelSpaceId() : OdDbObjectId();
}

OdDbObjectId OdDbBlockTable::getPaperSpaceId() const
{
    assertReadEnabled();
    return isDBRO() ? database()->getPaperSpaceId() : OdDbObjectId();
}

// Names that begin with "*" and one letter belong to the database, which numbers them.
static void completeName(const OdDbBlockTable& table, OdDbSymbolTableRecord& record)
{
    const oddb::Groups groups = oddb::readableGroups(record);
    if (const std::optional<oddb::GroupView> name = groups.findAny(2); !name || !name->text().starts_with('*'))
        return;
    const OdString stem = record.getName();
    if (stem.getLength() != 2 || stem[0] != L'*')
        return;
    int& number = oddb::SymbolTableCore::records(table).nextNumber(stem[1]);
    OdString name;
    do
        name.format(L"%ls%d", stem.c_str(), ++number);
    while (table.has(name));
    record.setName(name);
}

OdDbObjectId OdDbBlockTable::add(OdDbSymbolTableRecord* record)
{
    assertWriteEnabled(false, false);
    if (record && !record->isDBRO())
        completeName(*this, *record);
    const OdDbObjectId id = OdDbSymbolTable::add(record);
    if (!id.isNull())
        oddb::BlockCore::makeFrame(static_cast<OdDbBlockTableRecord&>(*record));
    return id;
}
