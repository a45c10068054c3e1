// The pictures that are kept in memory.
#pragma once

namespace rasterfiles
{

/// Between the two, pictures are kept until a module ends.
void start();
void end();

} // namespace rasterfiles
