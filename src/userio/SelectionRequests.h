// Asking the host for selections.
#pragma once

#include "DbSSet.h"
#include "framework/CadCommands.h"
#include "framework/FunctionIO.h"

/** A CSelectionRequests runs the host's selection commands for an operation of a CUserIO. As long as it lives, argument
    and result of the command that runs are the requests'; then they are again what they were before. Each request
    throws what CadCommands::Execute throws and returns the set that the host answers, null when it answers none. */
class CSelectionRequests
{
public:
    /** pFilter, which may be null, decides what the host selects. Throws for the operation: OdError_InvalidArgument
       (417, "pEdCommandContext") for a null handler, OdError_InvalidValue (417, "pFunctionIO"). */
    CSelectionRequests(CCommandHandler* pHandler, const OdChar* pszOperation, OdRxObject* pFilter = nullptr);

    /** The set named PICKFIRST. */
    OdDbSelectionSetPtr Get();
    /** Replaces it, and looks at what the host answers or not. Each throws OdError_InvalidArgument (20,
       "pSelectionSet") for null. */
    OdDbSelectionSetPtr Update(const OdDbSelectionSetPtr& pSet, bool bHighlight);
    void Replace(const OdDbSelectionSetPtr& pSet, bool bHighlight);
    /** Merges a set into another as the options of select say. */
    OdDbSelectionSetPtr Merge(const OdDbSelectionSetPtr& pSource, const OdDbSelectionSetPtr& pDestination,
                              int iOptions);

    /** True when there is a way to select of that number. */
    static bool HasMode(int iMode);
    OdDbSelectionSetPtr Select(int iMode, int iOptions);

private:
    OdDbSelectionSetPtr ReadAnswer();
    OdDbSelectionSetPtr Run(const OdChar* pszGroup, const OdChar* pszCommand, const OdResBufPtr& pParameters);
    OdResBufPtr FilterParameter() const;

    CCommandHandler& m_handler;
    CFunctionIOScope m_own;
    OdRxObjectPtr m_pFilter;
};
