// Entering the runtime classes of entities into the runtime.
#pragma once

namespace entityclasses
{

void registerRuntimeClasses();
void unregisterRuntimeClasses();

} // namespace entityclasses
