// What the options and the filter of a selection let into it.
#pragma once

#include "DbSSet.h"
#include "Ed/EdInputTracker.h"
#include "commands/HostCommand.h"
#include "commands/Layers.h"

class OdDbEntity;

namespace hostcommands
{

// Options are a combination of OdEd::SelectFlags:
//   kSelSingleEntity (0x2)                 only one member is added
//   kSelRemove (0x20)                      members are taken out instead of being added
//   kSelAllowInactSpaces (0x80)            without it, entities of other layouts than the current one stay out
//   kSelAllowObjectsOnLockedLayers (0x100) without it, entities on locked layers stay out, and the user is told
//   kSelAllowPSVP (0x200)                  without it, viewports of sheets stay out
// The filter is the OdEdSSetTracker of the parameter FILTEROBJECT, which decides about each member. Erased objects stay
// out in any case.
class SelectionRules
{
public:
    // Takes the options from the named parameter, 0 when it is missing, and the filter. Throws OdError:
    // eNotThatKindOfClass for a filter of another class.
    SelectionRules(const CommandRun& run, const OdChar* optionsParameter);

    void withoutFilter() { m_filter.release(); }

    // Adds what may be added of the source to the destination, or takes it out, in the order of the source. method may
    // be null; the filter is told of it. What the filter throws is passed on.
    void merge(const OdDbObjectIdArray& source, const OdDbSelectionMethod* method, OdDbSelectionSet& destination);

private:
    bool has(unsigned option) const { return (m_options & option) != 0; }
    bool isOpenToSelecting(const OdDbObjectId& id);
    bool isOpenToSelecting(const OdDbEntity& entity);
    void tellOfLocked() const;

    OdDbUserIO* m_user;
    unsigned m_options;
    OdEdSSetTrackerPtr m_filter;
    Layers m_layers;
    OdDbObjectId m_space;
    unsigned m_locked = 0;
};

} // namespace hostcommands
