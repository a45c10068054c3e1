// Attacks drawing borders as objects: identity and dictionary, corners, lists and their validity, undo.
#include "support/PluginTest.h"

#include "DbUserIO.h"
#include "DbXrecord.h"
#include "DrawingBorderData.h"

using namespace plugintest;

namespace
{

constexpr const OdChar* kNullGuid = L"00000000-0000-0000-0000-000000000000";

class DrawingBorderTest : public PluginTest
{
protected:
    OdDbDictionaryPtr dictionary() { return CDrawingBorderData::GetDictionary(db); }
    OdDbObjectId addBorder(const OdString& guid = OdString())
    {
        const CDrawingBorderDataPtr border = CDrawingBorderData::createObject();
        return border->Initialize(db, guid);
    }
    static CDrawingBorderDataPtr open(OdDbObjectId id, OdDb::OpenMode mode = OdDb::kForRead)
    {
        return CDrawingBorderDataPtr(id.safeOpenObject(mode, true));
    }
    std::string keyOf(OdDbObjectId id) { return odStringToUtf8(dictionary()->nameAt(id)); }
    static OdStringArray strings(const std::vector<const OdChar*>& values)
    {
        OdStringArray array;
        for (const OdChar* value : values)
            array.append(value);
        return array;
    }
};

// ---- Identity -------------------------------------------------------------------------------------------------------

TEST_F(DrawingBorderTest, TheDictionaryIsMadeOnce)
{
    EXPECT_EQ(thrownBy([] { CDrawingBorderData::GetDictionary(nullptr); }),
              argumentFault(122, "pDb", "CDrawingBorderData::GetDictionary"));
    const OdDbDatabasePtr bare = OdDbDatabase::createObject();
    EXPECT_EQ(thrownBy([&] { CDrawingBorderData::GetDictionary(bare); }),
              argumentFault(20, "pNamedObjectsDictionary", "CDrawingBorderData::GetDictionary"));
    EXPECT_FALSE(dictionary()->isWriteEnabled()) << "just made";
    const OdDbObjectId id = dictionary()->objectId();
    EXPECT_EQ(dictionary()->objectId(), id);
    const OdDbDictionaryPtr named = db->getNamedObjectsDictionaryId().safeOpenObject(OdDb::kForWrite);
    EXPECT_EQ(named->getAt(L"zol_drawingborderdata"), id);
    named->setAt(L"ZOL_DRAWINGBORDERDATA", OdDbXrecord::createObject());
    EXPECT_EQ(thrownBy([&] { dictionary(); }).type, "OdError_NotThatKindOfClass");
}

TEST_F(DrawingBorderTest, InitializeKeepsTheGuidAsGiven)
{
    EXPECT_EQ(keyOf(addBorder(L" {odd} ")), " {odd} ");
    for (const OdChar* none : {L"", kNullGuid})
    {
        const std::string made = keyOf(addBorder(none));
        ASSERT_EQ(made.size(), 36u);
        EXPECT_EQ(made.find_first_of("{}"), std::string::npos);
        EXPECT_NE(made, odStringToUtf8(kNullGuid));
    }
    EXPECT_EQ(dictionary()->numEntries(), 3u);
    const CDrawingBorderDataPtr loose = CDrawingBorderData::createObject();
    EXPECT_TRUE(loose->Initialize(nullptr, L"x").isNull());
    EXPECT_FALSE(loose->isDBRO());
    const OdDbObjectId id = addBorder(L"x");
    EXPECT_EQ(thrownBy([&] { open(id)->Initialize(db, L"y"); }).code, eNotOpenForWrite);
}

TEST_F(DrawingBorderTest, SetGuidMovesTheEntry)
{
    const OdDbObjectId id = addBorder(L"aaaa");
    const std::pair<const OdChar*, const char*> rows[] = {
        {L" \t\n\"'bbbb'\" ", "bbbb"}, {L"BBBB", "bbbb"},     {L"", "bbbb"},    {L" '\" ", "bbbb"},
        {kNullGuid, "bbbb"},           {L"{cccc}", "{cccc}"}, {L" 'ÄÖ'", "ÄÖ"}, {L"äö", "ÄÖ"},
    };
    for (const auto& [guid, key] : rows)
    {
        open(id, OdDb::kForWrite)->setGuid(guid);
        EXPECT_EQ(keyOf(id), key) << odStringToUtf8(guid);
        EXPECT_EQ(dictionary()->numEntries(), 1u);
    }
    EXPECT_EQ(thrownBy([&] { open(id)->setGuid(L"dddd"); }).code, eNotOpenForWrite);
    const CDrawingBorderDataPtr loose = CDrawingBorderData::createObject();
    EXPECT_EQ(thrownBy([&] { loose->setGuid(L"x"); }), argumentFault(122, "pDb", "CDrawingBorderData::GetDictionary"));
}

TEST_F(DrawingBorderTest, AnEntryOfAnotherBorderUnderTheOldGuidStays)
{
    const OdDbObjectId first = addBorder(L"aaaa");
    const OdDbDictionaryPtr entries = dictionary();
    entries->upgradeOpen();
    entries->remove(L"aaaa");
    entries->downgradeOpen();
    const OdDbObjectId second = addBorder(L"aaaa");
    open(first, OdDb::kForWrite)->setGuid(L"bbbb");
    EXPECT_EQ(keyOf(first), "bbbb");
    EXPECT_EQ(keyOf(second), "aaaa");
}

TEST_F(DrawingBorderTest, UpdateGuidAsksWithThePresentOneAsDefault)
{
    const OdDbObjectId id = addBorder(L"aaaa");
    const CCommandHandlerPtr handler = CCommandHandler::createObject(L"X", db, host);
    const CDrawingBorderDataPtr border = open(id, OdDb::kForWrite);
    EXPECT_EQ(thrownBy([&] { border->UpdateGuid(nullptr); }),
              argumentFault(417, "pIO", "CDrawingBorderData::UpdateGuid"));
    const std::pair<const OdChar*, const char*> rows[] = {
        {L"", "aaaa"}, {L" 'bbbb'", "bbbb"}, {L"", "bbbb"}, {kNullGuid, "bbbb"}};
    for (const auto& [answer, key] : rows)
    {
        const std::string before = keyOf(id);
        host->answers = {answer};
        border->UpdateGuid(handler->dbUserIO());
        EXPECT_NE(host->prompts.back().find(before), std::string::npos) << host->prompts.back();
        EXPECT_EQ(keyOf(id), key);
    }
    EXPECT_THROW(border->UpdateGuid(handler->dbUserIO()), OdEdCancel);
    EXPECT_EQ(thrownBy([&] { open(addBorder())->UpdateGuid(nullptr); }).code, eNotOpenForWrite)
        << "writing is required before anything else";
}

// ---- What it holds --------------------------------------------------------------------------------------------------

TEST_F(DrawingBorderTest, NothingIsChangedOrReadUnlessItIsOpen)
{
    const OdDbObjectId id = addBorder();
    const CDrawingBorderDataPtr border = open(id);
    const std::function<void()> changes[] = {
        [&] { border->SetCorners({}, {}); },
        [&] { border->ForceCornersInvalid(); },
        [&] { border->SetColumnLineIds({}, {}); },
        [&] { border->ForceColumnLinesInvalid(); },
        [&] { border->Delete(true); },
    };
    for (const auto& change : changes)
        EXPECT_EQ(thrownBy(change).code, eNotOpenForWrite);
}

} // namespace
