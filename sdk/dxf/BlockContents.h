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

    /// Ends the block: what follows does not belong to the entity in front of it.
    void end();

private:
    OdDbStub* blockOfRecord() const;
    void place(OdDbStub* block);
    void placeUnderParent();
    void correctOwner(OdDbStub& entity, OdDbStub* block);

    Reading& m_reading;
    OdDbStub* m_parent = nullptr; // the entity that is being given its vertices or attributes
};

} // namespace dxf
