// The label commands through a session, request line in, response line out: questions among many labels, one label over
// many entities with its undo and redo, and many labels made, taken back and deleted one by one.
#include "DbBlockTableRecord.h"
#include "DbLine.h"
#include "RxObjectImpl.h"
#include "session/HostServices.h"
#include "session/OpenDrawing.h"
#include "session/Session.h"

#include <benchmark/benchmark.h>

#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace
{

/// A session on a drawing of lines.
class LineSession
{
public:
    explicit LineSession(std::int64_t count) : m_drawing(start()), m_session(m_drawing)
    {
        const OdDbBlockTableRecordPtr space = m_drawing.database().getModelSpaceId().safeOpenObject(OdDb::kForWrite);
        for (std::int64_t i = 0; i < count; ++i)
        {
            const OdDbLinePtr line = OdDbLine::createObject();
            line->setEndPoint(OdGePoint3d(static_cast<double>(i), 1, 0));
            m_handles.push_back(space->appendOdDbEntity(line).getHandle().text());
        }
        m_drawing.database().clearUndo();
    }

    const std::vector<std::string>& handles() const { return m_handles; }

    /// The answer to a request, which must not be an error.
    std::string_view ask(std::string_view line)
    {
        const std::string_view answer = m_session.answer(line);
        if (answer.find("\"error\":{") != std::string_view::npos)
            throw std::runtime_error(std::string(answer));
        return answer;
    }
    void ask(std::string_view line, std::string_view expected)
    {
        const std::string_view answer = ask(line);
        if (answer.find(expected) == std::string_view::npos)
            throw std::runtime_error(std::string(answer) + " is not " + std::string(expected));
    }

    /// Makes one label for each line; returns their handles.
    std::vector<std::string> labelEach()
    {
        std::vector<std::string> labels;
        for (const std::string& handle : m_handles)
        {
            const std::string_view answer = ask(creationOf({handle}));
            constexpr std::string_view kBefore = "\"objectId\":\"";
            const std::size_t begin = answer.find(kBefore) + kBefore.size();
            labels.emplace_back(answer.substr(begin, answer.find('"', begin) - begin));
        }
        return labels;
    }

    static std::string creationOf(const std::vector<std::string>& handles)
    {
        std::string line = R"({"command":"BSYSTEMLABELCREATE","parameters":{"OBJECTIDARRAY":{"objectIds":[)";
        for (const std::string& handle : handles)
            line += '"' + handle + "\",";
        line.back() = ']';
        return line + "}}}";
    }

private:
    // Starts the SDK and loads the plug-in for as long as the program runs.
    static session::OpenDrawing start()
    {
        static const session::HostServices services(session::Plugin::kLoaded);
        return session::OpenDrawing();
    }

    session::OpenDrawing m_drawing;
    session::Session m_session;
    std::vector<std::string> m_handles;
};

void finish(benchmark::State& state)
{
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

// ---- Questions -----------------------------------------------------------------------------------------------------

std::string guidIn(std::string_view json)
{
    constexpr std::string_view kBefore = R"(Guid\": \")";
    constexpr std::string_view kCompact = R"(Guid\":\")";
    std::size_t begin = json.find(kBefore);
    begin = begin != std::string_view::npos ? begin + kBefore.size() : json.find(kCompact) + kCompact.size();
    return std::string(json.substr(begin, json.find('\\', begin) - begin));
}

// Asks for one label after the other, each found by what question(session, label) makes of it.
template<class Question>
void askFor(benchmark::State& state, Question question)
{
    LineSession session(state.range(0));
    std::vector<std::pair<std::string, std::string>> questions;
    for (const std::string& label : session.labelEach())
        questions.emplace_back(question(session, label), "\"objectId\":\"" + label + '"');
    std::size_t next = 0;
    for (auto _ : state)
    {
        const auto& [line, answer] = questions[next];
        session.ask(line, answer);
        next = (next + 7919) % questions.size();
    }
    state.SetItemsProcessed(state.iterations());
}

void idFromGuid(benchmark::State& state)
{
    askFor(state,
           [](LineSession& session, const std::string& label)
           {
               const std::string json =
                   R"({"command":"BSYSTEMLABELTOJSON","parameters":{"OBJECTIDARRAY":{"objectIds":[")" + label +
                   "\"]}}}";
               return R"({"command":"BSYSTEMLABELGETIDFROMGUID","parameters":{"GUID":")" + guidIn(session.ask(json)) +
                      "\"}}";
           });
}

void idFromHandle(benchmark::State& state)
{
    askFor(state, [](LineSession&, const std::string& label)
           { return R"({"command":"BSYSTEMLABELGETIDFROMHANDLE","parameters":{"HANDLE":")" + label + "\"}}"; });
}

// ---- One label over all --------------------------------------------------------------------------------------------

constexpr std::string_view kUndo = R"({"command":"UNDO"})";
constexpr std::string_view kRedo = R"({"command":"REDO"})";

void makeOne(benchmark::State& state)
{
    LineSession session(state.range(0));
    const std::string creation = LineSession::creationOf(session.handles());
    for (auto _ : state)
    {
        session.ask(creation);
        state.PauseTiming();
        session.ask(kUndo);
        state.ResumeTiming();
    }
    finish(state);
}

void undoOne(benchmark::State& state)
{
    LineSession session(state.range(0));
    const std::string creation = LineSession::creationOf(session.handles());
    for (auto _ : state)
    {
        state.PauseTiming();
        session.ask(creation);
        state.ResumeTiming();
        session.ask(kUndo, "true");
    }
    finish(state);
}

void redoOne(benchmark::State& state)
{
    LineSession session(state.range(0));
    session.ask(LineSession::creationOf(session.handles()));
    for (auto _ : state)
    {
        state.PauseTiming();
        session.ask(kUndo);
        state.ResumeTiming();
        session.ask(kRedo, "true");
    }
    finish(state);
}

// ---- Many labels one by one ----------------------------------------------------------------------------------------

void makeEach(benchmark::State& state)
{
    LineSession session(state.range(0));
    for (auto _ : state)
        session.labelEach();
    finish(state);
}

void undoEach(benchmark::State& state)
{
    LineSession session(state.range(0));
    session.labelEach();
    for (auto _ : state)
        for (std::int64_t i = 0; i < state.range(0); ++i)
            session.ask(kUndo, "true");
    finish(state);
}

void deleteEach(benchmark::State& state)
{
    LineSession session(state.range(0));
    const std::vector<std::string> labels = session.labelEach();
    for (auto _ : state)
        for (const std::string& label : labels)
            session.ask(R"({"command":"BSYSTEMLABELDELETE","parameters":{"OBJECTIDARRAY":{"objectIds":[")" + label +
                        "\"]}}}");
    finish(state);
}

void listAll(benchmark::State& state)
{
    LineSession session(state.range(0));
    session.labelEach();
    for (auto _ : state)
        session.ask(R"({"command":"BSYSTEMLABELGETALLIDS"})");
    finish(state);
}

BENCHMARK(idFromGuid)->Arg(1'000)->Arg(100'000);
BENCHMARK(idFromHandle)->Arg(1'000)->Arg(100'000);
BENCHMARK(makeOne)->Arg(70'000)->Arg(700'000)->Unit(benchmark::kMillisecond);
BENCHMARK(undoOne)->Arg(70'000)->Arg(700'000)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(redoOne)->Arg(70'000)->Arg(700'000)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(makeEach)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(undoEach)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(deleteEach)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(listAll)->Arg(10'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

} // namespace
