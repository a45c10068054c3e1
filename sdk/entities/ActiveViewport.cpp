// Finds what the user looks through.
#include "DbDatabase.h"
#include "DbLayout.h"
#include "DbViewportTable.h"

OdDbObjectId OdDbDatabase::activeViewportId() const
{
    if (getActiveLayoutBTRId() == getModelSpaceId())
    {
        const OdDbViewportTablePtr table = OdDbViewportTable::cast(getViewportTableId().openObject());
        return table.isNull() ? OdDbObjectId() : table->getActiveViewportId();
    }
    const OdDbLayoutPtr layout = OdDbLayout::cast(currentLayoutId().openObject());
    if (layout.isNull())
        return {};
    const OdDbObjectId sheet = layout->overallVportId();
    return sheet.isNull() ? layout->objectId() : sheet;
}
