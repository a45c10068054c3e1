// A drawing with as little in it as the core of the database needs, and objects made for attacking it.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "DbDatabase.h"
#include "DbFiler.h"
#include "DbProxyObject.h"
#include "ResBuf.h"
#include "db/DatabaseImpl.h"
#include "db/Groups.h"
#include "db/ObjectCore.h"
#include "db/SymbolNames.h"
#include "support/ErrorCode.h"

namespace coretest
{

/// An object that files itself, as those of modules do, and can be told to misbehave while it reads.
class Ledger : public OdDbObject
{
public:
    ODDB_DECLARE_MEMBERS(Ledger);

    void put(const OdString& line)
    {
        assertWriteEnabled();
        lines.push_back(line);
    }
    OdResult dwgInFields(OdDbDwgFiler* filer) override;
    void dwgOutFields(OdDbDwgFiler* filer) const override;
    OdResult getGeomExtents(OdGeExtents3d&) const override { return eInvalidExtents; }

    std::vector<OdString> lines;
    bool appendsOnReading = false;
    static std::function<void(Ledger&)> whileReading; ///< called by every dwgInFields
    static std::function<OdResult(Ledger&, bool)> whileErasing;

protected:
    OdResult subErase(bool erasing) override;
};
using LedgerPtr = OdSmartPtr<Ledger>;

/// A symbol table of the test: names to records.
class Names : public oddb::SymbolIndex
{
public:
    OdDbStub* findName(std::string_view name) const override
    {
        auto found = m_records.find(std::string(name));
        return found == m_records.end() ? nullptr : found->second;
    }
    std::map<std::string, OdDbStub*> m_records;
};

/// A database with two registered applications ("ONE", "TWO"), one layer ("WALLS"), ledgers and records.
class CoreDrawing
{
public:
    CoreDrawing();

    OdDbObjectId addLedger();
    /// An object that keeps groups: the subclass "AcDbRecord" with a 90 of this value.
    OdDbObjectId addRecord(int value);
    void setRecord(const OdDbObjectId& id, int value);
    OdDbObjectId addNamed(oddb::SymbolTable table, const std::string& name);

    oddb::Journal& journal() { return db->impl().journal; }
    /// Everything that undo has to bring back, of all objects that exist, as text.
    std::string snapshot() const;

    Names applications;
    Names layers;
    OdDbDatabasePtr db;
};

oddb::Groups recordGroups(int value);
/// The chain 1001 application, 1071 value, 1000 text.
OdResBufPtr xdataChain(const OdChar* application, int value, const OdChar* text);
/// The chain that removes the application's data.
OdResBufPtr xdataRemoval(const OdChar* application);

using support::codeOf;

} // namespace coretest
