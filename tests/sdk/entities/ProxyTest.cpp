// Entities of classes that nobody knows: where they are, and what of them can be moved.
#include <cstring>

#include "EntityTest.h"
#include "Ge/GeMatrix3d.h"
#include "support/ShapeRecorder.h"

namespace
{

using namespace entitytest;
using namespace support;

struct PlaceCase
{
    const char *dxfName, *groups;
    Box box;
};

const PlaceCase kPlaces[] = {
    {"MLINE",
     "100 AcDbMline|2 STANDARD|10 1|20 2|30 0|210 0|220 0|230 1|72 2|73 2|11 1|21 2|31 0|12 1|22 0|32 0|13 0|23 1|33 0|"
     "74 0|75 0|11 9|21 7|31 0|12 1|22 0|32 0|13 0|23 1|33 0|74 0|75 0",
     {1, 2, 0, 9, 7, 0}},
    {"TOLERANCE", "100 AcDbFcf|3 Standard|10 4|20 5|30 6|1 text|11 1|21 0|31 0", {4, 5, 6, 4, 5, 6}},
    {"LIGHT", "100 AcDbLight|90 1|1 Light|10 4|20 5|30 6|11 0|21 0|31 0", {4, 5, 6, 4, 5, 6}},
    {"SHAPE", "100 AcDbShape|10 1|20 2|30 3|40 1|2 TRACK|210 0|220 0|230 -1", {-1, 2, -3, -1, 2, -3}},
    {"MULTILEADER",
     "100 AcDbMLeader|270 2|300 CONTEXT_DATA{|40 1|10 50|20 60|30 0|41 4|290 1|304 text|12 51|22 61|32 0|110 0|120 0|"
     "130 0|302 LEADER{|290 1|10 45|20 60|30 0|304 LEADER_LINE{|10 20|20 30|30 0|10 25|20 31|30 0|91 0|305 }|271 0|303 "
     "}|301 }|340 0",
     {20, 30, 0, 51, 61, 0}},
};

TEST_F(EntityTest, ProxiesWithoutPictureAreWhereTheirGroupsSay)
{
    for (const PlaceCase& each : kPlaces)
        expectBoxOf(*entityFrom(each.dxfName, each.groups), each.box, 1e-9, each.dxfName);
}

TEST_F(EntityTest, ProxiesThatNobodyKnowsHaveNoPlaceAndDoNotMove)
{
    const OdDbEntityPtr entity = entityFrom("3DSOLID", "100 AcDbModelerGeometry|70 1|1 ng mjjk|10 1|20 2|30 3");
    OdGeExtents3d extents;
    EXPECT_EQ(entity->getGeomExtents(extents), eInvalidExtents);
    const oddb::Groups before = oddb::ObjectCore::groups(*entity);
    EXPECT_EQ(entity->transformBy(OdGeMatrix3d::translation({1, 0, 0})), eNotImplementedYet);
    EXPECT_TRUE(oddb::ObjectCore::groups(*entity) == before);
}

class Picture
{
public:
    template<class T>
    Picture& put(T value)
    {
        bytes.append(reinterpret_cast<const char*>(&value), sizeof value);
        return *this;
    }
    Picture& box(std::initializer_list<double> corners)
    {
        put(56).put(1);
        for (const double number : corners)
            put(number);
        return *this;
    }
    std::string bytes;
};

OdDbEntityPtr withPicture(std::string_view dxfName, const std::string& picture, std::string_view data)
{
    OdDbEntityPtr entity = entityFrom(dxfName, data);
    oddb::GroupsBuilder groups;
    groups.append(groupsFrom("100 AcDbEntity|8 0"));
    groups.integer(160, static_cast<std::int64_t>(picture.size()));
    for (std::size_t at = 0; at < picture.size(); at += 127)
        groups.binary(310, std::string_view(picture).substr(at, 127));
    groups.append(groupsFrom(data)).binary(310, "of the class itself");
    oddb::ObjectCore::putGroups(*entity, groups.finish());
    return entity;
}

std::string pictureOf(const OdDbEntity& entity)
{
    std::string picture;
    for (const oddb::GroupView& group : oddb::ObjectCore::groups(entity))
    {
        if (group.code() == 310 && group.binary() != "of the class itself")
        {
            EXPECT_LE(group.binary().size(), 127u);
            picture += group.binary();
        }
    }
    return picture;
}

TEST_F(EntityTest, PicturesOfProxiesMoveWithTheirData)
{
    const std::string piece = Picture().put(12).put(14).put(1).bytes; // a colour
    const std::string head = Picture().put(8 + 56 + 12).put(2).bytes;
    const std::string box = Picture().box({1, 2, 3, 4, 5, 6}).bytes;
    const OdDbEntityPtr entity = withPicture("MLINE", head + box + piece, kPlaces[0].groups);
    expectBoxOf(*entity, {1, 2, 3, 4, 5, 6}, 0, "before");
    ASSERT_EQ(entity->transformBy(OdGeMatrix3d::translation({10, 20, 30})), eOk);
    expectBoxOf(*entity, {11, 22, 33, 14, 25, 36}, 1e-9, "moved");

    Picture expected;
    expected.put(8 + 56 + 136 + 12 + 8).put(4).box({11, 22, 33, 14, 25, 36}).put(136).put(29);
    for (const double number : {1.0, 0.0, 0.0, 10.0, 0.0, 1.0, 0.0, 20.0, 0.0, 0.0, 1.0, 30.0, 0.0, 0.0, 0.0, 1.0})
        expected.put(number);
    expected.bytes += piece;
    expected.put(8).put(31);
    EXPECT_TRUE(pictureOf(*entity) == expected.bytes);
    EXPECT_EQ(oddb::ObjectCore::groups(*entity).findAny(160)->integer(), std::int64_t(expected.bytes.size()));
}

TEST_F(EntityTest, DamagedPicturesOfProxiesDoNoHarm)
{
    const std::string whole = Picture().put(8 + 56).put(1).box({1, 2, 3, 4, 5, 6}).bytes;
    for (std::size_t length = 0; length <= whole.size(); ++length)
    {
        for (const int wrongSize : {0, -1, 7, 0x7FFFFFFF})
        {
            std::string picture = whole.substr(0, length);
            if (picture.size() >= 12)
                std::memcpy(picture.data() + 8, &wrongSize, sizeof wrongSize);
            const OdDbEntityPtr entity = withPicture("MLINE", picture, kPlaces[0].groups);
            OdGeExtents3d extents;
            EXPECT_EQ(entity->getGeomExtents(extents), eOk);
            EXPECT_EQ(entity->transformBy(OdGeMatrix3d::translation({1, 1, 1})), eOk);
        }
    }
}

Picture& putAll(Picture& picture, std::initializer_list<double> numbers)
{
    for (const double number : numbers)
        picture.put(number);
    return picture;
}

/// Puts 8-bit characters with as many bytes each.
void putCharacters(Picture& picture, std::string_view text, std::size_t width)
{
    const std::size_t start = picture.bytes.size();
    for (const char c : text)
        picture.bytes += std::string(1, c) + std::string(width - 1, '\0');
    const std::size_t size = picture.bytes.size() + width - start;
    picture.bytes.resize(start + (size + 3) / 4 * 4);
}

/// A text in a font, as the kind says with as many bytes to a character.
std::string styledText(int kind, std::size_t width)
{
    Picture data;
    putAll(data, {1, 2, 3, 0, 0, 1, 0, 5, 0});
    putCharacters(data, "%%c %%d", width);
    putAll(data.put(7).put(0), {2.5, 0.8, 0.1, 1.0});
    data.put(0).put(0).put(0).put(1).put(0).put(1).put(0).put(0).put(34);
    for (const char* name : {"Arial", "arial.ttf", ""})
        putCharacters(data, name, width);
    Picture picture;
    picture.put(0).put(0).put(static_cast<int>(data.bytes.size()) + 8).put(kind);
    return picture.bytes + data.bytes;
}

/// A red line, a circle twice as large as it says, a text, and a kind that nobody knows.
std::string drawnPicture()
{
    Picture picture;
    picture.put(0).put(0).put(12).put(14).put(1);
    putAll(picture.put(8 + 4 + 48).put(6).put(2), {0, 0, 0, 3, 4, 0});
    putAll(picture.put(136).put(29), {2, 0, 0, 10, 0, 2, 0, 0, 0, 0, 2, 0, 0, 0, 0, 1});
    putAll(picture.put(8 + 56).put(2), {5, 0, 0, 1, 0, 0, 1});
    picture.put(8).put(31).put(12).put(99).put(7);
    putAll(picture.put(8 + 96 + 8).put(10), {1, 2, 3, 0, 0, 1, 1, 0, 0, 2, 1, 0});
    picture.bytes += std::string("seen\0\0\0\0", 8);
    return picture.bytes;
}

TEST_F(EntityTest, ProxiesDrawTheirPictures)
{
    const std::vector<DrawnShape> shapes = drawnBy(*withPicture("MLINE", drawnPicture(), kPlaces[0].groups));
    ASSERT_EQ(shapes.size(), 3u);
    EXPECT_EQ(shapes[0].kind, ShapeKind::kLine);
    EXPECT_EQ(shapes[0].color.colorIndex(), 1);
    EXPECT_TRUE(shapes[0].points().back().isEqualTo({3, 4, 0}));
    EXPECT_EQ(shapes[1].kind, ShapeKind::kArc);
    for (const OdGePoint3d& point : shapes[1].points())
        EXPECT_NEAR(point.distanceTo({20, 0, 0}), 2.0, 1e-9);
    EXPECT_EQ(shapes[2].kind, ShapeKind::kText);
    EXPECT_TRUE(shapes[2].points().front().isEqualTo({1, 2, 3})) << "the matrix is no longer in force";
    EXPECT_EQ(shapes[2].text, L"seen");
}

TEST_F(EntityTest, ProxiesDrawTextsInTheirFonts)
{
    const struct
    {
        int kind;
        std::size_t width;
    } rows[] = {{11, 1}, {38, 2}};
    for (const auto& [kind, width] : rows)
    {
        const std::string picture = styledText(kind, width);
        const std::vector<DrawnShape> shapes = drawnBy(*withPicture("MULTILEADER", picture, "100 AcDbMLeader"));
        ASSERT_EQ(shapes.size(), 1u) << kind;
        EXPECT_EQ(shapes[0].text, L"\u2205 \u00B0") << kind;
        EXPECT_TRUE(shapes[0].points().front().isEqualTo({1, 2, 3})) << kind;
        for (std::size_t length = 8; length < picture.size(); ++length)
            drawnBy(*withPicture("MULTILEADER", picture.substr(0, length), "100 AcDbMLeader"));
    }
}

TEST_F(EntityTest, CutPicturesOfProxiesAreDrawnAsFarAsTheyGo)
{
    const std::string whole = drawnPicture();
    std::size_t drawn = 0;
    for (std::size_t length = 0; length <= whole.size(); ++length)
    {
        std::size_t now = drawnBy(*withPicture("3DSOLID", whole.substr(0, length), "100 AcDbModelerGeometry")).size();
        EXPECT_GE(now, drawn) << length;
        drawn = now;
    }
    EXPECT_EQ(drawn, 3u);
    std::string endless = whole;
    const std::int32_t count = 0x7FFFFFFF; // points of the line
    std::memcpy(endless.data() + 28, &count, sizeof count);
    EXPECT_EQ(drawnBy(*withPicture("3DSOLID", endless, "100 AcDbModelerGeometry")).size(), 2u);
}

} // namespace
