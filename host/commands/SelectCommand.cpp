// The command SELECT: asks for objects in every way there is until the user has enough, and keeps them as what is
// picked before a command.
#include "Ed/EdException.h"
#include "commands/CommandTable.h"
#include "commands/SelectionSets.h"

namespace hostcommands
{

namespace
{

// Adds what one round of asking gives. Returns false when the user has enough.
bool askOnce(OdDbUserIO& user, int options, OdDbSelectionSet& selected)
{
    try
    {
        const OdDbSelectionSetPtr picked = OdDbSelectionSet::cast(user.select(OdString(), options));
        if (!picked.isNull())
            selected.append(picked->objectIdArray());
        user.putString(OdString().format(L"%u selected", selected.numEntities()));
        return true;
    }
    catch (const OdEdEmptyInput&)
    {
        return false;
    }
    catch (const OdEdOtherInput& other)
    {
        user.putError(L"\"" + other.string() + L"\" is neither a point nor a way to select");
        return true;
    }
}

} // namespace

void selectObjects(CommandRun& run)
{
    constexpr unsigned kAlways = unsigned{OdEd::kSelIgnorePickfirst} | unsigned{OdEd::kInpThrowEmpty};
    const int options = run.parameters.integer(L"SELECTOPTIONS").value_or(0) | static_cast<int>(kAlways);
    const OdDbSelectionSetPtr before = findSelectionSet(run.database, kPickFirst);
    const OdDbSelectionSetPtr selected = OdDbSelectionSet::createObject(&run.database);
    try
    {
        while (askOnce(run.requireUser(), options, *selected))
            ;
    }
    catch (...)
    {
        storeSelectionSet(run.database, kPickFirst, *before);
        throw;
    }
    rememberSelection(run.database, *selected);
    storeSelectionSet(run.database, kPickFirst, *selected);
    run.results.add(L"SELECTIONSET", selected);
}

} // namespace hostcommands
