// Opening the drawings that are named on the command line.
#pragma once

#include <optional>
#include <string>

#include "session/OpenDrawing.h"

namespace cli
{

// Opens the file, or a new drawing when the name is empty, and tells on standard error what was mended. Throws OdError
// with file, place and fault.
void openDrawing(std::optional<session::OpenDrawing>& drawing, const std::string& file);

} // namespace cli
