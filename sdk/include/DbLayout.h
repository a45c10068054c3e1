// Layouts: the model and the pages on which it is put for plotting.
#pragma once

#include "DbPlotSettings.h"
#include "Ge/GePoint2d.h"
#include "Ge/GePoint3d.h"

/** An OdDbLayout is the model or one page. Its entities are in a block table record of its own. Setting operations
   throw OdError(eNotOpenForWrite) and change nothing then. */
class OdDbLayout : public OdDbPlotSettings
{
public:
    ODDB_DECLARE_MEMBERS(OdDbLayout);

    OdString getLayoutName() const;
    /** Changes the name and the entry in the dictionary of layouts. Throws OdError(eInvalidKey) for an empty name and
        OdError(eDuplicateKey) when another layout has it; nothing is changed then. */
    void setLayoutName(const OdString& name);

    OdDbObjectId getBlockTableRecordId() const;
    void setBlockTableRecordId(OdDbObjectId blockId);

    /** The place among the tabs; the model has 0. */
    int getTabOrder() const;
    void setTabOrder(int order);

    /** The VIEWPORT that stands for the sheet itself and holds how much of it is shown (OdDbViewport::number() is 1);
        null for the model, and for a sheet that was never shown. */
    OdDbObjectId overallVportId() const;

    void getLimits(OdGePoint2d& minimum, OdGePoint2d& maximum) const;
    void getExtents(OdGePoint3d& minimum, OdGePoint3d& maximum) const;

protected:
    OdDbLayout();
};
using OdDbLayoutPtr = OdSmartPtr<OdDbLayout>;
