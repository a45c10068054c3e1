// Attacks the persistent forms of drawing borders: every type of filer, other versions, groups that are missing or in
// another order, copies, files, JSON.
#include "DbIdMapping.h"
#include "DrawingBorderData.h"
#include "FilingTest.h"
#include "objects/ParamsDrawingBorder.h"

using namespace plugintest;

namespace
{

bool asksForIdsOnly(OdDbFiler::FilerType type)
{
    return type == OdDbFiler::kIdXlateFiler || type == OdDbFiler::kIdFiler || type == OdDbFiler::kPurgeFiler;
}

class DrawingBorderFilingTest : public FilingTest
{
protected:
    OdDbDictionaryPtr dictionary() { return CDrawingBorderData::GetDictionary(db); }
    OdDbObjectId addBorder(const OdString& guid = kGuid)
    {
        const CDrawingBorderDataPtr border = CDrawingBorderData::createObject();
        return border->Initialize(db, guid);
    }
    /// One whose every part has a value of its own.
    OdDbObjectId addFullBorder(const OdString& guid = kGuid)
    {
        const OdDbObjectId id = addBorder(guid);
        const CDrawingBorderDataPtr border = open(id, OdDb::kForWrite);
        border->SetCorners({1, 2, 3}, {4, 5, 6});
        OdStringArray columns, lines;
        columns.append(L"1");
        columns.append(L"");
        lines.append(L"A");
        border->SetColumnLineIds(columns, lines);
        border->ForceCornersInvalid();
        border->Delete(true);
        return id;
    }
    static CDrawingBorderDataPtr open(OdDbObjectId id, OdDb::OpenMode mode = OdDb::kForRead)
    {
        return CDrawingBorderDataPtr(id.safeOpenObject(mode, true));
    }
    static std::string stateOf(const CDrawingBorderData& border)
    {
        return odStringToUtf8(CParamsDrawingBorder(border).Write()) + (border.IsDeleted() ? " deleted" : "");
    }
    std::string keyOf(OdDbObjectId id) { return odStringToUtf8(dictionary()->nameAt(id)); }
    static std::string utf8(const OdString& text) { return odStringToUtf8(text); }

    /// What every object writes for that type, then what only borders do.
    DwgFilerPtr beginningOf(OdDbObjectId id, OdDbFiler::FilerType type)
    {
        DwgFilerPtr filer = commonOf(id, type);
        if (type == OdDbFiler::kWblockCloneFiler)
            filer->wrSoftOwnershipId(dictionary()->objectId());
        return filer;
    }
    DwgFilerPtr expectedOf(OdDbObjectId id, OdDbFiler::FilerType type, const OdString& guid = kGuid,
                           OdInt16 version = 1, OdInt32 columns = 2, OdInt32 lines = 1)
    {
        DwgFilerPtr filer = beginningOf(id, type);
        filer->wrInt16(version);
        if (asksForIdsOnly(type))
            return filer;
        filer->wrString(guid);
        for (const bool flag : {true, false, true})
            filer->wrBool(flag);
        filer->wrPoint3d({1, 5, 3});
        filer->wrPoint3d({4, 2, 6});
        filer->wrInt32(columns);
        filer->wrInt32(lines);
        for (const OdChar* text : {L"1", L"", L"A"})
            filer->wrString(text);
        return filer;
    }

    const DxfItems fullGroups =
        dxfItems("100 CDrawingBorderData|70 1|1 11111111-2222-4333-8444-555555555555|290 1|290 0|290 1|12 1 5 3|"
                 "12 4 2 6|90 2|90 1|1 1|1 |1 A");
};

// ---- DWG-style ------------------------------------------------------------------------------------------------------

TEST_F(DrawingBorderFilingTest, EveryTypeOfFilerGetsAndBringsItsItems)
{
    const OdDbObjectId source = addFullBorder();
    const std::string full = stateOf(*open(source));
    OdStringArray others;
    others.append(L"other");
    for (const OdDbFiler::FilerType type : kAllFilers)
    {
        EXPECT_EQ(bytesOf(writtenBy(source, type)), bytesOf(expectedOf(source, type))) << type;
        const OdDbObjectId id = addFullBorder(L"old");
        open(id, OdDb::kForWrite)->SetColumnLineIds(others, others);
        const std::string before = stateOf(*open(id));
        const DwgFilerPtr filer = expectedOf(id, type, L" 'new' ");
        EXPECT_EQ(read(id, filer), eOk) << type;
        EXPECT_TRUE(filer->atEnd()) << type;
        EXPECT_EQ(stateOf(*open(id)), asksForIdsOnly(type) ? before : full) << type;
        const bool staysUnderItsKey = asksForIdsOnly(type) || type == OdDbFiler::kFileFiler;
        EXPECT_EQ(keyOf(id), staysUnderItsKey ? "old" : "new") << type;
        if (type == OdDbFiler::kFileFiler)
        {
            EXPECT_EQ(bytesOf(writtenBy(id, type)), bytesOf(expectedOf(id, type, L" 'new' "))) << "taken as it is";
        }
        erase(id);
    }
}

TEST_F(DrawingBorderFilingTest, OtherVersionsAndDamagedItems)
{
    const OdDbObjectId id = addFullBorder();
    for (const OdDbFiler::FilerType type : kAllFilers)
    {
        const std::size_t begin = beginningOf(id, type)->bytes().size();
        for (const OdInt16 version : {2, 32767, 0, -1})
        {
            const DwgFilerPtr filer = expectedOf(id, type, kGuid, version);
            EXPECT_EQ(read(id, filer), version > 1 ? eNotImplementedYet : eOk) << type << " " << version;
            if (version > 1)
            {
                EXPECT_EQ(filer->tell(), begin + 3) << "nothing more is read than a tag and a number";
            }
        }
        const std::vector<std::uint8_t> good = bytesOf(expectedOf(id, type));
        for (std::size_t length = begin; length < good.size(); ++length)
        {
            const DwgFilerPtr cut = oddb::MemoryDwgFiler::create(type, db);
            cut->setBytes(std::span(good).first(length));
            EXPECT_EQ(thrownBy([&] { read(id, cut); }).code, eEndOfFile) << length;
        }
    }
    EXPECT_EQ(read(id, expectedOf(id, OdDbFiler::kBagFiler, kGuid, 1, -1, INT32_MIN)), eOk);
    EXPECT_TRUE(open(id)->GetColumnIds().isEmpty() && open(id)->GetLineIds().isEmpty());
}

// ---- DXF ------------------------------------------------------------------------------------------------------------

TEST_F(DrawingBorderFilingTest, EveryTypeOfFilerGetsAndBringsItsGroups)
{
    const OdDbObjectId source = addFullBorder();
    DxfItems groups = fullGroups;
    groups[2].second = L" 'new' ";
    for (const OdDbFiler::FilerType type : kAllFilers)
    {
        const std::ptrdiff_t count = asksForIdsOnly(type) ? 2 : std::ssize(fullGroups);
        EXPECT_EQ(groupsWrittenBy(source, type), groupsOf({fullGroups.begin(), fullGroups.begin() + count})) << type;
        const OdDbObjectId id = addBorder(L"old");
        const std::string empty = stateOf(*open(id));
        EXPECT_EQ(read(id, groups, type), eOk) << type;
        EXPECT_EQ(stateOf(*open(id)), asksForIdsOnly(type) ? empty : stateOf(*open(source))) << type;
        const bool staysUnderItsKey = asksForIdsOnly(type) || type == OdDbFiler::kFileFiler;
        EXPECT_EQ(keyOf(id), staysUnderItsKey ? "old" : "new") << type;
        if (type == OdDbFiler::kFileFiler)
        {
            EXPECT_EQ(groupsWrittenBy(id).findAny(1)->text(), " 'new' ") << "taken as it is";
        }
        erase(id);
    }
}

TEST_F(DrawingBorderFilingTest, DxfGroupsInAnyOtherOrderAreRefused)
{
    for (std::size_t i = 0; i < fullGroups.size(); ++i)
    {
        DxfItems missing = fullGroups;
        missing.erase(missing.begin() + static_cast<std::ptrdiff_t>(i));
        EXPECT_EQ(read(addBorder(), missing), i == 0 ? 69 : 1) << i;
    }
    expectOrder(addBorder(), fullGroups);
    const OdDbObjectId id = addBorder();
    const std::tuple<std::size_t, const OdChar*, OdResult> rows[] = {
        {0, L"CBSystemLabel", eBadDxfSequence},
        {0, L"cdrawingborderdata", eBadDxfSequence},
        {1, L"2", eNotImplementedYet},
        {1, L"0", eOk},
        {8, L"2147483647", eNotImplementedYet},
        {9, L"0", eOk},
        {8, L"-1", eOk},
    };
    for (const auto& [group, value, result] : rows)
        for (const OdDbFiler::FilerType type : kAllFilers)
        {
            DxfItems changed = fullGroups;
            changed[group].second = value;
            const bool looksAtIt = group < 2 || !asksForIdsOnly(type);
            EXPECT_EQ(read(id, changed, type), looksAtIt ? result : eOk) << group << " " << type;
        }
}

TEST_F(DrawingBorderFilingTest, DxfInputAppendsToTheLists)
{
    const OdDbObjectId id = addFullBorder();
    EXPECT_EQ(read(id, fullGroups), eOk);
    EXPECT_EQ(open(id)->GetColumnIds().size(), 4u);
    EXPECT_EQ(open(id)->GetLineIds().size(), 2u);
}

// ---- Copies ---------------------------------------------------------------------------------------------------------

TEST_F(DrawingBorderFilingTest, ACopyWithinTheDrawingHasAGuidOfItsOwn)
{
    const OdDbObjectId id = addFullBorder();
    const std::string full = stateOf(*open(id));
    const CDrawingBorderDataPtr loose = open(id)->clone();
    EXPECT_EQ(stateOf(*loose), full);
    const OdDbIdMappingPtr mapping = OdDbIdMapping::createObject();
    db->deepCloneObjects(idArray({id}), dictionary()->objectId(), *mapping);
    ASSERT_EQ(dictionary()->numEntries(), 2u);
    EXPECT_EQ(dictionary()->getAt(kGuid), id);
    for (OdDbDictionaryIteratorPtr entry = dictionary()->newIterator(); !entry->done(); entry->next())
    {
        EXPECT_EQ(stateOf(*open(entry->objectId())), full);
        EXPECT_EQ(groupsWrittenBy(entry->objectId()).findAny(1)->text(), utf8(entry->name()));
    }
}

TEST_F(DrawingBorderFilingTest, ACopyInAnotherDrawingKeepsItsGuid)
{
    const OdDbObjectId id = addFullBorder();
    addBorder(L"another");
    const OdDbDatabasePtr other = db->wblock(idArray({id}), OdGePoint3d());
    const OdDbDictionaryPtr entries = CDrawingBorderData::GetDictionary(other);
    EXPECT_EQ(entries->numEntries(), 1u);
    const OdDbObjectId copy = entries->getAt(kGuid);
    ASSERT_FALSE(copy.isNull());
    EXPECT_EQ(copy.database(), other.get());
    EXPECT_EQ(open(copy)->ownerId(), entries->objectId());
    EXPECT_EQ(stateOf(*open(copy)), stateOf(*open(id)));
    EXPECT_EQ(keyOf(id), utf8(kGuid));
}

// ---- Files ----------------------------------------------------------------------------------------------------------

TEST_F(DrawingBorderFilingTest, FilesBringBordersBackAsTheyWere)
{
    for (const OdDb::SaveType type : {OdDb::kDxf, OdDb::kDxb})
    {
        const OdDbObjectId full = addFullBorder(L" blanks around ");
        const OdDbObjectId odd = addBorder(L"aaaa");
        OdStringArray columns, lines;
        for (const OdChar* text : {L"\U0001F600", L"é", L" blanks ", L"\"'", L"two\nlines", L"^J"})
            columns.append(text);
        lines.append(L"");
        open(odd, OdDb::kForWrite)->SetColumnLineIds(columns, lines);
        open(odd, OdDb::kForWrite)->SetCorners({1e-300, -1e300, 0.1}, {1.0 / 3.0, 0, -0.0});
        const OdDbDatabasePtr reread = support::savedAndRead(*db, type);
        const OdDbDictionaryPtr entries = CDrawingBorderData::GetDictionary(reread);
        EXPECT_EQ(entries->numEntries(), 2u);
        for (const OdDbObjectId& id : {full, odd})
        {
            const OdDbObjectId again = reread->getOdDbObjectId(id.getHandle());
            ASSERT_FALSE(again.isNull());
            EXPECT_EQ(stateOf(*open(again)), stateOf(*open(id)));
            EXPECT_EQ(utf8(entries->nameAt(again)), keyOf(id));
            EXPECT_EQ(groupsWrittenBy(again).findAny(1)->text(), groupsWrittenBy(id).findAny(1)->text());
        }
        erase(full);
        erase(odd);
    }
}

// ---- JSON -----------------------------------------------------------------------------------------------------------

TEST_F(DrawingBorderFilingTest, JsonIsReadOrRefused)
{
    const struct
    {
        const wchar_t* json;
        int code;
        const char* text; ///< in the message
    } rows[] = {
        {LR"({"Columns": ["1"], "Lines": ["A"], "ColumnLinesValid": true})", 0, ""},
        {LR"(" '{"Columns": [], "Lines": [], "ColumnLinesValid": false}' 	")", 0, ""},
        {LR"({"Columns": [], "Lines": [], "ColumnLinesValid": false, "Other": 1})", 0, ""},
        {L"", 926, "0"},
        {L"{", 926, "1"},
        {LR"({"Columns": [] "Lines": []})", 926, "Missing a comma or '}' after an object member."},
        {L"[]", 924, ""},
        {L"null", 924, ""},
        {L"1", 924, ""},
        {LR"({"Lines": [], "ColumnLinesValid": false})", 925, "Columns"},
        {LR"({"Columns": null, "Lines": [], "ColumnLinesValid": false})", 925, "Columns"},
        {LR"({"Columns": {}, "Lines": [], "ColumnLinesValid": false})", 925, "Columns"},
        {LR"({"Columns": [1], "Lines": [], "ColumnLinesValid": false})", 925, "Columns"},
        {LR"({"Columns": [], "ColumnLinesValid": false})", 925, "Lines"},
        {LR"({"Columns": [], "Lines": null, "ColumnLinesValid": false})", 925, "Lines"},
        {LR"({"Columns": [], "Lines": [null], "ColumnLinesValid": false})", 925, "Lines"},
        {LR"({"Columns": [], "Lines": []})", 925, "ColumnLinesValid"},
        {LR"({"Columns": [], "Lines": [], "ColumnLinesValid": 1})", 925, "ColumnLinesValid"},
        {LR"({"Columns": [], "Lines": ["A"], "ColumnLinesValid": true})", 925, "ColumnStringArray entries"},
        {LR"({"Columns": ["1"], "Lines": [], "ColumnLinesValid": true})", 925, "LinesStringArray entries"},
        {LR"({"Columns": [], "Lines": [], "ColumnLinesValid": true})", 925, "ColumnStringArray entries"},
        {LR"({"columns": [], "Lines": [], "ColumnLinesValid": false})", 925, "Columns"},
        {LR"({"Columns": [], "Lines": [], "ColumnLinesValid": false, "AreaValid": 1})", 925, "AreaValid"},
        {LR"({"Columns": [], "Lines": [], "ColumnLinesValid": false, "AreaFirst": [0, 0, 0]})", 925, "AreaFirst"},
        {LR"({"Columns": [], "Lines": [], "ColumnLinesValid": false, "AreaSecond": 1})", 925, "AreaSecond"},
    };
    for (const auto& row : rows)
    {
        const OdError error = support::caught([&] { CParamsDrawingBorder::Read(row.json); });
        EXPECT_EQ(int(error.code()), row.code) << utf8(row.json);
        if (row.code != 0)
        {
            EXPECT_NE(utf8(error.description()).find(row.text), std::string::npos) << utf8(error.description());
        }
    }
}

TEST_F(DrawingBorderFilingTest, JsonCornersKeepZeroForWhatTheyLack)
{
    const CParamsDrawingBorder params =
        CParamsDrawingBorder::Read(LR"({"Columns": [], "Lines": [], "ColumnLinesValid": false, "AreaValid": true,
             "AreaFirst": {"Y": 2, "Z": null, "X": "1"}, "AreaSecond": {"X": -1e3, "Y": 18446744073709551615}})");
    EXPECT_TRUE(params.m_bAreaValid);
    EXPECT_EQ(params.m_areaFirst, OdGePoint3d(0, 2, 0));
    EXPECT_EQ(params.m_areaSecond, OdGePoint3d(-1000, 18446744073709551615.0, 0));
}

TEST_F(DrawingBorderFilingTest, JsonThatNestsDeeplyIsReadInPlace)
{
    const OdString deep(L'[', 300000);
    EXPECT_EQ(thrownBy([&] { CParamsDrawingBorder::Read(deep); }).code, 926);
    EXPECT_EQ(thrownBy([&] { CParamsDrawingBorder::Read(deep + OdString(L']', 300000)); }).code, 924);
}

} // namespace
