// Symbol tables and what all their records have in common.
#include "DbSymbolTable.h"

#include "DatabaseImpl.h"
#include "ObjectCore.h"
#include "OdError.h"
#include "RecordFields.h"
#include "RecordTables.h"
#include "RxObjectImpl.h"
#include "SymbolTableCore.h"

using oddb::ObjectCore;
using oddb::SymbolTable;
using oddb::SymbolTableCore;

// ---- Tables --------------------------------------------------------------------------------------------------------

OdDbSymbolTable::OdDbSymbolTable(SymbolTable kind) : m_records(std::make_unique<oddb::SymbolRecords>(kind))
{
    ObjectCore::putGroups(*this, oddb::initialGroups(oddb::recordtables::kTable, {70}));
}

OdDbSymbolTable::~OdDbSymbolTable() = default;

OdDbObjectId OdDbSymbolTable::getAt(const OdString& name, bool getErased) const
{
    assertReadEnabled();
    const std::string utf8 = odStringToUtf8(name);
    OdDbStub* found = m_records->findName(utf8);
    return found || !getErased ? found : m_records->findErased(utf8);
}

OdDbSymbolTableRecordPtr OdDbSymbolTable::getAt(const OdString& name, OdDb::OpenMode openMode, bool getErased) const
{
    const OdDbObjectId id = getAt(name, getErased);
    return id.isNull() ? OdDbSymbolTableRecordPtr() : OdDbSymbolTableRecordPtr(id.safeOpenObject(openMode, getErased));
}

bool OdDbSymbolTable::has(const OdString& name) const
{
    return !getAt(name).isNull();
}

bool OdDbSymbolTable::has(const OdDbObjectId& recordId) const
{
    assertReadEnabled();
    return !recordId.isErased() && ObjectCore::owner(*oddb::stubOf(recordId)->object) == ObjectCore::stub(*this) &&
           isDBRO();
}

static void requireRecord(const OdDbSymbolTable& table, const OdDbSymbolTableRecord* record)
{
    if (!record)
        throw OdError(eNullObjectPointer);
    if (!table.isDBRO())
        throw OdError(eNotInDatabase);
    if (record->isDBRO())
        throw OdError(eAlreadyInDb);
    const oddb::SymbolTableKind& kind = oddb::symbolTableKind(SymbolTableCore::records(table).kind);
    OdRxClass* required = kind.recordType();
    if (!record->isKindOf(required))
        throw OdError_NotThatKindOfClass(record->isA(), required);
}

// Viewports of one configuration share their name, and shape files have none.
static bool namesAreUnique(SymbolTable kind)
{
    return kind != SymbolTable::Viewport;
}

// In UTF-8; valid as long as the row is.
static std::string_view nameIn(const oddb::Groups& groups)
{
    const std::optional<oddb::GroupView> name = groups.findAny(2);
    return name ? name->text() : std::string_view();
}

OdDbObjectId OdDbSymbolTable::add(OdDbSymbolTableRecord* record)
{
    assertWriteEnabled(false, false);
    requireRecord(*this, record);
    const oddb::Groups groups = oddb::readableGroups(*record);
    const std::string_view name = nameIn(groups);
    if (name.empty() && m_records->kind != SymbolTable::TextStyle)
        throw OdError(eInvalidSymbolTableName);
    if (namesAreUnique(m_records->kind) && !name.empty() && m_records->findName(name))
        throw OdError(eDuplicateRecordName);
    const OdDbObjectId id = database()->addOdDbObject(record, objectId());
    if (id.isNull())
        return id;
    assertWriteEnabled(false);
    SymbolTableCore::append(*ObjectCore::stub(*this), id);
    return id;
}

OdResult OdDbSymbolTable::subErase(bool erasing)
{
    return erasing ? eCannotBeErasedByCaller : eOk;
}

// ---- Going over the records ----------------------------------------------------------------------------------------

namespace
{

class SymbolTableIterator : public OdDbSymbolTableIterator
{
public:
    explicit SymbolTableIterator(const std::vector<OdDbStub*>& records) : m_cursor(records) {}

    void start(bool atBeginning, bool skipErased) override { m_cursor.start(atBeginning, skipErased); }
    bool done() const override { return m_cursor.done(); }
    OdDbObjectId getRecordId() const override { return m_cursor.current(); }
    OdDbSymbolTableRecordPtr getRecord(OdDb::OpenMode openMode, bool openErased) const override
    {
        return done() ? OdDbSymbolTableRecordPtr()
                      : OdDbSymbolTableRecordPtr(getRecordId().safeOpenObject(openMode, openErased));
    }
    void step(bool forward, bool skipErased) override { m_cursor.step(forward, skipErased); }
    bool seek(const OdDbObjectId& recordId) override { return m_cursor.seek(recordId); }

private:
    oddb::StubCursor m_cursor;
};

} // namespace

OdDbSymbolTableIteratorPtr OdDbSymbolTable::newIterator(bool atBeginning, bool skipErased) const
{
    assertReadEnabled();
    OdDbSymbolTableIteratorPtr iterator =
        OdRxObjectImpl<SymbolTableIterator, OdDbSymbolTableIterator>::createObject(m_records->all());
    iterator->start(atBeginning, skipErased);
    return iterator;
}

// ---- Records -------------------------------------------------------------------------------------------------------

OdString OdDbSymbolTableRecord::getName() const
{
    const oddb::Groups groups = oddb::readableGroups(*this);
    return odUtf8ToString(nameIn(groups));
}

void OdDbSymbolTableRecord::setName(const OdString& name)
{
    assertWriteEnabled(false, false);
    const std::string utf8 = odStringToUtf8(name);
    if (utf8 == nameIn(oddb::readableGroups(*this)) || (isDBRO() && database()->isUndoing()))
        return;
    if (name.isEmpty())
        throw OdError(eInvalidSymbolTableName);
    const OdDbSymbolTable* table = isDBRO() ? SymbolTableCore::tableOf(*this) : nullptr;
    if (table && namesAreUnique(SymbolTableCore::records(*table).kind))
    {
        const OdDbStub* other = SymbolTableCore::records(*table).findName(utf8);
        if (other && other != ObjectCore::stub(*this))
            throw OdError(eDuplicateRecordName);
    }
    SymbolTableCore::changeName(*this, utf8);
}

static bool hasRecordFlag(const OdDbSymbolTableRecord& record, int flag)
{
    const std::optional<oddb::GroupView> flags = oddb::readableGroups(record).findAny(70);
    return flags && (flags->integer() & flag) != 0;
}

bool OdDbSymbolTableRecord::isDependent() const
{
    return hasRecordFlag(*this, 16);
}

bool OdDbSymbolTableRecord::isResolved() const
{
    return hasRecordFlag(*this, 32);
}

static bool isNeeded(SymbolTable table, const OdString& name)
{
    struct Needed
    {
        SymbolTable table;
        const OdChar* name;
    };
    static constexpr Needed kNeeded[] = {
        {SymbolTable::Layer, L"0"},
        {SymbolTable::Linetype, L"ByLayer"},
        {SymbolTable::Linetype, L"ByBlock"},
        {SymbolTable::Linetype, L"Continuous"},
        {SymbolTable::TextStyle, L"Standard"},
        {SymbolTable::DimStyle, L"Standard"},
        {SymbolTable::RegApp, L"ACAD"},
        {SymbolTable::Block, L"*Model_Space"},
        {SymbolTable::Block, L"*Paper_Space"},
    };
    for (const Needed& needed : kNeeded)
        if (needed.table == table && name.iCompare(needed.name) == 0)
            return true;
    return false;
}

OdResult OdDbSymbolTableRecord::subErase(bool erasing)
{
    const OdDbSymbolTable* table = SymbolTableCore::tableOf(*this);
    if (!table)
        return eOk;
    const oddb::SymbolRecords& records = SymbolTableCore::records(*table);
    const OdString name = getName();
    if (erasing)
        return isNeeded(records.kind, name) ? eCannotBeErasedByCaller : eOk;
    return namesAreUnique(records.kind) && records.findName(odStringToUtf8(name)) ? eDuplicateRecordName : eOk;
}
