// BLOCKS: the entities of block definitions.
//
//   0 BLOCK 2 name 10 base point ...   entity...   0 ENDBLK
//
// Files before R13 have no table of blocks: there the BLOCK is all there is of a block.
#include "BlockContents.h"
#include "Tables.h"

#include "db/BlockCore.h"
#include "db/ObjectCore.h"

namespace dxf
{
namespace
{

struct SpaceName
{
    std::string_view old;
    std::string_view name;
};

constexpr SpaceName kSpaceNames[] = {{"$MODEL_SPACE", "*Model_Space"}, {"$PAPER_SPACE", "*Paper_Space"}};

std::string presentName(std::string_view name)
{
    for (const SpaceName& space : kSpaceNames)
        if (name == space.old)
            return std::string(space.name);
    return std::string(name);
}

class BlockReader
{
public:
    explicit BlockReader(Reading& reading) : m_reading(reading), m_contents(reading) {}

    void read();

private:
    void makeBlocksToCome();
    void readBlock();
    OdDbStub* blockOfRecord();
    OdDbStub* blockByName();
    std::string freeName(const std::string& wish) const;
    OdDbStub* find(std::string_view name) const;
    void putBegin(OdDbStub& block);
    void readEntities(OdDbStub* block);
    void readEnd(OdDbStub& block);

    Reading& m_reading;
    BlockContents m_contents;
};

void BlockReader::read()
{
    makeBlocksToCome();
    m_reading.goToFirstRecord();
    while (m_reading.inSection())
    {
        m_reading.records.read(m_reading.record);
        if (m_reading.record.name == "BLOCK")
            readBlock();
        else
            m_reading.noteFault("a " + m_reading.record.name + " outside of all blocks is passed over");
    }
}

// Block references may name blocks that stand further on.
void BlockReader::makeBlocksToCome()
{
    FaultLog ignored;
    TagScanner ahead(m_reading.bytes, ignored);
    ahead.seek(m_reading.sectionStart);
    for (const RecordSeed& seed : collectBlocks(ahead, m_reading.records.decoder()))
        if (const std::string name = presentName(seed.name); !name.empty() && find(name) == nullptr)
            makeBlock(m_reading, name);
}

void BlockReader::readBlock()
{
    OdDbStub* const block = blockOfRecord();
    putBegin(*block);
    readEntities(block);
    if (m_reading.records.atHead("ENDBLK"))
        readEnd(*block);
    else
        m_reading.faults.add(m_reading.scanner.place(), "an ENDBLK is missing");
}

OdDbStub* BlockReader::blockOfRecord()
{
    const Record& record = m_reading.record;
    const bool ownerIsFree =
        record.hasOwner && isBlock(record.owner) && oddb::BlockCore::contents(*record.owner).begin == nullptr;
    return ownerIsFree ? record.owner : blockByName();
}

OdDbStub* BlockReader::blockByName()
{
    const Record& record = m_reading.record;
    const std::string name = presentName(record.text(2, record.text(3)));
    OdDbStub* const known = name.empty() ? nullptr : find(name);
    if (known != nullptr && oddb::BlockCore::contents(*known).begin == nullptr)
        return known;
    const std::string given = freeName(name);
    m_reading.noteFault(name.empty() ? "the block has no name; it is called " + given
                                     : "there is another block " + name + "; this one is called " + given);
    return makeBlock(m_reading, given);
}

std::string BlockReader::freeName(const std::string& wish) const
{
    const std::string stem = wish.empty() ? "*U" : wish + "_";
    for (int number = 1;; ++number)
        if (std::string name = stem + std::to_string(number); find(name) == nullptr)
            return name;
}

OdDbStub* BlockReader::find(std::string_view name) const
{
    return oddb::findSymbol(m_reading.database.database, oddb::SymbolTable::Block, name);
}

void BlockReader::putBegin(OdDbStub& block)
{
    OdDbStub* const begin = m_reading.objects.loadEntity(m_reading.record, &block);
    oddb::ObjectCore::putOwner(*begin->object, &block);
    oddb::BlockCore::contents(block).begin = begin;
    const oddb::DxfClass* const cls = oddb::findDxfClass("BLOCK");
    const oddb::Groups groups = oddb::ObjectCore::groups(*begin->object);
    const auto name = groups.findAny(2);
    if (cls != nullptr && (!name || name->text() != oddb::symbolName(&block)))
        oddb::ObjectCore::putGroups(*begin->object, oddb::withName(groups, *cls, *cls->subclasses.back(), 2, &block));
}

void BlockReader::readEntities(OdDbStub* block)
{
    while (!m_reading.records.atHead("ENDBLK") && !m_reading.records.atHead("BLOCK") && m_reading.inSection())
        m_contents.readInto(block);
    m_contents.end();
}

void BlockReader::readEnd(OdDbStub& block)
{
    m_reading.records.read(m_reading.record);
    OdDbStub* const end = m_reading.objects.loadEntity(m_reading.record, &block);
    oddb::ObjectCore::putOwner(*end->object, &block);
    oddb::BlockCore::contents(block).end = end;
}

} // namespace

void readBlocksSection(Reading& reading)
{
    makeSpaces(reading);
    BlockReader(reading).read();
}

} // namespace dxf
