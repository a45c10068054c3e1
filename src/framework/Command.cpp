// Runs the work of a command in its frame.
#include "framework/Command.h"

#include "DbDatabase.h"
#include "DbUserIO.h"
#include "ModuleErrors.h"
#include "framework/FunctionIO.h"
#include "framework/TransactionScope.h"

// ---- Checks
// ----------------------------------------------------------------------------------------------------------

/// What a check looks at, and the class that it has to be of.
struct CheckedObject
{
    const OdRxObject* pObject;
    const OdRxClass* pClass;

    bool IsThere() const { return pObject && pObject->isKindOf(pClass); }
};

// Where it is enough that something is there, any class will do: CFunctionIO is registered beside the SDK's own
// classes.
static CheckedObject ObjectOf(EFrameCheck eCheck, OdEdCommandContext* pContext)
{
    switch (eCheck)
    {
    case EFrameCheck::HasContext:
        return {pContext, OdRxObject::desc()};
    case EFrameCheck::IsDrawingContext:
        return {pContext, OdDbCommandContext::desc()};
    case EFrameCheck::IsDrawingUserIO:
        return {pContext->userIO(), OdDbUserIO::desc()};
    case EFrameCheck::HasFunctionIO:
        return {pContext->funcIO(), OdRxObject::desc()};
    case EFrameCheck::IsOurFunctionIO:
        return {pContext->funcIO(), CFunctionIO::desc()};
    case EFrameCheck::HasDatabase:
        return {pContext->baseDatabase(), OdDbDatabase::desc()};
    case EFrameCheck::HasHostServices:
        const OdDbDatabasePtr pDb = OdDbDatabase::cast(pContext->baseDatabase());
        return {pDb && pDb->appServices() ? pDb.get() : nullptr, OdDbDatabase::desc()};
    }
    return {};
}

[[noreturn]] static void Refuse(const FrameCheckRow& row, const CheckedObject& object, const CommandRow& command)
{
    const OdString strFunction = command.FunctionName();
    switch (row.eError)
    {
    case EFrameError::InvalidArgument:
        throw OdError_InvalidArgument(row.eCode, row.pszName, strFunction);
    case EFrameError::NotThatKindOfClass:
        throw OdError_NotThatKindOfClass(object.pObject ? object.pObject->isA() : nullptr, object.pClass);
    default:
        throw OdError_InvalidValue(row.eCode, row.pszName, strFunction);
    }
}

static void RequireAll(FrameChecks checks, OdEdCommandContext* pContext, const CommandRow& command)
{
    for (const FrameCheckRow& row : checks)
        if (const CheckedObject object = ObjectOf(row.eCheck, pContext); !object.IsThere())
            Refuse(row, object, command);
}

// ---- Work
// ------------------------------------------------------------------------------------------------------------

void CCommand::execute(OdEdCommandContext* context)
{
    RequireAll(m_checks, context, m_row);
    const OdDbCommandContextPtr pContext = OdDbCommandContext::cast(context);
    CCommandCall call(m_row, *pContext);
    if (flags() & eCommandFlagTransaction)
        WorkInTransaction(call);
    else
        Work(call);
    if (flags() & eCommandFlagResult)
        call.FunctionIO()->setResult(call.m_pResult.get());
}

void CCommand::WorkInTransaction(CCommandCall& call)
{
    CTransactionScope transaction(*call.Database());
    try
    {
        Work(call);
    }
    catch (...)
    {
        if (KeepsWorkBeforeFailure())
            transaction.End();
        throw;
    }
    transaction.End();
}

// ---- What a command has at hand
// --------------------------------------------------------------------------------------

OdResBufPtr CCommandCall::Parameters()
{
    return FunctionIO() ? OdResBuf::cast(FunctionIO()->param()) : OdResBufPtr();
}

OdString CCommandCall::AskString(const OdString& strPrompt, const OdString& strKeywords, int iOptions)
{
    OdEdUserIO* pUserIO = m_context.userIO();
    if (!pUserIO)
        throw OdError_InvalidValue(eNullPtr, L"pUserIO", FunctionName());
    return pUserIO->getString(strPrompt, iOptions, OdString(), strKeywords);
}

OdString CCommandCall::JsonText(const OdString& strPrompt, int iOptions)
{
    const bool bHasParameters = FunctionIO() && FunctionIO()->param();
    return bHasParameters ? CadCommands::FindJsonText(Parameters()) : AskString(strPrompt, OdString(), iOptions);
}

OdResBufPtr CCommandCall::Call(const OdString& strGroup, const OdString& strCommand, const OdResBufPtr& pParameters,
                               const OdString& strResult)
{
    const CFunctionIOScope own(*FunctionIO());
    CadCommands::Execute(&m_context, strCommand, strGroup, pParameters);
    return CadCommands::GetValueFromResult(&m_context, strResult);
}

OdDbObjectId CCommandCall::CallForId(const OdChar* pszGroup, const OdChar* pszCommand, const OdResBufPtr& pParameters)
{
    OdDbObjectId id;
    CadCommands::ResBufGetObjectId(Call(pszGroup, pszCommand, pParameters, L"OBJECTID"), Database(), id);
    return id;
}

OdDbObjectIdArray CCommandCall::CallForIds(const OdChar* pszGroup, const OdChar* pszCommand,
                                           const OdResBufPtr& pParameters)
{
    OdDbObjectIdArray ids;
    CadCommands::ResBufGetObjectIdArray(Call(pszGroup, pszCommand, pParameters, L"OBJECTIDARRAY"), Database(), ids);
    return ids;
}

void CCommandCall::Run(const OdChar* pszGroup, const OdChar* pszCommand, const OdResBufPtr& pParameters)
{
    const CFunctionIOScope own(*FunctionIO());
    CadCommands::Execute(&m_context, pszCommand, pszGroup, pParameters);
}
