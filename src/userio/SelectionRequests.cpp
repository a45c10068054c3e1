// Each request is one of the host's commands with a chain of parameters.
#include "userio/SelectionRequests.h"

#include <iterator>

#include "ModuleErrors.h"
#include "framework/CommandNames.h"

namespace
{

constexpr const OdChar* kPickFirst = L"PICKFIRST";

struct ModeRow
{
    const OdChar* pszCommand;
    bool bIsVisual; ///< the mode itself is a parameter
    bool bHasFilter;
};

// In the order of the keywords of message 1020.
constexpr ModeRow kModes[] = {
    {L"SELECTIONSELECTVISUAL", true, true},
    {L"SELECTIONSELECTVISUAL", true, true},
    {L"SELECTIONSELECTVISUAL", true, true},
    {L"SELECTIONSELECTVISUAL", true, true},
    {L"SELECTIONSELECTVISUAL", true, true},
    {L"SELECTIONSELECTVISUAL", true, true},
    {L"SELECTIONSELECTVISUAL", true, true},
    {L"SELECTIONSELECTALLVISIBLEENTITIES", false, true},
    {L"SELECTIONSELECTLASTVISIBLEENTITY", false, true},
    {L"SELECTIONSELECTPREVIOUS", false, false},
    {L"SELECTIONSELECTBYHANDLE", false, true},
    {L"SELECTIONSELECTBYJSON", false, true},
};

OdResBufPtr ChainOf(std::initializer_list<OdResBufPtr> entries)
{
    OdResBufPtr pChain;
    for (const OdResBufPtr& pEntry : entries)
        CadCommands::Append(pChain, pEntry);
    return pChain;
}

OdResBufPtr NameParameter()
{
    return CadCommands::SetParameterOdString(L"SELECTIONSETNAME", kPickFirst);
}

CCommandHandler& RequireHandler(CCommandHandler* pHandler, const OdChar* pszOperation)
{
    if (!pHandler)
        throw OdError_InvalidArgument(eNullPtr, L"pEdCommandContext", pszOperation);
    return *pHandler;
}

CFunctionIO& RequireFunctionIO(CCommandHandler& handler, const OdChar* pszOperation)
{
    const CFunctionIOPtr pFunctionIO = CFunctionIO::cast(handler.funcIO());
    if (!pFunctionIO)
        throw OdError_InvalidValue(eNullPtr, L"pFunctionIO", pszOperation);
    return *pFunctionIO;
}

} // namespace

CSelectionRequests::CSelectionRequests(CCommandHandler* pHandler, const OdChar* pszOperation, OdRxObject* pFilter)
    : m_handler(RequireHandler(pHandler, pszOperation)), m_own(RequireFunctionIO(m_handler, pszOperation)),
      m_pFilter(pFilter)
{
}

OdDbSelectionSetPtr CSelectionRequests::ReadAnswer()
{
    OdDbSelectionSetPtr pSet;
    CadCommands::ResBufGetDbSelectionSet(CadCommands::GetValueFromResult(&m_handler, L"SELECTIONSET"), pSet);
    return pSet;
}

OdDbSelectionSetPtr CSelectionRequests::Run(const OdChar* pszGroup, const OdChar* pszCommand,
                                            const OdResBufPtr& pParameters)
{
    CadCommands::Execute(&m_handler, pszCommand, pszGroup, pParameters);
    return ReadAnswer();
}

OdResBufPtr CSelectionRequests::FilterParameter() const
{
    return CadCommands::SetParameterObjectPtr(L"FILTEROBJECT", m_pFilter.get());
}

OdDbSelectionSetPtr CSelectionRequests::Get()
{
    return Run(CommandGroup::kSelectionSet, L"SELECTIONSETGET", NameParameter());
}

void CSelectionRequests::Replace(const OdDbSelectionSetPtr& pSet, bool bHighlight)
{
    CadCommands::Execute(&m_handler, L"SELECTIONSETUPDATE", CommandGroup::kSelectionSet,
                         ChainOf({NameParameter(), CadCommands::SetParameterDbSelectionSet(L"SELECTIONSET", pSet),
                                  CadCommands::SetParameterBool(L"HIGHLIGHT", bHighlight)}));
}

OdDbSelectionSetPtr CSelectionRequests::Update(const OdDbSelectionSetPtr& pSet, bool bHighlight)
{
    Replace(pSet, bHighlight);
    return ReadAnswer();
}

OdDbSelectionSetPtr CSelectionRequests::Merge(const OdDbSelectionSetPtr& pSource,
                                              const OdDbSelectionSetPtr& pDestination, int iOptions)
{
    return Run(CommandGroup::kSelectionSet, L"SELECTIONSETMERGE",
               ChainOf({CadCommands::SetParameterDbSelectionSet(L"SOURCE", pSource),
                        CadCommands::SetParameterDbSelectionSet(L"DESTINATION", pDestination),
                        CadCommands::SetParameterInt32(L"OPTIONS", iOptions), FilterParameter()}));
}

bool CSelectionRequests::HasMode(int iMode)
{
    return iMode >= 0 && iMode < static_cast<int>(std::size(kModes));
}

OdDbSelectionSetPtr CSelectionRequests::Select(int iMode, int iOptions)
{
    const ModeRow& row = kModes[iMode];
    return Run(CommandGroup::kSelection, row.pszCommand,
               ChainOf({row.bIsVisual ? CadCommands::SetParameterInt32(L"SELECTFUNCTION", iMode) : OdResBufPtr(),
                        CadCommands::SetParameterInt32(L"SELECTOPTIONS", iOptions), NameParameter(),
                        row.bHasFilter ? FilterParameter() : OdResBufPtr()}));
}
