// The end of the modules of the program.
#pragma once

namespace odlinker
{
/// Unloads all modules, the last loaded first, whether references to them are held or not.
void unloadAll();
} // namespace odlinker
