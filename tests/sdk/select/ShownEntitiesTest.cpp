// Of which entities anything is seen: asked one by one, in any order, the same as a crossing around all finds.
#include <algorithm>

#include "DbBlockTableRecord.h"
#include "DbShownEntities.h"
#include "SelectTest.h"

namespace
{

using namespace selecttest;

std::string shownIn(OdDbDatabase& database, bool isForwards)
{
    OdDbObjectIdArray ids;
    OdDbShownEntities shown;
    const OdDbBlockTableRecordPtr space = database.getActiveLayoutBTRId().safeOpenObject();
    for (OdDbObjectIteratorPtr walk = space->newIterator(isForwards); !walk->done(); walk->step(isForwards))
        if (shown.isShown(*walk->entity()))
            ids.append(walk->objectId());
    if (!isForwards)
        ids.reverse();
    return handlesOf(ids);
}

std::string insert(const char* handle, const char* layer, const char* block)
{
    return std::string("INSERT ") + handle + " " + layer + "|100 AcDbBlockReference|2 " + block + "|10 0|20 0";
}

TEST(ShownEntities, AreThoseThatDrawSomething)
{
    const Content content = {
        {
            "LINE A1 0|100 AcDbLine|10 0|20 0|11 1|21 0",
            "LINE A2 OFF|100 AcDbLine|10 0|20 0|11 1|21 0",
            "LINE A3 FROZEN|100 AcDbLine|10 0|20 0|11 1|21 0",
            "LINE A4 0|60 1|100 AcDbLine|10 0|20 0|11 1|21 0",
            // One block, drawn by references on layers of each state, in the order that a wrong memory would mix up.
            insert("B1", "OFF", "PLAIN"),
            insert("B2", "0", "PLAIN"),
            insert("B3", "OFF", "PLAIN"),
            insert("B4", "FROZEN", "PLAIN"),
            insert("B5", "0|60 1", "PLAIN"),
            insert("B6", "LOCKED", "PLAIN"),
            // Nested: layer "0" is that of the reference around, at any depth.
            insert("C1", "OFF", "OUTER"),
            insert("C2", "0", "OUTER"),
            insert("C3", "0", "FROZENWITHIN"),
            insert("C4", "OFF", "OFFWITHIN"),
            insert("C5", "0", "EMPTY"),
            insert("C6", "0", "NOSUCH"),
            insert("C7", "0", "ENDLESS"),
            // Attributes are each reference's own.
            "INSERT 71 0|66 1|100 AcDbBlockReference|2 HIDDEN|10 0|20 0",
            "ATTRIB 72 LOCKED|100 AcDbText|10 0|20 0|40 10|1 MMMM|100 AcDbAttribute|2 TAG|70 0",
            "SEQEND 73 0",
            insert("74", "0", "HIDDEN"),
            "INSERT 75 0|66 1|100 AcDbBlockReference|2 HIDDEN|10 0|20 0",
            "ATTRIB 76 OFF|100 AcDbText|10 0|20 0|40 10|1 MMMM|100 AcDbAttribute|2 TAG|70 0",
            "SEQEND 77 0",
            "INSERT 78 0|100 AcDbMInsertBlock|2 PLAIN|10 0|20 0|70 3|71 2|44 100|45 200",
            "INSERT 79 0|100 AcDbMInsertBlock|2 HIDDEN|10 0|20 0|70 300|71 300|44 1|45 1",
            // Cut off by a clip, or not.
            insert("F1", "0", "PLAIN"),
            insert("F2", "0", "PLAIN"),
            insert("F3", "0", "PLAIN"),
            insert("F4", "0", "LINES"),
        },
        {
            {"PLAIN", {"LINE E1 0|100 AcDbLine|10 0|20 0|11 10|21 0"}},
            {"OUTER", {insert("E2", "0", "PLAIN")}},
            {"FROZENWITHIN", {insert("E3", "FROZEN", "PLAIN"), "LINE E4 OFF|100 AcDbLine|10 0|20 0|11 10|21 0"}},
            {"OFFWITHIN", {insert("E5", "LOCKED", "OUTER")}},
            {"EMPTY", {}},
            {"ENDLESS", {insert("E6", "0", "ENDLESS")}},
            {"HIDDEN", {"LINE E7 FROZEN|100 AcDbLine|10 0|20 0|11 10|21 0"}},
            {"LINES", {"XLINE E8 0|100 AcDbXline|10 0|20 0|11 0|21 1", "RAY E9 0|100 AcDbRay|10 0|20 0|11 1|21 0"}},
        }};
    Drawing drawing(content);
    drawing.clip("F1", {{100.0, 100.0}, {110.0, 110.0}});
    drawing.clip("F3", {{5.0, -5.0}, {6.0, 5.0}});
    const std::string expected = "A1 B2 B6 C2 C4 71 78 F2 F3 F4";
    EXPECT_EQ(drawing.select(OdDbVisualSelection::kCrossing, {at(-9999, -9999), at(9999, 9999)}), expected);
    EXPECT_EQ(shownIn(drawing.database(), true), expected);
    EXPECT_EQ(shownIn(drawing.database(), false), expected);
}

// References to blocks with very many parts that are hidden: what is known of a block is known of all of them.
TEST(ShownEntities, AreFoundAmongManyReferences)
{
    Content content;
    constexpr int kReferences = 100'000;
    for (int i = 0; i < kReferences; ++i)
        content.entities.push_back(insert(std::to_string(100'000 + i).c_str(), "0", i % 2 == 0 ? "CROWD" : "LAST"));
    content.blocks = {{"CROWD", {}},
                      {"LAST", {insert("400000", "OFF", "CROWD"), insert("400001", "LOCKED", "LEAF")}},
                      {"LEAF", {"LINE 400002 0|100 AcDbLine|10 0|20 0|11 10|21 0"}}};
    for (int i = 0; i < 10'000; ++i)
        content.blocks[0].entities.push_back("LINE " + std::to_string(300'000 + i) +
                                             " OFF|100 AcDbLine|10 0|20 0|11 10|21 0");
    Drawing drawing(content);
    const std::string shown = shownIn(drawing.database(), true);
    EXPECT_EQ(std::count(shown.begin(), shown.end(), ' ') + 1, kReferences / 2);
}

// Blocks that hold each other twice, forty levels deep: nobody can look at all that they draw.
TEST(ShownEntities, AreFoundWithoutLookingAtEverything)
{
    Content content;
    content.entities = {insert("A1", "0", "N39"), insert("A2", "0", "N39"), insert("A3", "0", "N3")};
    for (int level = 0; level < 40; ++level)
    {
        const auto handle = [level](int copy) { return std::to_string(500'000 + 10 * level + copy); };
        const std::string inner = "N" + std::to_string(level - 1);
        if (level == 0)
            content.blocks.push_back({"N0", {"LINE " + handle(0) + " OFF|100 AcDbLine|10 0|20 0|11 10|21 0"}});
        else
            content.blocks.push_back(
                {"N" + std::to_string(level),
                 {insert(handle(0).c_str(), "0", inner.c_str()), insert(handle(1).c_str(), "0", inner.c_str())}});
    }
    Drawing drawing(content);
    EXPECT_EQ(shownIn(drawing.database(), true), "A1 A2") << "what was not looked at counts as shown";
}

} // namespace
