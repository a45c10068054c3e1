// Finds for every text the frame that it lies in: the innermost one of those drawn beside it, in the same block or in
// one that holds this block.
#pragma once

#include "commands/textparser/FoundTexts.h"

namespace textparser
{

// Sets the frame of every text. Takes time in proportion to (texts + frames) * log(texts) where frames enclose what
// they are drawn around.
void assignFrames(FoundTexts& found);

} // namespace textparser
