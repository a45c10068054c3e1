// Between the two forms of a row of values: groups, as objects keep them, and chains of result buffers, as programs
// pass them on.
#pragma once

#include "Groups.h"
#include "ResBuf.h"

class OdDbDatabase;

namespace oddb
{

/// Reads elements without holding references to them: for chains that are read once for each of many objects.
class ChainAccess
{
public:
    static const OdResBuf* next(const OdResBuf& element) { return element.m_next.get(); }
    static const OdString& text(const OdResBuf& element) { return element.value<OdString>(); }
    static bool hasSameValue(const OdResBuf& first, const OdResBuf& second)
    {
        return first.m_resType == second.m_resType && first.m_value == second.m_value;
    }
};

/// Appends the value of one chain element as the group of the same code. Handles and layer names become references
/// where the database has what they name. Throws OdError eInvalidResBuf for an element that is no group.
void appendElement(GroupsBuilder& builder, const OdResBuf& element, OdDbDatabase* database);

/// Makes a chain of the groups, joining the coordinates of points. Null for no groups.
OdResBufPtr toChain(const Groups& groups);

/// Makes chain elements of the groups behind last, which may be null at first, and returns first and last element.
class ChainWriter
{
public:
    void append(const OdResBufPtr& element);
    void append(const Groups& groups);
    OdResBufPtr chain() const { return m_first; }

private:
    OdResBufPtr m_first;
    OdResBufPtr m_last;
};

} // namespace oddb
