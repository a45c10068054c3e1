// The ways into the program, one for each subcommand. Each returns an exit code; OdError is for the caller to report.
#pragma once

#include <string>
#include <vector>

#include "session/HostServices.h"

namespace cli
{

// Answers requests from standard input on standard output. An empty file name stands for a new drawing.
int serveSession(const std::string& drawingFile, session::Plugin plugin);

// Runs the commands that are typed at a terminal or stand in standard input, and shows what they say.
int serveConsole(const std::string& drawingFile);

// Lists every command with its group, its flags and a line of help.
int listCommands();

// Describes a drawing: version, counts, layers, labels, and what was mended or is not understood.
int describeDrawing(const std::string& drawingFile, session::Plugin plugin);

// Runs one command; arguments are the command, then NAME=VALUE for each parameter. Saves the drawing when saveFile is
// not empty.
struct RunOrder
{
    std::string drawingFile;
    std::string command;
    std::vector<std::string> parameters;
    std::vector<std::string> input;
    std::string saveFile;
};
int runCommand(const RunOrder& order);

// Reads a drawing and writes it to another file.
struct SaveOrder
{
    std::string drawingFile;
    std::string targetFile;
    std::string version; // empty: the drawing's own
    std::string format;  // empty: ascii
};
int saveDrawing(const SaveOrder& order, session::Plugin plugin);

// Paints a picture of a drawing. Throws WrongUsage for values that cannot be used, before the drawing is read.
struct RenderOrder
{
    std::string drawingFile;
    std::string pictureFile;
    std::string layout; // empty: the current one
    std::string window; // x1,y1,x2,y2; empty: all
    std::string size;   // WxH; empty: what fits
    std::string background = "white";
    bool showsMarks = false;
    bool isActiveView = false;
};
int renderDrawing(const RenderOrder& order);

} // namespace cli
