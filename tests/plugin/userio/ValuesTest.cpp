// Attacks the readers of numbers, angles, colours and files: answers that are none, options, keywords, defaults.

#include "DbHostAppServices.h"
#include "UserIOTest.h"

using namespace plugintest;

namespace
{

constexpr double kPi = 3.14159265358979323846;

TEST_F(UserIOTest, IntegersAreWhateverAnAnswerBeginsWith)
{
    const std::pair<const OdChar*, const char*> rows[] = {
        {L"12", "12"},
        {L"-12", "-12"},
        {L"12abc", "12"},
        {L"abc", "0"},
        {L" 7 ", "7"},
        {L"", "99"},
        {L"   ", "0"},
        {L"0x10", "0"},
        {L"1e5", "1"},
        {L"2147483648", "2147483647"},
        {L"-99999999999999999999999", "-2147483648"},
        {L"1,5", "1"},
        {L"\U0001D7D9", "0"},
        {L"beta", "keyword 1 Beta"},
    };
    for (const auto& [answer, result] : rows)
    {
        ask({typed(answer)});
        EXPECT_EQ(outcomeOf([&] { return std::to_string(io->getInt(L"", 0, 99, L"Alpha Beta")); }), result)
            << odStringToUtf8(answer);
        EXPECT_EQ(answering->prompts, std::vector<std::string>{"Enter an integer value:"});
        EXPECT_TRUE(answering->shown.empty());
    }
}

using Reader = std::function<std::string(CUserIO& io, int options, const OdChar* keywords)>;

const struct
{
    const char* prompt;
    Reader read;
    const OdChar* good;
    const char *value, *refusal, *refusalWithKeywords;
} kReaders[] = {
    {"Enter a real value:",
     [](CUserIO& io, int options, const OdChar* keywords)
     { return std::to_string(io.getReal(L"", options, 7.5, keywords)); },
     L"1'2", "14.000000", "Requires valid real value!", "Requires valid real value or optional keyword!"},
    {"Enter an angle:",
     [](CUserIO& io, int options, const OdChar* keywords)
     { return std::to_string(io.getAngle(L"", options, 7.5, keywords)); },
     L"90d", "1.570796", "Invalid numeric angle value!", "Requires valid numeric angle or optional keyword!"},
    {"Enter a color:",
     [](CUserIO& io, int options, const OdChar* keywords)
     {
         const OdCmColor color(OdCmEntityColor(1, 2, 3));
         return std::to_string(io.getColor(L"", options, &color, keywords).color() & 0xFFFFFF);
     },
     L"0,0,9", "9", "Invalid color value!", "Requires valid color value or optional keyword!"},
};

TEST_F(UserIOTest, ReadersSayWhatIsWrongAndAskAgain)
{
    // The text depends on a blank in the list of keywords.
    const struct
    {
        const OdChar* keywords;
        bool counts;
    } lists[] = {{L"", false}, {L"Up", false}, {L"Up Down", true}};
    for (const auto& reader : kReaders)
        for (const auto& list : lists)
            for (const OdChar* bad : {L"nan", L"1e999", L",", L"abc", L"   ", L"1 2 3", L"\U0001F600",
                                      L"999999999999999999999999999999999999999999x"})
            {
                ask({typed(bad), typed(bad), typed(reader.good)});
                EXPECT_EQ(outcomeOf([&] { return reader.read(*io, 0, list.keywords); }), reader.value);
                const std::string refusal = list.counts ? reader.refusalWithKeywords : reader.refusal;
                EXPECT_EQ(answering->shown, std::vector<std::string>(2, refusal)) << odStringToUtf8(bad);
                EXPECT_EQ(answering->prompts, std::vector<std::string>(3, reader.prompt));
            }
}

TEST_F(UserIOTest, ReadersFollowTheirOptions)
{
    for (const auto& reader : kReaders)
    {
        const std::string whenEmpty = std::string(reader.prompt) == "Enter a color:" ? "66051" : "7.500000";
        const struct
        {
            std::deque<Answer> answers;
            int options;
            std::string result;
        } rows[] = {
            {{typed(L"abc")}, kThrowOther, "other abc"},
            {{typed(L"d")}, kThrowOther, "keyword 1 Down"},
            {{typed(L"")}, 0, whenEmpty},
            {{typed(L"")}, kThrowEmpty, "empty"},
            {{typed(L"abc")}, 0, "cancel"},
            {{}, 0, "cancel"},
        };
        for (const auto& row : rows)
        {
            ask(row.answers);
            EXPECT_EQ(outcomeOf([&] { return reader.read(*io, row.options, L"Up Down"); }), row.result)
                << reader.prompt;
        }
    }
}

TEST_F(UserIOTest, AnglesMayBeMeasuredFromTheBaseOfTheDrawing)
{
    set(L"ANGBASE", OdResBuf::newRb(50, 30.0));
    const int fromBase = OdEd::kGanFromAngBase;
    ask({typed(L"90"), typed(L"90"), typed(L"")});
    EXPECT_NEAR(io->getAngle(L"", 0), kPi / 2, 1e-12);
    EXPECT_NEAR(io->getAngle(L"", fromBase), kPi / 3, 1e-12);
    EXPECT_EQ(io->getAngle(L"", fromBase, 1.25), 1.25) << "the default stays as it is";
}

TEST_F(UserIOTest, ColorsHaveADefaultOnlyWhenThereIsOne)
{
    ask({typed(L""), typed(L"magenta")});
    EXPECT_EQ(io->getCmColor(L"")->colorIndex(), 6);
    EXPECT_EQ(answering->shown, std::vector<std::string>{"Invalid color value!"});
    const OdCmColor none(OdCmEntityColor::kNone);
    EXPECT_EQ(outcomeOf([&] { return std::to_string(io->getColor(L"", 0, &none).colorIndex()); }), "error 5");
}

TEST_F(UserIOTest, WithoutADrawingThereIsNoFormatter)
{
    const CCommandHandlerPtr bare =
        CCommandHandler::createObject(L"X", static_cast<OdRxObject*>(answering.get()), answering);
    const OdSmartPtr<OpenUserIO> bareIO = OdRxObjectImpl<OpenUserIO>::createObject();
    bareIO->Init(bare);
    for (const auto& reader : kReaders)
    {
        ask({typed(reader.good)});
        EXPECT_EQ(outcomeOf([&] { return reader.read(*bareIO, 0, L""); }), "error 122") << reader.prompt;
    }
    ask({typed(L"1,2"), OdGePoint3d(1, 2, 3)});
    EXPECT_EQ(outcomeOf([&] { return textOf(bareIO->getPoint(L"")); }), "error 122");
    EXPECT_EQ(outcomeOf([&] { return textOf(bareIO->getPoint(L"")); }), "1 2 3");
    EXPECT_EQ(textOf(bareIO->getLASTPOINT()), "0 0 0");
}

TEST_F(UserIOTest, TokensEndAtOneDelimiter)
{
    const std::tuple<const OdChar*, const char*, const char*> rows[] = {
        {L"a,b", "a", "b"}, {L"a", "a", ""},      {L"", "", ""},         {L",", "", ""},
        {L",,", "", ","},   {L"a;,b", "a", ",b"}, {L"a,b;c", "a", "b;c"}};
    for (const auto& [whole, token, rest] : rows)
    {
        OdString text = whole;
        EXPECT_EQ(odStringToUtf8(OpenUserIO::GetNextStringToken(text, L",;")), token);
        EXPECT_EQ(odStringToUtf8(text), rest) << odStringToUtf8(whole);
    }
}

// ---- Files ----------------------------------------------------------------------------------------------------------

class DialogServices : public OdDbHostAppServices
{
public:
    bool getFILEDIA() const override { return dialogs; }
    OdString fileDialog(int flags, const OdString& caption, const OdString& extension, const OdString& name,
                        const OdString& filter) override
    {
        asked = std::to_string(flags) + " " + odStringToUtf8(caption + L"," + extension + L"," + name + L"," + filter);
        return answer;
    }

    bool dialogs = true;
    OdString answer{L"/chosen"};
    std::string asked;
};

TEST_F(UserIOTest, FilesComeFromDialogsOrTexts)
{
    const struct
    {
        bool services, dialogs;
        const OdChar* dialogAnswer;
        const OdChar* answer; ///< null when nothing is to be asked
        const char* result;
        bool asksDialog;
    } rows[] = {
        {false, true, L"", L" a b ", " a b ", false},
        {true, true, L"/chosen", nullptr, "/chosen", true},
        {true, true, L"", nullptr, "", true},
        {true, true, L"*unsupported*", L" typed ", " typed ", true},
        {true, false, L"/chosen", L"  typed ", "typed", false},
        {true, false, L"/chosen", L"~", "/chosen", true},
        {true, false, L"/chosen", L" ~", "~", false},
        {true, false, L"*unsupported*", L"~", "cancel", true},
        {true, false, L"/chosen", L"", "name", false},
    };
    for (const auto& row : rows)
    {
        DialogServices services;
        services.dialogs = row.dialogs;
        services.answer = row.dialogAnswer;
        db->setAppServices(row.services ? &services : nullptr);
        ask(row.answer ? std::deque<Answer>{typed(row.answer)} : std::deque<Answer>{});
        EXPECT_EQ(outcomeOf(
                      [&] {
                          return odStringToUtf8(
                              io->getFilePath(L"", 0x7, L"Caption", L"dxf", L"name", L"filter", L"Up Down"));
                      }),
                  row.result);
        EXPECT_EQ(services.asked, row.asksDialog ? "3 Caption,dxf,name,filter" : "");
        EXPECT_EQ(answering->prompts.empty(), row.answer == nullptr);
    }
    db->setAppServices(nullptr);
}

} // namespace
