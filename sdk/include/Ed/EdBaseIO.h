// The lowest level of talking to a user: lines of text, points picked on a screen.
#pragma once

#include "Ed/EdException.h"
#include "Ed/EdInputTracker.h"
#include "OdaCommon.h"

/** An OdEdBaseIO is the device that questions and texts go through: a console, a screen, a macro. What an answer means
   is for others to say (OdEdUserIO). */
class OdEdBaseIO : public OdRxObject
{
public:
    ODRX_DECLARE_MEMBERS(OdEdBaseIO);

    /** The keys that getKeyState reports. */
    enum KeyState : int
    {
        kShiftIsDown = 4,
        kControlIsDown = 8
    };

    /** The modifier keys that are held down, a combination of KeyState. */
    virtual OdUInt32 getKeyState() = 0;

    /** Asks for a line of text. options as in OdEd; the tracker, which may be null, follows the typing.
        Throws OdEdCancel when the user wants the command to end. */
    virtual OdString getString(const OdString& prompt, int options, OdEdStringTracker* tracker) = 0;

    /** Shows a line of text. */
    virtual void putString(const OdString& text) = 0;

    /** Asks for a point in world coordinates; the tracker, which may be null, follows it. Throws OdEdCancel as
       getString, OdEdOtherInput when the user typed a text instead, and OdError (eInvalidInput) for an answer that is
       no point. */
    virtual OdGePoint3d getPoint(const OdString& prompt, int options, OdEdPointTracker* tracker) = 0;

    /** Shows a text that says what is wrong. */
    virtual void putError(const OdString& text) = 0;
};
using OdEdBaseIOPtr = OdSmartPtr<OdEdBaseIO>;
