// Getting at labels, for all commands alike.
#pragma once

#include <functional>

#include "BSystemLabel.h"
#include "framework/Command.h"

/** Opens an object for read as a label. Returns null for an id that is not valid, an object that is erased unless that
   is allowed, and an object that is no label. */
CBSystemLabelPtr OpenLabel(const OdDbObjectId& id, bool bAllowDeleted);

/** As OpenLabel, but throws OdError_NotThatKindOfClass for an object that is no label. */
CBSystemLabelPtr RequireLabel(const OdDbObjectId& id, bool bAllowDeleted);

/** The dictionary of labels as "BSYSTEMLABELGETDICTIONARYID" gives it, open for read; null when it gives no valid id.
    Throws OdError_InvalidValue 20 "pDictionary" when it is no dictionary. */
OdDbDictionaryPtr CallForDictionary(CCommandCall& call);

/** The selection set of the host with that name, null when the host gives none. */
OdDbSelectionSetPtr CallForSelectionSet(CCommandCall& call, const OdString& strSelectionSetName);

/** Runs a label command and takes its result "OBJECTID", "OBJECTIDARRAY". */
OdDbObjectId CallForId(CCommandCall& call, const OdChar* pszCommand, const OdResBufPtr& pParameters);
OdDbObjectIdArray CallForIds(CCommandCall& call, const OdChar* pszCommand, const OdResBufPtr& pParameters);
