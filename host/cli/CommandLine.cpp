// The command line of `zolcad`.
#include "cli/CommandLine.h"

#include <functional>
#include <iostream>
#include <string>

#include <CLI/CLI.hpp>

#include "OdError.h"
#include "cli/Doors.h"
#include "cli/Drawings.h"

namespace cli
{

namespace
{

constexpr const char* kDrawingHelp = "a drawing, DXF of R12 to R2018, text or binary";

session::Plugin pluginFor(bool isLeftOut)
{
    return isLeftOut ? session::Plugin::kLeftOut : session::Plugin::kLoaded;
}

// What the arguments of all subcommands are read into.
struct Arguments
{
    std::string drawing;
    bool withoutPlugin = false;
    RunOrder run;
    SaveOrder save;
    RenderOrder render;
};

using Door = std::function<int()>;

void offerWithoutPlugin(CLI::App& subcommand, Arguments& arguments)
{
    subcommand.add_flag("--without-plugin", arguments.withoutPlugin, "leave labels as proxies");
}

// A name that is empty comes of a script's variable that nobody has set, and asks for no new drawing.
CLI::Option* addDrawing(CLI::App& subcommand, std::string& drawing, const std::string& help)
{
    CLI::Option* const option = subcommand.add_option("DRAWING", drawing, help);
    return option->check([](const std::string& name) { return name.empty() ? "the name is empty" : std::string(); });
}

void addSession(CLI::App& app, Arguments& arguments, Door& door)
{
    CLI::App* const subcommand =
        app.add_subcommand("session", "Answer requests, one JSON object per line, until the input ends");
    addDrawing(*subcommand, arguments.drawing, std::string(kDrawingHelp) + "; none: a new one");
    subcommand->callback([&] { door = [&] { return serveSession(arguments.drawing, session::Plugin::kLoaded); }; });
}

void addConsole(CLI::App& app, Arguments& arguments, Door& door)
{
    CLI::App* const subcommand = app.add_subcommand("console", "Type commands at a terminal");
    addDrawing(*subcommand, arguments.drawing, std::string(kDrawingHelp) + "; none: a new one");
    subcommand->callback([&] { door = [&] { return serveConsole(arguments.drawing); }; });
}

void addCommands(CLI::App& app, Door& door)
{
    CLI::App* const subcommand = app.add_subcommand("commands", "List every command with group, flags and help");
    subcommand->callback([&] { door = listCommands; });
}

void addInfo(CLI::App& app, Arguments& arguments, Door& door)
{
    CLI::App* const subcommand = app.add_subcommand("info", "Say what a drawing holds and what was mended in it");
    addDrawing(*subcommand, arguments.drawing, kDrawingHelp)->required();
    offerWithoutPlugin(*subcommand, arguments);
    subcommand->callback(
        [&] { door = [&] { return describeDrawing(arguments.drawing, pluginFor(arguments.withoutPlugin)); }; });
}

void addRun(CLI::App& app, Arguments& arguments, Door& door)
{
    CLI::App* const subcommand = app.add_subcommand("run", "Run one command on a drawing");
    RunOrder& order = arguments.run;
    addDrawing(*subcommand, order.drawingFile, kDrawingHelp)->required();
    subcommand->add_option("COMMAND", order.command, "a command, as listed by \"zolcad commands\"")->required();
    subcommand->add_option("NAME=VALUE", order.parameters, "parameters; a value is JSON, or else a text");
    subcommand->add_option("--input", order.input, "answers to the command's questions, in order");
    subcommand->add_option("--save", order.saveFile, "write the drawing to this file afterwards");
    subcommand->callback([&] { door = [&] { return runCommand(order); }; });
}

void addSave(CLI::App& app, Arguments& arguments, Door& door)
{
    CLI::App* const subcommand = app.add_subcommand("save", "Read a drawing and write it to another file");
    SaveOrder& order = arguments.save;
    addDrawing(*subcommand, order.drawingFile, kDrawingHelp)->required();
    subcommand->add_option("FILE", order.targetFile, "the file to write")->required();
    subcommand->add_option("--version", order.version, "R2000 to R2018; the drawing's own without");
    subcommand->add_option("--format", order.format, "ascii or binary");
    offerWithoutPlugin(*subcommand, arguments);
    subcommand->callback([&] { door = [&] { return saveDrawing(order, pluginFor(arguments.withoutPlugin)); }; });
}

void addRender(CLI::App& app, Arguments& arguments, Door& door)
{
    CLI::App* const subcommand = app.add_subcommand("render", "Paint a picture of a drawing: SVG, PNG or PDF");
    RenderOrder& order = arguments.render;
    addDrawing(*subcommand, order.drawingFile, kDrawingHelp)->required();
    subcommand->add_option("-o,--output", order.pictureFile, "the file to write: .svg, .png or .pdf")->required();
    subcommand->add_option("--layout", order.layout, "a layout by its name; the current one without");
    subcommand->add_option("--window", order.window, "what to show, as x1,y1,x2,y2 in drawing units; all without");
    subcommand->add_option("--size", order.size, "the picture's size in pixels, as WIDTHxHEIGHT");
    subcommand->add_option("--background", order.background, "a colour: white, black, none, #RRGGBB ...")
        ->capture_default_str();
    subcommand->add_flag("--marks", order.showsMarks, "paint marked entities blue and green, as labels see them");
    subcommand->add_flag("--view", order.isActiveView, "show what the active view of the layout shows");
    subcommand->callback([&] { door = [&] { return renderDrawing(order); }; });
}

ExitCode reportFailure(const std::string& text, ExitCode code)
{
    std::cerr << "zolcad: " << text << '\n';
    return code;
}

} // namespace

int runCommandLine(int argc, char** argv)
{
    Arguments arguments;
    Door door;
    CLI::App app("Labels in CAD drawings: find, create, list and save them", "zolcad");
    app.require_subcommand(1);
    addSession(app, arguments, door);
    addConsole(app, arguments, door);
    addCommands(app, door);
    addInfo(app, arguments, door);
    addRun(app, arguments, door);
    addSave(app, arguments, door);
    addRender(app, arguments, door);
    try
    {
        app.parse(argc, argv);
        return door();
    }
    catch (const CLI::Success& help)
    {
        return app.exit(help);
    }
    catch (const CLI::Error& wrongUsage)
    {
        app.exit(wrongUsage);
        return kWrongUsage;
    }
    catch (const WrongUsage& error)
    {
        return reportFailure(error.what(), kWrongUsage);
    }
    catch (const UnreadableDrawing& error)
    {
        return reportFailure(error.what(), kUnreadableDrawing);
    }
    catch (const OdError& error)
    {
        return reportFailure(odStringToUtf8(error.description()), kFailure);
    }
    catch (const std::exception& error)
    {
        return reportFailure(error.what(), kFailure);
    }
}

} // namespace cli
