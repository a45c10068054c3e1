// Puts texts into reading order and joins them: lines from top to bottom, within a line from left to right, one blank
// between them. Two texts stand in one line when they overlap vertically by half the height of the lower one. A text
// with a frame stands between the markers of the frame's shape:
//
//   rectangle  <inRect>E12</inRect>
//   circle     <inCir>E12/<inCir>
//   oval       <inOv>E12/<inOv>
#pragma once

#include "commands/textparser/FoundTexts.h"

namespace textparser
{

OdString composeText(const std::vector<FoundText>& texts);

} // namespace textparser
