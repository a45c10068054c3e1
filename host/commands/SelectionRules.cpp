// What the options and the filter of a selection let into it.
#include "commands/SelectionRules.h"

#include "DbBlockTableRecord.h"
#include "DbViewport.h"
#include "Ed/EdUserIO.h"
#include "OdError.h"

namespace hostcommands
{

namespace
{

OdEdSSetTrackerPtr filterOf(const Parameters& parameters)
{
    OdRxObject* const object = parameters.object(L"FILTEROBJECT");
    OdEdSSetTrackerPtr filter = OdEdSSetTracker::cast(object);
    if (object != nullptr && filter.isNull())
        throw OdError(eNotThatKindOfClass, OdString(L"FILTEROBJECT is no filter of selections"));
    return filter;
}

bool isLayoutBlock(const OdDbObjectId& id)
{
    const OdDbBlockTableRecordPtr block = OdDbBlockTableRecord::cast(id.openObject());
    return !block.isNull() && block->isLayout();
}

} // namespace

SelectionRules::SelectionRules(const CommandRun& run, const OdChar* optionsParameter)
    : m_user(run.user), m_options(static_cast<unsigned>(run.parameters.integer(optionsParameter).value_or(0))),
      m_filter(filterOf(run.parameters)), m_space(run.database.getActiveLayoutBTRId())
{
}

void SelectionRules::merge(const OdDbObjectIdArray& source, const OdDbSelectionMethod* method,
                           OdDbSelectionSet& destination)
{
    for (const OdDbObjectId& id : source)
    {
        if (has(OdEd::kSelRemove))
        {
            if (m_filter.isNull() || m_filter->remove(id, method))
                destination.remove(id);
            continue;
        }
        if (!isOpenToSelecting(id) || (!m_filter.isNull() && !m_filter->append(id, method)))
            continue;
        destination.append(id);
        if (has(OdEd::kSelSingleEntity))
            break;
    }
    tellOfLocked();
}

bool SelectionRules::isOpenToSelecting(const OdDbObjectId& id)
{
    const OdDbObjectPtr object = id.openObject();
    if (object.isNull())
        return false;
    const OdDbEntityPtr entity = OdDbEntity::cast(object);
    return entity.isNull() || isOpenToSelecting(*entity);
}

bool SelectionRules::isOpenToSelecting(const OdDbEntity& entity)
{
    if (!has(OdEd::kSelAllowPSVP) && entity.isKindOf(OdDbViewport::desc()))
        return false;
    if (const OdDbObjectId owner = entity.ownerId();
        !has(OdEd::kSelAllowInactSpaces) && owner != m_space && isLayoutBlock(owner))
        return false;
    if (has(OdEd::kSelAllowObjectsOnLockedLayers) || !m_layers.of(entity.layerId()).isLocked)
        return true;
    ++m_locked;
    return false;
}

void SelectionRules::tellOfLocked() const
{
    if (m_locked == 0 || m_user == nullptr)
        return;
    if (m_locked == 1)
        m_user->putString(L"1 object is left out: its layer is locked.");
    else
        m_user->putString(OdString().format(L"%u objects are left out: their layers are locked.", m_locked));
}

} // namespace hostcommands
