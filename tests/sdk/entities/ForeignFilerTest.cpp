// Objects through a filer that the SDK does not know: nothing but the operations of the interface may be used.
#include "EntityTest.h"

#include "DbDatabase.h"
#include "DbFiler.h"
#include "db/DatabaseImpl.h"
#include "db/GroupsDxfFiler.h"

namespace
{

using namespace entitytest;
using oddb::Groups;
using oddb::ObjectCore;

/// Hands everything on to a filer of the SDK.
class ForeignFiler : public OdDbDxfFiler
{
public:
    explicit ForeignFiler(const OdSmartPtr<oddb::GroupsDxfFiler>& inside) : m_inside(inside) {}

    FilerType filerType() const override { return m_inside->filerType(); }
    OdDbDatabase* database() const override { return m_inside->database(); }
    void rewindFiler() override { m_inside->rewindFiler(); }
    int nextItem() override { return m_inside->nextItem(); }
    void pushBackItem() override { m_inside->pushBackItem(); }
    int currentGroupCode() const override { return m_inside->currentGroupCode(); }
    bool atEOF() override { return m_inside->atEOF(); }
    bool atExtendedData() override { return m_inside->atExtendedData(); }
    bool atSubclassData(const OdString& name) override { return m_inside->atSubclassData(name); }

    OdString rdString() override { return m_inside->rdString(); }
    bool rdBool() override { return m_inside->rdBool(); }
    OdInt8 rdInt8() override { return m_inside->rdInt8(); }
    OdInt16 rdInt16() override { return m_inside->rdInt16(); }
    OdInt32 rdInt32() override { return m_inside->rdInt32(); }
    OdInt64 rdInt64() override { return m_inside->rdInt64(); }
    OdUInt8 rdUInt8() override { return m_inside->rdUInt8(); }
    OdUInt16 rdUInt16() override { return m_inside->rdUInt16(); }
    OdUInt32 rdUInt32() override { return m_inside->rdUInt32(); }
    OdUInt64 rdUInt64() override { return m_inside->rdUInt64(); }
    OdDbHandle rdHandle() override { return m_inside->rdHandle(); }
    OdDbObjectId rdObjectId() override { return m_inside->rdObjectId(); }
    double rdDouble() override { return m_inside->rdDouble(); }
    double rdAngle() override { return m_inside->rdAngle(); }
    void rdPoint2d(OdGePoint2d& value) override { m_inside->rdPoint2d(value); }
    void rdPoint3d(OdGePoint3d& value) override { m_inside->rdPoint3d(value); }
    void rdVector2d(OdGeVector2d& value) override { m_inside->rdVector2d(value); }
    void rdVector3d(OdGeVector3d& value) override { m_inside->rdVector3d(value); }
    void rdScale3d(OdGeScale3d& value) override { m_inside->rdScale3d(value); }
    void rdBinaryChunk(OdBinaryData& value) override { m_inside->rdBinaryChunk(value); }

    void wrName(const OdString& value) override { m_inside->wrName(value); }
    void wrString(int code, const OdString& value) override { m_inside->wrString(code, value); }
    void wrSubclassMarker(const OdString& value) override { m_inside->wrSubclassMarker(value); }
    void wrBool(int code, bool value) override { m_inside->wrBool(code, value); }
    void wrInt8(int code, OdInt8 value) override { m_inside->wrInt8(code, value); }
    void wrInt16(int code, OdInt16 value) override { m_inside->wrInt16(code, value); }
    void wrInt32(int code, OdInt32 value) override { m_inside->wrInt32(code, value); }
    void wrInt64(int code, OdInt64 value) override { m_inside->wrInt64(code, value); }
    void wrUInt8(int code, OdUInt8 value) override { m_inside->wrUInt8(code, value); }
    void wrUInt16(int code, OdUInt16 value) override { m_inside->wrUInt16(code, value); }
    void wrUInt32(int code, OdUInt32 value) override { m_inside->wrUInt32(code, value); }
    void wrUInt64(int code, OdUInt64 value) override { m_inside->wrUInt64(code, value); }
    void wrHandle(int code, OdDbHandle value) override { m_inside->wrHandle(code, value); }
    void wrObjectId(int code, OdDbObjectId value) override { m_inside->wrObjectId(code, value); }
    void wrDouble(int code, double value, int digits) override { m_inside->wrDouble(code, value, digits); }
    void wrAngle(int code, double value, int digits) override { m_inside->wrAngle(code, value, digits); }
#define WRITE_FIGURES(name, type)                                                                                      \
    void name(int code, const type& value, int digits) override                                                        \
    {                                                                                                                  \
        m_inside->name(code, value, digits);                                                                           \
    }
    WRITE_FIGURES(wrPoint2d, OdGePoint2d)
    WRITE_FIGURES(wrPoint3d, OdGePoint3d)
    WRITE_FIGURES(wrVector2d, OdGeVector2d)
    WRITE_FIGURES(wrVector3d, OdGeVector3d)
    WRITE_FIGURES(wrScale3d, OdGeScale3d)
#undef WRITE_FIGURES
    void wrBinaryChunk(int code, const OdUInt8* bytes, OdUInt32 count) override
    {
        m_inside->wrBinaryChunk(code, bytes, count);
    }

private:
    OdSmartPtr<oddb::GroupsDxfFiler> m_inside;
};

/// What an object reads back of what it wrote, both through a foreign filer.
Groups filed(const OdDbObject& object, OdDbDatabase* database)
{
    const auto writer = oddb::GroupsDxfFiler::create(database);
    OdRxObjectImpl<ForeignFiler, OdDbDxfFiler> out(writer);
    object.dxfOutFields(&out);
    const OdDbObjectPtr made = OdDbObject::cast(object.isA()->create());
    OdRxObjectImpl<ForeignFiler, OdDbDxfFiler> in(oddb::GroupsDxfFiler::createReader(writer->finish(), database));
    EXPECT_EQ(made->dxfInFields(&in), eOk);
    return ObjectCore::groups(*made);
}

constexpr std::pair<const char*, const char*> kCases[] = {
    {"LINE", "10 1|20 2|30 3|11 4|21 5|31 6"},
    {"LWPOLYLINE", "90 2|70 0|10 1|20 2|42 0.5|10 3|20 4"},
    {"HATCH", "10 0|20 0|30 5|210 0|220 0|230 1|2 SOLID|70 1|71 0|91 1|92 2|72 0|73 1|93 2|10 1|20 2|10 3|20 4|97 0|75 "
              "0|76 1|98 1|10 7|20 8"},
    {"IMAGE",
     "90 0|10 1|20 2|30 3|11 1|21 0|31 0|12 0|22 1|32 0|13 640|23 480|71 1|91 2|14 -0.5|24 -0.5|14 639.5|24 479.5"},
    {"VIEWPORT", "10 1|20 2|30 3|40 10|41 20|68 1|69 2|12 1|22 2|13 0|23 0|16 0|26 0|36 1|17 0|27 0|37 0"},
    {"MTEXT", "10 1|20 2|30 3|40 2.5|41 0|71 1|72 5|1 text|7 Standard"},
};

TEST_F(EntityTest, AForeignFilerCarriesPointsOfTwoAndThreeCoordinates)
{
    for (const auto& [dxfName, groups] : kCases)
    {
        const OdDbEntityPtr entity = entityFrom(dxfName, groups);
        EXPECT_TRUE(filed(*entity, nullptr) == ObjectCore::groups(*entity)) << dxfName;
    }
}

TEST_F(EntityTest, AForeignFilerCarriesAllThatBelongsToAnObject)
{
    const OdDbDatabasePtr database = OdDbDatabase::createObject();
    database->initialize();
    database->newRegApp(L"TESTED");
    const OdDbEntityPtr line = entityFrom("LINE", "10 1|20 2|30 3|11 4|21 5|31 6");
    ObjectCore::putGroups(
        *line, groupsFrom("102 {ANY|40 1.5|102 }|100 AcDbEntity|8 0|100 AcDbLine|10 1|20 2|30 3|11 4|21 5|31 6"));
    database->addOdDbObject(line, database->getModelSpaceId());
    const OdResBufPtr chain = OdResBuf::newRb(1001, L"TESTED");
    chain->setNext(OdResBuf::newRb(1010, OdGePoint3d(1, 2, 3)));
    line->setXData(chain);
    line->addPersistentReactor(database->getLayerZeroId());

    const auto writer = oddb::GroupsDxfFiler::create(database);
    OdRxObjectImpl<ForeignFiler, OdDbDxfFiler> out(writer);
    line->dxfOut(&out);
    const OdDbEntityPtr made = OdDbEntity::cast(line->isA()->create());
    const Groups written = writer->finish();
    OdRxObjectImpl<ForeignFiler, OdDbDxfFiler> in(oddb::GroupsDxfFiler::createReader(written, database));
    ASSERT_EQ(made->dxfIn(&in), eOk);
    ASSERT_TRUE(made->xData(L"TESTED"));
    EXPECT_TRUE(made->xData(L"TESTED")->next()->getPoint3d() == OdGePoint3d(1, 2, 3));
    EXPECT_TRUE(made->hasPersistentReactor(database->getLayerZeroId()));
    EXPECT_EQ(made->ownerId(), database->getModelSpaceId());
    EXPECT_EQ(made->layerId(), database->getLayerZeroId());
    const Groups groups = ObjectCore::groups(*made);
    EXPECT_TRUE(groups.begin()->is("{ANY")) << "data of applications";
}

} // namespace
