// Making the command stack of the program and ending it.
#pragma once

namespace oded
{

void createCommandStack();
void releaseCommandStack();

} // namespace oded
