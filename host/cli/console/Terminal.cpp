// A person at a terminal.
#include "cli/console/Terminal.h"

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <cwchar>
#include <stdexcept>

#include <poll.h>
#include <unistd.h>

#include "cli/console/Completion.h"

namespace cli
{

namespace
{

constexpr int kKeptLines = 1000;
constexpr wchar_t kEscape = 27;
// What the editor is given for Escape and Ctrl-C; no key of a keyboard gives it.
constexpr wchar_t kGiveUp = 0x1F;
// An Escape that other characters follow within this time is the beginning of an arrow key and the like.
constexpr int kEscapeMilliseconds = 40;

volatile std::sig_atomic_t hasInterrupt = 0;

void noteInterrupt(int)
{
    hasInterrupt = 1;
}

// The wait for a key stops for Ctrl-C, which does not end the program; what commands read and write goes on.
void listenForInterrupts()
{
    struct sigaction action = {};
    action.sa_handler = noteInterrupt;
    action.sa_flags = SA_RESTART; // the wait, ppoll, never is
    sigemptyset(&action.sa_mask);
    ::sigaction(SIGINT, &action, nullptr);
}

// Texts are UTF-8 in the whole program; the editor goes by the locale, and numbers must not.
void useUtf8()
{
    std::setlocale(LC_CTYPE, "");
    if (MB_CUR_MAX == 1)
        std::setlocale(LC_CTYPE, "C.UTF-8");
}

enum class Byte
{
    kRead,
    kInterrupted,
    kEnd
};

// Waits for a key or for Ctrl-C, which comes either before the look at it or while it is waited for: never between.
bool waitForKey()
{
    sigset_t interrupt;
    sigemptyset(&interrupt);
    sigaddset(&interrupt, SIGINT);
    sigset_t before;
    ::pthread_sigmask(SIG_BLOCK, &interrupt, &before);
    pollfd waits = {STDIN_FILENO, POLLIN, 0};
    while (!hasInterrupt && ::ppoll(&waits, 1, nullptr, &before) < 0 && errno == EINTR)
    {
    }
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
    return !hasInterrupt;
}

Byte readByte(char& byte)
{
    for (;;)
    {
        if (!waitForKey())
            return Byte::kInterrupted;
        const ssize_t count = ::read(STDIN_FILENO, &byte, 1);
        if (count == 1)
            return Byte::kRead;
        if (count == 0 || errno != EINTR)
            return Byte::kEnd;
    }
}

bool isMoreComing()
{
    pollfd waits = {STDIN_FILENO, POLLIN, 0};
    return ::poll(&waits, 1, kEscapeMilliseconds) > 0;
}

} // namespace

Terminal::Terminal()
{
    useUtf8();
    listenForInterrupts();
    m_editor = el_init("zolcad", stdin, stdout, stderr);
    m_history = history_init();
    if (m_editor == nullptr || m_history == nullptr)
        throw std::runtime_error("the terminal cannot be used");
    history(m_history, &m_event, H_SETSIZE, kKeptLines);
    history(m_history, &m_event, H_SETUNIQUE, 1);
    el_set(m_editor, EL_CLIENTDATA, this);
    el_set(m_editor, EL_PROMPT, promptOf);
    el_set(m_editor, EL_EDITOR, "emacs");
    el_set(m_editor, EL_HIST, history, m_history);
    el_set(m_editor, EL_GETCFN, readCharacter);
    el_set(m_editor, EL_ADDFN, "zolcad-give-up", "Give up the line", giveUp);
    el_set(m_editor, EL_BIND, "^_", "zolcad-give-up", nullptr);
    el_set(m_editor, EL_ADDFN, "zolcad-complete", "Complete the word", completeWord);
    el_set(m_editor, EL_BIND, "^I", "zolcad-complete", nullptr);
    el_set(m_editor, EL_BIND, "^R", "em-inc-search-prev", nullptr);
}

Terminal::~Terminal()
{
    if (m_editor != nullptr)
        el_end(m_editor);
    if (m_history != nullptr)
        history_end(m_history);
}

Terminal& Terminal::of(EditLine* editor)
{
    void* data = nullptr;
    el_get(editor, EL_CLIENTDATA, &data);
    return *static_cast<Terminal*>(data);
}

char* Terminal::promptOf(EditLine* editor)
{
    return of(editor).m_question.prompt.data();
}

bool Terminal::isInterrupted() const
{
    return hasInterrupt != 0;
}

void Terminal::forgetInterrupt()
{
    hasInterrupt = 0;
}

Input Terminal::read(const Question& question, std::string& text)
{
    m_question = question;
    m_hasGivenUp = false;
    int count = 0;
    // Before the prompt appears: what is typed on seeing it, Ctrl-D above all, is for the editor.
    el_set(m_editor, EL_PREP_TERM, 1);
    const char* const line = el_gets(m_editor, &count);
    if (m_hasGivenUp)
    {
        hasInterrupt = 0;
        std::fputc('\n', stdout);
        return Input::kCancelled;
    }
    if (line == nullptr || count <= 0)
    {
        std::fputc('\n', stdout);
        return Input::kEnd;
    }
    text.assign(line, static_cast<std::size_t>(count));
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r'))
        text.pop_back();
    if (question.isCommand && !text.empty())
        keep(text.c_str());
    return Input::kLine;
}

void Terminal::keep(const char* line)
{
    history(m_history, &m_event, H_ENTER, line);
}

// Gives the editor one character of UTF-8.
int Terminal::readCharacter(EditLine*, wchar_t* character)
{
    std::mbstate_t state = {};
    for (;;)
    {
        char byte = 0;
        const Byte outcome = readByte(byte);
        if (outcome == Byte::kEnd)
            return 0;
        if (outcome == Byte::kInterrupted || (byte == kEscape && std::mbsinit(&state) && !isMoreComing()))
        {
            *character = kGiveUp;
            return 1;
        }
        const std::size_t used = std::mbrtowc(character, &byte, 1, &state);
        if (used == 1 || (used == 0 && byte == '\0'))
            return 1;
        if (used == static_cast<std::size_t>(-1))
            state = {}; // no character: left out
    }
}

unsigned char Terminal::giveUp(EditLine* editor, int)
{
    of(editor).m_hasGivenUp = true;
    return CC_NEWLINE;
}

unsigned char Terminal::completeWord(EditLine* editor, int)
{
    Terminal& terminal = of(editor);
    const LineInfo* const line = el_line(editor);
    const char* begin = line->cursor;
    while (begin > line->buffer && begin[-1] != ' ')
        --begin;
    if (terminal.m_question.isCommand && begin != line->buffer)
        return CC_REFRESH_BEEP; // only the command's name is known
    const std::string word(begin, line->cursor);
    const Completion completion = complete(word, terminal.m_question.completions);
    if (completion.fitting.empty())
        return CC_REFRESH_BEEP;
    const bool isOnlyOne = completion.fitting.size() == 1;
    if (!isOnlyOne && completion.common.size() == word.size())
    {
        terminal.list(completion.fitting);
        return CC_REDISPLAY;
    }
    el_deletestr(editor, static_cast<int>(word.size()));
    el_insertstr(editor, (completion.common + (isOnlyOne && terminal.m_question.isCommand ? " " : "")).c_str());
    return CC_REFRESH;
}

void Terminal::list(const std::vector<std::string>& words) const
{
    std::fputc('\n', stdout);
    for (const std::string& word : words)
        std::fprintf(stdout, "  %s\n", word.c_str());
    std::fflush(stdout);
}

} // namespace cli
