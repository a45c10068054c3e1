// The commands that read and change named selection sets: SELECTIONSETGET, SELECTIONSETUPDATE, SELECTIONSETCLEAR and
// SELECTIONSETMERGE.
#include "Ed/EdUserIO.h"
#include "OdError.h"
#include "commands/CommandTable.h"
#include "commands/SelectionRules.h"
#include "commands/SelectionSets.h"

namespace hostcommands
{

namespace
{

OdString nameOf(const CommandRun& run)
{
    return run.parameters.name(L"SELECTIONSETNAME");
}

OdDbSelectionSetPtr requireSet(const CommandRun& run, const OdChar* parameter)
{
    OdDbSelectionSetPtr set = run.parameters.selectionSet(parameter);
    if (set.isNull())
        throw OdError(eNullObjectPointer, OdString(L"the parameter ") + parameter + L" is missing");
    return set;
}

} // namespace

void getSelectionSet(CommandRun& run)
{
    // A name that stands for nothing gives no result: whoever asked knows what that means for him.
    const OdDbSelectionSetPtr set = findSelectionSet(run.database, nameOf(run));
    if (!set.isNull())
        run.results.add(L"SELECTIONSET", set);
}

void updateSelectionSet(CommandRun& run)
{
    const OdDbSelectionSetPtr set = requireSet(run, L"SELECTIONSET");
    const OdString name = nameOf(run);
    const bool highlight = run.parameters.flag(L"HIGHLIGHT").value_or(false);
    if (name.isEmpty() || name.iCompare(kPickFirst) == 0)
        rememberSelection(run.database, *set);
    storeSelectionSet(run.database, name, *set);
    setHighlighted(run.database, name, highlight);
    run.results.add(L"SELECTIONSET", set);
}

void clearSelectionSet(CommandRun& run)
{
    storeSelectionSet(run.database, nameOf(run), *OdDbSelectionSet::createObject(&run.database));
    setHighlighted(run.database, nameOf(run), false);
}

void mergeSelectionSets(CommandRun& run)
{
    const OdDbSelectionSetPtr source = requireSet(run, L"SOURCE");
    const OdDbSelectionSetPtr destination = requireSet(run, L"DESTINATION");
    SelectionRules rules(run, L"OPTIONS");
    rules.merge(source->objectIdArray(), nullptr, *destination);
    run.results.add(L"SELECTIONSET", destination);
}

} // namespace hostcommands
