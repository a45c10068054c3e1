// Attacks the reading of stamps: each key missing and of every wrong kind, colours, texts of all scripts, JSON that is
// none, deep or large; and what is answered about stamps.
#include <algorithm>
#include <chrono>
#include <random>

#include "AnnotationTest.h"

using namespace annotationtest;

namespace
{

class AnnotationJson : public AnnotationTest
{
protected:
    static std::string refusal(const std::string& json)
    {
        return textOf(support::caught([&] { Annotation::ReadAnnotationsFromJson(wide(json)); }));
    }
    static std::size_t count(const std::string& json) { return Annotation::ReadAnnotationsFromJson(wide(json)).size(); }
};

TEST_F(AnnotationJson, EveryKeyFillsItsField)
{
    const AnnotationProperties properties = record(changesFrom(
        R"(X=1|Y=-2.5|Z=1e2|Height=3|Width=4.5|Padding=18446744073709551615|Angle=-30|Nx=1|Ny=2|Nz=3|Text="a\nb"|)"
        R"(HorizontalAlignment=-2147483648|VerticalAlignment=2147483647|OriginalImagePath="o.png"|)"
        R"(EffectiveImageFileName=null|Handle="2F"|BorderShape=256|FitToText=true|Unknown={"a":[1,2]})"));
    EXPECT_EQ(properties.position, OdGePoint3d(1, -2.5, 100));
    EXPECT_EQ(properties.height, 3);
    EXPECT_EQ(properties.width, 4.5);
    EXPECT_EQ(properties.padding, 18446744073709551615.0);
    EXPECT_EQ(properties.angle, -30);
    EXPECT_EQ(properties.normal, OdGeVector3d(1, 2, 3));
    EXPECT_EQ(properties.text, L"a\nb");
    EXPECT_EQ(properties.horizontalAlignment, INT32_MIN);
    EXPECT_EQ(properties.verticalAlignment, INT32_MAX);
    EXPECT_EQ(properties.originalImagePath, L"o.png");
    EXPECT_EQ(properties.effectiveImageFileName, L"");
    EXPECT_EQ(properties.handle, L"2F");
    EXPECT_EQ(properties.borderShape, 256);
    EXPECT_TRUE(properties.uniform);
    EXPECT_TRUE(properties.fitToText);
    EXPECT_EQ(properties.font, L"Arial");
    EXPECT_EQ(properties.id, L"id");
    EXPECT_EQ(properties.documentVersionId, L"7");
}

TEST_F(AnnotationJson, KeysThatAreMissingOrOfAWrongKindAreNamed)
{
    const std::vector<std::string> kinds = {"1", "1.5", "\"1\"", "true", "null", "[]", "{}", "4294967296"};
    const auto accepts = [](const std::string& key, const std::string& value)
    {
        const std::string usual = [&]
        {
            for (const auto& member : usualMembers())
                if (member.first == key)
                    return member.second;
            return std::string("0");
        }();
        const bool integer = key.find("Alignment") != std::string::npos || key == "BorderShape";
        const bool coordinate = key == "X" || key == "Y" || key == "Z";
        if (usual == "true" || usual == "false")
            return value != "[]" && value != "{}";
        if (usual[0] == '"')
            return value == "null" || value[0] == '"';
        if (integer)
            return value == "1";
        return value == "1" || value == "1.5" || value == "4294967296" || (coordinate && value == "null");
    };
    std::vector<std::string> keys = {"X", "Y", "Z"};
    for (const auto& member : usualMembers())
    {
        keys.push_back(member.first);
        const std::string text = refusal(array({stamp(), stamp({{member.first, ""}})}));
        EXPECT_EQ(text, "Annotation [1] cannot be used: \"" + member.first + "\" is missing.");
    }
    for (const std::string& key : keys)
        for (const std::string& value : kinds)
        {
            const std::string text = refusal(array({stamp(), stamp(), stamp({{key, value}})}));
            EXPECT_EQ(text.empty(), accepts(key, value)) << key << " " << value << ": " << text;
            if (!text.empty())
            {
                EXPECT_NE(text.find("[2]"), std::string::npos) << text;
                EXPECT_NE(text.find('"' + key + '"'), std::string::npos) << text;
            }
        }
}

/// The keys in the order in which they are read; the order in which they are written does not matter.
TEST_F(AnnotationJson, OfSeveralFaultyKeysTheFirstOneReadIsNamed)
{
    std::vector<std::string> order = {"X", "Y", "Z"};
    for (const auto& member : usualMembers())
        order.push_back(member.first);
    const auto faults = [](const std::string& key) {
        return key.size() == 1 ? std::vector<std::string>{"[]"} : std::vector<std::string>{"", "[]"};
    };
    for (std::size_t first = 0; first + 1 < order.size(); ++first)
        for (const std::string& fault : faults(order[first]))
            for (const std::string& later : faults(order[first + 1]))
            {
                const std::string text = refusal(stamp({{order[first + 1], later}, {order[first], fault}}));
                EXPECT_NE(text.find(": \"" + order[first] + "\" is "), std::string::npos) << text;
            }
}

TEST_F(AnnotationJson, MembersMayComeInAnyOrderAndTheFirstOfAKeyCounts)
{
    std::vector<std::string> members;
    for (const auto& [key, value] : usualMembers())
        members.push_back('"' + key + "\":" + value);
    members.emplace_back("\"Angles\":[]");
    std::mt19937 random(5);
    for (int turn = 0; turn < 50; ++turn)
    {
        std::string json;
        for (const std::string& member : members)
            json += member + ",";
        for (const char* key : {"Width", "Height", "FontSize", "Padding"})
            json += '"' + std::string(key) + "\":[],";
        json.back() = '}';
        const AnnotationProperties properties = Annotation::ReadAnnotationsFromJson(wide("{" + json)).at(0);
        EXPECT_EQ(properties.width, 40);
        EXPECT_EQ(properties.height, 10);
        EXPECT_EQ(properties.fontSize, 2.5);
        EXPECT_EQ(properties.padding, 1);
        EXPECT_EQ(properties.text, L"Checked");
        EXPECT_EQ(properties.borderShape, -4);
        EXPECT_TRUE(properties.uniform);
        std::shuffle(members.begin(), members.end(), random);
    }
}

TEST_F(AnnotationJson, CoordinatesMayBeMissing)
{
    EXPECT_EQ(record().position, OdGePoint3d());
    EXPECT_EQ(record({{"Y", "5"}}).position, OdGePoint3d(0, 5, 0));
    EXPECT_EQ(record({{"X", "null"}, {"Z", "-1"}}).position, OdGePoint3d(0, 0, -1));
}

TEST_F(AnnotationJson, OnlyTrueIsTrue)
{
    for (const char* value : {"false", "null", "1", "0", "\"true\""})
    {
        EXPECT_FALSE(record({{"Uniform", value}}).uniform) << value;
        EXPECT_FALSE(record({{"FitToText", value}}).fitToText) << value;
    }
}

TEST_F(AnnotationJson, ColoursAreReadAsFarAsTheyGo)
{
    const struct
    {
        const char* value;
        bool set;
        OdUInt32 transparency;
        OdUInt32 rgb;
    } rows[] = {
        {"\"#80FF0102\"", true, 0x02000080, 0xFF0102},
        {"\"#ffabcdef\"", true, 0x020000FF, 0xABCDEF},
        {"\"x00102030\"", true, 0x02000000, 0x102030}, // the first character is not looked at
        {"\"#\"", true, 0x02000000, 0},
        {"\"#8\"", true, 0x02000008, 0},
        {"\"#80F\"", true, 0x02000080, 0x0F0000},
        {"\"#80FF1\"", true, 0x02000080, 0xFF0100},
        {"\"#1GG1-1+1\"", true, 0x02000001, 0},
        {"\"#0x112233445566\"", true, 0x02000000, 0x112233},
        {"\"#\\u0661\\u06622233\"", true, 0x02000000, 0x223300},
        {"\"#FF1020300405\"", true, 0x020000FF, 0x102030},
        {"\"\"", false, 0x02000000, 0xFFFFFF},
        {"null", false, 0x02000000, 0xFFFFFF},
    };
    for (const auto& row : rows)
    {
        const AnnotationProperties properties = record({{"BorderColor", row.value}, {"BackgroundColor", row.value}});
        EXPECT_EQ(properties.borderColorSet, row.set) << row.value;
        EXPECT_EQ(properties.borderTransparency.serializeOut(), row.transparency) << row.value;
        EXPECT_EQ(properties.borderColor.entityColor().rgb(), row.rgb) << row.value;
        EXPECT_EQ(properties.backgroundColorSet, row.set) << row.value;
        EXPECT_EQ(properties.backgroundColor, properties.borderColor) << row.value;
    }
    const AnnotationProperties unset = record({{"TextColor", "null"}});
    EXPECT_FALSE(unset.textColorSet);
    EXPECT_EQ(unset.textColor, OdCmColor());
    EXPECT_EQ(unset.textTransparency.serializeOut(), 0u);
}

TEST_F(AnnotationJson, ColoursOfOtherKindsAreRefused)
{
    OdCmColor color(OdCmEntityColor(1, 2, 3));
    OdCmTransparency transparency(OdUInt8(9));
    for (const OdChar* value : {L"1", L"true", L"[\"#FF000000\"]", L"{}"})
    {
        const CJsonText json{OdString(value)};
        EXPECT_EQ(thrownBy([&] { Annotation::ParseArgbColor(json.Root(), color, transparency); }),
                  (Fault{eInvalidInput, "OdError", "", ""}));
    }
    EXPECT_FALSE(Annotation::ParseArgbColor(CJsonText(L"null").Root(), color, transparency));
    EXPECT_EQ(color, OdCmColor(OdCmEntityColor(1, 2, 3)));
    EXPECT_EQ(transparency.alpha(), 9);
}

TEST_F(AnnotationJson, TextsThatAreNoJsonAreRefusedForThatWhateverTheirRecordsAre)
{
    const auto codeOf = [](const OdChar* json)
    { return thrownBy([&] { Annotation::ReadAnnotationsFromJson(json); }).code; };
    for (const OdChar* json : {L"[{}, 1", L"[{}] 2", L"[[{\"X\": \"\\udc00\"}]]", L"{\"X\": [1}", L"[1, 2,]", L""})
        EXPECT_EQ(codeOf(json), 926) << odStringToUtf8(json);
    for (const OdChar* json : {L"[{}]", L"[[]]", L"[[[1, {}], 2], 3]", L"{}", L"[\"a\", {}]", L"[null]"})
        EXPECT_EQ(codeOf(json), eInvalidInput) << odStringToUtf8(json);
    for (const OdChar* json : {L"1", L"null", L"true", L"'\"'"})
        EXPECT_NE(codeOf(json), eInvalidInput) << odStringToUtf8(json);
}

TEST_F(AnnotationJson, TextsOfAllScriptsComeWhole)
{
    const struct
    {
        const char* json;
        std::wstring text;
    } rows[] = {
        {"\"\\u0000a\\u0000\"", std::wstring(L"\0a\0", 3)},
        {"\"\\ud83d\\ude00\"", L"\U0001F600"},
        {"\"\xF0\x9F\x98\x80\"", L"\U0001F600"},
        {"\"\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D\"", L"\u05E9\u05DC\u05D5\u05DD"},
        {"\"\\\\P{\\\\H2x;\\\"}\\t\"", L"\\P{\\H2x;\"}\t"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(record({{"Text", row.json}}).text, OdString(row.text)) << row.json;
}

TEST_F(AnnotationJson, RootsAreObjectsOrArrays)
{
    EXPECT_EQ(count("[]"), 0u);
    EXPECT_EQ(count(stamp()), 1u);
    EXPECT_EQ(count(array({stamp(), stamp(), stamp()})), 3u);
    for (const char* wrapping : {"'", "\"", " \t\n\"' \"", "\n\n"})
        EXPECT_EQ(count(wrapping + array({stamp()}) + wrapping), 1u) << wrapping;
    for (const char* other : {"1", "-2.5e3", "true", "null", "\r\"text\"\r"})
        EXPECT_EQ(refusal(other), "Invalid Data") << other;
    for (const char* element : {"[1]", "[null]", "[[]]"})
        EXPECT_EQ(refusal(element), "Annotation [0] cannot be used: it is no object.") << element;
}

TEST_F(AnnotationJson, BrokenTextsAreRefusedWithPlaceAndReason)
{
    const struct
    {
        const char* json;
        const char* place; // counted in the text without what is around it
        const char* reason;
    } rows[] = {
        {"", "0", "The document is empty."},
        {" '' ", "0", "The document is empty."},
        {" {\"a\":1 \"b\":2}", "7", "Missing a comma or '}' after an object member."},
        {"[1 2]", "3", "Missing a comma or ']' after an array element."},
        {"{\"a\"}", "4", "Missing a colon after a name of object member."},
        {"[1] x", "4", "The document root must not be followed by other values."},
        {"[1e999]", "1", "Number too big to be stored in double."},
        {"{\"a\":\"\\ud800\"}", "6", "The surrogate pair in string is invalid."},
        {"{\"a\":\"\\ud83d\\ude00\\\\udc00\\udc00\"}", "25", "The surrogate pair in string is invalid."},
    };
    for (const auto& row : rows)
    {
        const std::string text = refusal(row.json);
        EXPECT_NE(text.find(std::string("character ") + row.place + " "), std::string::npos) << text;
        EXPECT_NE(text.find(row.reason), std::string::npos) << row.json << ": " << text;
    }
    std::string cut = array({stamp(), stamp()});
    for (std::size_t length = 1; length < cut.size(); length += 13)
        EXPECT_NE(refusal(cut.substr(0, length)), "") << length;
}

TEST_F(AnnotationJson, DepthCostsNoStack)
{
    constexpr std::size_t kDepth = 1000000;
    EXPECT_NE(refusal(std::string(kDepth, '[')), "");
    EXPECT_EQ(count(stamp({{"Unknown", std::string(kDepth, '[') + std::string(kDepth, ']')}})), 1u);
    std::string objects;
    for (std::size_t i = 0; i < kDepth / 10; ++i)
        objects += "{\"a\":";
    EXPECT_NE(refusal(objects), "");
}

TEST_F(AnnotationJson, TenMegabytesAreReadInLinearTime)
{
    const auto secondsFor = [](std::size_t stamps)
    {
        const OdString json =
            wide(array(std::vector<std::string>(stamps, stamp({{"Text", quoted(std::string(200, 'x'))}}))));
        const std::clock_t start = std::clock();
        EXPECT_EQ(Annotation::ReadAnnotationsFromJson(json).size(), stamps);
        return double(std::clock() - start) / CLOCKS_PER_SEC;
    };
    secondsFor(100);
    const double small = secondsFor(2000);
    EXPECT_LT(secondsFor(16000), 8 * small * 3 + 0.05); // 10.6 megabytes
}

// ---- Results
// ---------------------------------------------------------------------------------------------------------

std::string resultOf(const AnnotationProperties& properties, const OdDbObjectId& id)
{
    JsonBuffer buffer;
    JsonWriter writer(buffer);
    Annotation::WriteAnnotationResult(properties, id, writer);
    return odStringToUtf8(TextOfBuffer(buffer));
}

TEST_F(AnnotationJson, ResultsSayWhatTheReferenceShows)
{
    const std::string handle = createOne();
    {
        const OdDbBlockReferencePtr opened = reference(handle, OdDb::kForWrite);
        opened->setPosition(OdGePoint3d(1, 2, 3));
        opened->setRotation(OdaPI / 2);
        opened->setScaleFactors(OdGeScale3d(2, -1, 1)); // mirrored
    }
    EXPECT_EQ(resultOf(record(), idOf(handle)),
              "{\"Handle\":\"" + handle +
                  "\",\"Angle\":90.0,\"FontSize\":2.5,\"Position\":{\"X\":1.0,\"Y\":2.0,\"Z\":3.0},"
                  "\"Size\":{\"X\":80.0,\"Y\":-10.0,\"Z\":0.0}}");
    EXPECT_THROW(resultOf(record(), addLine()), OdError_NotThatKindOfClass);
    EXPECT_EQ(thrownBy([&] { resultOf(record(), OdDbObjectId()); }).code, eNullObjectId);
}

} // namespace
