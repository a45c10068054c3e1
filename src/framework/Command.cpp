// Runs the work of a command in its frame.
#include "framework/Command.h"

#include "ModuleErrors.h"
#include "framework/FunctionIO.h"
#include "framework/TransactionScope.h"

// ---- Checks
// ----------------------------------------------------------------------------------------------------------

static bool Holds(EFrameCheck eCheck, OdDbCommandContext& context)
{
    switch (eCheck)
    {
    case EFrameCheck::HasFunctionIO:
        return context.funcIO() != nullptr;
    case EFrameCheck::IsOurFunctionIO:
        return !CFunctionIO::cast(context.funcIO()).isNull();
    case EFrameCheck::HasDatabase:
        return context.database() != nullptr;
    }
    return false;
}

static void RequireAll(FrameChecks checks, CCommandCall& call)
{
    for (const FrameCheckRow& row : checks)
        if (!Holds(row.eCheck, call.Context()))
            throw OdError_InvalidValue(row.eCode, row.pszName, call.FunctionName());
}

// ---- Work
// ------------------------------------------------------------------------------------------------------------

void CCommand::execute(OdEdCommandContext* context)
{
    const OdDbCommandContextPtr pContext = OdDbCommandContext::cast(context);
    if (!pContext)
        throw OdError_InvalidArgument(eNullPtr, L"pEdCommandContext", OdString(m_row.pszClass) + L"::execute");
    CCommandCall call(m_row, *pContext);
    RequireAll(m_checks, call);
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
    Work(call);
    transaction.End();
}

// ---- What a command has at hand
// --------------------------------------------------------------------------------------

OdResBufPtr CCommandCall::Parameters()
{
    return OdResBuf::cast(FunctionIO()->param());
}

OdString CCommandCall::AskString(const OdString& strPrompt, const OdString& strKeywords)
{
    OdEdUserIO* pUserIO = m_context.userIO();
    if (!pUserIO)
        throw OdError_InvalidValue(eNullPtr, L"pUserIO", FunctionName());
    return pUserIO->getString(strPrompt, 0, OdString(), strKeywords);
}

OdResBufPtr CCommandCall::Call(const OdChar* pszGroup, const OdChar* pszCommand, const OdResBufPtr& pParameters,
                               const OdChar* pszResult)
{
    const CFunctionIOScope own(*FunctionIO());
    CadCommands::Execute(&m_context, pszCommand, pszGroup, pParameters);
    return CadCommands::GetValueFromResult(&m_context, pszResult);
}
