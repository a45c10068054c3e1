// The commands of the program in their groups, found by name.
#pragma once

#include <unordered_map>
#include <vector>

#include "Ed/EdCommand.h"
#include "rx/FoldedKeys.h"

namespace oded
{

/** One group: its commands in the order in which they were added. */
struct CommandGroup
{
    OdString name;
    std::vector<OdEdCommandPtr> commands;
};

/** A CommandTable keeps commands as OdEdCommandStack says. Finding one by its global or local name takes the same time
    for any number of commands. */
class CommandTable
{
public:
    /** Throws OdError eNullPtr, eEmptyName, eDuplicateKey; nothing is changed then. */
    void add(OdEdCommand* command);
    bool remove(const OdEdCommand* command);
    bool remove(const OdString& groupName, const OdString& globalName);
    bool removeGroup(const OdString& groupName);

    /** Null when there is none. */
    OdEdCommandPtr find(const OdString& name, bool global, bool local, const OdString& groupName) const;

    /** All commands, group by group. */
    std::vector<OdEdCommandPtr> all() const;

private:
    using Index = std::unordered_map<OdString, std::vector<OdEdCommand*>, odkeys::FoldedHash, odkeys::FoldedEqual>;

    CommandGroup* findGroup(const OdString& name);
    template<class Matches>
    bool removeFirst(Matches matches);
    void rebuildIndex();
    void index(OdEdCommand* command);

    std::vector<CommandGroup> m_groups;
    Index m_byGlobalName; ///< commands in the order of lookup
    Index m_byLocalName;
};

} // namespace oded
