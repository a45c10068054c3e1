// Editing rows of groups by the table of a class.
#include <gtest/gtest.h>

#include <random>
#include <sstream>

#include "db/DxfClassTable.h"

namespace
{

using namespace oddb;

constexpr DxfRow kBaseRows[] = {
    {8, "layer", DxfKind::Text},
    {62, "colour", DxfKind::Integer, 256},
    {48, "scale", DxfKind::Real, 1.0},
};
constexpr DxfRow kShapeRows[] = {
    {39, "thickness", DxfKind::Real},  {10, "position", DxfKind::Point3d},
    {40, "size", DxfKind::Real, 2.5},  {50, "angles", DxfKind::Angle, 0.0, "", SymbolTable::None, OdDb::vAC12, true},
    {210, "normal", DxfKind::Point3d},
};
constexpr DxfRow kEndRows[] = {{73, "alignment", DxfKind::Integer}};

const DxfSubclass kBase{"AcDbBase", kBaseRows};
const DxfSubclass kShape{"AcDbShape", kShapeRows};
const DxfSubclass kEnd{"AcDbShape", kEndRows}; // the same marker once more
const DxfSubclass* const kParts[] = {&kBase, &kShape, &kEnd};
const DxfClass kClass{"SHAPE", "OdDbShape", kParts, true};

std::string print(const Groups& groups)
{
    std::ostringstream text;
    for (const GroupView& group : groups)
    {
        text << group.code() << '=';
        if (group.type() == GroupType::Text)
            text << group.text();
        else
            text << group.real();
        text << ' ';
    }
    return text.str();
}

Groups whole()
{
    GroupsBuilder builder;
    builder.text(100, "AcDbBase").text(8, "0").real(48, 3);
    builder.text(100, "AcDbShape").point(10, 1, 2, 3).real(999, 5).real(50, 7).real(50, 8);
    builder.text(100, "AcDbShape").integer(73, 1);
    return builder.finish();
}

TEST(GroupsEditor, PutsGroupsWhereTheClassHasThem)
{
    EXPECT_EQ(print(withInteger(whole(), kClass, kBase, 62, 1)),
              "100=AcDbBase 8=0 62=1 48=3 100=AcDbShape 10=1 20=2 30=3 999=5 50=7 50=8 100=AcDbShape 73=1 ");
    EXPECT_EQ(print(withReal(whole(), kClass, kShape, 39, 1)),
              "100=AcDbBase 8=0 48=3 100=AcDbShape 39=1 10=1 20=2 30=3 999=5 50=7 50=8 100=AcDbShape 73=1 ");
    EXPECT_EQ(print(withReal(whole(), kClass, kShape, 40, 1)),
              "100=AcDbBase 8=0 48=3 100=AcDbShape 10=1 20=2 30=3 999=5 40=1 50=7 50=8 100=AcDbShape 73=1 ");
    EXPECT_EQ(print(withPoint(whole(), kClass, kShape, 210, {0, 0, 1})),
              "100=AcDbBase 8=0 48=3 100=AcDbShape 10=1 20=2 30=3 999=5 50=7 50=8 210=0 220=0 230=1 100=AcDbShape "
              "73=1 ");
}

TEST(GroupsEditor, ReplacesInPlace)
{
    EXPECT_EQ(print(withPoint(whole(), kClass, kShape, 10, {9, 8, 7})),
              "100=AcDbBase 8=0 48=3 100=AcDbShape 10=9 20=8 30=7 999=5 50=7 50=8 100=AcDbShape 73=1 ");
    EXPECT_EQ(print(withReal(whole(), kClass, kShape, 50, 1)), // a row that repeats is replaced as a whole
              "100=AcDbBase 8=0 48=3 100=AcDbShape 10=1 20=2 30=3 999=5 50=1 100=AcDbShape 73=1 ");
    EXPECT_EQ(print(withInteger(whole(), kClass, kEnd, 73, 2)),
              "100=AcDbBase 8=0 48=3 100=AcDbShape 10=1 20=2 30=3 999=5 50=7 50=8 100=AcDbShape 73=2 ");
    EXPECT_EQ(print(without(whole(), kClass, kShape, 50)),
              "100=AcDbBase 8=0 48=3 100=AcDbShape 10=1 20=2 30=3 999=5 100=AcDbShape 73=1 ");
    const Groups unchanged = whole();
    EXPECT_EQ(without(unchanged, kClass, kShape, 39).data(), unchanged.data());
}

TEST(GroupsEditor, AddsMissingPartsInOrder)
{
    GroupsBuilder builder;
    const Groups middle = builder.text(100, "AcDbShape").real(40, 1).finish();
    EXPECT_EQ(print(withInteger(middle, kClass, kBase, 62, 1)), "100=AcDbBase 62=1 100=AcDbShape 40=1 ");
    const Groups first = builder.text(100, "AcDbBase").text(8, "0").text(101, "Embedded Object").real(40, 9).finish();
    EXPECT_EQ(print(withReal(first, kClass, kShape, 40, 1)),
              "100=AcDbBase 8=0 100=AcDbShape 40=1 101=Embedded Object 40=9 ");
    EXPECT_EQ(print(withReal(Groups(), kClass, kShape, 40, 1)), "100=AcDbShape 40=1 ");
}

TEST(GroupsEditor, LeavesApplicationDataAlone)
{
    GroupsBuilder builder;
    builder.text(100, "AcDbShape").text(102, "{FOO").real(40, 9).text(100, "AcDbBase").text(102, "}").real(48, 1);
    const Groups groups = builder.finish();
    EXPECT_EQ(print(withReal(groups, kClass, kShape, 40, 1)),
              "100=AcDbShape 102={FOO 40=9 100=AcDbBase 102=} 48=1 40=1 ");
    EXPECT_EQ(print(withText(groups, kClass, kBase, 8, "X")),
              "100=AcDbBase 8=X 100=AcDbShape 102={FOO 40=9 100=AcDbBase 102=} 48=1 ");
}

TEST(GroupsEditor, ReadsDefaultsAndValues)
{
    const Atom base = kBase.atom(), shape = kShape.atom();
    EXPECT_EQ(readInteger(whole(), base, kBaseRows[1]), 256);
    EXPECT_EQ(readReal(whole(), shape, kShapeRows[2]), 2.5);
    EXPECT_EQ(readPoint(whole(), shape, kShapeRows[1]).z, 3);
    EXPECT_EQ(readInteger(whole(), shape, kEndRows[0]), 1);
    EXPECT_EQ(kShape.row(30), &kShapeRows[1]);
    EXPECT_EQ(kShape.row(40), &kShapeRows[2]);
    EXPECT_EQ(kShape.row(41), nullptr);
}

TEST(GroupsEditor, RandomEditsReadBackAndKeepTheRest)
{
    std::mt19937 random(5);
    const DxfSubclass* const subclasses[] = {&kBase, &kShape};
    for (int round = 0; round < 200; ++round)
    {
        Groups groups = random() % 2 ? whole() : Groups();
        double values[2][5] = {};
        bool set[2][5] = {};
        for (int edit = 0; edit < 30; ++edit)
        {
            const int part = static_cast<int>(random() % 2);
            const auto rows = subclasses[part]->rows;
            const std::size_t index = random() % rows.size();
            if (rows[index].kind == DxfKind::Text)
                continue;
            values[part][index] = double(random() % 1000);
            set[part][index] = true;
            const double value = values[part][index];
            groups = rows[index].kind == DxfKind::Point3d
                         ? withPoint(groups, kClass, *subclasses[part], rows[index].code, {value, 1, 2})
                         : withReal(groups, kClass, *subclasses[part], rows[index].code, value);
        }
        for (int part = 0; part < 2; ++part)
            for (std::size_t i = 0; i < subclasses[part]->rows.size(); ++i)
            {
                if (!set[part][i])
                    continue;
                ASSERT_EQ(readReal(groups, subclasses[part]->atom(), subclasses[part]->rows[i]), values[part][i]);
            }
        EXPECT_EQ(readInteger(groups, kEnd.atom(), kEndRows[0]), groups.findAny(73) ? 1 : 0);
    }
}

} // namespace
