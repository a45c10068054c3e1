// Listening to the selections of a drawing.
#pragma once

#include "DbObjectId.h"
#include "OdVariant.h"
#include "QuendZolExport.h"

class OdDbDatabase;

/** A CSelectionSetReactor is told when a named selection of a drawing changes; listeners derive from it. The listeners
    of a drawing are kept alive in the module's arbitrary data of that drawing, until they are removed or the drawing is
    closed: under m_strPath, an OdRxVariant of objects in the order in which they came.

    Each operation on listeners throws OdError_InvalidArgument (122, "pDb") for a null drawing,
   OdError_ModuleInitialization (417, "Quend.Zol.Cad.tx") when the module is not loaded, and
   OdError_NotThatKindOfClass when something else lies under m_strPath. Errors name the operation as their function, or
   "CSelectionSetReactor::GetReactors" and "CSelectionSetReactor::SetReactors", which all of them go through. */
class QUEND_ZOL_EXPORT CSelectionSetReactor : public OdRxObject
{
public:
    ODRX_DECLARE_MEMBERS(CSelectionSetReactor);

    /** The selection of that name has changed. What the two lists are is for the host to say that tells of the change.
        Does nothing unless it is overridden. */
    virtual void OnSelectionSetChanged(const OdString& name, const OdDbObjectIdArray& ids1,
                                       const OdDbObjectIdArray& ids2);

    /** Puts a listener behind those there, unless it is among them; takes it away, if it is among them. Each throws
        OdError_InvalidArgument (20, "pReactor") for a null listener too. */
    static void AddReactor(const OdDbDatabase* pDb, CSelectionSetReactor* pReactor);
    static void RemoveReactor(const OdDbDatabase* pDb, CSelectionSetReactor* pReactor);

    /** Tells all listeners that the drawing has at this moment, in their order. */
    static void SelectionSetChanged(const OdDbDatabase* pDb, const OdString& name, const OdDbObjectIdArray& ids1,
                                    const OdDbObjectIdArray& ids2);

    static const OdString m_strPath;

protected:
    static void GetReactors(const OdDbDatabase* pDb, OdArray<OdRxObjectPtr>& reactors);
    static void SetReactors(const OdDbDatabase* pDb, const OdArray<OdRxObjectPtr>& reactors);
};
using CSelectionSetReactorPtr = OdSmartPtr<CSelectionSetReactor>;
