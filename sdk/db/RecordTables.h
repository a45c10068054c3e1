// The groups of table records and of the other objects that are no entities.
#pragma once

#include <string_view>

#include "DbObject.h"
#include "DxfClassTable.h"

namespace oddb
{

/// The symbol tables: their names in files, which are also those of their records, and their classes.
struct SymbolTableKind
{
    SymbolTable table;
    const char* dxfName;
    const char* tableClass;
    const char* recordClass;
    OdRxClass* (*recordType)(); ///< the class of that name, null while it is not registered
};
const SymbolTableKind& symbolTableKind(SymbolTable table);

namespace recordtables
{
extern const DxfClass kBlock;
extern const DxfClass kLayer;
extern const DxfClass kLinetype;
extern const DxfClass kTextStyle;
extern const DxfClass kDimStyle;
extern const DxfClass kRegApp;
extern const DxfClass kUcs;
extern const DxfClass kView;
extern const DxfClass kViewport;
extern const DxfClass kTable;

extern const DxfClass kDictionary;
extern const DxfClass kDictionaryWithDefault;
extern const DxfClass kXrecord;
extern const DxfClass kPlotSettings;
extern const DxfClass kLayout;
} // namespace recordtables

/// Enters all of them into the table of files' classes.
void registerRecordTables();

/// The groups that a new object of the class has: all markers, and these codes with their defaults.
Groups initialGroups(const DxfClass& cls, std::initializer_list<int> codes);

} // namespace oddb
