// The work of the command that deletes labels.
#pragma once

#include "labels/LabelParameters.h"

/** Takes the given labels, or those that the user chooses, out of the dictionary and erases them; ids that are not
   valid and labels that are erased already are passed over. Throws OdError_InvalidValue 20 "pDictionary", and with the
    function "CCommandBSystemLabelDelete::Delete" 20 "pObject", 39 "pObject" for an object that is no label, 20
   "pLabel". */
void DeleteLabels(CCommandCall& call, const LabelParameters& parameters);
