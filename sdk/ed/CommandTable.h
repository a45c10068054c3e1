// The commands of the program in their groups, found by name.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "Ed/EdCommand.h"

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
    using Found = std::vector<OdEdCommand*>;

    CommandGroup* findGroup(const OdString& name);
    template<class Matches>
    bool removeFirst(Matches matches);
    void rebuildIndex();
    void index(OdEdCommand* command);

    std::vector<CommandGroup> m_groups;
    std::unordered_map<std::wstring, Found> m_byGlobalName; ///< folded names; commands in the order of lookup
    std::unordered_map<std::wstring, Found> m_byLocalName;
};

} // namespace oded
