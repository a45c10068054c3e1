// Whether a record can be drawn at all; found out before anything is changed.
#pragma once

#include <vector>

#include "annotations/AnnotationProperties.h"

namespace Annotation
{

/** Throws OdError (eInvalidInput), with a text that names index and key, for the first record that cannot be drawn: one
    with a width or height that is not above 0, unless its box takes the size of its text; with a text, but a font size
    that is not above 0; with a border of negative thickness; with a normal too short to have a direction; with more
    corners than kMostCorners; with a figure beyond what drawings can hold, or a size too small to compute with. */
void RequireDrawable(const std::vector<AnnotationProperties>& annotations);

} // namespace Annotation
