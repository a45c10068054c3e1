// Puts the entities of a drawing file into their blocks: one after the other, vertices and attributes under the entity
// that they follow.
#pragma once

#include "Reading.h"

namespace dxf
{

/// Takes the entities of the BLOCKS and ENTITIES sections in the order of the file.
class BlockContents
{
public:
    explicit BlockContents(Reading& reading) : m_reading(reading) {}

    /// Reads the entity at the head and puts it into the block, or under the entity in front of it.
    void readInto(OdDbStub* block);

    /// Reads the entity at the head and puts it into the block that it names as its owner, or else into the one of the
    /// model or of the paper.
    void readIntoItsBlock();

    /// Puts an entity there that was read already.
    void placeIntoItsBlock(Record& record);

    /// Ends the block: what follows does not belong to the entity in front of it.
    void end();

private:
    OdDbStub* blockOf(const Record& record);
    void place(Record& record, OdDbStub* block);
    void placeUnderParent(Record& record);
    void noteFault(std::string_view what) { m_reading.faults.add(m_place, what); }
    void correctOwner(OdDbStub& entity, OdDbStub* block);

    Reading& m_reading;
    Place m_place;                // of the entity that was placed last
    OdDbStub* m_parent = nullptr; // the entity that is being given its vertices or attributes
};

} // namespace dxf
