// Feeds the cutting of command strings into answers, and keyword lists, with anything. Nothing of a string may be lost
// but what separates answers, and answers that are put in quotes come back as they were.
#include <cstdint>
#include <cstdlib>
#include <string_view>
#include <vector>

#include "DynamicLinker.h"
#include "RxInit.h"
#include "framework/StringIO.h"
#include "module/ground/ModuleName.h"
#include "module/registration/ModuleCad.h"
#include "userio/KeywordList.h"

namespace
{

void require(bool holds)
{
    if (!holds)
        std::abort();
}

void start()
{
    static const bool started = []
    {
        odInitialize();
        odrxRegisterStaticModule(kModuleName, &CreateModuleCad);
        odrxDynamicLinker()->loadApp(kModuleName, false);
        return true;
    }();
    require(started);
}

std::vector<OdString> cut(const OdString& text)
{
    const CStringIOPtr io = CStringIO::createObject(text, nullptr);
    std::vector<OdString> answers;
    while (io->HasText())
    {
        require(answers.size() <= static_cast<std::size_t>(text.getLength()));
        answers.push_back(io->getString(OdString(), 0, nullptr));
    }
    return answers;
}

void checkAnswers(const OdString& text)
{
    const std::vector<OdString> answers = cut(text);
    OdString quoted;
    std::vector<OdString> expected;
    int at = 0;
    for (const OdString& answer : answers)
    {
        const int found = text.find(answer, at);
        require(found >= at);
        at = found + answer.getLength();
        if (answer.find(L'"') >= 0)
            continue;
        quoted += L"\"" + answer + L"\"\t";
        expected.push_back(answer);
    }
    require(cut(quoted) == expected);
}

void checkKeywords(const OdString& list, const OdString& answer)
{
    const CKeywordList keywords(list);
    const int found = keywords.Find(answer);
    require(found == -1 || keywords.Has(found));
    for (int i = 0; i < keywords.Count(); ++i)
    {
        const int whole = keywords.Find(keywords[i].strGlobal);
        require(keywords.Has(whole) && whole <= i);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    start();
    const OdString text = odUtf8ToString(std::string_view(reinterpret_cast<const char*>(data), size));
    checkAnswers(text);
    const int end = text.find(L'\n');
    checkKeywords(end < 0 ? text : text.left(end), end < 0 ? text : text.mid(end + 1));
    return 0;
}
