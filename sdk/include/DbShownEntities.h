// Of which entities anything is seen.
#pragma once

#include <memory>

#include "DbEntity.h"

/** OdDbShownEntities tells of entities of the model or a sheet whether they show anything, wherever it lies: what
    OdDbSelectionSet::select finds by shapes is among them. It looks at layers and blocks once each and may be asked
    about any number of entities; after a change of the drawing another one is made. One thread at a time. */
class OdDbShownEntities
{
public:
    OdDbShownEntities();
    ~OdDbShownEntities();
    OdDbShownEntities(const OdDbShownEntities&) = delete;
    OdDbShownEntities& operator=(const OdDbShownEntities&) = delete;

    /** False for an invisible entity, for one on a layer that is frozen, and for the viewport that stands for the sheet
        itself. A block reference or a dimension is shown when it draws anything, within its clip, on a layer that is
        neither off nor frozen; layer "0" in a block is that of the reference. All else is shown unless its layer is
        off. */
    bool isShown(const OdDbEntity& entity);

private:
    struct Looks;
    std::unique_ptr<Looks> m_looks;
};
