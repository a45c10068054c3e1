// Attacks the persistent forms of labels: groups in wrong order, later versions, copies, files, JSON of every wrong
// kind.
#include "DbIdMapping.h"
#include "FilingTest.h"
#include "framework/Json.h"

using namespace plugintest;

namespace
{

class LabelFilingTest : public FilingTest
{
protected:
    std::string stateOf(OdDbObjectId label)
    {
        JsonDocument document;
        openLabel(label)->JsonOutFields(document, document.GetAllocator());
        return odStringToUtf8(WriteJson(document));
    }
    Fault readJson(OdDbObjectId label, const std::wstring& json)
    {
        std::wstring text = json;
        JsonDocument document;
        document.ParseInsitu(text.data());
        EXPECT_FALSE(document.HasParseError()) << odStringToUtf8(json.c_str());
        return thrownBy([&] { openLabel(label, OdDb::kForWrite)->JsonInFields(document); });
    }
    static std::wstring handleOf(OdDbObjectId id) { return std::wstring(id.getHandle().ascii().view()); }
};

// ---- DXF ------------------------------------------------------------------------------------------------------------

TEST_F(LabelFilingTest, DxfGroupsAreWrittenInOrderWithoutErasedReferences)
{
    const std::vector<OdDbObjectId> lines = addLines(3);
    const OdDbObjectId id = addLabel(lines, L" E12 ", kGuid);
    const std::string start = "100 CBSystemLabel|70 1|1 " + odStringToUtf8(kGuid) + "|2  E12 |90 ";
    const auto reference = [](const OdDbObjectId& line) { return "|340 " + odStringToUtf8(line.getHandle().ascii()); };
    EXPECT_EQ(groupsWrittenBy(id),
              groupsOf(dxfItems(start + "3" + reference(lines[0]) + reference(lines[1]) + reference(lines[2]))));
    erase(lines[1]);
    EXPECT_EQ(groupsWrittenBy(id), groupsOf(dxfItems(start + "2" + reference(lines[0]) + reference(lines[2]))));
    EXPECT_EQ(referencesOf(id), lines);
}

TEST_F(LabelFilingTest, DxfGroupsInAnyOtherOrderAreRefused)
{
    const OdDbObjectId line = addLine();
    const OdDbObjectId id = addLabel({}, L"old", L"old");
    const OdString handle = line.getHandle().ascii();
    const DxfItems good = {{100, L"CBSystemLabel"}, {70, L"1"},    {1, kGuid}, {2, L" 'new' "}, {90, L"2"},
                           {340, handle},           {340, L"FFFF"}};
    expectOrder(id, good);
    EXPECT_EQ(read(id, dxfItems("100 Other|70 1")), 69);
    EXPECT_EQ(read(id, dxfItems("100 CBSystemLabel|70 2|1 x")), 1);
    const DxfItems noGuid = {{100, L"CBSystemLabel"}, {70, L"1"}, {1, L" "}};
    EXPECT_EQ(thrownBy([&] { read(id, noGuid); }), valueFault(4, "strGuid", "CBSystemLabel::SetGuid"));
    EXPECT_EQ(read(id, good), 0);
    EXPECT_EQ(openLabel(id)->GetLabel(), L"new");
    EXPECT_EQ(CBSystemLabel::GetDictionary(db)->nameAt(id), kGuid);
    EXPECT_EQ(referencesOf(id), (std::vector{line, db->getOdDbObjectId(OdDbHandle(0xFFFF))}));
    EXPECT_EQ(markOf(line), "") << "reading makes no marks";
    EXPECT_EQ(groupsWrittenBy(id), groupsOf({good[0], good[1], good[2], {2, L"new"}, good[4], good[5], good[6]}))
        << "what names nothing is written back";
}

// ---- DWG-style ------------------------------------------------------------------------------------------------------

TEST_F(LabelFilingTest, EveryTypeOfFilerGetsAndBringsItsItems)
{
    const std::vector<OdDbObjectId> lines = addLines(2);
    std::size_t begin = 0;
    for (const OdDbFiler::FilerType type : kAllFilers)
    {
        const OdDbObjectId id = addLabel(lines, L" E ", kGuid);
        const auto itemsOf =
            [&](OdInt16 version, const OdChar* guid, const OdChar* text, OdDbObjectId a, OdDbObjectId b)
        {
            DwgFilerPtr filer = commonOf(id, type);
            if (type == OdDbFiler::kWblockCloneFiler)
                filer->wrHardPointerId(CBSystemLabel::GetDictionary(db)->objectId());
            begin = filer->bytes().size();
            filer->wrInt16(version);
            filer->wrString(guid);
            filer->wrString(text);
            filer->wrInt32(2);
            filer->wrHardPointerId(a);
            filer->wrHardPointerId(b);
            return filer;
        };
        EXPECT_EQ(bytesOf(writtenBy(id, type)), bytesOf(itemsOf(1, kGuid, L" E ", lines[0], lines[1]))) << type;
        const DwgFilerPtr in = itemsOf(1, L" 'new' ", L" 'F' ", lines[1], lines[0]);
        EXPECT_EQ(read(id, in), eOk) << type;
        EXPECT_TRUE(in->atEnd()) << type;
        EXPECT_EQ(CBSystemLabel::GetDictionary(db)->nameAt(id), L"new") << type;
        EXPECT_EQ(openLabel(id)->GetGuid(), L"new") << type;
        EXPECT_EQ(openLabel(id)->GetLabel(), L"F") << type;
        EXPECT_EQ(referencesOf(id), (std::vector{lines[1], lines[0]})) << type;
        const DwgFilerPtr later = itemsOf(2, L"x", L"x", lines[1], lines[0]);
        EXPECT_EQ(read(id, later), 1) << type;
        EXPECT_EQ(later->tell(), begin + 3) << "nothing more is read than a tag and a number";
        erase(id);
    }
}

// ---- Copies ---------------------------------------------------------------------------------------------------------

TEST_F(LabelFilingTest, ACopyInMemoryHasAGuidOfItsOwn)
{
    const OdDbObjectId line = addLine();
    const OdDbObjectId id = addLabel({line}, L"E", kGuid);
    const CBSystemLabelPtr copy = openLabel(id)->clone();
    EXPECT_EQ(copy->GetLabel(), L"E");
    EXPECT_EQ(copy->GetGuid().getLength(), 36);
    EXPECT_NE(copy->GetGuid(), kGuid);
    OdDbObjectIdArray ids;
    copy->GetReferencedObjectIds(ids);
    EXPECT_EQ(ids, idArray({line}));
    EXPECT_EQ(CBSystemLabel::GetDictionary(db)->numEntries(), 1u);
}

TEST_F(LabelFilingTest, ACopyWithinTheDrawingHasAGuidOfItsOwn)
{
    const OdDbObjectId id = addLabel({addLine()}, L"E", kGuid);
    const OdDbIdMappingPtr mapping = OdDbIdMapping::createObject();
    const OdDbDictionaryPtr dictionary = CBSystemLabel::GetDictionary(db);
    db->deepCloneObjects(idArray({id}), dictionary->objectId(), *mapping);
    EXPECT_EQ(dictionary->numEntries(), 2u);
    EXPECT_EQ(dictionary->getAt(kGuid), id);
    for (OdDbDictionaryIteratorPtr entry = dictionary->newIterator(); !entry->done(); entry->next())
        EXPECT_EQ(entry->name(), openLabel(entry->objectId())->GetGuid());
}

TEST_F(LabelFilingTest, ACopyInAnotherDrawingKeepsItsGuid)
{
    const std::vector<OdDbObjectId> lines = addLines(2);
    const OdDbObjectId id = addLabel(lines, L"E", kGuid);
    erase(lines[0]);
    const OdDbDatabasePtr other = db->wblock(idArray({id}), OdGePoint3d());
    const OdDbDictionaryPtr dictionary = CBSystemLabel::GetDictionary(other);
    const OdDbObjectId copy = dictionary->getAt(kGuid);
    ASSERT_FALSE(copy.isNull());
    EXPECT_EQ(dictionary->numEntries(), 1u);
    const std::vector<OdDbObjectId> references = referencesOf(copy);
    ASSERT_EQ(references.size(), 1u) << "the erased line is left behind";
    EXPECT_EQ(references[0].database(), other.get());
    EXPECT_EQ(markOf(references[0]), "E, " + odStringToUtf8(kGuid));
    EXPECT_TRUE(references[0].safeOpenObject()->hasPersistentReactor(copy));
    EXPECT_EQ(referencesOf(id), lines);
}

// ---- Files ----------------------------------------------------------------------------------------------------------

TEST_F(LabelFilingTest, FilesBringLabelsBackAsTheyWere)
{
    for (const OdDb::SaveType type : {OdDb::kDxf, OdDb::kDxb})
    {
        const std::vector<OdDbObjectId> lines = addLines(3);
        const OdDbObjectId id = addLabel({lines[2], lines[0]}, L"E\U0001F600\"é");
        const std::string before = stateOf(id);
        const OdDbDatabasePtr reread = support::savedAndRead(*db, type);
        const OdDbObjectId again = reread->getOdDbObjectId(id.getHandle());
        EXPECT_EQ(stateOf(again), before);
        EXPECT_EQ(CBSystemLabel::GetDictionary(reread)->getAt(openLabel(id)->GetGuid()), again);
        const OdDbObjectId line = reread->getOdDbObjectId(lines[2].getHandle());
        EXPECT_EQ(markOf(line), markOf(lines[2]));
        EXPECT_TRUE(line.safeOpenObject()->hasPersistentReactor(again));
    }
}

// ---- JSON -----------------------------------------------------------------------------------------------------------

TEST_F(LabelFilingTest, JsonHoldsTheWholeLabel)
{
    const OdDbObjectId line = addLine();
    const OdDbObjectId id = addLabel({line}, L"E \"12\"\n", kGuid);
    EXPECT_EQ(stateOf(id), "{\"Handle\":\"" + odStringToUtf8(id.getHandle().ascii()) + "\",\"Version\":1,\"Guid\":\"" +
                               odStringToUtf8(kGuid) + "\",\"Label\":\"E \\\"12\\\"\\n\",\"ReferencedElements\":[\"" +
                               odStringToUtf8(line.getHandle().ascii()) + "\"]}");
    const CBSystemLabelPtr loose = CBSystemLabel::createObject();
    JsonDocument document;
    loose->JsonOutFields(document, document.GetAllocator());
    EXPECT_EQ(WriteJson(document), L"{\"Version\":1,\"Guid\":\"\",\"Label\":\"\",\"ReferencedElements\":[]}");
}

TEST_F(LabelFilingTest, JsonIsTakenOverOrRefused)
{
    const std::vector<OdDbObjectId> lines = addLines(2);
    const OdDbObjectId id = addLabel({lines[0]}, L"E", kGuid);
    const std::string start = stateOf(id);
    const auto wrongType = [](const char* name) { return valueFault(5, name, "CBSystemLabel::JsonInFields"); };
    const Fault noId = argumentFault(21, "id", "CBSystemLabel::AddReferencedObjectId");
    const struct
    {
        std::wstring json;
        Fault fault;
        bool changes = false;
    } rows[] = {
        {L"{}", {}},
        {L"[]", wrongType("value")},
        {L"null", wrongType("value")},
        {L"{\"Handle\": null, \"Version\": null, \"Guid\": null, \"Label\": null, \"ReferencedElements\": null}", {}},
        {L"{\"Handle\": \"\"}", {}},
        {L"{\"Handle\": \"FFFF\", \"Label\": \"x\"}", {398, "OdError", "", ""}},
        {L"{\"Handle\": 1}", wrongType("Handle")},
        {L"{\"Version\": 0}", {}},
        {L"{\"Version\": 2, \"Label\": \"x\"}", {250, "OdError", "", ""}},
        {L"{\"Version\": 1e300}", {250, "OdError", "", ""}},
        {L"{\"Version\": \"1\"}", wrongType("Version")},
        {L"{\"Guid\": \"00000000-0000-0000-0000-000000000000\"}", {}},
        {L"{\"Guid\": \"\"}", valueFault(4, "strGuid", "CBSystemLabel::SetGuid")},
        {L"{\"Guid\": []}", wrongType("Guid")},
        {L"{\"Label\": false}", wrongType("Label")},
        {L"{\"Label\": \" E \"}", {}},
        {L"{\"ReferencedElements\": {}}", wrongType("ReferencedElements")},
        {L"{\"ReferencedElements\": [1]}", wrongType("ReferencedElements")},
        {L"{\"ReferencedElements\": [\"" + handleOf(lines[0]) + L"\", \"" + handleOf(lines[0]) + L"\"]}", {}},
        {L"{\"ReferencedElements\": [\"nOnE\"]}", noId, true},
        {L"{\"ReferencedElements\": [\"FFFFFF\", \"\"]}", noId, true},
        {L"{\"ReferencedElements\": [\"xyz\"]}", noId, true},
        {L"{\"ReferencedElements\": []}", {}, true},
        {L"{\"Handle\": \"" + handleOf(id) + L"\", \"Label\": \"\\uD83D\\uDE00\"}", {}, true},
        {L"{\"Guid\": \" 'b' \"}", {}, true},
    };
    for (const auto& row : rows)
    {
        db->startTransaction();
        EXPECT_EQ(readJson(id, row.json), row.fault) << odStringToUtf8(row.json.c_str());
        EXPECT_EQ(stateOf(id) != start, row.changes) << odStringToUtf8(row.json.c_str()) << stateOf(id);
        db->abortTransaction();
        ASSERT_EQ(stateOf(id), start) << odStringToUtf8(row.json.c_str());
    }
}

TEST_F(LabelFilingTest, JsonReferencesMoveTheMarks)
{
    const std::vector<OdDbObjectId> lines = addLines(3);
    const OdDbObjectId id = addLabel({lines[0], lines[1]}, L"E", kGuid);
    EXPECT_EQ(readJson(id, L"{\"Label\": \"F\", \"ReferencedElements\": [\"" + handleOf(lines[2]) + L"\", \"" +
                               handleOf(lines[0]) + L"\"]}"),
              Fault());
    EXPECT_EQ(referencesOf(id), (std::vector{lines[2], lines[0]}));
    EXPECT_EQ(markOf(lines[2]), "F, " + odStringToUtf8(kGuid));
    EXPECT_EQ(markOf(lines[0]), "F, " + odStringToUtf8(kGuid));
    EXPECT_EQ(markOf(lines[1]), "-E, ") << "its name is no longer that of the label";
    EXPECT_FALSE(lines[1].safeOpenObject()->hasPersistentReactor(id));
}

} // namespace
