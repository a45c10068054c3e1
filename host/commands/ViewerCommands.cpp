// The commands VIEWERGETEXTENTS, ZOOMEXTENTS, DOLLY and VIEWERGETVIEW.
#include "DbObject.h"
#include "OdError.h"
#include "commands/CommandTable.h"
#include "commands/Viewer.h"

namespace hostcommands
{

namespace
{

template<class Value>
Value required(const std::optional<Value>& value, const OdChar* name)
{
    if (!value)
        throw OdError(eInvalidInput, OdString(L"the parameter ") + name + L" is missing");
    return *value;
}

} // namespace

// Whatever shows nothing, such as a layer, has no extents of its own.
void getExtents(CommandRun& run)
{
    OdGeExtents3d all;
    for (const OdDbObjectId& id : run.parameters.objectIds(L"OBJECTIDARRAY"))
    {
        OdGeExtents3d one;
        const OdDbObjectPtr object = id.openObject();
        if (!object.isNull() && object->getGeomExtents(one) == eOk)
            all.addExt(one);
    }
    if (all.isValidExtents())
        run.results.add(L"EXTENTS", all);
}

void zoomExtents(CommandRun& run)
{
    const OdGeExtents3d extents = required(run.parameters.extents(L"EXTENTS"), L"EXTENTS");
    if (!extents.isValidExtents())
        throw OdError(eInvalidExtents, OdString(L"the parameter EXTENTS is an empty box"));
    ActiveView(run.database).zoomTo(extents);
}

void dolly(CommandRun& run)
{
    ActiveView(run.database).dollyTo(required(run.parameters.point(L"POINT"), L"POINT"));
}

void getView(CommandRun& run)
{
    run.results.add(L"EXTENTS", ActiveView(run.database).extents());
}

} // namespace hostcommands
