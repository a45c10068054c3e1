// Counts what is asked of the memory: work that grows faster than its input shows there without a clock.
#pragma once

#include <cstdint>

namespace annotationtest
{

/// The bytes that this program's C++ code has asked for up to now, whether it still has them or not.
std::uint64_t allocatedBytes();

} // namespace annotationtest
