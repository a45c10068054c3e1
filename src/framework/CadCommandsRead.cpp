// Takes values out of parameter and result chains.
#include "ModuleErrors.h"
#include "framework/CadCommands.h"
#include "module/ground/Text.h"

static void RequireType(const OdResBufPtr& pResBuf, int iType, const OdChar* pszFunction)
{
    if (!pResBuf || pResBuf->restype() != iType)
        throw OdError_InvalidArgument(eInvalidResBuf, L"pResBuf", pszFunction);
}

static void RequireDatabase(OdDbDatabase* pDb, const OdChar* pszFunction)
{
    if (!pDb)
        throw OdError_InvalidArgument(eNoDatabase, L"pDb", pszFunction);
}

OdResBufPtr CadCommands::ResBufGetName(const OdResBufPtr& pResBuf, OdString& strName)
{
    strName.empty();
    if (!pResBuf)
        return OdResBufPtr();
    if (pResBuf->restype() == OdResBuf::kRtString && pResBuf->hasValue())
        strName = Trimmed(pResBuf->getString()).makeUpper();
    return pResBuf->next();
}

OdResBufPtr CadCommands::ResBufGetOdString(const OdResBufPtr& pResBuf, OdString& value)
{
    value.empty();
    if (!pResBuf)
        return OdResBufPtr();
    RequireType(pResBuf, OdResBuf::kRtString, L"CadCommands::ResBufGetOdString");
    value = pResBuf->getString();
    return pResBuf->next();
}

OdResBufPtr CadCommands::ResBufGetBool(const OdResBufPtr& pResBuf, bool& value)
{
    if (!pResBuf)
        return OdResBufPtr();
    RequireType(pResBuf, OdResBuf::kRtBool, L"CadCommands::ResBufGetBool");
    value = pResBuf->getBool();
    return pResBuf->next();
}

OdResBufPtr CadCommands::ResBufGetObjectId(const OdResBufPtr& pResBuf, OdDbDatabase* pDb, OdDbObjectId& value)
{
    constexpr const OdChar* pszFunction = L"CadCommands::ResBufGetObjectId";
    value.setNull();
    RequireDatabase(pDb, pszFunction);
    if (!pResBuf)
        return OdResBufPtr();
    RequireType(pResBuf, OdResBuf::kRtObjectId, pszFunction);
    value = pResBuf->getObjectId(pDb);
    return pResBuf->next();
}

OdResBufPtr CadCommands::ResBufGetObjectIdArray(const OdResBufPtr& pResBuf, OdDbDatabase* pDb, OdDbObjectIdArray& value)
{
    value.clear();
    if (!pResBuf)
        return OdResBufPtr();
    RequireDatabase(pDb, L"CadCommands::ResBufGetObjectIdArray");
    OdResBufPtr pElement = pResBuf;
    for (; pElement && pElement->restype() == OdResBuf::kRtObjectId; pElement = pElement->next())
        value.append(pElement->getObjectId(pDb));
    return pElement;
}

OdResBufPtr CadCommands::ResBufGetDbSelectionSet(const OdResBufPtr& pResBuf, OdDbSelectionSetPtr& value)
{
    value.release();
    if (!pResBuf)
        return OdResBufPtr();
    RequireType(pResBuf, OdResBuf::kRtPickSet, L"CadCommands::ResBufGetDbSelectionSet");
    value = pResBuf->getPickSet();
    return pResBuf->next();
}

OdResBufPtr CadCommands::ResBufGetOdGeExtents3d(const OdResBufPtr& pResBuf, OdGeExtents3d& value)
{
    constexpr const OdChar* pszFunction = L"CadCommands::ResBufGetOdGeExtents3d";
    if (!pResBuf)
        return OdResBufPtr();
    RequireType(pResBuf, OdResBuf::kRtPoint3d, pszFunction);
    const OdResBufPtr pGreatest = pResBuf->next();
    RequireType(pGreatest, OdResBuf::kRtPoint3d, pszFunction);
    value.set(pResBuf->getPoint3d(), pGreatest->getPoint3d());
    return pGreatest->next();
}
