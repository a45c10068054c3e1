// Completes and mends a drawing.
#include "Repair.h"

#include "Reading.h"
#include "Tables.h"

#include "DbBlockTableRecord.h"
#include "DbDatabase.h"
#include "DbDictionary.h"
#include "DbLayout.h"
#include "db/BlockCore.h"
#include "db/DictionaryCore.h"
#include "db/ObjectCore.h"
#include "db/SymbolTableCore.h"

namespace dxf
{
namespace
{

using oddb::SymbolTable;

class Repairer
{
public:
    explicit Repairer(Reading& reading) : m_reading(reading), m_database(reading.database) {}

    void repair();

private:
    bool hasAll() const;
    bool hasRecord(SymbolTable table, std::string_view name) const;
    bool hasLayout(const OdDbStub* space) const;
    void completeBlocks();
    void mendLayouts();
    void mendLayout(OdDbStub& layout);
    void enterLayout(OdDbLayout& layout);
    void mendOwners();
    void mendOwnersIn(OdDbStub& dictionary);
    OdDbStub* blockFor(OdDbLayout& layout);
    OdDbStub* makePaperBlock();
    void note(const OdDbStub& object, std::string_view what) { m_reading.faults.addForObject(object.handle, what); }

    const std::vector<OdDbStub*>& blocks() const
    {
        return oddb::SymbolTableCore::records(*tableOf(m_database, SymbolTable::Block)).all();
    }

    Reading& m_reading;
    oddb::DatabaseImpl& m_database;
};

bool isLayout(const OdDbStub* stub)
{
    return stub != nullptr && stub->object != nullptr && stub->object->isKindOf(OdDbLayout::desc());
}

OdDbBlockTableRecordPtr openBlock(OdDbStub* block)
{
    return OdDbObjectId(block).safeOpenObject(OdDb::kForWrite);
}

void Repairer::repair()
{
    makeSpaces(m_reading);
    completeBlocks();
    mendLayouts();
    mendOwners();
    const bool isOld = m_reading.version < OdDb::vAC15;
    if (!isOld && hasAll())
        return;
    if (!isOld)
        m_reading.faults.add("the drawing lacks tables, records or dictionaries that every drawing has; they are made");
    m_database.database.initialize();
    completeBlocks();
}

// ---- What every drawing has
// ------------------------------------------------------------------------------------------

bool Repairer::hasAll() const
{
    for (const SymbolTable table : kTablesInOrder)
        if (tableOf(m_database, table) == nullptr)
            return false;
    return m_database.namedObjects != nullptr && hasRecord(SymbolTable::Layer, "0") &&
           hasRecord(SymbolTable::Linetype, "Continuous") && hasRecord(SymbolTable::TextStyle, "Standard") &&
           hasRecord(SymbolTable::RegApp, "ACAD") && hasLayout(m_database.modelSpace) &&
           hasLayout(m_database.paperSpace);
}

bool Repairer::hasRecord(SymbolTable table, std::string_view name) const
{
    return oddb::findSymbol(m_database.database, table, name) != nullptr;
}

bool Repairer::hasLayout(const OdDbStub* space) const
{
    return isLayout(oddb::stubOf(static_cast<const OdDbBlockTableRecord&>(*space->object).getLayoutId()));
}

// ---- Blocks
// ----------------------------------------------------------------------------------------------------------

void Repairer::completeBlocks()
{
    for (OdDbStub* const block : blocks())
    {
        const oddb::BlockContents& contents = oddb::BlockCore::contents(*block);
        if (contents.begin != nullptr && contents.end != nullptr)
            continue;
        if (contents.begin == nullptr && m_reading.version >= OdDb::vAC13)
            note(*block, "the block has no BLOCK in the file; it is made");
        oddb::BlockCore::makeFrame(*openBlock(block));
    }
}

// ---- Layouts
// ---------------------------------------------------------------------------------------------------------

void Repairer::mendLayouts()
{
    std::vector<OdDbStub*> layouts;
    m_database.stubs.visit(
        [&](OdDbStub& stub)
        {
            if (isLayout(&stub))
                layouts.push_back(&stub);
        });
    for (OdDbStub* const layout : layouts)
        mendLayout(*layout);
}

void Repairer::mendLayout(OdDbStub& stub)
{
    const OdDbLayoutPtr layout = OdDbObjectId(&stub).safeOpenObject(OdDb::kForWrite);
    OdDbStub* block = oddb::stubOf(layout->getBlockTableRecordId());
    if (!isBlock(block))
    {
        note(stub, "the layout names no block; it gets one");
        block = blockFor(*layout);
        layout->setBlockTableRecordId(block);
    }
    const OdDbBlockTableRecordPtr record = openBlock(block);
    if (!isLayout(oddb::stubOf(record->getLayoutId())))
    {
        note(*block, "the block does not name its layout; it does now");
        record->setLayoutId(&stub);
    }
    enterLayout(*layout);
}

OdDbStub* Repairer::blockFor(OdDbLayout& layout)
{
    const OdDbObjectId id = layout.objectId();
    for (OdDbStub* const block : blocks())
        if (openBlock(block)->getLayoutId() == id)
            return block;
    if (layout.getLayoutName().iCompare(L"Model") == 0)
        return m_database.modelSpace;
    return hasLayout(m_database.paperSpace) ? makePaperBlock() : m_database.paperSpace;
}

OdDbStub* Repairer::makePaperBlock()
{
    for (int number = 0;; ++number)
        if (const std::string name = "*Paper_Space" + std::to_string(number); !hasRecord(SymbolTable::Block, name))
        {
            OdDbStub* const block = makeBlock(m_reading, name);
            oddb::BlockCore::makeFrame(*openBlock(block));
            return block;
        }
}

// A layout that its dictionary does not have cannot be found by anyone.
void Repairer::enterLayout(OdDbLayout& layout)
{
    const OdDbDictionaryPtr owner = OdDbDictionary::cast(layout.ownerId().openObject(OdDb::kForWrite));
    if (owner.isNull() || owner->has(layout.objectId()) || owner->has(layout.getLayoutName()))
        return;
    m_reading.faults.addForObject(layout.objectHandle(), "the layout is not in its dictionary; it is entered");
    owner->setAt(layout.getLayoutName(), &layout);
}

// ---- Dictionaries
// ----------------------------------------------------------------------------------------------------

// An object that says of no owner belongs to the dictionary that has it; files before R2000 never say.
void Repairer::mendOwners()
{
    m_database.stubs.visit(
        [&](OdDbStub& stub)
        {
            if (stub.object != nullptr && stub.object->isKindOf(OdDbDictionary::desc()))
                mendOwnersIn(stub);
        });
}

void Repairer::mendOwnersIn(OdDbStub& dictionary)
{
    const auto entries =
        oddb::DictionaryCore::entries(static_cast<const OdDbDictionary&>(*dictionary.object)).inOrder();
    for (const oddb::DictionaryEntry& entry : *entries)
    {
        OdDbObject* const object = entry.object->object;
        if (object == nullptr || entry.object == m_database.namedObjects)
            continue;
        const OdDbStub* const owner = oddb::ObjectCore::owner(*object);
        if (owner != nullptr && owner->object != nullptr)
            continue;
        if (m_reading.version >= OdDb::vAC15)
            note(*entry.object, "the object has no owner; the dictionary that has it is its owner now");
        oddb::ObjectCore::putOwner(*object, &dictionary);
    }
}

} // namespace

void repairDrawing(Reading& reading)
{
    Repairer(reading).repair();
}

} // namespace dxf
