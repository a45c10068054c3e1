// Attacks selecting: which of the host's commands are asked for what, what becomes of their answers, and that the
// command which selects finds its own arguments and result again, whatever happens.
#include "UserIOTest.h"
#include "framework/FunctionIO.h"
#include "userio/RegexFilters.h"

using namespace plugintest;

namespace
{

constexpr const OdChar* kSets = L"Quend.Zol.Cad.SelectionSet";
constexpr const OdChar* kSelecting = L"Quend.Zol.Cad.Selection";

/// What the host's commands heard, and what they do.
struct HeardCommands
{
    std::vector<std::string> calls;
    OdDbSelectionSetPtr pickFirst, merged, selected, updated;
    std::string failing;

    static HeardCommands& get()
    {
        static HeardCommands heard;
        return heard;
    }
};

// "NAME=value" for each parameter in order; sets by their number of members.
std::string describe(OdEdCommandContext* context)
{
    std::string text;
    OdString name;
    for (OdResBufPtr element = OdResBuf::cast(context->funcIO()->param()); element;)
    {
        element = CadCommands::ResBufGetName(element, name);
        text += " " + odStringToUtf8(name) + "=";
        switch (element->restype())
        {
        case OdResBuf::kRtString:
            text += odStringToUtf8(element->getString());
            break;
        case OdResBuf::kRtPickSet:
            text += "set" + std::to_string(OdDbSelectionSetPtr(element->getPickSet())->numEntities());
            break;
        case OdResBuf::kRtBool:
            text += element->getBool() ? "true" : "false";
            break;
        case OdResBuf::kRtInt32:
        {
            char number[20];
            std::snprintf(number, sizeof number, "%#x", static_cast<unsigned>(element->getInt32()));
            text += number;
            break;
        }
        case OdResBuf::kRtInt64:
            text += element->getInt64() == 0 ? "none" : "filter";
            break;
        }
        element = element->next();
    }
    return text;
}

void hearCommand(const char* name, OdDbSelectionSetPtr HeardCommands::*answer, OdEdCommandContext* context)
{
    HeardCommands& heard = HeardCommands::get();
    heard.calls.push_back(name + describe(context));
    if (heard.failing == name)
        throw std::runtime_error("the host fails");
    if (const OdDbSelectionSetPtr& set = heard.*answer)
        context->funcIO()->setResult(CadCommands::SetParameterDbSelectionSet(L"SELECTIONSET", set).get());
}

class SelectTest : public UserIOTest
{
protected:
    SelectTest()
    {
        HeardCommands::get() = HeardCommands();
        const OdEdCommandPtr usual = odedRegCmds()->lookupCmd(L"SELECTIONSETGET", 17, kSets);
        if (usual)
            odedRegCmds()->removeCmd(usual.get());
#define HEAR(group, name, answer)                                                                                      \
    odedRegCmds()->addCommand(group, L##name, L"", 0,                                                                  \
                              [](OdEdCommandContext* context) { hearCommand(name, &HeardCommands::answer, context); })
        HEAR(kSets, "SELECTIONSETGET", pickFirst);
        HEAR(kSets, "SELECTIONSETMERGE", merged);
        HEAR(kSets, "SELECTIONSETUPDATE", updated);
        HEAR(kSelecting, "SELECTIONSELECTVISUAL", selected);
        HEAR(kSelecting, "SELECTIONSELECTALLVISIBLEENTITIES", selected);
        HEAR(kSelecting, "SELECTIONSELECTLASTVISIBLEENTITY", selected);
        HEAR(kSelecting, "SELECTIONSELECTPREVIOUS", selected);
        HEAR(kSelecting, "SELECTIONSELECTBYHANDLE", selected);
        HEAR(kSelecting, "SELECTIONSELECTBYJSON", selected);
#undef HEAR
        heard().updated = setOf(7);
        heard().merged = setOf(3);
        heard().selected = setOf(4);
    }
    ~SelectTest() override
    {
        odedRegCmds()->removeGroup(kSets);
        odedRegCmds()->removeGroup(kSelecting);
        odedRegCmds()->addCommand(kSets, L"SELECTIONSETGET", L"", 0, &getSelectionSet);
        HeardCommands::get() = HeardCommands();
    }

    static HeardCommands& heard()
    {
        return HeardCommands::get();
    }
    OdDbSelectionSetPtr setOf(int members)
    {
        OdDbSelectionSetPtr set = OdDbSelectionSet::createObject(db);
        set->append(idArray(addLines(members)));
        return set;
    }
    std::string select(int options, const OdSelectionSet* defaultSet = nullptr, OdSSetTracker* filter = nullptr,
                       OdGePoint3dArray* points = nullptr)
    {
        heard().calls.clear();
        return outcomeOf(
            [&]
            {
                const OdSelectionSetPtr set = io->select(L"", options, defaultSet, L"", filter, points);
                return set ? "set" + std::to_string(set->numEntities()) : "null";
            });
    }
};

TEST_F(SelectTest, WhatWasPickedFirstAnswersWithoutAQuestion)
{
    heard().pickFirst = setOf(2);
    const CTextRegexFilterPtr filter = CTextRegexFilter::createObject();
    EXPECT_EQ(select(0x61, nullptr, filter), "set3");
    EXPECT_EQ(heard().calls, (std::vector<std::string>{
                                 "SELECTIONSETGET SELECTIONSETNAME=PICKFIRST",
                                 "SELECTIONSETMERGE SOURCE=set2 DESTINATION=set0 OPTIONS=0x41 FILTEROBJECT=filter",
                             }));
    EXPECT_TRUE(answering->prompts.empty());
}

TEST_F(SelectTest, OtherwiseItAsks)
{
    // The size of what was picked first is -1 for no set.
    const std::tuple<int, int, bool> rows[] = {{-1, 0, false}, {0, 0, false}, {2, 0x4, false}, {2, 0, true}};
    for (const auto& [pickedFirst, options, hasDefault] : rows)
    {
        heard().pickFirst = pickedFirst < 0 ? OdDbSelectionSetPtr() : setOf(pickedFirst);
        const OdDbSelectionSetPtr defaultSet = hasDefault ? setOf(5) : OdDbSelectionSetPtr();
        ask({typed(L"")});
        EXPECT_EQ(select(options, defaultSet), "set7");
        EXPECT_EQ(answering->prompts, std::vector<std::string>{"Select objects:"});
        EXPECT_EQ(static_cast<unsigned>(answering->options[0]), 0xC0000003u);
        EXPECT_EQ(heard().calls.back(), std::string("SELECTIONSETUPDATE SELECTIONSETNAME=PICKFIRST SELECTIONSET=") +
                                            (hasDefault ? "set3" : "set0") + " HIGHLIGHT=false");
    }
}

TEST_F(SelectTest, ADefaultIsMergedFirst)
{
    const OdDbSelectionSetPtr defaultSet = setOf(5);
    ask({typed(L"")});
    select(0x2A | 0x40, defaultSet);
    EXPECT_EQ(heard().calls, (std::vector<std::string>{
                                 "SELECTIONSETMERGE SOURCE=set5 DESTINATION=set0 OPTIONS=0x64 FILTEROBJECT=none",
                                 "SELECTIONSETUPDATE SELECTIONSETNAME=PICKFIRST SELECTIONSET=set3 HIGHLIGHT=true",
                             }));
}

TEST_F(SelectTest, KeywordsAreRequestsToTheHost)
{
    const CTextRegexFilterPtr filter = CTextRegexFilter::createObject();
    const std::string options = " SELECTOPTIONS=0x44 SELECTIONSETNAME=PICKFIRST";
    const auto visual = [&](const char* mode)
    { return "SELECTIONSELECTVISUAL SELECTFUNCTION=" + std::string(mode) + options + " FILTEROBJECT=filter"; };
    const std::pair<const OdChar*, std::string> rows[] = {
        {L"point", visual("0")},
        {L"b", visual("0x1")},
        {L"w", visual("0x2")},
        {L"Crossing", visual("0x3")},
        {L"f", visual("0x4")},
        {L"wp", visual("0x5")},
        {L"cp", visual("0x6")},
        {L"all", "SELECTIONSELECTALLVISIBLEENTITIES" + options + " FILTEROBJECT=filter"},
        {L"l", "SELECTIONSELECTLASTVISIBLEENTITY" + options + " FILTEROBJECT=filter"},
        {L"p", "SELECTIONSELECTPREVIOUS" + options},
        {L"h", "SELECTIONSELECTBYHANDLE" + options + " FILTEROBJECT=filter"},
        {L"j", "SELECTIONSELECTBYJSON" + options + " FILTEROBJECT=filter"},
    };
    for (const auto& [keyword, call] : rows)
    {
        ask({typed(keyword)});
        EXPECT_EQ(select(0x44, nullptr, filter), "set7");
        ASSERT_EQ(heard().calls.size(), 2u) << odStringToUtf8(keyword);
        EXPECT_EQ(heard().calls[0], call);
        EXPECT_EQ(heard().calls[1], "SELECTIONSETUPDATE SELECTIONSETNAME=PICKFIRST SELECTIONSET=set4 HIGHLIGHT=true");
    }
}

TEST_F(SelectTest, AKeywordBeyondTheWaysToSelectAsksForNothing)
{
    ask({typed(L"Thirteenth")});
    heard().calls.clear();
    io->select(L"Which?", 0x4, nullptr, L"A B C D E F G H I J K L Thirteenth");
    EXPECT_EQ(heard().calls.size(), 1u);
    EXPECT_EQ(answering->prompts, std::vector<std::string>{"Which?"});
}

TEST_F(SelectTest, AnswersThatEndIt)
{
    const std::tuple<std::deque<Answer>, int, const char*> rows[] = {
        {{typed(L"")}, 4, "set7"},
        {{typed(L"")}, 4 | kThrowEmpty, "empty"},
        {{typed(L"what")}, 4, "other what"},
        {{typed(L"1,x")}, 4, "other 1,x"},
        {{}, 4, "cancel"},
    };
    for (const auto& [answers, options, result] : rows)
    {
        ask(answers);
        EXPECT_EQ(select(options), result);
    }
}

TEST_F(SelectTest, PointsPickWhatLiesThere)
{
    for (const auto& row : {OdGePoint3d(1000, 1000, 0), OdGePoint3d(2000, 1000, 0)})
    {
        const OdDbLinePtr line = OdDbLine::createObject();
        line->setStartPoint(row);
        line->setEndPoint(row + OdGeVector3d(100, 0, 0));
        append(line);
    }
    const OdGePoint3d onLine(1050, 1000, 0), nowhere(900, 900, 0), corner(2200, 1100, 0);
    const auto merge = [](const char* options, int members)
    {
        return "SELECTIONSETMERGE SOURCE=set" + std::to_string(members) + " DESTINATION=set0 OPTIONS=" + options +
               " FILTEROBJECT=none";
    };
    const struct
    {
        std::deque<Answer> answers;
        int options;
        std::string call; ///< before the last one
        std::size_t points;
    } rows[] = {
        {{onLine}, 0x4, merge("0x4", 1), 1},
        {{nowhere, corner}, 0x404, merge("0x404", 2), 2},
        {{nowhere}, 0x6, "", 1},
        {{nowhere, OdGePoint3d(901, 901, 0)}, 0x4, "", 2},
        {{nowhere, typed(L"")}, 0x4, "", 1},
        {{nowhere, typed(L"all")},
         0x4,
         "SELECTIONSELECTALLVISIBLEENTITIES SELECTOPTIONS=0x4 SELECTIONSETNAME=PICKFIRST FILTEROBJECT=none",
         1},
        {{}, 0x7, merge("0x6", 1), 1}, // the last point, once
    };
    for (const auto& row : rows)
    {
        io->setLASTPOINT(onLine);
        ask(row.answers);
        OdGePoint3dArray points;
        answering->keyQuestions = 0;
        EXPECT_EQ(select(row.options, nullptr, nullptr, &points), "set7");
        EXPECT_EQ(points.size(), row.points);
        EXPECT_EQ(answering->keyQuestions, (row.options & OdEd::kSelAllowSubents) != 0 ? 1 : 0) << "at the first point";
        EXPECT_EQ(answering->prompts, std::vector<std::string>(row.answers.size(), "Select objects:"));
        ASSERT_EQ(heard().calls.size(), row.call.empty() ? 1u : 2u);
        if (!row.call.empty())
        {
            EXPECT_EQ(heard().calls[0], row.call);
        }
        if (row.answers.size() == 2)
        {
            EXPECT_EQ(answering->options[1], 0xB);
            EXPECT_TRUE(answering->lastTracker) << "a frame from the first point";
        }
    }
}

TEST_F(SelectTest, TheSetPickedFirstIsReadAndReplaced)
{
    EXPECT_FALSE(io->pickfirst());
    heard().pickFirst = setOf(2);
    EXPECT_EQ(io->pickfirst()->numEntities(), 2u);
    heard().calls.clear();
    io->setPickfirst(setOf(6));
    EXPECT_EQ(heard().calls, (std::vector<std::string>{
                                 "SELECTIONSETUPDATE SELECTIONSETNAME=PICKFIRST SELECTIONSET=set6 HIGHLIGHT=true"}));
    EXPECT_EQ(thrownBy([&] { io->setPickfirst(nullptr); }),
              argumentFault(20, "pSelectionSet", "CadCommands::SetParameterDbSelectionSet"));
}

TEST_F(SelectTest, TheCommandFindsItsArgumentsAndResultAgain)
{
    const OdResBufPtr argument = OdResBuf::newRb(1);
    const OdResBufPtr result = OdResBuf::newRb(2);
    handler->funcIO()->setParam(argument);
    handler->funcIO()->setResult(result);
    for (const char* failing :
         {"", "SELECTIONSETGET", "SELECTIONSETMERGE", "SELECTIONSELECTALLVISIBLEENTITIES", "SELECTIONSETUPDATE"})
        for (const OdChar* answer : {L"all", L"", L"what"})
        {
            heard().failing = failing;
            heard().pickFirst = *failing == 'S' ? setOf(1) : OdDbSelectionSetPtr();
            const auto attempt = [&](auto work)
            {
                ask({typed(answer)});
                try
                {
                    work();
                }
                catch (const std::runtime_error&)
                {
                }
                catch (const OdError&)
                {
                }
                EXPECT_EQ(handler->funcIO()->param(), argument) << failing;
                EXPECT_EQ(handler->funcIO()->result(), result) << failing;
            };
            attempt([&] { io->select(); });
            attempt([&] { io->select(L"", 4, heard().merged); });
            attempt([&] { io->pickfirst(); });
            attempt([&] { io->setPickfirst(heard().merged); });
        }
}

TEST_F(SelectTest, AHostThatAnswersNothingOrIsNotThere)
{
    heard().selected.release();
    ask({typed(L"all")});
    EXPECT_EQ(select(4), "error 20") << "there is no set to go on with";
    heard().selected = setOf(1);
    heard().updated.release();
    ask({typed(L"all")});
    EXPECT_EQ(select(4), "null");
    odedRegCmds()->removeGroup(kSelecting);
    ask({typed(L"all")});
    EXPECT_EQ(thrownBy([&] { io->select(L"", 4); }),
              argumentFault(904, "SELECTIONSELECTALLVISIBLEENTITIES", "CadCommands::Execute"));
}

TEST_F(SelectTest, WithoutAHandlerThereIsNobodyToAsk)
{
    const OdSmartPtr<OpenUserIO> loose = OdRxObjectImpl<OpenUserIO>::createObject();
    EXPECT_EQ(thrownBy([&] { loose->select(); }), argumentFault(417, "pEdCommandContext", "CUserIO::select"));
    EXPECT_EQ(thrownBy([&] { loose->pickfirst(); }), argumentFault(417, "pEdCommandContext", "CUserIO::pickfirst"));
    EXPECT_EQ(thrownBy([&] { loose->setPickfirst(setOf(1)); }),
              argumentFault(417, "pEdCommandContext", "CUserIO::setPickfirst"));
    EXPECT_EQ(thrownBy([&] { loose->getString(L"", 0, nullptr); }),
              argumentFault(417, "pEdCommandContext", "CUserIO::CurrentIO"));
    const CCommandHandlerPtr bare =
        CCommandHandler::createObject(L"X", static_cast<OdRxObject*>(answering.get()), answering);
    EXPECT_EQ(thrownBy([&] { bare->dbUserIO()->select(); }), valueFault(122, "pDb", "CUserIO::select"));
}

} // namespace
