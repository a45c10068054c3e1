// The table of the drawing border commands, and their work. They find borders through each other.
#include "objects/DrawingBorderCommands.h"

#include "DbUserIO.h"
#include "ModuleErrors.h"
#include "RxSystemServices.h"
#include "module/ground/Messages.h"
#include "objects/ParamsDrawingBorder.h"

namespace
{

constexpr FrameCheckRow kDefiningChecks[] = {
    {EFrameCheck::HasContext, eNullPtr, L"pEdCommandContext", EFrameError::InvalidArgument},
    {EFrameCheck::IsDrawingContext, eOk, L"", EFrameError::NotThatKindOfClass},
    {EFrameCheck::IsDrawingUserIO, eOk, L"", EFrameError::NotThatKindOfClass},
    {EFrameCheck::IsOurFunctionIO, eNullPtr, L"pFunctionIO", EFrameError::InvalidArgument},
    {EFrameCheck::HasDatabase, eNoDatabase, L"pDb", EFrameError::InvalidArgument},
    {EFrameCheck::HasHostServices, eNullPtr, L"pHostAppServices", EFrameError::InvalidArgument},
};
constexpr FrameChecks kAllDefiningChecks = kDefiningChecks;
constexpr FrameChecks kQueryChecks = kAllDefiningChecks.first(kAllDefiningChecks.size() - 1);

constexpr OdUInt32 kQuery = eCommandFlagResult | eCommandFlagNoUndo;

constexpr CommandRow Row(const OdChar* pszClass, const OdChar* pszName, OdUInt32 uiFlags)
{
    return {pszClass, CommandGroup::kDrawingBorder, pszName, uiFlags};
}

constexpr CommandRow kDefineColumnsLines =
    Row(L"CCommandDefineDrawingBorderColumnsLines", L"DEFINEDRAWINGBORDERCOLUMNLINES", eCommandFlagTransaction);
constexpr CommandRow kDefine = Row(L"CCommandDefineDrawingBorder", L"DEFINEDRAWINGBORDER", eCommandFlagTransaction);
constexpr CommandRow kGetDictionaryId =
    Row(L"CCommandDrawingBorderGetDictionaryId", L"DRAWINGBORDERGETDICTIONARYID", kQuery);
constexpr CommandRow kGetAllIds = Row(L"CCommandDrawingBorderGetAllIds", L"DRAWINGBORDERGETALLIDS", kQuery);
constexpr CommandRow kGetBorder = Row(L"CCommandDrawingBorderGetDrawingBorder", L"GETDRAWINGBORDER", kQuery);

// ---- Finding borders
// -------------------------------------------------------------------------------------------------

bool ReadAllowDeleted(CCommandCall& call)
{
    bool bAllowDeleted = false;
    CadCommands::WalkParameters(call.Parameters(),
                                [&](const OdString& strName, OdResBufPtr& pElement)
                                {
                                    if (strName != L"ALLOWDELETED")
                                        return false;
                                    pElement = CadCommands::ResBufGetBool(pElement, bAllowDeleted);
                                    return true;
                                });
    return bAllowDeleted;
}

OdDbObjectIdArray CallForBorders(CCommandCall& call, bool bAllowDeleted)
{
    return call.CallForIds(CommandGroup::kDrawingBorder, kGetAllIds.pszName,
                           CadCommands::SetParameterBool(L"ALLOWDELETED", bAllowDeleted));
}

bool IsListed(const OdDbObjectId& id, bool bAllowDeleted)
{
    const CDrawingBorderDataPtr pBorder = CDrawingBorderData::cast(id.openObject().get());
    return pBorder && (bAllowDeleted || !pBorder->IsDeleted());
}

void GetDictionaryId(CCommandCall& call)
{
    const OdDbDictionaryPtr pDictionary = CDrawingBorderData::GetDictionary(call.Database());
    if (!pDictionary)
        throw OdError_InvalidArgument(eNullObjectPointer, L"pDictionary", call.FunctionName());
    call.m_pResult = CadCommands::SetParameterObjectId(L"OBJECTID", pDictionary->objectId());
}

OdDbObjectIdArray ListBorders(CCommandCall& call, const OdDbObjectId& idDictionary, bool bAllowDeleted)
{
    const OdDbDictionaryPtr pDictionary = OdDbDictionary::cast(idDictionary.openObject().get());
    if (!pDictionary)
        throw OdError_InvalidArgument(eNullObjectPointer, L"pDictionary", call.FunctionName());
    OdDbObjectIdArray ids;
    for (OdDbDictionaryIteratorPtr pEntries = pDictionary->newIterator(); !pEntries->done(); pEntries->next())
        if (IsListed(pEntries->objectId(), bAllowDeleted))
            ids.append(pEntries->objectId());
    return ids;
}

void GetAllIds(CCommandCall& call)
{
    const bool bAllowDeleted = ReadAllowDeleted(call);
    const OdDbObjectId idDictionary =
        call.CallForId(CommandGroup::kDrawingBorder, kGetDictionaryId.pszName, OdResBufPtr());
    OdDbObjectIdArray ids;
    if (idDictionary.isValid())
        ids = ListBorders(call, idDictionary, bAllowDeleted);
    call.m_pResult = CadCommands::SetParameterObjectIdArray(L"OBJECTIDARRAY", ids);
}

void GetBorder(CCommandCall& call)
{
    const OdDbObjectIdArray ids = CallForBorders(call, ReadAllowDeleted(call));
    CParamsDrawingBorder params;
    if (!ids.isEmpty())
    {
        const CDrawingBorderDataPtr pBorder = ids.first().safeOpenObject();
        params = CParamsDrawingBorder(*pBorder);
    }
    call.m_pResult = CadCommands::SetParameterOdString(L"JSON", params.Write());
}

// ---- Defining borders
// ------------------------------------------------------------------------------------------------

OdString Message(EMessage eMessage)
{
    return odSystemServices()->formatMessage(eMessage);
}

CDrawingBorderDataPtr MakeBorder(CCommandCall& call)
{
    CDrawingBorderDataPtr pBorder = CDrawingBorderData::createObject();
    if (pBorder->Initialize(call.Database(), OdString()).isNull())
        throw OdError_InvalidArgument(eNullObjectId, L"idResult", call.FunctionName());
    return pBorder;
}

// The border that is defined, open for write: the first one, or a new one.
CDrawingBorderDataPtr OpenBorder(CCommandCall& call)
{
    const OdDbObjectIdArray ids = CallForBorders(call, false);
    return ids.isEmpty() ? MakeBorder(call) : CDrawingBorderDataPtr(ids.first().safeOpenObject(OdDb::kForWrite));
}

void DefineColumnsLines(CCommandCall& call)
{
    const CParamsDrawingBorder params = CParamsDrawingBorder::Read(call.JsonText(Message(eMessageBorderJson)));
    const CDrawingBorderDataPtr pBorder = OpenBorder(call);
    pBorder->SetColumnLineIds(params.m_columns, params.m_lines);
    pBorder->downgradeOpen();
}

// Asks until the answer is a point: there is nothing else that could be meant.
OdGePoint3d AskForPoint(CCommandCall& call, EMessage ePrompt, int iOptions)
{
    OdDbUserIO& userIO = *call.Context().dbUserIO();
    while (true)
    {
        try
        {
            return userIO.getPoint(Message(ePrompt), iOptions);
        }
        catch (const OdEdOtherInput&)
        {
            userIO.putError(Message(eMessageBorderNoPoint));
        }
    }
}

CParamsDrawingBorder AskForArea(CCommandCall& call)
{
    CParamsDrawingBorder params;
    params.m_areaFirst = AskForPoint(call, eMessageBorderCorner, OdEd::kGptDefault);
    params.m_areaSecond = AskForPoint(call, eMessageBorderOpposite, OdEd::kGptRectFrame);
    return params;
}

CParamsDrawingBorder ReadArea(CCommandCall& call)
{
    if (!call.FunctionIO()->param())
        return AskForArea(call);
    CParamsDrawingBorder params = CParamsDrawingBorder::Read(CadCommands::FindJsonText(call.Parameters()));
    params.RequireArea();
    return params;
}

void Define(CCommandCall& call)
{
    const CParamsDrawingBorder params = ReadArea(call);
    const CDrawingBorderDataPtr pBorder = OpenBorder(call);
    pBorder->SetCorners(params.m_areaFirst, params.m_areaSecond);
    if (params.m_bColumnLinesValid)
        pBorder->SetColumnLineIds(params.m_columns, params.m_lines);
    pBorder->downgradeOpen();
}

} // namespace

CCommandDefineDrawingBorderColumnsLines::CCommandDefineDrawingBorderColumnsLines()
    : CDrawingBorderCommand(kDefineColumnsLines, kAllDefiningChecks, &DefineColumnsLines)
{
}

CCommandDefineDrawingBorder::CCommandDefineDrawingBorder() : CDrawingBorderCommand(kDefine, kAllDefiningChecks, &Define)
{
}

CCommandDrawingBorderGetDictionaryId::CCommandDrawingBorderGetDictionaryId()
    : CDrawingBorderCommand(kGetDictionaryId, kQueryChecks, &GetDictionaryId)
{
}

CCommandDrawingBorderGetAllIds::CCommandDrawingBorderGetAllIds()
    : CDrawingBorderCommand(kGetAllIds, kQueryChecks, &GetAllIds)
{
}

CCommandDrawingBorderGetDrawingBorder::CCommandDrawingBorderGetDrawingBorder()
    : CDrawingBorderCommand(kGetBorder, kQueryChecks, &GetBorder)
{
}
