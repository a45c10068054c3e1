// Attacks the persistent forms of drawing borders: every type of filer, other versions, groups that are missing or in
// another order, copies, files, JSON.
#include "support/PluginTest.h"

#include "DbIdMapping.h"
#include "DrawingBorderData.h"
#include "ItemsDwgFiler.h"
#include "ItemsDxfFiler.h"
#include "objects/ParamsDrawingBorder.h"
#include "support/DrawingFiles.h"

using namespace plugintest;

namespace
{

constexpr const OdChar* kGuid = L"11111111-2222-4333-8444-555555555555";

bool asksForIdsOnly(OdDbFiler::FilerType type)
{
    return type == OdDbFiler::kIdXlateFiler || type == OdDbFiler::kIdFiler || type == OdDbFiler::kPurgeFiler;
}

class DrawingBorderFilingTest : public PluginTest
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

    // ---- DWG-style
    DwgItems commonItems(OdDbObjectId id, OdDbFiler::FilerType type)
    {
        const auto filer = OdRxObjectImpl<ItemsDwgFiler>::createObject(db.get(), type);
        open(id)->OdDbObject::dwgOutFields(filer);
        return filer->items;
    }
    DwgItems writeDwg(OdDbObjectId id, OdDbFiler::FilerType type)
    {
        const auto filer = OdRxObjectImpl<ItemsDwgFiler>::createObject(db.get(), type);
        open(id)->dwgOutFields(filer);
        return filer->items;
    }
    /// What the items behind those of every object are for that type.
    DwgItems expectedItems(OdDbObjectId id, OdDbFiler::FilerType type, const OdString& guid = kGuid)
    {
        DwgItems items = commonItems(id, type);
        if (type == OdDbFiler::kWblockCloneFiler)
            items.emplace_back("softOwner", dictionary()->objectId().getHandle().ascii());
        items.emplace_back("int16", L"1");
        if (asksForIdsOnly(type))
            return items;
        const DwgItems own = dwgItems("string |bool 1|bool 0|bool 1|point 1 5 3|point 4 2 6|int32 2|int32 1|"
                                      "string 1|string |string A");
        items.insert(items.end(), own.begin(), own.end());
        items[items.size() - own.size()].second = guid;
        return items;
    }

    // ---- DXF
    DxfItems writeDxf(OdDbObjectId id, OdDbFiler::FilerType type = OdDbFiler::kFileFiler)
    {
        const auto filer = OdRxObjectImpl<ItemsDxfFiler>::createObject(db.get(), DxfItems(), type);
        open(id)->dxfOutFields(filer);
        return filer->items;
    }
    OdResult readDxf(OdDbObjectId id, const DxfItems& items, OdDbFiler::FilerType type = OdDbFiler::kFileFiler)
    {
        const auto filer = OdRxObjectImpl<ItemsDxfFiler>::createObject(db.get(), items, type);
        return open(id, OdDb::kForWrite)->dxfInFields(filer);
    }
    const DxfItems fullGroups =
        dxfItems("100 CDrawingBorderData|70 1|1 11111111-2222-4333-8444-555555555555|290 1|290 0|290 1|12 1 5 3|"
                 "12 4 2 6|90 2|90 1|1 1|1 |1 A");
};

// ---- DWG-style ------------------------------------------------------------------------------------------------------

TEST_F(DrawingBorderFilingTest, EveryTypeOfFilerGetsItsItems)
{
    const OdDbObjectId id = addFullBorder();
    for (const OdDbFiler::FilerType type : kAllFilers)
        EXPECT_EQ(writeDwg(id, type), expectedItems(id, type)) << type;
}

TEST_F(DrawingBorderFilingTest, EveryTypeOfFilerBringsItsItems)
{
    const OdDbObjectId source = addFullBorder();
    const std::string full = stateOf(*open(source));
    for (const OdDbFiler::FilerType type : kAllFilers)
    {
        const OdDbObjectId id = addFullBorder(L"old");
        open(id, OdDb::kForWrite)->SetColumnLineIds({}, {});
        const std::string before = stateOf(*open(id));
        DwgItems items = expectedItems(id, type, L" 'new' ");
        const auto filer = OdRxObjectImpl<ItemsDwgFiler>::createObject(db.get(), type, items);
        EXPECT_EQ(open(id, OdDb::kForWrite)->dwgInFields(filer), eOk) << type;
        EXPECT_TRUE(filer->isAtEnd()) << type;
        EXPECT_EQ(stateOf(*open(id)), asksForIdsOnly(type) ? before : full) << type;
        const bool staysUnderItsKey = asksForIdsOnly(type) || type == OdDbFiler::kFileFiler;
        EXPECT_EQ(keyOf(id), staysUnderItsKey ? "old" : "new") << type;
        if (type == OdDbFiler::kFileFiler)
        {
            EXPECT_EQ(writeDwg(id, type)[commonItems(id, type).size() + 1].second, L" 'new' ") << "taken as it is";
        }
        erase(id);
    }
}

TEST_F(DrawingBorderFilingTest, ListsAreEmptiedBeforeTheyAreRead)
{
    const OdDbObjectId id = addFullBorder();
    const std::string before = stateOf(*open(id));
    const auto filer = OdRxObjectImpl<ItemsDwgFiler>::createObject(db.get(), OdDbFiler::kUndoFiler,
                                                                   writeDwg(id, OdDbFiler::kUndoFiler));
    EXPECT_EQ(open(id, OdDb::kForWrite)->dwgInFields(filer), eOk);
    EXPECT_EQ(stateOf(*open(id)), before);
}

TEST_F(DrawingBorderFilingTest, OtherVersionsAndDamagedItems)
{
    const OdDbObjectId id = addFullBorder();
    for (const OdDbFiler::FilerType type : kAllFilers)
    {
        const DwgItems good = expectedItems(id, type);
        const std::size_t version = commonItems(id, type).size() + (type == OdDbFiler::kWblockCloneFiler);
        const struct
        {
            const OdChar* version;
            OdResult result;
        } rows[] = {{L"2", eNotImplementedYet}, {L"32767", eNotImplementedYet}, {L"0", eOk}, {L"-1", eOk}};
        for (const auto& row : rows)
        {
            DwgItems items = good;
            items[version].second = row.version;
            const auto filer = OdRxObjectImpl<ItemsDwgFiler>::createObject(db.get(), type, items);
            EXPECT_EQ(open(id, OdDb::kForWrite)->dwgInFields(filer), row.result) << type << utf8(row.version);
            if (row.result != eOk)
            {
                EXPECT_EQ(filer->tell(), version + 1) << "nothing more is read";
            }
        }
        for (std::size_t length = version; length < good.size(); ++length)
        {
            const DwgItems cut(good.begin(), good.begin() + static_cast<std::ptrdiff_t>(length));
            const auto filer = OdRxObjectImpl<ItemsDwgFiler>::createObject(db.get(), type, cut);
            EXPECT_EQ(thrownBy([&] { open(id, OdDb::kForWrite)->dwgInFields(filer); }).code, eEndOfFile) << length;
        }
    }
    DwgItems negative = expectedItems(id, OdDbFiler::kBagFiler);
    negative.resize(negative.size() - 3);
    negative.back().second = L"-2147483648";
    negative[negative.size() - 2].second = L"-1";
    const auto filer = OdRxObjectImpl<ItemsDwgFiler>::createObject(db.get(), OdDbFiler::kBagFiler, negative);
    EXPECT_EQ(open(id, OdDb::kForWrite)->dwgInFields(filer), eOk);
    EXPECT_TRUE(open(id)->GetColumnIds().isEmpty() && open(id)->GetLineIds().isEmpty());
}

// ---- DXF ------------------------------------------------------------------------------------------------------------

TEST_F(DrawingBorderFilingTest, EveryTypeOfFilerGetsItsGroups)
{
    const OdDbObjectId id = addFullBorder();
    for (const OdDbFiler::FilerType type : kAllFilers)
    {
        const std::ptrdiff_t count = asksForIdsOnly(type) ? 2 : std::ssize(fullGroups);
        EXPECT_EQ(writeDxf(id, type), DxfItems(fullGroups.begin(), fullGroups.begin() + count)) << type;
    }
}

TEST_F(DrawingBorderFilingTest, EveryTypeOfFilerBringsItsGroups)
{
    const std::string full = stateOf(*open(addFullBorder()));
    DxfItems groups = fullGroups;
    groups[2].second = L" 'new' ";
    for (const OdDbFiler::FilerType type : kAllFilers)
    {
        const OdDbObjectId id = addBorder(L"old");
        const std::string empty = stateOf(*open(id));
        EXPECT_EQ(readDxf(id, groups, type), eOk) << type;
        EXPECT_EQ(stateOf(*open(id)), asksForIdsOnly(type) ? empty : full) << type;
        const bool staysUnderItsKey = asksForIdsOnly(type) || type == OdDbFiler::kFileFiler;
        EXPECT_EQ(keyOf(id), staysUnderItsKey ? "old" : "new") << type;
        if (type == OdDbFiler::kFileFiler)
        {
            EXPECT_EQ(writeDxf(id)[2].second, L" 'new' ") << "taken as it is";
        }
        erase(id);
    }
}

TEST_F(DrawingBorderFilingTest, DxfGroupsInAnyOtherOrderAreRefused)
{
    for (std::size_t i = 0; i + 1 < fullGroups.size(); ++i)
    {
        const OdDbObjectId id = addBorder();
        DxfItems swapped = fullGroups;
        std::swap(swapped[i], swapped[i + 1]);
        const bool same = swapped[i].first == swapped[i + 1].first;
        EXPECT_EQ(readDxf(id, swapped), i == 0 ? 69 : same ? 0 : 1) << i;
        DxfItems missing = fullGroups;
        missing.erase(missing.begin() + static_cast<std::ptrdiff_t>(i));
        EXPECT_EQ(readDxf(id, missing), i == 0 ? 69 : 1) << i;
        EXPECT_EQ(readDxf(id, DxfItems(fullGroups.begin(), fullGroups.begin() + static_cast<std::ptrdiff_t>(i))),
                  i == 0 ? 69 : 1)
            << i;
    }
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
            EXPECT_EQ(readDxf(id, changed, type), looksAtIt ? result : eOk) << group << " " << type;
        }
}

TEST_F(DrawingBorderFilingTest, DxfInputAppendsToTheLists)
{
    const OdDbObjectId id = addFullBorder();
    EXPECT_EQ(readDxf(id, fullGroups), eOk);
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
        EXPECT_EQ(writeDxf(entry->objectId())[2].second, entry->name());
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
            EXPECT_EQ(writeDxf(again)[2].second, writeDxf(id)[2].second);
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
