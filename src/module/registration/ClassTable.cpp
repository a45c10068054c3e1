// Two tables: classes are not withdrawn in the order in which they are registered.
#include "module/registration/ClassTable.h"

#include "BSystemLabel.h"
#include "CommandHandler.h"
#include "DrawingBorderData.h"
#include "OdError.h"
#include "SelectionSetReactor.h"
#include "Trackers.h"
#include "UserIO.h"
#include "ZolExtendedData.h"
#include "framework/BaseIO.h"
#include "framework/CommandReactor.h"
#include "framework/FunctionIO.h"
#include "framework/StringIO.h"
#include "module/registration/DebugEntityDrawableOverrule.h"
#include "userio/RegexFilters.h"

static constexpr void (*kRegistration[])() = {
    &CCommandHandler::rxInit,
    &CCommandHandlerCallback::rxInit,
    &CCommandReactor::rxInit,
    &CBaseIO::rxInit,
    &CFunctionIO::rxInit,
    &CStringIO::rxInit,
    &CUserIO::rxInit,
    &CDrawingBorderData::rxInit,
    &CBSystemLabel::rxInit,
    &CBlockNameRegexFilter::rxInit,
    &CTextRegexFilter::rxInit,
    &CZolExtendedData::rxInit,
    &CDebugEntityDrawableOverrule::rxInit,
    &CTracker::rxInit,
    &CSelectionSetReactor::rxInit,
};

static constexpr OdRxClass** kDeletion[] = {
    &CCommandHandler::g_pDesc,
    &CCommandHandlerCallback::g_pDesc,
    &CCommandReactor::g_pDesc,
    &CBaseIO::g_pDesc,
    &CFunctionIO::g_pDesc,
    &CStringIO::g_pDesc,
    &CUserIO::g_pDesc,
    &CDrawingBorderData::g_pDesc,
    &CBlockNameRegexFilter::g_pDesc,
    &CBSystemLabel::g_pDesc,
    &CTextRegexFilter::g_pDesc,
    &CZolExtendedData::g_pDesc,
    &CDebugEntityDrawableOverrule::g_pDesc,
    &CTracker::g_pDesc,
    &CSelectionSetReactor::g_pDesc,
};

void RegisterClasses()
{
    for (const auto rxInit : kRegistration)
        rxInit();
}

void DeleteClasses()
{
    for (OdRxClass** ppClass : kDeletion)
    {
        if (!*ppClass)
            throw OdError(eClassNotRegistered);
        deleteOdRxClass(*ppClass);
        *ppClass = nullptr;
    }
}
