// Runs commands by name and picks values out of what they leave.
#include "framework/CadCommands.h"

#include "Ed/EdCommandStack.h"
#include "ModuleErrors.h"

static OdEdFunctionIO* RequireFunctionIO(OdDbCommandContext* pDbCommandContext, const OdChar* pszFunction)
{
    if (!pDbCommandContext)
        throw OdError_InvalidArgument(eNullPtr, L"pDbCommandContext", pszFunction);
    OdEdFunctionIO* pFunctionIO = pDbCommandContext->funcIO();
    if (!pFunctionIO)
        throw OdError_InvalidValue(eNullPtr, L"pFunctionIO", pszFunction);
    return pFunctionIO;
}

static OdEdCommandPtr FindCommand(const OdEdCommandStackPtr& pCommands, const OdString& strCommand,
                                  const OdString& strGroup, const OdChar* pszFunction)
{
    constexpr OdUInt32 uiNamedGroup = OdEdCommandStack::kGlobal | OdEdCommandStack::kSpecifedGroup;
    constexpr OdUInt32 uiAnyGroup = uiNamedGroup | OdEdCommandStack::kAnyGroup;
    OdEdCommandPtr pCommand;
    if (pCommands)
        pCommand = pCommands->lookupCmd(strCommand, strGroup.isEmpty() ? uiAnyGroup : uiNamedGroup, strGroup);
    if (!pCommand)
        throw OdError_InvalidArgument(eUnknownCommand, strCommand, pszFunction);
    return pCommand;
}

OdResBufPtr CadCommands::Execute(OdDbCommandContext* pDbCommandContext, const OdString& strCommand,
                                 const OdString& strGroup, const OdResBufPtr& pParameters)
{
    constexpr const OdChar* pszFunction = L"CadCommands::Execute";
    if (!pDbCommandContext)
        throw OdError_InvalidArgument(eNullPtr, L"pDbCommandContext", pszFunction);
    if (strCommand.isEmpty())
        throw OdError_InvalidArgument(eUnknownCommand, L"strCommand", pszFunction);
    const OdEdCommandStackPtr pCommands = odedRegCmds();
    const OdEdCommandPtr pCommand = FindCommand(pCommands, strCommand, strGroup, pszFunction);
    OdEdFunctionIO* pFunctionIO = RequireFunctionIO(pDbCommandContext, pszFunction);
    pFunctionIO->setResult(nullptr);
    pFunctionIO->setParam(pParameters.get());
    pCommands->executeCommand(pCommand.get(), pDbCommandContext);
    return OdResBuf::cast(pFunctionIO->result());
}

static OdResBufPtr FindValue(OdResBufPtr pElement, const OdString& strName)
{
    while (pElement)
    {
        const bool bIsName = pElement->restype() == OdResBuf::kRtString;
        OdString strFound;
        pElement = CadCommands::ResBufGetName(pElement, strFound);
        if (bIsName && strFound.iCompare(strName) == 0)
            return pElement;
    }
    return OdResBufPtr();
}

OdResBufPtr CadCommands::GetValueFromResult(OdDbCommandContext* pDbCommandContext, const OdString& strName)
{
    OdEdFunctionIO* pFunctionIO = RequireFunctionIO(pDbCommandContext, L"CadCommands::GetValueFromResult");
    const OdResBufPtr pResult = OdResBuf::cast(pFunctionIO->result());
    pFunctionIO->setResult(nullptr);
    return FindValue(pResult, strName);
}
