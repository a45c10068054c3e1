// What the module offers hosts beside its commands: a store in which objects are left for others.
#pragma once

#include "QuendZolExport.h"
#include "RxDictionary.h"
#include "RxModule.h"
#include "Trackers.h"

/** The CModuleServices are the module object of the plug-in as hosts see it. The store holds objects under names, for
   the whole program or for one owner (a database, a view or any other object, known by its address). It lives in the
   system registry under "QUEND_ZOL_ARBITRARY_DATA" and outlives the module. Single entries may be read and written by
   several threads. What a drawing owns is removed when the drawing is closed, for every drawing that a command was run
   on. */
class QUEND_ZOL_EXPORT CModuleServices : public OdRxModule
{
public:
    /** The services when the module "Quend.Zol.Cad.tx" is loaded, else null. The module keeps them alive. */
    static CModuleServices* Find();

    /** The store of the whole program, created by the first call. Throws OdError_NotThatKindOfClass when the registry
       has something else under its name. */
    virtual OdRxDictionaryPtr GetArbitraryDataRootDictionary() = 0;

    /** The store of an owner, created by the first call; null for a null owner. Throws OdError_NotThatKindOfClass when
        the root dictionary has something else under the owner's key. */
    virtual OdRxDictionaryPtr GetArbitraryDataDictionary(const void* pOwner) = 0;

    /** Forgets all that an owner has; nothing happens for a null owner or one that has nothing. */
    virtual void RemoveArbitraryDataDictionary(const void* pOwner) = 0;

    /** Puts an object under a key, in place of the one there; null removes the key. An empty key or a null owner is
        passed over. */
    virtual void setArbitraryData(const OdString& strKey, OdRxObject* pObject) = 0;
    /** The object under a key; null for an empty or unknown one, and for a null owner. */
    virtual OdRxObjectPtr arbitraryData(const OdString& strKey) = 0;
    virtual void setArbitraryData(const void* pOwner, const OdString& strKey, OdRxObject* pObject) = 0;
    virtual OdRxObjectPtr arbitraryData(const void* pOwner, const OdString& strKey) = 0;

    /** Trackers that start from a base point; the model, which may be null, is told when what they show changes. */
    virtual OdEdPointDefTrackerPtr CreateRectFrameTracker(const OdGePoint3d& base, OdGsModel* pModel) = 0;
    virtual OdEdPointDefTrackerPtr CreateRubberBandTracker(const OdGePoint3d& base, OdGsModel* pModel) = 0;

    /** Trackers of a point that tell a tracker of numbers its distance, which options and the settings of the drawing
        say how to measure, and its direction. The drawing outlives the tracker. Each throws OdError_InvalidArgument
        (417, "pTracker", and 122, "pDb") for null. */
    virtual CPointToDistanceTrackerPtr CreatePointToDistanceTracker(const OdGePoint3d& base, OdEdRealTracker* pTracker,
                                                                    int iOptions, OdDbDatabase* pDb) = 0;
    virtual OdEdPointDefTrackerPtr CreatePointToOrientationTracker(const OdGePoint3d& base,
                                                                   OdEdRealTracker* pTracker) = 0;

    /** The name of an owner in the root dictionary: its address as text. */
    virtual OdString ArbitraryDataKey(const void* pOwner) = 0;
};
