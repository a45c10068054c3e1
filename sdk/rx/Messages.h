// The texts of messages by number: those of the SDK, and the tables that programs and modules register.
#pragma once

#include "RxSystemServices.h"

namespace odmessages
{
/// The text as it stands in the table registered last; null when no table has the number.
const OdChar* find(unsigned int number);

void add(const OdMessageEntry* table, std::size_t numEntries);
void remove(const OdMessageEntry* table);

/// The text where no arguments are at hand: of all texts of that number the newest that takes none; where each takes
/// some, the newest with "..." in their places.
OdString withoutArguments(unsigned int number);
} // namespace odmessages
