// The work of the commands that create labels.
#pragma once

#include "labels/LabelParameters.h"

/** "OBJECTID": a new label over the given entities, with the text that the host's text parser reads out of them; null
   when no entity is left that has no label yet. What the text parser or the label throws leaves nothing behind. */
void CreateLabel(CCommandCall& call, const LabelParameters& parameters);

/** "OBJECTID": as CreateLabel, over the entities of the named selection set; without a name the user is asked for it.
    Throws OdError_InvalidValue 20 "pSelectionSet" when the host has none. */
void CreateLabelFromSelection(CCommandCall& call, const LabelParameters& parameters);
