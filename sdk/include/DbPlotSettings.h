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
    /** The parts of the paper at its edges that nothing is plotted on, in millimetres. */
    void getPlotPaperMargins(double& left, double& bottom, double& right, double& top) const;
    /** How far the drawing's origin is moved from the corner that is left of margins, in millimetres. */
    void getPlotOrigin(double& x, double& y) const;
    /** Units on paper for units of the drawing. */
    void getCustomPrintScale(double& numerator, double& denominator) const;

    enum PlotPaperUnits : int
    {
        kInches = 0,
        kMillimeters = 1,
        kPixels = 2
    };
    PlotPaperUnits plotPaperUnits() const;

    /** How far the drawing is turned on the paper, counter-clockwise. */
    enum PlotRotation : int
    {
        k0degrees = 0,
        k90degrees = 1,
        k180degrees = 2,
        k270degrees = 3
    };
    PlotRotation plotRotation() const;

    /** True for the model, false for a paper layout. */
    bool modelType() const;

    bool keepsGroups() const override { return true; }

protected:
    OdDbPlotSettings();
};
using OdDbPlotSettingsPtr = OdSmartPtr<OdDbPlotSettings>;
