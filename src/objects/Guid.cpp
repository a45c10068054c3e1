// New GUIDs come from the system services, which put braces around them.
#include "objects/Guid.h"

#include "DbDatabase.h"
#include "DbDictionary.h"
#include "DbFiler.h"
#include "RxSystemServices.h"

bool IsNullGuid(const OdString& strGuid)
{
    return strGuid.iCompare(L"00000000-0000-0000-0000-000000000000") == 0;
}

OdString CreateGuid()
{
    OdString strGuid = odSystemServices()->createGuid();
    strGuid.trimLeft(L'{');
    strGuid.trimRight(L'}');
    return strGuid;
}

bool IsPutBack(const OdDbObject& object, const OdDbFiler& filer)
{
    return filer.filerType() == OdDbFiler::kUndoFiler && object.database() && object.database()->isUndoing();
}

bool NeedsOwnGuid(const OdDbObject& object, const OdDbFiler& filer, const OdString& strGuid,
                  const OdDbDictionary* pDictionary)
{
    if (filer.filerType() != OdDbFiler::kCopyFiler && filer.filerType() != OdDbFiler::kDeepCloneFiler)
        return false;
    if (!pDictionary)
        return true;
    const OdDbObjectId idThere = pDictionary->getAt(strGuid);
    return !idThere.isNull() && idThere != object.objectId();
}
