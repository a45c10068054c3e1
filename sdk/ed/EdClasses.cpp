// The classes of this layer: what they do unless it is overridden, and their registration.
#include "DbCommandContext.h"
#include "DbDatabase.h"
#include "DbUserIO.h"
#include "Ed/EdBaseIO.h"
#include "Ed/EdCommandStack.h"
#include "ed/CommandStackImpl.h"
#include "rx/ClassRows.h"
#include "rx/Layers.h"

ODRX_NO_CONS_DEFINE_MEMBERS(OdEdCommand, OdRxObject)
ODRX_NO_CONS_DEFINE_MEMBERS(OdEdCommandContext, OdRxObject)
ODRX_NO_CONS_DEFINE_MEMBERS(OdDbCommandContext, OdEdCommandContext)
ODRX_NO_CONS_DEFINE_MEMBERS(OdEdCommandStackReactor, OdRxObject)
ODRX_NO_CONS_DEFINE_MEMBERS(OdEdFunctionIO, OdRxObject)
ODRX_NO_CONS_DEFINE_MEMBERS(OdEdBaseIO, OdRxObject)
ODRX_NO_CONS_DEFINE_MEMBERS(OdEdUserIO, OdRxObject)
ODRX_NO_CONS_DEFINE_MEMBERS(OdEdBaseUserIO, OdEdUserIO)
ODRX_NO_CONS_DEFINE_MEMBERS(OdDbUserIO, OdEdBaseUserIO)
ODRX_NO_CONS_DEFINE_MEMBERS(OdEdInputTracker, OdRxObject)
ODRX_NO_CONS_DEFINE_MEMBERS(OdEdStringTracker, OdEdInputTracker)
ODRX_NO_CONS_DEFINE_MEMBERS(OdEdPointTracker, OdEdInputTracker)
ODRX_NO_CONS_DEFINE_MEMBERS(OdEdPointDefTracker, OdEdPointTracker)
ODRX_NO_CONS_DEFINE_MEMBERS(OdEdIntegerTracker, OdEdInputTracker)
ODRX_NO_CONS_DEFINE_MEMBERS(OdEdRealTracker, OdEdInputTracker)
ODRX_NO_CONS_DEFINE_MEMBERS(OdSSetTracker, OdEdInputTracker)
ODRX_NO_CONS_DEFINE_MEMBERS(OdEdSSetTracker, OdSSetTracker)

// ---- Commands
// --------------------------------------------------------------------------------------------------------

OdString OdEdCommand::localName() const
{
    return globalName();
}

OdUInt32 OdEdCommand::flags() const
{
    return 0;
}

OdEdCommandPtr OdEdCommandStackReactor::unknownCommand(const OdString&, OdEdCommandContext*)
{
    return OdEdCommandPtr();
}

void OdEdCommandStackReactor::commandWillStart(OdEdCommand*, OdEdCommandContext*) {}
void OdEdCommandStackReactor::commandCancelled(OdEdCommand*, OdEdCommandContext*) {}
void OdEdCommandStackReactor::commandFailed(OdEdCommand*, OdEdCommandContext*) {}
void OdEdCommandStackReactor::commandEnded(OdEdCommand*, OdEdCommandContext*) {}

OdDbDatabase* OdDbCommandContext::database()
{
    return OdDbDatabase::cast(baseDatabase()).get();
}

OdDbUserIO* OdDbCommandContext::dbUserIO()
{
    return OdDbUserIO::cast(userIO()).get();
}

// ---- Input
// -----------------------------------------------------------------------------------------------------------

int OdEdInputTracker::addDrawables(OdGsView*)
{
    return 0;
}

void OdEdInputTracker::removeDrawables(OdGsView*) {}

bool OdEdSSetTracker::remove(OdDbObjectId, const OdDbSelectionMethod*)
{
    return true;
}

[[noreturn]] static void refuse()
{
    throw OdError(eNotApplicable);
}

int OdEdUserIO::getKeyword(const OdString&, const OdString&, int, int, OdEdIntegerTracker*)
{
    refuse();
}

int OdEdUserIO::getInt(const OdString&, int, int, const OdString&, OdEdIntegerTracker*)
{
    refuse();
}

double OdEdUserIO::getReal(const OdString&, int, double, const OdString&, OdEdRealTracker*)
{
    refuse();
}

OdString OdEdUserIO::getString(const OdString&, int, const OdString&, const OdString&, OdEdStringTracker*)
{
    refuse();
}

void OdEdUserIO::putString(const OdString&)
{
    refuse();
}

OdCmColorBasePtr OdEdUserIO::getCmColor(const OdString&, int, const OdCmColorBase*, const OdString&, OdEdInputTracker*)
{
    refuse();
}

OdString OdEdUserIO::getFilePath(const OdString& prompt, int options, const OdString& dialogCaption, const OdString&,
                                 const OdString& fileName, const OdString&, const OdString& keywords,
                                 OdEdStringTracker* tracker)
{
    return getString(prompt.isEmpty() ? dialogCaption : prompt, options, fileName, keywords, tracker);
}

void OdEdUserIO::putError(const OdString&)
{
    refuse();
}

OdGePoint3d OdEdBaseUserIO::getLASTPOINT() const
{
    refuse();
}

void OdEdBaseUserIO::setLASTPOINT(const OdGePoint3d&)
{
    refuse();
}

OdEdPointDefTrackerPtr OdEdBaseUserIO::createRubberBand(const OdGePoint3d&, OdGsModel*) const
{
    refuse();
}

OdEdPointDefTrackerPtr OdEdBaseUserIO::createRectFrame(const OdGePoint3d&, OdGsModel*) const
{
    refuse();
}

OdGePoint3d OdEdBaseUserIO::getPoint(const OdString&, int, const OdGePoint3d*, const OdString&, OdEdPointTracker*)
{
    refuse();
}

double OdEdBaseUserIO::getAngle(const OdString&, int, double, const OdString&, OdEdRealTracker*)
{
    refuse();
}

double OdEdBaseUserIO::getDist(const OdString&, int, double, const OdString&, OdEdRealTracker*)
{
    refuse();
}

void OdDbUserIO::setPickfirst(OdSelectionSet*)
{
    refuse();
}

OdSelectionSetPtr OdDbUserIO::pickfirst()
{
    refuse();
}

OdCmColor OdDbUserIO::getColor(const OdString&, int, const OdCmColorBase*, const OdString&, OdEdInputTracker*)
{
    refuse();
}

OdSelectionSetPtr OdDbUserIO::select(const OdString&, int, const OdSelectionSet*, const OdString&, OdSSetTracker*,
                                     OdGePoint3dArray*)
{
    refuse();
}

// ---- Registration
// ----------------------------------------------------------------------------------------------------

namespace
{

constexpr auto kClasses =
    odlayers::rowsOf<OdEdCommand, OdEdCommandContext, OdDbCommandContext, OdEdCommandStackReactor, OdEdCommandStack,
                     OdEdFunctionIO, OdEdBaseIO, OdEdUserIO, OdEdBaseUserIO, OdDbUserIO, OdEdInputTracker,
                     OdEdStringTracker, OdEdPointTracker, OdEdPointDefTracker, OdEdIntegerTracker, OdEdRealTracker,
                     OdSSetTracker, OdEdSSetTracker>();

void start()
{
    odlayers::startClasses(kClasses);
    oded::createCommandStack();
}

void end()
{
    oded::releaseCommandStack();
    odlayers::endClasses(kClasses);
}

const odlayers::Registration g_layer(odlayers::kCommands, start, end);

} // namespace
