// How a page is plotted.
#pragma once

#include "DbObject.h"

/** OdDbPlotSettings say how a page is plotted. All of them are kept; those that are asked for have operations here. */
class OdDbPlotSettings : public OdDbObject
{
public:
    ODDB_DECLARE_MEMBERS(OdDbPlotSettings);

    OdString getPlotSettingsName() const;
    /** The device, and the name of the paper size on it. */
    OdString getPlotCfgName() const;
    OdString getCanonicalMediaName() const;
    /** Width and height of the paper in millimetres. */
    void getPlotPaperSize(double& width, double& height) const;
    /** True for the model, false for a paper layout. */
    bool modelType() const;

    bool keepsGroups() const override { return true; }

protected:
    OdDbPlotSettings();
};
using OdDbPlotSettingsPtr = OdSmartPtr<OdDbPlotSettings>;
