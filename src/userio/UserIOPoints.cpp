// Points, distances between two of them, and the last point of a drawing.
#include <array>

#include "ModuleErrors.h"
#include "ModuleServices.h"
#include "RxVariant.h"
#include "UserIO.h"
#include "framework/CloseWatcher.h"
#include "module/ground/ModuleName.h"
#include "userio/Options.h"
#include "userio/PointQuestion.h"

// ---- The last point
// --------------------------------------------------------------------------------------------------

const OdString CUserIO::m_strPathLastPoint(L"LASTPOINT");

static OdRxObjectPtrArray ObjectsIn(const OdRxObjectPtr& pObject)
{
    const OdRxVariantPtr pVariant = OdRxVariant::cast(pObject);
    const bool bHasObjects = pVariant && pVariant->isArray() && pVariant->type() == OdVariant::kRxObjectPtr;
    return bHasObjects ? pVariant->getRxObjectPtrArray() : OdRxObjectPtrArray();
}

static double NumberIn(const OdRxObjectPtr& pObject)
{
    const OdRxVariantPtr pVariant = OdRxVariant::cast(pObject);
    return pVariant && pVariant->varType() == OdVariant::kDouble ? pVariant->getDouble() : 0.0;
}

OdGePoint3d CUserIO::getLASTPOINT() const
{
    CModuleServices* pServices = CModuleServices::Find();
    const OdRxObjectPtr pStored = pServices ? pServices->arbitraryData(Database(), m_strPathLastPoint) : nullptr;
    const OdRxObjectPtrArray coordinates = ObjectsIn(pStored);
    if (coordinates.size() < 3)
        return OdGePoint3d::kOrigin;
    return OdGePoint3d(NumberIn(coordinates[0]), NumberIn(coordinates[1]), NumberIn(coordinates[2]));
}

void CUserIO::setLASTPOINT(const OdGePoint3d& point)
{
    CModuleServices* pServices = CModuleServices::Find();
    if (!pServices || !Database())
        return;
    OdRxObjectPtrArray coordinates;
    for (const double dCoordinate : {point.x, point.y, point.z})
        coordinates.append(OdRxVariantValue(dCoordinate));
    WatchForClosing(Database());
    pServices->setArbitraryData(Database(), m_strPathLastPoint, OdRxVariantValue(coordinates));
}

// ---- Trackers
// --------------------------------------------------------------------------------------------------------

OdEdPointDefTrackerPtr CUserIO::createRubberBand(const OdGePoint3d& base, OdGsModel* model) const
{
    CModuleServices* pServices = CModuleServices::Find();
    return pServices ? pServices->CreateRubberBandTracker(base, model) : nullptr;
}

OdEdPointDefTrackerPtr CUserIO::createRectFrame(const OdGePoint3d& base, OdGsModel* model) const
{
    CModuleServices* pServices = CModuleServices::Find();
    return pServices ? pServices->CreateRectFrameTracker(base, model) : nullptr;
}

// ---- Points
// ----------------------------------------------------------------------------------------------------------

OdGePoint3d CUserIO::getPoint(const OdString& prompt, int options, const OdGePoint3d* defaultValue,
                              const OdString& keywords, OdEdPointTracker* tracker)
{
    PointQuestion question(*this, prompt, options, keywords);
    question.SetDefault(defaultValue);
    question.SetTracker(tracker);
    return question.Ask();
}

OdGePoint3d CUserIO::getPointOrReal(const OdString& prompt, int options, const OdString& keywords,
                                    OdResBuf::ValueType valueType, OdEdPointTracker* tracker)
{
    try
    {
        return getPoint(prompt, WithOption(options, OdEd::kInpThrowOther), nullptr, keywords, tracker);
    }
    catch (const OdEdOtherInput& typed)
    {
        if (valueType == OdResBuf::kDxfXdDist)
            throw RealInput{baseFormatter().unformatLinear(typed.string())};
        if (valueType == OdResBuf::kRtOrient)
            throw RealInput{baseFormatter().unformatAngle(typed.string())};
        throw RealInput{0.0};
    }
}

// ---- Distances
// -------------------------------------------------------------------------------------------------------

namespace
{

/// Follows the second point for a tracker of numbers; does nothing without one.
class SecondPointTracker
{
public:
    SecondPointTracker(const OdGePoint3d& first, int iOptions, OdResBuf::ValueType eType, OdEdRealTracker* pTracker,
                       OdDbDatabase* pDb)
        : m_first(first)
    {
        if (!pTracker)
            return;
        CModuleServices* pServices = CModuleServices::Find();
        if (!pServices)
            throw OdError_ModuleInitialization(eNullPtr, kModuleName, L"CUserIO::getReal");
        if (eType != OdResBuf::kDxfXdDist)
        {
            m_pTracker = pServices->CreatePointToOrientationTracker(first, pTracker);
            return;
        }
        const CPointToDistanceTrackerPtr pDistance =
            pServices->CreatePointToDistanceTracker(first, pTracker, iOptions, pDb);
        m_pTracker = pDistance;
        if (HasOption(iOptions, OdEd::kGdsNoZCoord))
            m_pMeasuring = pDistance;
    }

    OdEdPointTracker* Get() const { return m_pTracker.get(); }

    double Measure(const OdGePoint3d& second) const
    {
        return m_pMeasuring ? m_pMeasuring->GetDistanceByOptions(second) : m_first.distanceTo(second);
    }

private:
    OdGePoint3d m_first;
    OdEdPointTrackerPtr m_pTracker;
    CPointToDistanceTrackerPtr m_pMeasuring; ///< null when distances are plain
};

} // namespace

double CUserIO::getReal(const OdString& prompt, int options, double defaultValue, OdResBuf::ValueType valueType,
                        const OdString& keywords, OdEdRealTracker* tracker)
{
    OdGePoint3d first;
    try
    {
        const OdString strPrompt = PromptOr(prompt, L"Enter a distance:");
        first = HasOption(options, OdEd::kGdsFromLastPoint)
                    ? getLASTPOINT()
                    : getPointOrReal(strPrompt, options, keywords, valueType, nullptr);
    }
    catch (const RealInput& typed)
    {
        return typed.value;
    }
    const SecondPointTracker following(first, options, valueType, tracker, Database());
    double dResult = 0.0;
    try
    {
        dResult = following.Measure(getPointOrReal(L"Enter second point:", WithOption(options, OdEd::kInpThrowEmpty),
                                                   keywords, valueType, following.Get()));
    }
    catch (const RealInput& typed)
    {
        dResult = typed.value;
    }
    catch (const OdEdEmptyInput&)
    {
        if (HasOption(options, OdEd::kInpThrowEmpty))
            throw;
        return defaultValue;
    }
    if (tracker)
        tracker->setValue(dResult);
    return dResult;
}

double CUserIO::getDist(const OdString& prompt, int options, double defaultValue, const OdString& keywords,
                        OdEdRealTracker* tracker)
{
    return getReal(prompt, options, defaultValue, OdResBuf::kDxfXdDist, keywords, tracker);
}
