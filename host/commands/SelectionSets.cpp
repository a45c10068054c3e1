// The named selection sets of each open drawing.
#include "commands/SelectionSets.h"

#include <map>

#include "DbDatabase.h"
#include "DynamicLinker.h"
#include "SelectionSetReactor.h"

namespace hostcommands
{

const OdChar* const kPickFirst = L"PICKFIRST";

namespace
{

struct NameOrder
{
    bool operator()(const OdString& first, const OdString& second) const { return first.iCompare(second) < 0; }
};

struct NamedSet
{
    OdDbSelectionSetPtr set;
    bool isHighlighted = false;
};

struct SetsOfDrawing
{
    std::map<OdString, NamedSet, NameOrder> named;
    OdDbSelectionSetPtr previous;
};

std::map<const OdDbDatabase*, SetsOfDrawing>& allDrawings()
{
    static std::map<const OdDbDatabase*, SetsOfDrawing> drawings;
    return drawings;
}

OdString orPickFirst(const OdString& name)
{
    return name.isEmpty() ? OdString(kPickFirst) : name;
}

NamedSet* findNamed(const OdDbDatabase& database, const OdString& name)
{
    const auto drawing = allDrawings().find(&database);
    if (drawing == allDrawings().end())
        return nullptr;
    const auto found = drawing->second.named.find(orPickFirst(name));
    return found == drawing->second.named.end() ? nullptr : &found->second;
}

OdDbSelectionSetPtr copyOf(const OdDbDatabase& database, const OdDbSelectionSet& set)
{
    OdDbSelectionSetPtr copy = OdDbSelectionSet::createObject(&database);
    copy->append(set.objectIdArray());
    return copy;
}

// Those of the ids that are not in the set; all when there is no set.
OdDbObjectIdArray missingIn(const OdDbSelectionSet* set, const OdDbObjectIdArray& ids)
{
    OdDbObjectIdArray missing;
    for (const OdDbObjectId& id : ids)
        if (set == nullptr || !set->isMember(id))
            missing.append(id);
    return missing;
}

// Listeners are kept by the plug-in; without it there are none.
void announce(const OdDbDatabase& database, const OdString& name, const OdDbObjectIdArray& come,
              const OdDbObjectIdArray& gone)
{
    if (come.isEmpty() && gone.isEmpty())
        return;
    if (!odrxDynamicLinker()->lookupModule(L"Quend.Zol.Cad.tx").isNull())
        CSelectionSetReactor::SelectionSetChanged(&database, name, come, gone);
}

} // namespace

OdDbSelectionSetPtr findSelectionSet(const OdDbDatabase& database, const OdString& name)
{
    if (const NamedSet* const found = findNamed(database, name); found != nullptr && !found->set.isNull())
        return copyOf(database, *found->set);
    const bool isPickFirst = orPickFirst(name).iCompare(kPickFirst) == 0;
    return isPickFirst ? OdDbSelectionSet::createObject(&database) : OdDbSelectionSetPtr();
}

void storeSelectionSet(OdDbDatabase& database, const OdString& name, const OdDbSelectionSet& set)
{
    const OdDbSelectionSetPtr stored = copyOf(database, set);
    OdString shownName = orPickFirst(name);
    NamedSet& place = allDrawings()[&database].named[shownName];
    const OdDbSelectionSetPtr before = std::exchange(place.set, stored);
    const OdDbObjectIdArray idsBefore = before.isNull() ? OdDbObjectIdArray() : before->objectIdArray();
    announce(database, shownName.makeUpper(), missingIn(before, stored->objectIdArray()), missingIn(stored, idsBefore));
}

OdDbSelectionSetPtr previousSelection(const OdDbDatabase& database)
{
    const auto drawing = allDrawings().find(&database);
    if (drawing == allDrawings().end() || drawing->second.previous.isNull())
        return OdDbSelectionSet::createObject(&database);
    return copyOf(database, *drawing->second.previous);
}

void rememberSelection(const OdDbDatabase& database, const OdDbSelectionSet& set)
{
    if (set.numEntities() > 0)
        allDrawings()[&database].previous = copyOf(database, set);
}

bool isHighlighted(const OdDbDatabase& database, const OdString& name)
{
    const NamedSet* const found = findNamed(database, name);
    return found != nullptr && found->isHighlighted;
}

void setHighlighted(const OdDbDatabase& database, const OdString& name, bool isHighlighted)
{
    allDrawings()[&database].named[orPickFirst(name)].isHighlighted = isHighlighted;
}

void forgetSelectionSets(const OdDbDatabase& database)
{
    allDrawings().erase(&database);
}

} // namespace hostcommands
