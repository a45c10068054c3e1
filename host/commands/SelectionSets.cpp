// The named selection sets of each open drawing, and the commands that read and change them.
#include "commands/SelectionSets.h"

#include <map>
#include <utility>

#include "OdError.h"
#include "commands/CommandTable.h"

namespace hostcommands
{

const OdChar* const kPickFirst = L"PICKFIRST";

namespace
{

using SetKey = std::pair<const OdDbDatabase*, OdString>;

struct KeyOrder
{
    bool operator()(const SetKey& first, const SetKey& second) const
    {
        if (first.first != second.first)
            return std::less<>()(first.first, second.first);
        return first.second.iCompare(second.second) < 0;
    }
};

std::map<SetKey, OdDbSelectionSetPtr, KeyOrder>& allSets()
{
    static std::map<SetKey, OdDbSelectionSetPtr, KeyOrder> sets;
    return sets;
}

OdString orPickFirst(const OdString& name)
{
    return name.isEmpty() ? OdString(kPickFirst) : name;
}

OdString nameOf(const CommandRun& run)
{
    return run.parameters.name(L"SELECTIONSETNAME");
}

} // namespace

OdDbSelectionSetPtr findSelectionSet(OdDbDatabase& database, const OdString& name)
{
    const OdString key = orPickFirst(name);
    const auto found = allSets().find({&database, key});
    if (found != allSets().end())
        return found->second;
    return key.iCompare(kPickFirst) == 0 ? OdDbSelectionSet::createObject(&database) : OdDbSelectionSetPtr();
}

void storeSelectionSet(OdDbDatabase& database, const OdString& name, const OdDbSelectionSetPtr& set)
{
    allSets()[{&database, orPickFirst(name)}] = set;
}

void forgetSelectionSets(const OdDbDatabase& database)
{
    auto& sets = allSets();
    for (auto entry = sets.begin(); entry != sets.end();)
        entry = entry->first.first == &database ? sets.erase(entry) : std::next(entry);
}

void getSelectionSet(CommandRun& run)
{
    // A name that stands for nothing gives no result: whoever asked knows what that means for him.
    const OdDbSelectionSetPtr set = findSelectionSet(run.database, nameOf(run));
    if (!set.isNull())
        run.results.add(L"SELECTIONSET", set);
}

void updateSelectionSet(CommandRun& run)
{
    const OdDbSelectionSetPtr set = run.parameters.selectionSet(L"SELECTIONSET");
    if (set.isNull())
        throw OdError(eNullObjectPointer, OdString(L"the parameter SELECTIONSET is missing"));
    storeSelectionSet(run.database, nameOf(run), set);
    run.results.add(L"SELECTIONSET", set);
}

void clearSelectionSet(CommandRun& run)
{
    storeSelectionSet(run.database, nameOf(run), OdDbSelectionSet::createObject(&run.database));
}

} // namespace hostcommands
