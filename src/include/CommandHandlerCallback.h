// The host's side of running a command: it hears the outcome, and it is whom a command's questions reach.
#pragma once

#include "Ed/EdInputTracker.h"
#include "OdaCommon.h"
#include "QuendZolExport.h"

/** A CCommandHandlerCallback is given to a CCommandHandler by the host, which derives a class of its own from it. The
    handler holds a reference to it as long as the handler lives and calls it on the thread that runs the command.

    As it is here, the class stands for a host without a user: it forgets what it is told, and every question cancels
    the command that asks. */
class QUEND_ZOL_EXPORT CCommandHandlerCallback : public OdRxObject
{
public:
    ODRX_DECLARE_MEMBERS(CCommandHandlerCallback);

    /** The run is over, and this is to be said about it: called at most once for each run, at its end. */
    virtual void CommandMessage(const OdString& message);

    /** Asks the user for a line of text; blanks in it belong to it, and an empty one is an answer. options is a
        combination of OdEd::GetPointFlags and only says how the line may be shown: checking it and asking once more is
        not the host's task. The tracker, which may be null, is told of the text while it is typed.
        Throws OdEdCancel when the user presses Escape or there is nobody left to ask. */
    virtual OdString getString(const OdString& prompt, int options, OdEdStringTracker* tracker);

    /** Asks the user for a point in world coordinates. The tracker, which may be null, is told of the point while it
        moves. Throws OdEdCancel as getString; OdEdOtherInput with what the user typed, instead of picking a point, also
        when it reads like coordinates: the text may be a keyword, and is read by the caller. */
    virtual OdGePoint3d getPoint(const OdString& prompt, int options, OdEdPointTracker* tracker);

    /** Shows the user a line of text, a text that says what is wrong. */
    virtual void putString(const OdString& text);
    virtual void putError(const OdString& text);

    /** The modifier keys that are held down, a combination of OdEdBaseIO::KeyState. */
    virtual OdUInt32 getKeyState();
};
using CCommandHandlerCallbackPtr = OdSmartPtr<CCommandHandlerCallback>;
