// The module: what the host loads.
#pragma once

#include <tuple>

#include "ModuleServices.h"
#include "RxModule.h"
#include "StaticRxObject.h"
#include "annotations/AnnotationCommands.h"
#include "framework/CommandReactor.h"
#include "framework/RegisteredApplication.h"
#include "framework/TransactionCommands.h"
#include "labels/LabelCommands.h"
#include "objects/DrawingBorderCommands.h"

/** The CModuleCad is the one object of the module. Its initApp registers all classes and commands, in the order of
   their tables, and attaches the reactor that tells handlers of their commands; its uninitApp takes all of that away
   again. */
class CModuleCad : public CModuleServices
{
public:
    /** Throws OdError (eClassAlreadyRegistered) when a class is registered already; what was registered before stays.
     */
    void initApp() override;
    /** Throws OdError (eClassNotRegistered) when a class is not registered; the rest then stays registered. */
    void uninitApp() override;

    OdRxDictionaryPtr GetArbitraryDataRootDictionary() override;
    OdRxDictionaryPtr GetArbitraryDataDictionary(const void* pOwner) override;
    void RemoveArbitraryDataDictionary(const void* pOwner) override;
    void setArbitraryData(const OdString& strKey, OdRxObject* pObject) override;
    OdRxObjectPtr arbitraryData(const OdString& strKey) override;
    void setArbitraryData(const void* pOwner, const OdString& strKey, OdRxObject* pObject) override;
    OdRxObjectPtr arbitraryData(const void* pOwner, const OdString& strKey) override;
    OdEdPointDefTrackerPtr CreateRectFrameTracker(const OdGePoint3d& base, OdGsModel* pModel) override;
    OdEdPointDefTrackerPtr CreateRubberBandTracker(const OdGePoint3d& base, OdGsModel* pModel) override;
    CPointToDistanceTrackerPtr CreatePointToDistanceTracker(const OdGePoint3d& base, OdEdRealTracker* pTracker,
                                                            int iOptions, OdDbDatabase* pDb) override;
    OdEdPointDefTrackerPtr CreatePointToOrientationTracker(const OdGePoint3d& base, OdEdRealTracker* pTracker) override;
    OdString ArbitraryDataKey(const void* pOwner) override;

protected:
    CModuleCad() = default;

private:
    // The commands in the order in which they are registered.
    using Commands = std::tuple<                                   //
        OdStaticRxObject<CCommandDefineDrawingBorderColumnsLines>, //
        OdStaticRxObject<CCommandDefineDrawingBorder>,             //
        OdStaticRxObject<CCommandDrawingBorderGetDictionaryId>,    //
        OdStaticRxObject<CCommandDrawingBorderGetAllIds>,          //
        OdStaticRxObject<CCommandDrawingBorderGetDrawingBorder>,   //
        OdStaticRxObject<CCommandCreateAnnotation>,                //
        OdStaticRxObject<CCommandModifyAnnotation>,                //
        OdStaticRxObject<CCommandDeleteAnnotation>,                //
        OdStaticRxObject<CCommandBSystemLabelCreate>,              //
        OdStaticRxObject<CCommandBSystemLabelCreateFromSelection>, //
        OdStaticRxObject<CCommandBSystemLabelDelete>,              //
        OdStaticRxObject<CCommandBSystemLabelDolly>,               //
        OdStaticRxObject<CCommandBSystemLabelGetAllIds>,           //
        OdStaticRxObject<CCommandBSystemLabelGetAllNames>,         //
        OdStaticRxObject<CCommandBSystemLabelGetDictionaryId>,     //
        OdStaticRxObject<CCommandBSystemLabelGetIdFromGuid>,       //
        OdStaticRxObject<CCommandBSystemLabelGetIdFromHandle>,     //
        OdStaticRxObject<CCommandBSystemLabelGetIdFromName>,       //
        OdStaticRxObject<CCommandBSystemLabelGetSelectedIds>,      //
        OdStaticRxObject<CCommandBSystemLabelToJson>,              //
        OdStaticRxObject<CCommandBSystemLabelZoom>,                //
        OdStaticRxObject<CCommandRegisterCustomApplication>,       //
        OdStaticRxObject<CCommandStartTransaction>,                //
        OdStaticRxObject<CCommandEndTransaction>,                  //
        OdStaticRxObject<CCommandAbortTransaction>>;

    OdRxDictionaryPtr m_pArbitraryData;
    Commands m_commands;
    void* m_pReserved = nullptr;
    CCommandReactorPtr m_pReactor;
};

/** The module object for programs that the module is part of: an entry point for odrxRegisterStaticModule. */
OdRxModule* CreateModuleCad(const OdString& strModuleName);
