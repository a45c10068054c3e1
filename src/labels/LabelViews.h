// The work of the commands that show labels to the user. The host's viewer knows where things are and moves the view.
#pragma once

#include "labels/LabelParameters.h"

/** Has the viewer show the given labels, or those that the user chooses, in full. Nothing happens when there are no
    labels or the viewer gives no extents for them. */
void ZoomToLabels(CCommandCall& call, const LabelParameters& parameters);

/** As ZoomToLabels, but the view keeps its size and its centre goes to that of the labels. */
void DollyToLabels(CCommandCall& call, const LabelParameters& parameters);
