// zolcad save: a drawing written to another file, in another version or format.
#include <optional>

#include "cli/CommandLine.h"
#include "cli/Doors.h"
#include "cli/Drawings.h"
#include "commands/DrawingFiles.h"

namespace cli
{

int saveDrawing(const SaveOrder& order, session::Plugin plugin)
{
    const session::HostServices services(plugin);
    std::optional<session::OpenDrawing> drawing;
    openDrawing(drawing, order.drawingFile);
    reportMended(*drawing, order.drawingFile);
    hostcommands::WriteOrder write;
    write.file = odUtf8ToString(order.targetFile);
    write.version = odUtf8ToString(order.version);
    write.format = odUtf8ToString(order.format);
    hostcommands::writeDrawing(drawing->database(), write);
    return kSuccess;
}

} // namespace cli
