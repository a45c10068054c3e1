// Entering the classes of the drawing interface into the runtime.
#pragma once

namespace gi
{

/// Registers all classes that include/Gi declares; they are needed before database objects are registered.
void registerClasses();
void unregisterClasses();

} // namespace gi
