// The insides of block table records.
#pragma once

#include <vector>

#include "DbBlockTableRecord.h"
#include "Stub.h"

namespace oddb
{

/// What a block owns. An entity stays where it is for good: what is erased, or whose making is undone, is passed over.
struct BlockContents
{
    std::vector<OdDbStub*> entities; ///< in the order in which they are drawn
    OdDbStub* begin = nullptr;
    OdDbStub* end = nullptr;
};

class BlockCore
{
public:
    /// The contents of a block; for readers to fill.
    static BlockContents& contents(const OdDbBlockTableRecord& block) { return *block.m_contents; }
    static BlockContents& contents(const OdDbStub& block)
    {
        return *static_cast<const OdDbBlockTableRecord&>(*block.object).m_contents;
    }

    /// Makes the BLOCK and ENDBLK of a resident block that has none.
    static void makeFrame(OdDbBlockTableRecord& block);
    /// Puts the name of the block into its BLOCK.
    static void nameFrame(OdDbBlockTableRecord& block);
};

} // namespace oddb
