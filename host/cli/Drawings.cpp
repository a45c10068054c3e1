// Opening the drawings that are named on the command line.
#include "cli/Drawings.h"

#include <iostream>

namespace cli
{

void openDrawing(std::optional<session::OpenDrawing>& drawing, const std::string& file)
{
    if (file.empty())
    {
        drawing.emplace();
        return;
    }
    drawing.emplace(odUtf8ToString(file));
    for (const OdString& line : drawing->database().recoveryReport())
        std::cerr << "zolcad: " << file << ": " << odStringToUtf8(line) << '\n';
}

} // namespace cli
