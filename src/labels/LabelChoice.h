// Letting the user choose labels, for commands that were given none.
#pragma once

#include "labels/LabelParameters.h"

/** Asks the user for a handle or one of five keywords: all labels, the selected ones, one by handle, by GUID, by name.
    For the last three the value is the caller's parameter ("HANDLE", "GUID", "NAME"), else the user is asked for it;
   the parameters "ALLOWDELETED" and "SELECTIONSETNAME" are heeded. A handle need not be that of a label. Returns the
   ids, none of them null. Throws OdEdCancel, and what the commands throw that it runs. */
OdDbObjectIdArray ChooseLabels(CCommandCall& call);

/** The ids that the caller gave, none included, or those that the user chooses when the caller gave none. */
OdDbObjectIdArray GivenOrChosenLabels(CCommandCall& call, const LabelParameters& parameters);
