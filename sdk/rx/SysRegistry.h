// The end of the registry of the program.
#pragma once

namespace odregistry
{
/// Gives back all objects that were left in the registry.
void clear();
} // namespace odregistry
