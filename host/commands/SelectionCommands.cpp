// The commands that select: by a shape, all that is shown, the last, the previous, by handles, by JSON. Each gives what
// it selected as SELECTIONSET, stores it under SELECTIONSETNAME when that is there, and remembers it as the previous
// selection.
#include <algorithm>

#include "DbBlockTableRecord.h"
#include "OdError.h"
#include "RxObjectImpl.h"
#include "commands/AskForPoints.h"
#include "commands/CommandTable.h"
#include "commands/HandleList.h"
#include "commands/JsonCriteria.h"
#include "commands/SelectionRules.h"
#include "commands/SelectionSets.h"
#include "commands/VisibleEntities.h"

namespace hostcommands
{

namespace
{

using Visual = OdDbVisualSelection;

class VisualMethod : public OdDbVisualSelection
{
public:
    void set(Mode mode) { m_mode = mode; }
    Mode mode() const override { return m_mode; }

private:
    Mode m_mode = kPoint;
};

void give(CommandRun& run, const OdDbSelectionSetPtr& selected)
{
    rememberSelection(run.database, *selected);
    if (run.parameters.has(L"SELECTIONSETNAME"))
        storeSelectionSet(run.database, run.parameters.name(L"SELECTIONSETNAME"), *selected);
    run.results.add(L"SELECTIONSET", selected);
}

void selectAmong(CommandRun& run, SelectionRules& rules, const OdDbObjectIdArray& found,
                 const OdDbSelectionMethod* method = nullptr)
{
    const OdDbSelectionSetPtr selected = OdDbSelectionSet::createObject(&run.database);
    rules.merge(found, method, *selected);
    give(run, selected);
}

void selectAmong(CommandRun& run, const OdDbObjectIdArray& found)
{
    SelectionRules rules(run, L"SELECTOPTIONS");
    selectAmong(run, rules, found);
}

Visual::Mode modeOf(const CommandRun& run)
{
    const std::optional<int> mode = run.parameters.integer(L"SELECTFUNCTION");
    if (!mode)
        throw OdError(eInvalidInput, OdString(L"the parameter SELECTFUNCTION is missing"));
    if (*mode < int{Visual::kPoint} || *mode > int{Visual::kCPoly})
        throw OdError(eInvalidInput, OdString().format(L"SELECTFUNCTION is 0 to 6, not %d", *mode));
    return static_cast<Visual::Mode>(*mode);
}

OdDbObjectIdArray entitiesIn(OdDbDatabase& database, Visual::Mode mode, const std::vector<OdGePoint3d>& points)
{
    if (points.empty())
        return {};
    return OdDbSelectionSet::select(database.activeViewportId(), static_cast<int>(points.size()), points.data(), mode)
        ->objectIdArray();
}

// Asks until the answer can be read; an empty one is read as nothing.
template<class Read>
void askUntilRead(OdDbUserIO& user, const OdString& prompt, Read read)
{
    for (;;)
    {
        const OdString answer = user.getString(prompt);
        if (answer.isEmpty())
            return;
        try
        {
            return read(answer);
        }
        catch (const OdError& error)
        {
            if (error.code() != eInvalidInput)
                throw;
            user.putError(error.description());
        }
    }
}

OdDbObjectIdArray entitiesLike(OdDbDatabase& database, const JsonCriteria& wanted)
{
    const EntityFilter filter(wanted.criteria);
    OdDbObjectIdArray found;
    const OdDbObjectIdArray candidates =
        wanted.window ? entitiesIn(database, Visual::kWindow, {(*wanted.window)[0], (*wanted.window)[1]})
                      : visibleEntities(database);
    for (const OdDbObjectId& id : candidates)
        if ((!wanted.objects || wanted.objects->contains(id)) && filter.admits(id))
            found.append(id);
    return found;
}

} // namespace

void selectVisual(CommandRun& run)
{
    const Visual::Mode mode = modeOf(run);
    SelectionRules rules(run, L"SELECTOPTIONS");
    const OdSmartPtr<VisualMethod> method = OdRxObjectImpl<VisualMethod>::createObject();
    method->set(mode);
    selectAmong(run, rules, entitiesIn(run.database, mode, askForPoints(run.requireUser(), mode)), method);
}

void selectAllVisibleEntities(CommandRun& run)
{
    selectAmong(run, visibleEntities(run.database));
}

void selectLastVisibleEntity(CommandRun& run)
{
    OdDbObjectIdArray last;
    if (const OdDbObjectId id = lastVisibleEntity(run.database); !id.isNull())
        last.append(id);
    selectAmong(run, last);
}

void selectPrevious(CommandRun& run)
{
    SelectionRules rules(run, L"SELECTOPTIONS");
    rules.withoutFilter();
    selectAmong(run, rules, previousSelection(run.database)->objectIdArray());
}

void selectByHandle(CommandRun& run)
{
    OdDbObjectIdArray found;
    askUntilRead(run.requireUser(), L"Handles:",
                 [&](const OdString& answer) { found = objectsOfHandles(run.database, answer); });
    selectAmong(run, found);
}

void selectByJson(CommandRun& run)
{
    OdDbObjectIdArray found;
    askUntilRead(run.requireUser(), L"What to select, as JSON:",
                 [&](const OdString& answer)
                 { found = entitiesLike(run.database, readJsonCriteria(answer, run.database)); });
    selectAmong(run, found);
}

} // namespace hostcommands
