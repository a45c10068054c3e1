// What a host does that has no user.
#include "CommandHandlerCallback.h"

#include "Ed/EdException.h"

void CCommandHandlerCallback::CommandMessage(const OdString&) {}

OdString CCommandHandlerCallback::getString(const OdString&, int, OdEdStringTracker*)
{
    throw OdEdCancel();
}

OdGePoint3d CCommandHandlerCallback::getPoint(const OdString&, int, OdEdPointTracker*)
{
    throw OdEdCancel();
}

void CCommandHandlerCallback::putString(const OdString&) {}

void CCommandHandlerCallback::putError(const OdString&) {}

OdUInt32 CCommandHandlerCallback::getKeyState()
{
    return 0;
}
