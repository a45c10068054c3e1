// Asks the viewer for the extents of labels, and has it show them.
#include "labels/LabelViews.h"

#include "labels/LabelChoice.h"

// Empty for no labels and for labels that show nothing.
static OdGeExtents3d CallForExtents(CCommandCall& call, const OdDbObjectIdArray& ids)
{
    OdGeExtents3d extents;
    if (ids.isEmpty())
        return extents;
    const OdResBufPtr pIds = CadCommands::SetParameterObjectIdArray(L"OBJECTIDARRAY", ids);
    if (const OdResBufPtr pExtents = call.Call(CommandGroup::kViewer, L"VIEWERGETEXTENTS", pIds, L"EXTENTS"))
        CadCommands::ResBufGetOdGeExtents3d(pExtents, extents);
    return extents;
}

static OdGePoint3d CenterOf(const OdGeExtents3d& extents)
{
    return extents.minPoint() + (extents.maxPoint() - extents.minPoint()) * 0.5;
}

void ZoomToLabels(CCommandCall& call, const LabelParameters& parameters)
{
    const OdGeExtents3d extents = CallForExtents(call, GivenOrChosenLabels(call, parameters));
    if (extents.isValidExtents())
        call.Run(CommandGroup::kViewer, L"ZOOMEXTENTS", CadCommands::SetParameterOdGeExtents3d(L"EXTENTS", extents));
}

void DollyToLabels(CCommandCall& call, const LabelParameters& parameters)
{
    const OdGeExtents3d extents = CallForExtents(call, GivenOrChosenLabels(call, parameters));
    if (extents.isValidExtents())
        call.Run(CommandGroup::kViewer, L"DOLLY", CadCommands::SetParameterOdGePoint3d(L"POINT", CenterOf(extents)));
}
