// Stamps in files: what is read back of random ones, what another program finds wrong with stamps of every kind, images
// with all that belongs to them, and what is left when they are deleted.
#include <filesystem>
#include <fstream>
#include <random>

#include <sys/stat.h>

#include "AllocatedBytes.h"
#include "AnnotationTest.h"
#include "DbDictionary.h"
#include "DbRasterImageDef.h"
#include "DbSpatialFilter.h"
#include "DynamicLinker.h"
#include "support/Audit.h"
#include "support/DrawingFiles.h"
#include "support/DxfRecords.h"
#include "support/TemporaryFolder.h"

using namespace annotationtest;

namespace
{

// Stamps of which something is missing.
constexpr const char* kLookAtStamps =
    "for insert in drawing.modelspace().query('INSERT'):\n"
    "    kinds = sorted(e.dxftype() for e in insert.block())\n"
    "    if kinds[-3:] != ['HATCH', 'LWPOLYLINE', 'MTEXT'] and 'INSERT' not in kinds: print(kinds)\n"
    "    if not list(insert.virtual_entities()): print('nothing to explode')\n";

class StampFileTest : public AnnotationTest
{
protected:
    StampFileTest() { odrxDynamicLinker()->addSearchFolder(ZOLCAD_MODULES); }

    std::string save(const std::string& name, OdDb::SaveType type = OdDb::kDxf,
                     OdDb::DwgVersion version = OdDb::kDHL_CURRENT)
    {
        std::string path = folder.path(name);
        db->writeFile(OdString(path.c_str()), type, version);
        return path;
    }
    static std::string picture(const std::string& name) { return quoted(ZOLCAD_TEST_DATA "/pictures/" + name); }
    static Changes withImage(const std::string& name, Changes changes = {})
    {
        changes.emplace_back("OriginalImagePath", picture(name));
        return changes;
    }
    OdDbBlockReferencePtr imageReference(const std::string& handle) { return the<OdDbBlockReference>(handle); }
    OdDbRasterImagePtr imageOf(const std::string& handle)
    {
        const OdDbBlockTableRecordPtr block = imageReference(handle)->blockTableRecord().safeOpenObject();
        return entitiesOf(*block).at(0).safeOpenObject();
    }
    std::size_t clipPoints(const std::string& handle)
    {
        const OdDbSpatialFilterPtr filter = OdDbSpatialFilter::cast(
            OdDbIndexFilterManager::getFilter(imageReference(handle), OdDbSpatialFilter::desc()));
        if (!filter)
            return 0;
        OdGePoint2dArray points;
        OdGeVector3d normal;
        double elevation = 0, front = 0, back = 0;
        bool enabled = false;
        filter->getDefinition(points, normal, elevation, front, back, enabled);
        EXPECT_TRUE(enabled);
        return points.size();
    }
    std::size_t definitionCount()
    {
        const OdDbObjectId id = OdDbRasterImageDef::imageDictionary(db);
        return id.isNull() ? 0 : OdDbDictionaryPtr(id.safeOpenObject())->numEntries();
    }

    support::TemporaryFolder folder;
};

TEST_F(StampFileTest, TheBackgroundFollowsTheBorderVertexByVertex)
{
    std::mt19937 random(11);
    const auto real = [&](double low, double high) { return std::uniform_real_distribution(low, high)(random); };
    const auto text = [](double value)
    {
        char digits[40];
        std::snprintf(digits, sizeof digits, "%.17g", value);
        return std::string(digits);
    };
    std::vector<std::string> stamps;
    for (int i = 0; i < 200; ++i)
    {
        const double scale = std::pow(10.0, real(-3, 4));
        const int shape = i % 9 == 0 ? 256 : std::uniform_int_distribution(-30, 30)(random);
        stamps.push_back(stamp({{"BorderShape", std::to_string(shape)},
                                {"Width", text(scale * real(1, 50))},
                                {"Height", text(scale * real(1, 50))},
                                {"CornerRadius", text(i % 2 == 0 ? 0.0 : scale * real(0, 20))},
                                {"Angle", text(real(-400, 400))},
                                {"X", text(real(-1e4, 1e4))}}));
    }
    const std::vector<std::string> handles = handlesOf(create(stamps));
    ASSERT_EQ(handles.size(), stamps.size());
    for (const OdDb::SaveType type : {OdDb::kDxf, OdDb::kDxb})
    {
        db = support::savedAndRead(*db, type);
        for (const std::string& handle : handles)
        {
            OdGePoint2dArray filled;
            OdGeDoubleArray bulges;
            the<OdDbHatch>(handle)->getLoopAt(0, filled, bulges);
            const OdSmartPtr<OdDbPolyline> border = the<OdDbPolyline>(handle);
            ASSERT_EQ(filled.size(), border->numVerts());
            for (unsigned vertex = 0; vertex < filled.size(); ++vertex)
            {
                OdGePoint2d point;
                border->getPointAt(vertex, point);
                EXPECT_EQ(filled[vertex].x, point.x);
                EXPECT_EQ(filled[vertex].y, point.y);
                EXPECT_EQ(bulges[vertex], border->getBulgeAt(vertex));
            }
        }
    }
}

/// One stamp for each shape, colour, alignment, text and kind of image.
std::vector<std::string> everyKind()
{
    std::vector<std::string> stamps;
    const auto add = [&](Changes changes)
    {
        changes.emplace_back("X", std::to_string(100 * (stamps.size() % 10)));
        changes.emplace_back("Y", std::to_string(60 * (stamps.size() / 10)));
        stamps.push_back(stamp(changes));
    };
    for (const char* shape : {"0", "1", "-2", "-4", "3", "-3", "4", "5", "-5", "6", "-6", "40", "256", "-256"})
        for (const char* radius : {"0", "1", "50"})
            add({{"BorderShape", shape}, {"CornerRadius", radius}});
    for (const char* color : {"null", "\"\"", "\"#00FF0000\"", "\"#80FF0000\"", "\"#FF00FF00\"", "\"#\""})
        for (const char* key : {"TextColor", "BackgroundColor", "BorderColor"})
            add({{key, color}});
    for (const char* horizontal : {"0", "1", "2", "2147483647", "-2147483648"})
        for (const char* vertical : {"0", "1", "2", "3", "2147483647", "-2147483648"})
            add({{"HorizontalAlignment", horizontal}, {"VerticalAlignment", vertical}});
    for (const char* text :
         {"\"\"", "\"a\\nb\\r\\tc\"", "\"\\\\PH\\\\S1/2;{\\\\C1;x}\"", "\"\\ud83d\\ude00 \\u05e9\\u05dc \\u00e9\"",
          "\"\\u0000\"", "\"%%c^J\\\\U+00E9\"", "\"}{\\\\\""})
        for (const char* fit : {"true", "false"})
            add({{"Text", text}, {"FitToText", fit}});
    for (const char* image : {"shades.png", "shades.jpg", "shades.bmp", "shades.gif", "shades.tif", "transparent.png"})
        for (const char* shape : {"-4", "6", "256"})
            add({{"OriginalImagePath", "\"x\""},
                 {"EffectiveImageFileName", quoted(std::string(ZOLCAD_TEST_DATA "/pictures/") + image)},
                 {"BorderShape", shape},
                 {"Uniform", shape[0] == '6' ? "false" : "true"}});
    add({{"Nx", "1"}, {"Ny", "1"}, {"Angle", "33"}});
    add({{"Nz", "-1"}, {"BorderShape", "5"}});
    return stamps;
}

TEST_F(StampFileTest, AnotherProgramFindsNothingWrongWithStampsOfAnyKind)
{
    const Outcome outcome = create(everyKind());
    ASSERT_EQ(outcome.state, eCommandEnded) << outcome.fault;
    const std::string before = save("first.dxf");
    // Reading and writing again loses nothing.
    support::readDrawing(before)->writeFile(OdString(folder.path("second.dxf").c_str()));
    const support::DxfDifference difference =
        support::compareDxf(support::readWholeFile(before), support::readWholeFile(folder.path("second.dxf")));
    EXPECT_TRUE(difference.nothingLost()) << difference.summary();
    if (!support::canAudit())
        GTEST_SKIP() << "python3-ezdxf is not installed";
    for (const OdDb::DwgVersion version : {OdDb::vAC15, OdDb::kDHL_CURRENT})
        EXPECT_EQ(support::audit(save("audited.dxf", OdDb::kDxf, version), kLookAtStamps),
                  std::to_string(modelCount()) + " entities\n");
}

TEST_F(StampFileTest, TextsComeBackFromFilesAsTheyWere)
{
    const char* texts[] = {"\"\\u0000a\\u0001\\u001f\\u007f\"", "\"a\\nb\\r\\n^J^ J^^M\"", "\"\\\\U+E9 \\\\M+1\"",
                           "\"\\ud83d\\ude00\\u05e9\\u200f\\ufffe\""};
    std::vector<std::string> stamps;
    for (const char* text : texts)
        stamps.push_back(stamp({{"Text", text}}));
    stamps.push_back(stamp({{"Text", quoted(std::string(5000, 'x'))}}));
    const std::vector<std::string> handles = handlesOf(create(stamps));
    std::vector<std::string> before;
    for (const std::string& handle : handles)
        before.push_back(contents(handle));
    EXPECT_EQ(before[0], std::string("\\fArial;\0a\x01\x1f\x7f", 13));
    for (const OdDb::SaveType type : {OdDb::kDxf, OdDb::kDxb})
    {
        db = support::savedAndRead(*db, type);
        for (std::size_t i = 0; i < handles.size(); ++i)
            EXPECT_EQ(contents(handles[i]), before[i]) << i;
    }
}

// ---- Images ---------------------------------------------------------------------------------------------------------

TEST_F(StampFileTest, ImagesAreFittedIntoTheBox)
{
    const std::tuple<Changes, double, double, std::size_t> rows[] = {
        // The picture is 12 by 8; room is 40 x 10 less padding 1 and half of the border 0.5 on each side.
        {{{"Uniform", "true"}}, 7.5 * 1.5, 7.5, 0},
        {{{"Uniform", "false"}}, 37.5, 7.5, 0},
        {{{"BorderColor", "null"}, {"Uniform", "false"}}, 38, 8, 0},
        {{{"Padding", "100"}, {"Uniform", "false"}}, 0.01, 0.01, 0},
        {{{"BorderShape", "6"}, {"Uniform", "true"}}, 7.5 * 1.5, 7.5, 6},
        {{{"BorderShape", "256"}, {"Uniform", "true"}}, 7.5 * 1.5, 7.5, 50},
    };
    for (const auto& [changes, width, height, clip] : rows)
    {
        const std::string handle = createOne(withImage("shades.png", changes));
        OdGePoint3d origin;
        OdGeVector3d u, v;
        const OdDbRasterImagePtr image = imageOf(handle);
        image->getOrientation(origin, u, v);
        EXPECT_NEAR(u.x, width, 1e-12);
        EXPECT_NEAR(v.y, height, 1e-12);
        EXPECT_LT(origin.distanceTo(OdGePoint3d(-width / 2, -height / 2, 0)), 1e-12);
        EXPECT_EQ(image->imageSize(), OdGeVector2d(12, 8));
        EXPECT_EQ(clipPoints(handle), clip);
        EXPECT_EQ(contentOf(handle).size(), 4u);
    }
    EXPECT_GT(clipPoints(createOne(withImage("shades.png", {{"CornerRadius", "1"}}))), 8u);
    EXPECT_EQ(definitionCount(), 1u);
    const OdDbRasterImageDefPtr definition = imageOf(createOne(withImage("shades.png")))->imageDefId().safeOpenObject();
    EXPECT_EQ(definition->size(), OdGeVector2d(12, 8));
    EXPECT_NEAR(definition->resolutionMMPerPixel().x, 25.4 / 300, 1e-4);
}

TEST_F(StampFileTest, TheEffectiveFileIsAttached)
{
    const std::string png = picture("shades.png");
    const auto attached = [&](const std::string& original, const std::string& effective)
    {
        const std::string handle = createOne({{"OriginalImagePath", original}, {"EffectiveImageFileName", effective}});
        const OdDbRasterImageDefPtr definition = imageOf(handle)->imageDefId().safeOpenObject();
        return quoted(odStringToUtf8(definition->sourceFileName()));
    };
    EXPECT_EQ(attached("\"not there\"", png), png);
    EXPECT_EQ(attached(png, "\"\""), png);
    EXPECT_EQ(attached(png, "null"), png);
    EXPECT_EQ(contentOf(createOne({{"EffectiveImageFileName", png}})).size(), 3u); // no image without the original
}

TEST_F(StampFileTest, RelativePathsAreRelativeToTheDrawing)
{
    std::filesystem::create_directory(folder.path("pictures"));
    std::filesystem::copy_file(ZOLCAD_TEST_DATA "/pictures/shades.png", folder.path("pictures/a b.png"));
    const Changes changes = {{"OriginalImagePath", "\"pictures/a b.png\""}};
    EXPECT_EQ(create({stamp(changes)}).fault.code, eFileNotFound);
    save("drawing.dxf");
    db->setFilename(OdString(folder.path("drawing.dxf").c_str()));
    const OdDbRasterImageDefPtr definition = imageOf(createOne(changes))->imageDefId().safeOpenObject();
    EXPECT_EQ(definition->sourceFileName(), L"pictures/a b.png");
}

TEST_F(StampFileTest, FilesThatCannotBeReadAreNamedAndNothingIsDone)
{
    const std::string text = folder.path("text.png");
    std::ofstream(text) << "no picture";
    const std::string pipe = folder.path("pipe.png");
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    for (const std::string& path : {folder.path("none.png"), text, folder.path(), pipe, std::string("/dev/null")})
    {
        const std::string said = textOf(
            runBare(L"CREATEANNOTATIONFROMJSON", array({stamp(), stamp({{"OriginalImagePath", quoted(path)}})})));
        EXPECT_NE(said.find(path), std::string::npos) << said;
        EXPECT_EQ(modelCount(), 0u);
        EXPECT_FALSE(hasBlock(L"Annotation"));
        EXPECT_EQ(definitionCount(), 0u);
    }
}

TEST_F(StampFileTest, ImagesComeGoAndChange)
{
    const std::string handle = createOne();
    const std::string empty = save("without.dxf");
    modify({stamp(with(handle, withImage("shades.png", {{"BorderShape", "6"}})))});
    const std::vector<OdDbObjectId> content = contentOf(handle);
    ASSERT_EQ(content.size(), 4u);
    EXPECT_EQ(content[1].objectClass(), OdDbBlockReference::desc()); // in front of the background, behind the rest
    EXPECT_EQ(clipPoints(handle), 6u);
    const OdDbObjectId block = imageReference(handle)->blockTableRecord();

    const OdDbObjectId layer = reference(handle)->layerId();
    OdDbEntityPtr(imageReference(handle)->objectId().safeOpenObject(OdDb::kForWrite))->setLayer(layer);
    OdDbEntityPtr(imageOf(handle)->objectId().safeOpenObject(OdDb::kForWrite))->setLayer(layer);
    modify({stamp(with(handle, withImage("shades.jpg")))});
    EXPECT_EQ(contentOf(handle), content);
    EXPECT_EQ(imageReference(handle)->blockTableRecord(), block);
    EXPECT_EQ(imageReference(handle)->layer(), L"0");
    EXPECT_EQ(imageOf(handle)->layer(), L"0");
    EXPECT_EQ(clipPoints(handle), 0u);
    EXPECT_EQ(definitionCount(), 1u); // nobody shows the other file any more

    modify({stamp(with(handle))});
    EXPECT_EQ(contentOf(handle).size(), 3u);
    EXPECT_TRUE(block.isErased());
    EXPECT_EQ(definitionCount(), 0u);

    for (int i = 0; i < 3; ++i)
        db->undo();
    const support::DxfDifference difference =
        support::compareDxf(support::readWholeFile(empty), support::readWholeFile(save("undone.dxf")));
    EXPECT_TRUE(difference.nothingLost() && difference.added.empty()) << difference.summary();
    for (int i = 0; i < 3; ++i)
        db->redo();
    EXPECT_EQ(contentOf(handle).size(), 3u);
}

TEST_F(StampFileTest, DefinitionsOfFilesGoWithTheLastStampThatShowsThem)
{
    const std::vector<std::string> handles = handlesOf(
        create({stamp(withImage("shades.png")), stamp(withImage("shades.png")), stamp(withImage("shades.gif"))}));
    ASSERT_EQ(handles.size(), 3u);
    EXPECT_EQ(definitionCount(), 2u);
    db = support::savedAndRead(*db);
    EXPECT_EQ(definitionCount(), 2u);
    createOne(withImage("shades.png"));
    EXPECT_EQ(definitionCount(), 2u); // also in a drawing that was read
    const auto at = [](const std::string& handle) { return stamp(with(handle)); };
    EXPECT_EQ(remove({at(handles[0]), at(handles[2])}).state, eCommandEnded);
    EXPECT_EQ(definitionCount(), 1u);
    EXPECT_FALSE(hasBlock(L"AnnotationImage"));
    EXPECT_TRUE(hasBlock(L"AnnotationImage_2"));
    db->undo();
    EXPECT_EQ(definitionCount(), 2u);
    EXPECT_EQ(imageOf(handles[2])->imageSize(), OdGeVector2d(12, 8));
}

TEST_F(StampFileTest, StampsThatShareAnImageTakeLinearWork)
{
    struct Work
    {
        double creating, deleting; // bytes for each stamp
    };
    const auto workFor = [&](std::size_t count)
    {
        const std::vector<std::string> stamps(count, stamp(withImage("shades.png")));
        const std::uint64_t start = allocatedBytes();
        const std::vector<std::string> handles = handlesOf(create(stamps));
        const std::uint64_t created = allocatedBytes();
        EXPECT_EQ(handles.size(), count);
        EXPECT_EQ(definitionCount(), 1u);
        for (const std::string& handle : handles)
            EXPECT_EQ(remove({stamp(with(handle))}).state, eCommandEnded);
        EXPECT_EQ(definitionCount(), 0u);
        return Work{double(created - start) / count, double(allocatedBytes() - created) / count};
    };
    workFor(1);
    const Work few = workFor(250), many = workFor(2000);
    EXPECT_LT(many.creating, 1.1 * few.creating);
    EXPECT_LT(many.deleting, 1.1 * few.deleting);
}

} // namespace
