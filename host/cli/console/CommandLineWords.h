// Takes apart a line that was typed at a console: the command, and what stands behind it.
#pragma once

#include <string>
#include <vector>

namespace cli
{

// The words between blanks; blanks in double quotes and within the brackets of JSON do not divide.
std::vector<std::string> splitIntoWords(const std::string& line);

// A request for the line, as JSON: "COMMAND NAME=VALUE ..." is a command with parameters when all words behind the name
// have that form, anything else a command string with its answers. Throws session::RequestError.
std::string requestOf(const std::string& line);

} // namespace cli
