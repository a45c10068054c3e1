// Attacks the filters: what they admit, patterns that are malformed or explode, blocks that get other names.
#include <regex>

#include "DbAttribute.h"
#include "DbMText.h"
#include "DbText.h"
#include "UserIOTest.h"
#include "userio/RegexFilters.h"

using namespace plugintest;

namespace
{

OdStringArray patternsOf(std::initializer_list<const OdChar*> texts)
{
    OdStringArray patterns;
    for (const OdChar* text : texts)
        patterns.append(text);
    return patterns;
}

class FilterTest : public PluginTest
{
protected:
    OdDbObjectId addText(const OdString& text)
    {
        const OdDbTextPtr entity = OdDbText::createObject();
        entity->setTextString(text);
        return append(entity);
    }
    OdDbObjectId addMText(const OdString& contents)
    {
        const OdDbMTextPtr entity = OdDbMText::createObject();
        entity->setContents(contents);
        return append(entity);
    }
    static bool admitsBlock(const OdStringArray& patterns, OdDbObjectId id)
    {
        const CBlockNameRegexFilterPtr filter = CBlockNameRegexFilter::createObject();
        filter->AddPatterns(patterns);
        return filter->append(id, nullptr);
    }
    static bool admitsText(const OdStringArray& patterns, OdDbObjectId id)
    {
        const CTextRegexFilterPtr filter = CTextRegexFilter::createObject();
        filter->SetPatterns(patterns);
        return filter->append(id, nullptr);
    }
    /// What a pattern error says; empty when there is none.
    template<class Work>
    static std::string patternFault(Work work)
    {
        try
        {
            work();
        }
        catch (const std::regex_error& error)
        {
            return error.what();
        }
        return "";
    }
};

TEST_F(FilterTest, PatternsAreSearchedFor)
{
    const struct
    {
        const OdChar* name;
        std::initializer_list<const OdChar*> patterns;
        bool fits;
    } rows[] = {
        {L"E12", {L"^E\\d+$"}, true},
        {L"E12a", {L"^E\\d+$"}, false},
        {L"e12", {L"^E\\d+$"}, false},
        {L"XE1Y", {L"E\\d"}, true},
        {L"E1", {L"A", L"E", L"B"}, true},
        {L"E1", {}, false},
        {L"E1", {L""}, false},
        {L"E1", {L"", L"1"}, true},
        {L"\u0416\u00e9", {L"^\u0416.$"}, true},
        {L"a\U0001F600", {L"^..$"}, true},
        {L"E1", {L"^$", L"(?=E)E(?!2)"}, true},
        {L"aa", {L"^(.)\\1$"}, true},
    };
    for (const auto& row : rows)
    {
        const OdDbObjectId insert = addInsert(addBlock(OdString(row.name) + OdString().format(L"")));
        EXPECT_EQ(admitsBlock(patternsOf(row.patterns), insert), row.fits) << odStringToUtf8(row.name);
        const bool hasEmpty = row.patterns.size() == 1 && **row.patterns.begin() == 0;
        // To a text an empty pattern is one like any other, and it is in every text.
        EXPECT_EQ(admitsText(patternsOf(row.patterns), addText(row.name)), row.fits || hasEmpty);
        EXPECT_EQ(admitsText(patternsOf(row.patterns), addMText(row.name)), row.fits || hasEmpty);
        addBlock(L"used");
        db = OdDbDatabase::createObject();
        db->initialize();
    }
}

TEST_F(FilterTest, EachFilterHasItsEntities)
{
    const OdDbObjectId line = addLine(), text = addText(L"E1"), insert = addInsert(addBlock(L"E1"));
    const OdDbObjectId formatted = addMText(L"{\\fArial|b0;\\C1;E1}\\PE2");
    const OdStringArray any = patternsOf({L"E1"});
    for (const OdDbObjectId& id : {line, text, formatted, OdDbObjectId()})
        EXPECT_FALSE(admitsBlock(any, id));
    EXPECT_TRUE(admitsBlock(any, insert));
    for (const OdDbObjectId& id : {line, insert, OdDbObjectId()})
        EXPECT_FALSE(admitsText(any, id));
    EXPECT_TRUE(admitsText(any, text));
    EXPECT_TRUE(admitsText(patternsOf({L"^E1\\nE2$"}), formatted)) << "without format codes";
    EXPECT_FALSE(admitsText(patternsOf({L"Arial"}), formatted));
    erase(insert);
    EXPECT_FALSE(admitsBlock(any, insert));
}

TEST_F(FilterTest, ABlockThatGetsAnotherNameIsLookedAtAgain)
{
    const OdDbObjectId block = addBlock(L"E1");
    const OdDbObjectId insert = addInsert(block);
    const CBlockNameRegexFilterPtr filter = CBlockNameRegexFilter::createObject();
    filter->AddPatterns(patternsOf({L"^E"}));
    EXPECT_TRUE(filter->append(insert, nullptr));
    OdDbBlockTableRecordPtr(block.safeOpenObject(OdDb::kForWrite))->setName(L"F1");
    EXPECT_FALSE(filter->append(insert, nullptr));
    filter->AddPatterns(patternsOf({L"^F"}));
    EXPECT_TRUE(filter->append(insert, nullptr)) << "patterns are added to those there";
}

TEST_F(FilterTest, MalformedPatternsAreNamedWhereTheyAreCompiled)
{
    const OdDbObjectId text = addText(L"E1");
    const OdDbObjectId insert = addInsert(addBlock(L"E1"));
    const std::wstring deep = std::wstring(900, L'(') + L"x" + std::wstring(900, L')');
    const std::wstring tooLong(100'000, L'(');
    for (const OdString& bad : {OdString(L"(E"), OdString(L"[z-a]"), OdString(L"*"), OdString(L"E{2,1}"),
                                OdString(L"\\"), OdString(L"(a{1000}){1000}"), OdString(tooLong)})
    {
        OdStringArray patterns = patternsOf({L"1"});
        patterns.append(bad);
        const CBlockNameRegexFilterPtr blocks = CBlockNameRegexFilter::createObject();
        const std::string fault = patternFault([&] { blocks->AddPatterns(patterns); });
        EXPECT_NE(fault.find(odStringToUtf8(bad.left(20))), std::string::npos) << fault;
        EXPECT_FALSE(blocks->append(insert, nullptr)) << "nothing was taken over";

        const CTextRegexFilterPtr texts = CTextRegexFilter::createObject();
        EXPECT_EQ(patternFault([&] { texts->SetPatterns(patterns); }), "");
        EXPECT_TRUE(texts->append(text, nullptr)) << "the first one fits, so the bad one is not looked at";
        texts->SetPatterns(patternsOf({bad.c_str()}));
        for (int again = 0; again < 2; ++again)
        {
            const std::string later = patternFault([&] { texts->append(text, nullptr); });
            EXPECT_NE(later.find(odStringToUtf8(bad.left(20))), std::string::npos) << later;
        }
    }
    EXPECT_FALSE(admitsText(patternsOf({deep.c_str()}), text));
}

TEST_F(FilterTest, SearchesThatTakeTooMuchEnd)
{
    const OdString as(std::wstring(40, L'a') + L"!");
    const OdString long1(std::wstring(300'000, L'a'));
    const struct
    {
        const OdChar* pattern;
        OdString text;
        const char* fault;
    } rows[] = {
        {L"(a+)+$", as, "too long"},
        {L"(a|aa)+$", as, "too long"},
        {L"^(a?){40}a{40}$", as, "too long"},
        {L"(|){40}x", as, "too long"},
        {L"(.*)*\\1x", as, "too long"},
        {L"(a|b)*c", long1, "too deep"},
        {L"^.*$", long1, "too deep"},
        {L"aaa$", as, ""},
        {L"^a{3}", long1, ""},
        {L"b", long1, ""},
    };
    for (const auto& row : rows)
    {
        const std::string fault = patternFault([&] { admitsText(patternsOf({row.pattern}), addText(row.text)); });
        EXPECT_EQ(fault.empty(), *row.fault == 0) << odStringToUtf8(row.pattern) << fault;
        EXPECT_NE(fault.find(row.fault), std::string::npos) << fault;
        if (!fault.empty())
        {
            EXPECT_NE(fault.find(odStringToUtf8(row.pattern)), std::string::npos) << fault;
        }
    }
}

TEST_F(FilterTest, ARunThatMeetsABadPatternFailsAndNamesIt)
{
    static OdDbObjectId text;
    text = addText(L"E1");
    odedRegCmds()->addCommand(L"Test", L"T_FILTER", L"", 0,
                              [](OdEdCommandContext*)
                              {
                                  const CTextRegexFilterPtr filter = CTextRegexFilter::createObject();
                                  filter->SetPatterns(patternsOf({L"(E"}));
                                  filter->append(text, nullptr);
                              });
    const CCommandHandlerPtr handler = CCommandHandler::createObject(L"T_FILTER", db, host);
    handler->Execute();
    ECommandState state;
    OdInt32 flags;
    OdRxObjectPtr result;
    handler->GetResult(state, flags, result);
    EXPECT_EQ(state, eCommandFailed);
    const OdResBufPtr error = OdResBuf::cast(result);
    ASSERT_TRUE(error);
    const auto* kept = reinterpret_cast<const OdError*>(static_cast<OdIntPtr>(error->next()->getInt64()));
    EXPECT_GE(kept->description().find(L"(E"), 0);
    odedRegCmds()->removeGroup(L"Test");
}

} // namespace
