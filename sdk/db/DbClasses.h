// Making the classes of this layer known to the runtime.
#pragma once

namespace oddb
{

/// Registers the classes of the core: objects, the database, reactors, filers. Drawables have to be registered before.
void registerCoreClasses();

/// Withdraws them, the last one first.
void unregisterCoreClasses();

/// As these, for dictionaries, tables, records and layouts; part of the above.
void registerObjectClasses();
void unregisterObjectClasses();

} // namespace oddb
