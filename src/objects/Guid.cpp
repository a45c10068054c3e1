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

static bool IsCopyWithinDrawing(const OdDbFiler& filer)
{
    return filer.filerType() == OdDbFiler::kCopyFiler || filer.filerType() == OdDbFiler::kDeepCloneFiler;
}

static bool IsKeyOfAnother(const OdDbDictionary& dictionary, const OdString& strGuid, const OdDbObject& object)
{
    const OdDbObjectId idThere = dictionary.getAt(strGuid);
    return !idThere.isNull() && idThere != object.objectId();
}

GuidReading ReadGuid(const OdDbObject& object, const OdDbFiler& filer, const OdString& strRead,
                     const OdString& strPresent,
                     const std::function<OdDbDictionaryPtr(const OdDbDatabase*)>& getDictionary)
{
    if (IsPutBack(object, filer))
        return {strRead, false};
    if (!IsCopyWithinDrawing(filer))
        return {strRead, true};
    const bool bResident = object.database() != nullptr;
    if (bResident && !IsKeyOfAnother(*getDictionary(object.database()), strRead, object))
        return {strRead, true};
    if (!strPresent.isEmpty())
        return {strPresent, false};
    return {CreateGuid(), bResident};
}
