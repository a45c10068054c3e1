// zolcad console: commands typed at a terminal, or read line by line from a file.
#include <algorithm>
#include <csignal>
#include <cstdio>
#include <iostream>
#include <optional>

#include "DbDatabaseReactor.h"
#include "RxObjectImpl.h"
#include "StaticRxObject.h"
#include "cli/CommandLine.h"
#include "cli/CommandList.h"
#include "cli/Doors.h"
#include "cli/Drawings.h"
#include "cli/console/CommandLineWords.h"
#include "cli/console/ConsoleUser.h"
#include "cli/console/InterruptReactor.h"
#include "cli/console/ResultText.h"
#include "commands/HostCommand.h"
#include "session/ValueKinds.h"

namespace cli
{

namespace
{

constexpr const char* kHelp = "HELP";
constexpr const char* kQuit = "QUIT";

// Notes whether a drawing was changed.
class ChangeWatcher : public OdStaticRxObject<OdDbDatabaseReactor>
{
public:
    explicit ChangeWatcher(const OdDbDatabase& database) : m_database(database) { database.addReactor(this); }
    ~ChangeWatcher() override { m_database.removeReactor(this); }

    void objectAppended(const OdDbDatabase*, const OdDbObject*) override { isChanged = true; }
    void objectModified(const OdDbDatabase*, const OdDbObject*) override { isChanged = true; }
    void objectErased(const OdDbDatabase*, const OdDbObject*, bool) override { isChanged = true; }

    bool isChanged = false;

private:
    const OdDbDatabase& m_database;
};

std::vector<std::string> namesOfCommands()
{
    std::vector<std::string> names = {kHelp, kQuit};
    for (const OdEdCommandPtr& command : allCommands())
        names.push_back(odStringToUtf8(command->globalName()));
    std::sort(names.begin(), names.end());
    return names;
}

bool isWord(const std::string& line, const char* word)
{
    const std::vector<std::string> words = splitIntoWords(line);
    return words.size() == 1 && odUtf8ToString(words[0]).iCompare(odUtf8ToString(word)) == 0;
}

class Console
{
public:
    Console(session::OpenDrawing& drawing, LineSource& lines)
        : m_drawing(drawing), m_lines(lines), m_watcher(drawing.database()), m_names(namesOfCommands()),
          m_user(OdRxObjectImpl<ConsoleUser>::createObject()), m_interrupts(lines)
    {
        m_user->use(lines);
    }

    void run()
    {
        for (std::string line; readCommand(line);)
        {
            if (isWord(line, kHelp))
                help();
            else if (!splitIntoWords(line).empty())
                runLine(line);
        }
    }

    bool hadError() const { return m_hadError; }

private:
    // Returns false when the user leaves.
    bool readCommand(std::string& line)
    {
        m_lines.forgetInterrupt();
        const Input input = m_lines.read({"Command: ", m_names, true}, line);
        if (input == Input::kCancelled)
            line.clear();
        const bool wantsToLeave = input == Input::kEnd || isWord(line, kQuit);
        if (wantsToLeave && !mayLeave(input == Input::kEnd))
            line.clear();
        else
            return !wantsToLeave;
        return true;
    }

    // A person who has changed the drawing is asked once more; at the end of the input nobody can be.
    bool mayLeave(bool isEnd)
    {
        if (!m_watcher.isChanged)
            return true;
        std::string answer;
        if (m_lines.isPerson())
        {
            const Input input = m_lines.read(
                {"The drawing has changes that are not saved. Leave? [Yes/No/]<No>: ", {"Yes", "No"}}, answer);
            const bool isYes = input == Input::kLine && !answer.empty() && (answer[0] == 'y' || answer[0] == 'Y');
            return isYes || (isEnd && input == Input::kEnd);
        }
        std::cerr << "zolcad: the changes are not saved\n";
        return true;
    }

    void help() const
    {
        for (const OdEdCommandPtr& command : allCommands())
        {
            const char* const text = hostcommands::helpOf(command->globalName());
            std::printf("  %s: %s\n", odStringToUtf8(command->globalName()).c_str(), text == nullptr ? "" : text);
        }
        std::printf("Type a command, or COMMAND NAME=VALUE for one with parameters; %s leaves.\n", kQuit);
    }

    void runLine(const std::string& line)
    {
        session::Response response;
        m_user->forgetMessage();
        try
        {
            const session::Request& request = m_reader.read(requestOf(line));
            OdDbDatabase& database = m_drawing.database();
            const OdResBufPtr parameters =
                request.parameters == nullptr ? OdResBufPtr() : session::readChain(*request.parameters, database);
            session::runCommand(database, request.command, parameters, *m_user, response);
            noteSaving(request.command, response);
        }
        catch (const session::RequestError& error)
        {
            response.failure.emplace();
            response.failure->text = odUtf8ToString(error.what());
        }
        catch (const OdError& error)
        {
            response.failure = session::failureOf(error);
        }
        show(response);
    }

    // A drawing that lies in its own file as it is has no changes to lose.
    void noteSaving(const OdString& command, const session::Response& response)
    {
        if (!response.failure && command.left(4).iCompare(L"SAVE") == 0)
            m_watcher.isChanged = false;
    }

    void show(const session::Response& response)
    {
        if (response.failure)
            std::printf("%s\n", odStringToUtf8(response.failure->text).c_str());
        else if (!response.result.isNull())
            std::printf("%s", describeResult(response.result).c_str());
        if (response.message && !response.failure)
            std::printf("%s\n", odStringToUtf8(*response.message).c_str());
        std::fflush(stdout);
        m_hadError = m_hadError || response.failure.has_value();
    }

    session::OpenDrawing& m_drawing;
    LineSource& m_lines;
    ChangeWatcher m_watcher;
    std::vector<std::string> m_names;
    OdSmartPtr<ConsoleUser> m_user;
    InterruptReactor m_interrupts;
    session::RequestReader m_reader;
    bool m_hadError = false;
};

} // namespace

int serveConsole(const std::string& drawingFile)
{
    std::signal(SIGPIPE, SIG_IGN);
    const session::HostServices services(session::Plugin::kLoaded);
    std::optional<session::OpenDrawing> drawing;
    openDrawing(drawing, drawingFile);
    reportMended(*drawing, drawingFile);
    const std::unique_ptr<LineSource> lines = openLineSource();
    if (lines->isPerson())
        std::printf("%s is open. Tab completes, Escape cancels, HELP lists the commands, QUIT leaves.\n",
                    drawingFile.empty() ? "A new drawing" : drawingFile.c_str());
    Console console(*drawing, *lines);
    console.run();
    return console.hadError() && !lines->isPerson() ? kFailure : kSuccess;
}

} // namespace cli
