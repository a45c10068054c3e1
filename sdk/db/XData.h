// Extended data: values that applications put on objects, each under its registered name.
//
//   chain  1001 "APPLICATION" value... 1001 "OTHER" value...
//   kept   per application: its record, and the values as groups (1000..1071) that equal objects share
#pragma once

#include <array>
#include <vector>

#include "Groups.h"
#include "ObjectExtras.h"
#include "ResBuf.h"

class OdDbDatabase;

namespace oddb
{

/// The most that the XData of one object may take, in bytes as a drawing file counts them.
constexpr std::size_t kXDataLimit = std::size_t{16} * 1024;

/// The room that the values of one application take, its name included.
std::size_t xdataBytes(const Groups& values);

/// Shares equal rows of values: marking many objects with the same values stores them once, and reads them once when
/// the objects come one after the other.
class GroupsPool
{
public:
    Groups intern(const GroupsBuilder& values);

    /// Reads a chain: the values of each application in it, none for one that is to be removed. Throws OdError
    /// eInvalidResBuf, eRegappIdNotFound. The entries are valid until the next call.
    const std::vector<XDataEntry>& read(const OdResBuf& chain, OdDbDatabase& database);

    /// An empty builder for the values to be shared; it keeps its buffer from one row to the next.
    GroupsBuilder& builder()
    {
        m_builder.clear();
        return m_builder;
    }

private:
    bool isReadAgain(const OdResBuf& chain, const OdDbDatabase& database) const;

    GroupsBuilder m_builder;
    std::vector<XDataEntry> m_read;
    std::vector<XDataEntry> m_readBefore; ///< what was read in front of that
    OdResBufPtr m_readChain; ///< a copy of the chain that became m_read, null when it has to be read once more
    std::array<Groups, 64> m_recent;
};

/// Sets the values of one application. A change that is recorded, when the object is resident; the object is open for
/// write.
void changeXData(OdDbObject& object, const XDataEntry& entry);

/// The chain of one application, or of all when application is null; null when there is nothing.
OdResBufPtr makeXDataChain(const XDataList& list, const OdDbStub* application);

} // namespace oddb
