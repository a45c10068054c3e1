// The way from a command's questions to the host.
#pragma once

#include "CommandHandler.h"
#include "Ed/EdBaseIO.h"

/** A CBaseIO hands every question and every text on to the callback of a handler. Asking throws OdEdCancel once the run
    is cancelled. */
class CBaseIO : public OdEdBaseIO
{
public:
    ODRX_DECLARE_MEMBERS(CBaseIO);

    /** The handler outlives this object and is not kept alive by it. */
    static OdSmartPtr<CBaseIO> createObject(CCommandHandler* pHandler, CCommandHandlerCallback* pCallback);

    OdUInt32 getKeyState() override;
    OdString getString(const OdString& prompt, int options, OdEdStringTracker* tracker) override;
    void putString(const OdString& text) override;
    OdGePoint3d getPoint(const OdString& prompt, int options, OdEdPointTracker* tracker) override;
    void putError(const OdString& text) override;

private:
    void RequireRunning();

    CCommandHandler* m_pHandler = nullptr;
    CCommandHandlerCallbackPtr m_pCallback;
};
using CBaseIOPtr = OdSmartPtr<CBaseIO>;
