// The table of classes and the tables of groups: which class groups belong to, what new objects hold, where a value
// that is set goes.
#include <functional>
#include <iterator>
#include <set>
#include <sstream>

#include "DbArc.h"
#include "DbBlockReference.h"
#include "DbEllipse.h"
#include "DbFace.h"
#include "DbHatch.h"
#include "DbLeader.h"
#include "DbLine.h"
#include "DbPolyline.h"
#include "DbSpline.h"
#include "DbText.h"
#include "EntityTest.h"
#include "db/Atoms.h"
#include "support/ErrorCode.h"

namespace
{

using namespace entitytest;

/// The names of all classes in files.
std::vector<std::string> dxfNames()
{
    std::istringstream names(
        "LINE XLINE RAY POINT CIRCLE ARC ELLIPSE SPLINE LWPOLYLINE LEADER TEXT ATTRIB ATTDEF MTEXT VERTEX "
        "SEQEND POLYLINE INSERT ACAD_TABLE BLOCK ENDBLK DIMENSION LARGE_RADIAL_DIMENSION ARC_DIMENSION HATCH "
        "SOLID TRACE 3DFACE IMAGE WIPEOUT IMAGEDEF VIEWPORT ");
    return {std::istream_iterator<std::string>(names), {}};
}

TEST_F(EntityTest, GroupsFindTheirClass)
{
    const std::tuple<const char*, const char*, const char*> rows[] = {
        // With markers
        {"POLYLINE", "100 AcDbEntity|8 0|100 AcDb2dPolyline|66 1", "OdDb2dPolyline"},
        {"POLYLINE", "100 AcDbEntity|8 0|100 AcDb3dPolyline|66 1|70 8", "OdDb3dPolyline"},
        {"POLYLINE", "100 AcDbEntity|8 0|100 AcDbPolygonMesh|66 1|70 16", "OdDbPolygonMesh"},
        {"POLYLINE", "100 AcDbEntity|8 0|100 AcDbPolyFaceMesh|66 1|70 64", "OdDbPolyFaceMesh"},
        {"VERTEX", "100 AcDbEntity|8 0|100 AcDbVertex|100 AcDb3dPolylineVertex|10 1", "OdDb3dPolylineVertex"},
        {"VERTEX", "100 AcDbEntity|8 0|100 AcDbFaceRecord|70 128|71 1", "OdDbFaceRecord"},
        {"INSERT", "100 AcDbEntity|8 0|100 AcDbBlockReference|2 B", "OdDbBlockReference"},
        {"INSERT", "100 AcDbEntity|8 0|100 AcDbMInsertBlock|2 B|70 3", "OdDbMInsertBlock"},
        {"DIMENSION", "100 AcDbEntity|100 AcDbDimension|70 32|100 AcDbAlignedDimension|13 1|100 AcDbRotatedDimension",
         "OdDbRotatedDimension"},
        {"DIMENSION", "100 AcDbEntity|100 AcDbDimension|70 33|100 AcDbAlignedDimension|13 1", "OdDbAlignedDimension"},
        {"DIMENSION", "100 AcDbEntity|100 AcDbDimension|70 34|100 AcDb2LineAngularDimension|13 1",
         "OdDb2LineAngularDimension"},
        // Without markers, as in R12
        {"POLYLINE", "8 0|66 1|70 1", "OdDb2dPolyline"},
        {"POLYLINE", "8 0|66 1|70 9", "OdDb3dPolyline"},
        {"POLYLINE", "8 0|66 1|70 17", "OdDbPolygonMesh"},
        {"POLYLINE", "8 0|66 1|70 64", "OdDbPolyFaceMesh"},
        {"VERTEX", "8 0|10 1|20 2", "OdDb2dVertex"},
        {"VERTEX", "8 0|10 1|20 2|70 16", "OdDb2dVertex"},
        {"VERTEX", "8 0|10 1|20 2|70 32", "OdDb3dPolylineVertex"},
        {"VERTEX", "8 0|10 1|20 2|70 64", "OdDbPolygonMeshVertex"},
        {"VERTEX", "8 0|10 1|20 2|70 192", "OdDbPolyFaceMeshVertex"},
        {"VERTEX", "8 0|10 0|20 0|70 128|71 1", "OdDbFaceRecord"},
        {"INSERT", "8 0|2 B|10 0|70 1|71 4|45 5", "OdDbMInsertBlock"},
        {"INSERT", "8 0|2 B|10 0|70 1|71 1", "OdDbBlockReference"},
        {"DIMENSION", "8 0|70 0|13 1", "OdDbRotatedDimension"},
        {"DIMENSION", "8 0|70 129|13 1", "OdDbAlignedDimension"},
        {"DIMENSION", "8 0|70 2", "OdDb2LineAngularDimension"},
        {"DIMENSION", "8 0|70 3", "OdDbDiametricDimension"},
        {"DIMENSION", "8 0|70 4", "OdDbRadialDimension"},
        {"DIMENSION", "8 0|70 5", "OdDb3PointAngularDimension"},
        {"DIMENSION", "8 0|70 70", "OdDbOrdinateDimension"},
        {"LINE", "8 0|10 1", "OdDbLine"},
    };
    for (const auto& [dxfName, groups, className] : rows)
    {
        const oddb::DxfClass* found = entityclasses::classFor(dxfName, groupsFrom(groups));
        ASSERT_NE(found, nullptr) << groups;
        EXPECT_STREQ(found->className, className) << groups;
    }
    EXPECT_EQ(entityclasses::classFor("NO_SUCH_ENTITY", groupsFrom("8 0")), nullptr);
}

/// A group code that a part lists twice would be read back from another place than it is written to.
TEST_F(EntityTest, NoPartListsACodeTwiceUnlessItRepeats)
{
    for (const std::string& dxfName : dxfNames())
    {
        const oddb::DxfClass* known = oddb::findDxfClass(dxfName);
        ASSERT_NE(known, nullptr) << dxfName;
        for (const oddb::DxfSubclass* part : known->subclasses)
        {
            std::set<int> codes;
            for (const oddb::DxfRow& row : part->rows)
            {
                const int coordinates = row.kind == oddb::DxfKind::Point3d   ? 3
                                        : row.kind == oddb::DxfKind::Point2d ? 2
                                                                             : 1;
                for (int i = 0; i < coordinates && !row.repeats; ++i)
                    EXPECT_TRUE(codes.insert(row.code + 10 * i).second) << part->marker << " " << row.code;
            }
        }
    }
}

TEST_F(EntityTest, NewObjectsHaveAllMarkersOfTheirClassInOrder)
{
    for (const std::string& dxfName : dxfNames())
    {
        const oddb::DxfClass* known = oddb::findDxfClass(dxfName);
        const oddb::Groups groups = entityclasses::initialGroups(*known);
        std::size_t part = 0;
        int last = -1;
        for (const oddb::GroupView& group : groups)
        {
            if (group.code() == 100)
            {
                ASSERT_LT(part, known->subclasses.size()) << dxfName;
                EXPECT_EQ(group.text(), known->subclasses[part]->marker) << dxfName;
                ++part;
                last = -1;
                continue;
            }
            const auto& rows = known->subclasses[part - 1]->rows;
            const oddb::DxfRow* row = known->subclasses[part - 1]->row(group.code());
            ASSERT_NE(row, nullptr) << dxfName << " " << group.code();
            EXPECT_GE(row - rows.data(), last) << dxfName << " " << group.code();
            last = static_cast<int>(row - rows.data());
        }
        EXPECT_EQ(part, known->subclasses.size()) << dxfName;
    }
}

TEST_F(EntityTest, SettersRefuseWhatIsNoShapeAndChangeNothing)
{
    OdDbArcPtr arc = OdDbArc::createObject();
    arc->setRadius(2);
    OdDbTextPtr text = OdDbText::createObject();
    OdDbPolylinePtr polyline = OdDbPolyline::createObject();
    polyline->addVertexAt(0, OdGePoint2d(1, 2));
    OdDbHatchPtr hatch = OdDbHatch::createObject();
    OdDbSplinePtr spline = OdDbSpline::createObject();
    OdDbEllipsePtr ellipse = OdDbEllipse::createObject();
    OdDbFacePtr face = OdDbFace::createObject();
    OdDbLeaderPtr leader = OdDbLeader::createObject();
    OdDbBlockReferencePtr reference = OdDbBlockReference::createObject();
    const OdGePoint2dArray noPoints;
    const OdGeDoubleArray noBulges;
    OdArray<OdGePoint3d> controls;
    controls.append(OdGePoint3d());
    OdGePoint3d point;
    const struct
    {
        const char* what;
        OdDbEntity* entity;
        OdResult code;
        std::function<void()> act;
    } rows[] = {
        {"negative radius", arc, eInvalidInput, [&] { arc->setRadius(-1); }},
        {"radius that is no number", arc, eInvalidInput, [&] { arc->setRadius(std::nan("")); }},
        {"zero normal", arc, eInvalidInput, [&] { arc->setNormal(OdGeVector3d(0, 0, 0)); }},
        {"zero text height", text, eInvalidInput, [&] { text->setHeight(0); }},
        {"text style of no table", text, eInvalidInput, [&] { text->setTextStyle(OdDbObjectId()); }},
        {"vertex behind the end", polyline, eInvalidIndex, [&] { polyline->addVertexAt(2, OdGePoint2d()); }},
        {"bulge of no vertex", polyline, eInvalidIndex, [&] { polyline->setBulgeAt(1, 1); }},
        {"negative width", polyline, eInvalidInput, [&] { polyline->setConstantWidth(-1); }},
        {"loop without vertices", hatch, eInvalidInput, [&] { hatch->appendLoop(1, noPoints, noBulges); }},
        {"loop that is not there", hatch, eInvalidIndex, [&] { hatch->removeLoopAt(0); }},
        {"spline of one point", spline, eInvalidInput,
         [&] { spline->setNurbsData(3, controls, OdArray<double>(), OdArray<double>()); }},
        {"ratio above one", ellipse, eInvalidInput,
         [&] { ellipse->set(OdGePoint3d(), OdGeVector3d(0, 0, 1), OdGeVector3d(1, 0, 0), 1.5); }},
        {"fifth corner", face, eInvalidIndex, [&] { face->setVertexAt(4, point); }},
        {"vertex of an empty leader", leader, eInvalidIndex, [&] { leader->setVertexAt(0, point); }},
        {"zero scale factor", reference, eInvalidInput, [&] { reference->setScaleFactors(OdGeScale3d(1, 0, 1)); }},
        {"block of no table", reference, eInvalidInput, [&] { reference->setBlockTableRecord(OdDbObjectId()); }},
    };
    for (const auto& row : rows)
    {
        const oddb::Groups before = oddb::ObjectCore::groups(*row.entity);
        EXPECT_EQ(support::codeOf(row.act), row.code) << row.what;
        EXPECT_TRUE(before == oddb::ObjectCore::groups(*row.entity)) << row.what;
    }
}

TEST_F(EntityTest, PolylineVerticesComeBackAsTheyWereSet)
{
    OdDbPolylinePtr polyline = OdDbPolyline::createObject();
    for (unsigned int i = 0; i < 5; ++i)
        polyline->addVertexAt(i, OdGePoint2d(i, i * i), i == 2 ? 0.5 : 0.0, i == 3 ? 1.0 : -1.0, i == 3 ? 2.0 : -1.0);
    polyline->addVertexAt(0, OdGePoint2d(-1, -1), -1.0);
    polyline->removeVertexAt(1);
    polyline->setNormal(OdGeVector3d(0, 0, -1));
    polyline->setClosed(true);
    polyline->setElevation(7);
    EXPECT_EQ(polyline->numVerts(), 5u);
    OdGePoint2d flat;
    polyline->getPointAt(0, flat);
    EXPECT_EQ(flat, OdGePoint2d(-1, -1));
    OdGePoint3d world;
    polyline->getPointAt(4, world);
    EXPECT_EQ(world, OdGePoint3d(-4, 16, -7));
    EXPECT_EQ(polyline->getBulgeAt(0), -1.0);
    EXPECT_EQ(polyline->getBulgeAt(2), 0.5);
    double start = 0;
    double end = 0;
    polyline->getWidthsAt(3, start, end);
    EXPECT_EQ(start, 1.0);
    EXPECT_EQ(end, 2.0);
    EXPECT_EQ(polyline->getConstantWidth(), 0.0);
    polyline->setConstantWidth(3);
    polyline->getWidthsAt(3, start, end);
    EXPECT_EQ(polyline->getConstantWidth(), 3.0);
    EXPECT_EQ(start, 0.0);
    polyline->reset(true, 2);
    EXPECT_EQ(polyline->numVerts(), 2u);
    EXPECT_FALSE(polyline->hasBulges());
    polyline->reset();
    EXPECT_EQ(polyline->numVerts(), 0u);
    polyline->addVertexAt(0, OdGePoint2d(1, 1));
    // The normal stays behind the vertices, where files have it.
    int last = 0;
    for (const oddb::GroupView& group : oddb::ObjectCore::groups(*polyline))
        last = group.code();
    EXPECT_EQ(last, 230);
}

} // namespace
