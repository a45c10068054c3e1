// Takes values out of parameter and result chains.
#include "ModuleErrors.h"
#include "framework/CadCommands.h"
#include "module/ground/Text.h"

// The value of an element of that type. Whoever made the element by hand may have put something else into it, or
// nothing.
template<class Get>
static auto ValueOf(const OdResBufPtr& pResBuf, int iType, const OdChar* pszFunction, Get get)
try
{
    if (!pResBuf || pResBuf->restype() != iType)
        throw OdError(eInvalidResBuf);
    return get(*pResBuf);
}
catch (const OdError& error)
{
    if (error.code() != eInvalidResBuf)
        throw;
    throw OdError_InvalidArgument(eInvalidResBuf, L"pResBuf", pszFunction);
}

static OdString TextOf(const OdResBuf& element)
{
    return element.getString();
}

static OdDbObjectId IdOf(const OdResBuf& element)
{
    return element.getObjectId();
}

static OdGePoint3d PointOf(const OdResBuf& element)
{
    return element.getPoint3d();
}

static void RequireDatabase(OdDbDatabase* pDb, const OdChar* pszFunction)
{
    if (!pDb)
        throw OdError_InvalidArgument(eNoDatabase, L"pDb", pszFunction);
}

// Nothing for an element that holds no text, whatever its type says.
static OdString NameIn(const OdResBuf& element)
{
    if (element.restype() != OdResBuf::kRtString)
        return OdString();
    try
    {
        OdString strName = Trimmed(element.getString());
        strName.makeUpper();
        return strName;
    }
    catch (const OdError&)
    {
        return OdString();
    }
}

OdResBufPtr CadCommands::ResBufGetName(const OdResBufPtr& pResBuf, OdString& strName)
{
    strName.empty();
    if (!pResBuf)
        return OdResBufPtr();
    strName = NameIn(*pResBuf);
    return pResBuf->next();
}

static bool IsString(const OdResBufPtr& pElement)
{
    return pElement && pElement->restype() == OdResBuf::kRtString;
}

static bool NamesArray(const OdString& strName)
{
    return strName.view().ends_with(L"ARRAY"); // names are in upper case
}

static OdResBufPtr SkipValue(OdResBufPtr pElement, const OdString& strName)
{
    if (IsString(pElement))
        return NamesArray(strName) ? pElement : pElement->next();
    while (pElement && !IsString(pElement))
        pElement = pElement->next();
    return pElement;
}

void CadCommands::WalkParameters(const OdResBufPtr& pChain, const ParameterReader& read)
{
    OdResBufPtr pElement = pChain;
    while (pElement)
    {
        const bool bIsName = IsString(pElement);
        OdString strName;
        pElement = ResBufGetName(pElement, strName);
        if (bIsName && !read(strName, pElement))
            pElement = SkipValue(pElement, strName);
    }
}

OdString CadCommands::FindJsonText(const OdResBufPtr& pChain)
{
    OdString strJson, strFirst;
    bool bHasJson = false, bHasFirst = false;
    WalkParameters(pChain,
                   [&](const OdString& strName, OdResBufPtr& pElement)
                   {
                       if (!bHasFirst && IsString(pElement))
                       {
                           strFirst = pElement->getString();
                           bHasFirst = true;
                       }
                       if (strName != L"JSON")
                           return false;
                       pElement = ResBufGetOdString(pElement, strJson);
                       return bHasJson = true;
                   });
    if (bHasJson || bHasFirst)
        return bHasJson ? strJson : strFirst;
    return IsString(pChain) && !pChain->next() ? pChain->getString() : OdString();
}

OdResBufPtr CadCommands::ResBufGetOdString(const OdResBufPtr& pResBuf, OdString& value)
{
    value.empty();
    if (!pResBuf)
        return OdResBufPtr();
    value = ValueOf(pResBuf, OdResBuf::kRtString, L"CadCommands::ResBufGetOdString", &TextOf);
    return pResBuf->next();
}

OdResBufPtr CadCommands::ResBufGetBool(const OdResBufPtr& pResBuf, bool& value)
{
    if (!pResBuf)
        return OdResBufPtr();
    value = ValueOf(pResBuf, OdResBuf::kRtBool, L"CadCommands::ResBufGetBool",
                    [](const OdResBuf& element) { return element.getBool(); });
    return pResBuf->next();
}

OdResBufPtr CadCommands::ResBufGetObjectId(const OdResBufPtr& pResBuf, OdDbDatabase* pDb, OdDbObjectId& value)
{
    constexpr const OdChar* pszFunction = L"CadCommands::ResBufGetObjectId";
    value.setNull();
    RequireDatabase(pDb, pszFunction);
    if (!pResBuf)
        return OdResBufPtr();
    value = ValueOf(pResBuf, OdResBuf::kRtObjectId, pszFunction, &IdOf);
    return pResBuf->next();
}

OdResBufPtr CadCommands::ResBufGetObjectIdArray(const OdResBufPtr& pResBuf, OdDbDatabase* pDb, OdDbObjectIdArray& value)
{
    constexpr const OdChar* pszFunction = L"CadCommands::ResBufGetObjectIdArray";
    value.clear();
    if (!pResBuf)
        return OdResBufPtr();
    RequireDatabase(pDb, pszFunction);
    OdResBufPtr pElement = pResBuf;
    for (; pElement && pElement->restype() == OdResBuf::kRtObjectId; pElement = pElement->next())
        value.append(ValueOf(pElement, OdResBuf::kRtObjectId, pszFunction, &IdOf));
    return pElement;
}

OdResBufPtr CadCommands::ResBufGetDbSelectionSet(const OdResBufPtr& pResBuf, OdDbSelectionSetPtr& value)
{
    value.release();
    if (!pResBuf)
        return OdResBufPtr();
    value = ValueOf(pResBuf, OdResBuf::kRtPickSet, L"CadCommands::ResBufGetDbSelectionSet",
                    [](const OdResBuf& element) { return element.getPickSet(); });
    return pResBuf->next();
}

OdResBufPtr CadCommands::ResBufGetOdGeExtents3d(const OdResBufPtr& pResBuf, OdGeExtents3d& value)
{
    constexpr const OdChar* pszFunction = L"CadCommands::ResBufGetOdGeExtents3d";
    if (!pResBuf)
        return OdResBufPtr();
    const OdGePoint3d least = ValueOf(pResBuf, OdResBuf::kRtPoint3d, pszFunction, &PointOf);
    const OdResBufPtr pGreatest = pResBuf->next();
    value.set(least, ValueOf(pGreatest, OdResBuf::kRtPoint3d, pszFunction, &PointOf));
    return pGreatest->next();
}
