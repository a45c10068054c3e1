// Keeps commands in groups with an index by folded name beside them.
#include "ed/CommandTable.h"

#include <algorithm>

#include "OdError.h"

namespace oded
{

namespace
{

bool isIn(const OdEdCommand& command, const OdString& groupName)
{
    return groupName.isEmpty() || odEqualsNoCase(command.groupName(), groupName);
}

} // namespace

CommandGroup* CommandTable::findGroup(const OdString& name)
{
    const auto found = std::find_if(m_groups.begin(), m_groups.end(),
                                    [&](const CommandGroup& group) { return group.name.iCompare(name) == 0; });
    return found == m_groups.end() ? nullptr : &*found;
}

void CommandTable::add(OdEdCommand* command)
{
    if (!command)
        throw OdError(eNullPtr);
    const OdString groupName = command->groupName();
    const OdString globalName = command->globalName();
    if (groupName.isEmpty() || globalName.isEmpty())
        throw OdError(eEmptyName);
    if (find(globalName, true, false, groupName))
        throw OdError(eDuplicateKey);
    CommandGroup* group = findGroup(groupName);
    if (!group)
        group = &m_groups.emplace_back(CommandGroup{groupName, {}});
    group->commands.push_back(command);
    // only among commands of one name does it matter which group comes first
    if (!m_byGlobalName.contains(command->globalName()) && !m_byLocalName.contains(command->localName()))
        index(command);
    else
        rebuildIndex();
}

template<class Matches>
bool CommandTable::removeFirst(Matches matches)
{
    for (CommandGroup& group : m_groups)
    {
        const auto found = std::find_if(group.commands.begin(), group.commands.end(), matches);
        if (found == group.commands.end())
            continue;
        const OdEdCommandPtr kept = *found;
        group.commands.erase(found);
        std::erase_if(m_groups, [](const CommandGroup& candidate) { return candidate.commands.empty(); });
        rebuildIndex();
        return true;
    }
    return false;
}

bool CommandTable::remove(const OdEdCommand* command)
{
    return removeFirst([command](const OdEdCommandPtr& candidate) { return candidate.get() == command; });
}

bool CommandTable::remove(const OdString& groupName, const OdString& globalName)
{
    const OdEdCommandPtr command = groupName.isEmpty() ? OdEdCommandPtr() : find(globalName, true, false, groupName);
    return command && remove(command.get());
}

bool CommandTable::removeGroup(const OdString& groupName)
{
    CommandGroup* group = findGroup(groupName);
    if (!group)
        return false;
    const std::vector<OdEdCommandPtr> kept = group->commands;
    m_groups.erase(m_groups.begin() + (group - m_groups.data()));
    rebuildIndex();
    return true;
}

void CommandTable::index(OdEdCommand* command)
{
    m_byGlobalName[command->globalName()].push_back(command);
    m_byLocalName[command->localName()].push_back(command);
}

void CommandTable::rebuildIndex()
{
    m_byGlobalName.clear();
    m_byLocalName.clear();
    for (const CommandGroup& group : m_groups)
        for (const OdEdCommandPtr& command : group.commands)
            index(command.get());
}

OdEdCommandPtr CommandTable::find(const OdString& name, bool global, bool local, const OdString& groupName) const
{
    if (name.isEmpty()) // as local names may be
        return OdEdCommandPtr();
    const auto findIn = [&](const Index& byName) -> OdEdCommand*
    {
        const auto found = byName.find(name);
        if (found == byName.end())
            return nullptr;
        const auto command = std::find_if(found->second.begin(), found->second.end(),
                                          [&](const OdEdCommand* candidate) { return isIn(*candidate, groupName); });
        return command == found->second.end() ? nullptr : *command;
    };
    OdEdCommand* command = global ? findIn(m_byGlobalName) : nullptr;
    if (!command && local)
        command = findIn(m_byLocalName);
    return command;
}

std::vector<OdEdCommandPtr> CommandTable::all() const
{
    std::vector<OdEdCommandPtr> commands;
    for (const CommandGroup& group : m_groups)
        commands.insert(commands.end(), group.commands.begin(), group.commands.end());
    return commands;
}

} // namespace oded
