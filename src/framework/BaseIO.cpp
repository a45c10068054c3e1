// Forwards to the host's callback.
#include "framework/BaseIO.h"

#include "RxObjectImpl.h"

ODRX_CONS_DEFINE_MEMBERS(CBaseIO, OdRxObject, RXIMPL_CONSTR)

CBaseIOPtr CBaseIO::createObject(CCommandHandler* pHandler, CCommandHandlerCallback* pCallback)
{
    CBaseIOPtr pBaseIO = createObject();
    pBaseIO->m_pHandler = pHandler;
    pBaseIO->m_pCallback = pCallback;
    return pBaseIO;
}

// Nobody answers a run that was cancelled; asking once more would keep it alive.
void CBaseIO::RequireRunning()
{
    if (m_pHandler->IsCancelled())
        throw OdEdCancel();
}

OdUInt32 CBaseIO::getKeyState()
{
    return m_pCallback->getKeyState();
}

OdString CBaseIO::getString(const OdString& prompt, int options, OdEdStringTracker* tracker)
{
    RequireRunning();
    return m_pCallback->getString(prompt, options, tracker);
}

void CBaseIO::putString(const OdString& text)
{
    m_pCallback->putString(text);
}

OdGePoint3d CBaseIO::getPoint(const OdString& prompt, int options, OdEdPointTracker* tracker)
{
    RequireRunning();
    return m_pCallback->getPoint(prompt, options, tracker);
}

void CBaseIO::putError(const OdString& text)
{
    m_pCallback->putError(text);
}
