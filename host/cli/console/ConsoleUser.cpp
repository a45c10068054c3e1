// The user at a console.
#include "cli/console/ConsoleUser.h"

#include <cstdio>

#include "Ed/EdException.h"
#include "Ed/EdInputTracker.h"
#include "RxSystemServices.h"
#include "cli/console/Completion.h"

namespace cli
{

namespace
{

constexpr unsigned kSelectionKeywords = 1020; // of the system services

void print(const OdString& text)
{
    std::printf("%s\n", odStringToUtf8(text).c_str());
    std::fflush(stdout);
}

// The question for objects offers the ways to select though it does not name them.
constexpr const OdChar* kSelecting = L"Select objects:";

std::vector<std::string> selectionKeywords()
{
    std::vector<std::string> keywords;
    const std::string list = odStringToUtf8(odSystemServices()->formatMessage(kSelectionKeywords));
    for (std::size_t at = 0; at < list.size();)
    {
        const std::size_t blank = std::min(list.find(' ', at), list.size());
        if (list.compare(at, blank - at, "_") == 0)
            break; // the same again as users of another language see them
        if (blank > at)
            keywords.push_back(list.substr(at, blank - at));
        at = blank + 1;
    }
    return keywords;
}

} // namespace

OdString ConsoleUser::ask(const OdString& prompt, const std::vector<std::string>& keywords)
{
    const std::string shown = odStringToUtf8(prompt);
    std::string answer;
    const Input input = m_lines->read({shown.empty() || shown.ends_with(' ') ? shown : shown + ' ', keywords}, answer);
    if (input != Input::kLine)
        throw OdEdCancel();
    return odUtf8ToString(answer);
}

OdString ConsoleUser::getString(const OdString& prompt, int, OdEdStringTracker* tracker)
{
    OdString answer = ask(prompt, keywordsOf(odStringToUtf8(prompt)));
    if (tracker != nullptr)
        tracker->setValue(answer);
    return answer;
}

OdGePoint3d ConsoleUser::getPoint(const OdString& prompt, int, OdEdPointTracker*)
{
    throw OdEdOtherInput(ask(prompt, prompt == kSelecting ? selectionKeywords() : keywordsOf(odStringToUtf8(prompt))));
}

void ConsoleUser::putString(const OdString& text)
{
    print(text);
}

void ConsoleUser::putError(const OdString& text)
{
    print(text);
}

} // namespace cli
