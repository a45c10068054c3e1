// Attacks labels as objects: identity and dictionary, references and their marks, blocks.
#include "support/PluginTest.h"

#include <algorithm>
#include <random>

#include "DbDimension.h"
#include "objects/ReferenceList.h"

using namespace plugintest;

namespace
{

constexpr const OdChar* kNullGuid = L"00000000-0000-0000-0000-000000000000";

class LabelTest : public PluginTest
{
protected:
    OdDbDictionaryPtr dictionary() { return CBSystemLabel::GetDictionary(db); }
    std::string guidOf(OdDbObjectId label) { return odStringToUtf8(openLabel(label)->GetGuid()); }
    bool listens(OdDbObjectId label, OdDbObjectId entity)
    {
        return entity.safeOpenObject(OdDb::kForRead, true)->hasPersistentReactor(label);
    }
};

// ---- Identity -------------------------------------------------------------------------------------------------------

TEST_F(LabelTest, TheDictionaryIsMadeOnce)
{
    EXPECT_EQ(thrownBy([] { CBSystemLabel::GetDictionary(nullptr); }),
              argumentFault(122, "pDb", "CBSystemLabel::GetDictionary"));
    EXPECT_FALSE(dictionary()->isWriteEnabled()) << "just made";
    const OdDbObjectId id = dictionary()->objectId();
    EXPECT_EQ(dictionary()->objectId(), id);
    const OdDbDictionaryPtr named = db->getNamedObjectsDictionaryId().safeOpenObject();
    EXPECT_EQ(named->getAt(L"zol_bsystem_labels"), id);
}

TEST_F(LabelTest, InitializeKeepsTextsAsGiven)
{
    const OdDbObjectId blank = addLabel({}, L"  E12 ", L" {odd} ");
    EXPECT_EQ(guidOf(blank), " {odd} ");
    EXPECT_EQ(openLabel(blank)->GetLabel(), L"  E12 ");
    EXPECT_EQ(dictionary()->getAt(L" {odd} "), blank);
    for (const OdChar* none : {L"", kNullGuid})
    {
        const std::string made = guidOf(addLabel({}, L"x", none));
        ASSERT_EQ(made.size(), 36u);
        EXPECT_EQ(made.find_first_of("{}"), std::string::npos);
        EXPECT_NE(made, odStringToUtf8(kNullGuid));
    }
    const CBSystemLabelPtr label = CBSystemLabel::createObject();
    EXPECT_EQ(thrownBy([&] { label->Initialize(nullptr, L"", {}, L""); }),
              argumentFault(122, "pDb", "CBSystemLabel::Initialize"));
}

TEST_F(LabelTest, SetGuidRekeysTheDictionary)
{
    const OdDbObjectId id = addLabel({}, L"x", L"aaaa");
    const struct
    {
        const OdChar* guid;
        int code;
        const char* key;
    } rows[] = {
        {L" \t\n\"'bbbb'\" ", 0, "bbbb"}, {L"BBBB", 0, "bbbb"}, {L"", 4, "bbbb"}, {L" '\" ", 4, "bbbb"},
        {kNullGuid, 4, "bbbb"},           {L" 'ÄÖ'", 0, "ÄÖ"},  {L"äö", 0, "ÄÖ"},
    };
    for (const auto& row : rows)
    {
        EXPECT_EQ(thrownBy([&] { openLabel(id, OdDb::kForWrite)->SetGuid(row.guid); }),
                  row.code ? valueFault(4, "strGuid", "CBSystemLabel::SetGuid") : Fault());
        EXPECT_EQ(guidOf(id), row.key);
        EXPECT_EQ(odStringToUtf8(dictionary()->nameAt(id)), row.key);
        EXPECT_EQ(dictionary()->numEntries(), 1u);
    }
    EXPECT_EQ(thrownBy([&] { openLabel(id)->SetGuid(L"cccc"); }).code, eNotOpenForWrite);
}

TEST_F(LabelTest, TheClassIsRegisteredOnce)
{
    EXPECT_EQ(thrownBy([] { CBSystemLabel::rxInit(); }).code, 313);
    const OdRxClass* record = CBSystemLabel::desc();
    EXPECT_EQ(record->dxfName(), L"BSYSTEMLABEL");
    EXPECT_EQ(record->appName(), L"Quend.Zol.Cad | Description: terra - SHAPING - B - System - Label");
    OdDb::MaintReleaseVer maintenance{};
    EXPECT_EQ(record->getClassVersion(&maintenance), 33);
    EXPECT_EQ(maintenance, 55);
    EXPECT_EQ(record->proxyFlags(), 0u);
    EXPECT_EQ(CBSystemLabel::getVersion(), 1);
}

// ---- References -----------------------------------------------------------------------------------------------------

TEST_F(LabelTest, RefusesReferencesThatAreNone)
{
    const std::string function = "CBSystemLabel::AddReferencedObjectId";
    const OdDbObjectId dangling = db->getOdDbObjectId(OdDbHandle(0xFFFF), true);
    const OdDbObjectId erased = addLine();
    erase(erased);
    const struct
    {
        OdDbObjectId id;
        Fault fault;
    } rows[] = {
        {OdDbObjectId(), argumentFault(21, "id", function)},
        {dangling, argumentFault(398, "id", function)},
        {erased, valueFault(20, "pObject", function)},
    };
    const std::vector<OdDbObjectId> lines = addLines(2);
    const OdDbObjectId id = addLabel({lines[0]}, L"E");
    for (const auto& row : rows)
    {
        EXPECT_EQ(thrownBy([&] { openLabel(id, OdDb::kForWrite)->AddReferencedObjectId(row.id); }), row.fault);
        const OdDbObjectIdArray all = idArray({lines[1], row.id, lines[0]});
        EXPECT_EQ(thrownBy([&] { openLabel(id, OdDb::kForWrite)->SetReferencedObjectIds(all); }), row.fault);
        EXPECT_EQ(referencesOf(id), std::vector{lines[1]}) << "what came before it stays";
        EXPECT_EQ(markOf(lines[0]), "-, ");
    }
}

TEST_F(LabelTest, ObjectsThatAreNoEntitiesCarryNoMarks)
{
    const OdDbObjectId layers = db->getLayerTableId();
    const OdDbObjectId id = addLabel({layers}, L"E");
    EXPECT_EQ(referencesOf(id), std::vector{layers});
    EXPECT_EQ(markOf(layers), "");
    EXPECT_TRUE(listens(id, layers));
}

TEST_F(LabelTest, ATextTooLongForTheMarksIsRefused)
{
    const OdDbObjectId line = addLine();
    const CBSystemLabelPtr label = CBSystemLabel::createObject();
    EXPECT_EQ(thrownBy([&] { label->Initialize(db, OdString(L'x', 17000), idArray({line}), L""); }).code,
              eXdataSizeExceeded);
    EXPECT_EQ(markOf(line), "");
    EXPECT_FALSE(listens(label->objectId(), line));
}

// ---- Blocks ---------------------------------------------------------------------------------------------------------

TEST_F(LabelTest, MarksGoDownIntoBlocksOfOneReference)
{
    const OdDbObjectId inner = addBlock(L"INNER");
    const OdDbObjectId innerLine = addLine(0, inner);
    const OdDbObjectId outer = addBlock(L"OUTER");
    const OdDbObjectId outerLine = addLine(0, outer);
    const OdDbObjectId nested = addInsert(inner, outer);
    const OdDbObjectId shared = addBlock(L"SHARED");
    const OdDbObjectId sharedLine = addLine(0, shared);
    const OdDbObjectId nestedShared = addInsert(shared, outer);
    addInsert(shared);
    const OdDbObjectId insert = addInsert(outer);
    const OdDbObjectId id = addLabel({insert}, L"E");
    const std::string mark = "E, " + guidOf(id);
    for (const OdDbObjectId& marked : {insert, outerLine, nested, innerLine, nestedShared})
        EXPECT_EQ(markOf(marked), mark);
    EXPECT_EQ(markOf(sharedLine), "");
    EXPECT_FALSE(listens(id, innerLine));
    openLabel(id, OdDb::kForWrite)->ClearReferencedObjectIds();
    for (const OdDbObjectId& marked : {insert, outerLine, nested, innerLine, nestedShared})
        EXPECT_EQ(markOf(marked), "-, ");
}

TEST_F(LabelTest, BlocksThatContainThemselvesComeToAnEnd)
{
    const OdDbObjectId direct = addBlock(L"DIRECT");
    const OdDbObjectId inDirect = addInsert(direct, direct);
    const OdDbObjectId one = addBlock(L"ONE");
    const OdDbObjectId two = addBlock(L"TWO");
    const OdDbObjectId inOne = addInsert(two, one);
    const OdDbObjectId inTwo = addInsert(one, two);
    const OdDbObjectId id = addLabel({inDirect, inOne}, L"E");
    for (const OdDbObjectId& marked : {inDirect, inOne, inTwo})
        EXPECT_EQ(markOf(marked), "E, " + guidOf(id));
    erase(id);
    EXPECT_EQ(markOf(inTwo), "-, ");
}

TEST_F(LabelTest, DeepBlocksDoNotExhaustTheStack)
{
    OdDbObjectId block = addBlock(L"B0");
    const OdDbObjectId bottom = addLine(0, block);
    for (int depth = 1; depth < 20000; ++depth)
    {
        const OdDbObjectId outer = addBlock(OdString().format(L"B%d", depth));
        addInsert(block, outer);
        block = outer;
    }
    const OdDbObjectId id = addLabel({addInsert(block)}, L"E");
    EXPECT_EQ(markOf(bottom), "E, " + guidOf(id));
}

TEST_F(LabelTest, DimensionsMarkTheBlockOfTheirOwn)
{
    const OdDbObjectId block = addBlock(L"*D1");
    const OdDbObjectId line = addLine(0, block);
    OdSmartPtr<OdDbRotatedDimension> dimension = OdDbRotatedDimension::createObject();
    dimension->setDimBlockId(block, true);
    const OdDbObjectId idDimension = append(dimension);
    dimension.release();
    const OdDbObjectId id = addLabel({idDimension}, L"E");
    EXPECT_EQ(markOf(line), "E, " + guidOf(id));
}

TEST_F(LabelTest, ASharedBlockWithManyReferencesCostsNoMoreForEach)
{
    const OdDbObjectId block = addBlock(L"B");
    addLine(0, block);
    std::vector<OdDbObjectId> inserts;
    for (int i = 0; i < 20000; ++i)
        inserts.push_back(addInsert(block));
    const OdDbObjectId id = addLabel(inserts, L"E");
    EXPECT_EQ(referencesOf(id), inserts);
    openLabel(id, OdDb::kForWrite)->ClearReferencedObjectIds();
    EXPECT_EQ(markOf(inserts.back()), "-, ");
}

// ---- Geometry and the list ------------------------------------------------------------------------------------------

TEST_F(LabelTest, ExtentsAreThoseOfWhatCanBeMeasured)
{
    OdGeExtents3d extents(OdGePoint3d(1, 2, 3), OdGePoint3d(4, 5, 6));
    const OdGeExtents3d before = extents;
    const OdDbObjectId gone = addLine(100);
    const OdDbObjectId id = addLabel({addLine(0), addLine(10), gone, db->getLayerTableId()}, L"E");
    erase(gone);
    EXPECT_EQ(openLabel(addLabel({}, L"none"))->getGeomExtents(extents), eInvalidExtents);
    EXPECT_EQ(extents, before);
    EXPECT_EQ(openLabel(id)->getGeomExtents(extents), eOk);
    EXPECT_EQ(extents, OdGeExtents3d(OdGePoint3d(0, 0, 0), OdGePoint3d(11, 2, 0)));
}

TEST(ReferenceList, BehavesAsAPlainList)
{
    std::mt19937 random(7);
    std::vector<OdDbObjectId> ids(60);
    for (std::size_t i = 1; i < ids.size(); ++i)
        ids[i] = OdDbObjectId(reinterpret_cast<OdDbStub*>(i * 64));
    CReferenceList list;
    std::vector<OdDbObjectId> model;
    for (int step = 0; step < 20000; ++step)
    {
        const OdDbObjectId id = ids[random() % ids.size()];
        const auto found = std::find(model.begin(), model.end(), id);
        ASSERT_EQ(list.Has(id), found != model.end()) << step;
        if (random() % 5 < (step / 5000 % 2 ? 3u : 2u))
        {
            list.Append(id);
            model.push_back(id);
        }
        else
        {
            ASSERT_EQ(list.RemoveFirst(id), found != model.end()) << step;
            if (found != model.end())
                model.erase(found);
        }
        if (step % 100 == 0)
        {
            const OdDbObjectIdArray all = list.Ids();
            ASSERT_EQ(std::vector<OdDbObjectId>(all.begin(), all.end()), model) << step;
        }
    }
}

} // namespace
