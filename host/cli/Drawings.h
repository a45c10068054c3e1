// Opening the drawings that are named on the command line.
#pragma once

#include <optional>
#include <stdexcept>
#include <string>

#include "session/OpenDrawing.h"

namespace cli
{

// A drawing that cannot be read. what() is one line with the file, the place and the fault.
class UnreadableDrawing : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

// Opens the file, or a new drawing when the name is empty, to work on it until the program ends. Throws
// UnreadableDrawing.
void openDrawing(std::optional<session::OpenDrawing>& drawing, const std::string& file);

// Says on standard error what was mended while the drawing was read, a line for each fault.
void reportMended(const session::OpenDrawing& drawing, const std::string& file);

} // namespace cli
