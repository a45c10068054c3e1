// zolcad run: one command from the shell, built into a request of the session.
#include <iostream>
#include <optional>

#include <rapidjson/document.h>
#include <rapidjson/prettywriter.h>

#include "cli/CommandLine.h"
#include "cli/Doors.h"
#include "cli/Drawings.h"
#include "cli/ParameterWords.h"
#include "commands/DrawingFiles.h"
#include "session/Session.h"

namespace cli
{

namespace
{

using Allocator = rapidjson::Document::AllocatorType;

rapidjson::Value textValue(const std::string& text, Allocator& allocator)
{
    return rapidjson::Value(text.data(), static_cast<rapidjson::SizeType>(text.size()), allocator);
}

std::string requestLine(const RunOrder& order)
{
    rapidjson::Document request(rapidjson::kObjectType);
    Allocator& allocator = request.GetAllocator();
    request.AddMember("command", textValue(order.command, allocator), allocator);
    if (!order.parameters.empty())
        request.AddMember("parameters", parametersOf(order.parameters, allocator), allocator);
    rapidjson::Value input(rapidjson::kArrayType);
    for (const std::string& answer : order.input)
        input.PushBack(textValue(answer, allocator), allocator);
    request.AddMember("input", input, allocator);
    rapidjson::StringBuffer text;
    rapidjson::Writer<rapidjson::StringBuffer> writer(text);
    request.Accept(writer);
    return {text.GetString(), text.GetSize()};
}

void printResponse(std::string_view line)
{
    rapidjson::Document response;
    response.Parse(line.data(), line.size());
    rapidjson::StringBuffer text;
    rapidjson::PrettyWriter<rapidjson::StringBuffer> writer(text);
    response.Accept(writer);
    std::cout << text.GetString() << std::endl;
}

} // namespace

int runCommand(const RunOrder& order)
{
    std::string line;
    try
    {
        line = requestLine(order);
    }
    catch (const session::RequestError& error)
    {
        std::cerr << "zolcad: " << error.what() << '\n';
        return kWrongUsage;
    }
    const session::HostServices services(session::Plugin::kLoaded);
    std::optional<session::OpenDrawing> drawing;
    openDrawing(drawing, order.drawingFile);
    reportMended(*drawing, order.drawingFile);
    session::Session session(*drawing);
    printResponse(session.answer(line));
    if (session.hadError())
        return kFailure;
    if (!order.saveFile.empty())
        hostcommands::writeDrawing(drawing->database(), {odUtf8ToString(order.saveFile), {}, {}});
    return kSuccess;
}

} // namespace cli
