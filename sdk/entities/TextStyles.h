// The style that texts are drawn in, from the record that they name.
#pragma once

#include "DbObjectId.h"
#include "Gi/GiTextStyle.h"

namespace textstyles
{

/// The record's font, width factor, slant and direction, with a text size of 1; a new style when there is no record. Of
/// the records asked for last, what they say is kept until they are changed.
OdGiTextStyle styleOf(OdDbObjectId record);

} // namespace textstyles
