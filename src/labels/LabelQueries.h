// The work of the commands that find labels. Nothing found is no error: single ids are null, lists empty, JSON "[]".
#pragma once

#include "labels/LabelParameters.h"

/** "OBJECTID": the dictionary of labels, created when it is missing. Throws OdError_InvalidValue 20 "pDictionary". */
void GetDictionaryId(CCommandCall& call, const LabelParameters& parameters);

/** "OBJECTIDARRAY": all labels in the order of their GUIDs. Throws OdError_InvalidValue 20 "pDictionary". */
void GetAllIds(CCommandCall& call, const LabelParameters& parameters);

/** "OBJECTID": the label with that GUID, with that handle, the first one with that text in any case. */
void GetIdFromGuid(CCommandCall& call, const LabelParameters& parameters);
void GetIdFromHandle(CCommandCall& call, const LabelParameters& parameters);
void GetIdFromName(CCommandCall& call, const LabelParameters& parameters);

/** "OBJECTIDARRAY": the labels in the named selection set, in its order. Throws OdError_InvalidValue 20
    "pDbSelectionSet" when the host has none. */
void GetSelectedIds(CCommandCall& call, const LabelParameters& parameters);

/** "JSON": the texts of the given labels, or of all. Throws OdError_NotThatKindOfClass for an object that is no label.
 */
void GetAllNames(CCommandCall& call, const LabelParameters& parameters);

/** "JSON": the given labels, or those that the user chooses, in full. Throws as GetAllNames. */
void ToJson(CCommandCall& call, const LabelParameters& parameters);
