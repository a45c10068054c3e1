// The parameters of the label commands, read in one walk over the chain.
#pragma once

#include "framework/Command.h"

/** Bits that say which parameters a command knows; it passes over all others. */
enum ELabelParameter : unsigned
{
    eParameterNone = 0,
    eParameterAllowDeleted = 1,
    eParameterGuid = 2,
    eParameterHandle = 4,
    eParameterName = 8,
    eParameterObjectId = 16,
    eParameterObjectIdArray = 32,
    eParameterSelectionSetName = 64
};

/** What the caller gave, and defaults for the rest. GUID, handle and name are trimmed. */
struct LabelParameters
{
    bool bAllowDeleted = false;
    OdString strGuid;
    OdString strHandle;
    OdString strName;
    OdDbObjectId idObject;
    OdDbObjectIdArray ids;
    OdString strSelectionSetName;
    unsigned uiGiven = eParameterNone; ///< the parameters that were there, with an empty value too
};

/** Reads the parameters that are known. Throws OdError_InvalidArgument 68 "pResBuf" for one of a wrong type. */
LabelParameters ReadLabelParameters(CCommandCall& call, unsigned uiKnown);
