// Makes the trackers that hosts and the user IO ask for.
#include "ModuleErrors.h"
#include "RxObjectImpl.h"
#include "module/registration/ModuleCad.h"

template<class Tracker, class... Arguments>
static OdSmartPtr<Tracker> CreateTracker(const OdChar* pszFunction, Arguments... arguments)
{
    OdSmartPtr<Tracker> pTracker = OdRxObjectImpl<Tracker>::createObject(arguments...);
    if (!pTracker)
        throw OdError_InvalidValue(eNullPtr, L"pTracker", pszFunction);
    return pTracker;
}

static void RequireTracker(const OdEdRealTracker* pTracker, const OdChar* pszFunction)
{
    if (!pTracker)
        throw OdError_InvalidArgument(eNullPtr, L"pTracker", pszFunction);
}

OdEdPointDefTrackerPtr CModuleCad::CreateRectFrameTracker(const OdGePoint3d& base, OdGsModel* pModel)
{
    return CreateTracker<CRectFrameTracker>(L"CModuleCad::CreateRectFrameTracker", base, pModel);
}

OdEdPointDefTrackerPtr CModuleCad::CreateRubberBandTracker(const OdGePoint3d& base, OdGsModel* pModel)
{
    return CreateTracker<CRubberBandTracker>(L"CModuleCad::CreateRubberBandTracker", base, pModel);
}

CPointToDistanceTrackerPtr CModuleCad::CreatePointToDistanceTracker(const OdGePoint3d& base, OdEdRealTracker* pTracker,
                                                                    int iOptions, OdDbDatabase* pDb)
{
    constexpr const OdChar* pszFunction = L"CModuleCad::CreatePointToDistanceTracker";
    RequireTracker(pTracker, pszFunction);
    if (!pDb)
        throw OdError_InvalidArgument(eNoDatabase, L"pDb", pszFunction);
    return CreateTracker<CPointToDistanceTracker>(pszFunction, base, pTracker, iOptions, pDb);
}

OdEdPointDefTrackerPtr CModuleCad::CreatePointToOrientationTracker(const OdGePoint3d& base, OdEdRealTracker* pTracker)
{
    constexpr const OdChar* pszFunction = L"CModuleCad::CreatePointToOrientationTracker";
    RequireTracker(pTracker, pszFunction);
    return CreateTracker<CPointToOrientationTracker>(pszFunction, base, pTracker);
}
