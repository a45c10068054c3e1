// Attacks the drawing of stamps: what the entities of one are given, what changes when it is drawn anew, boxes that are
// too small, planes, texts of any kind, and figures that cannot be drawn.
#include "AnnotationTest.h"
#include "DbLayerTable.h"
#include "DbLayerTableRecord.h"
#include "DbTextStyleTable.h"
#include "ShapeArea.h"
#include "annotations/AnnotationOutline.h"

using namespace annotationtest;

namespace
{

class StampTest : public AnnotationTest
{
protected:
    /// Expects the request to fail with that text and to change nothing.
    void expectRefused(const Changes& changes, const std::string& reason)
    {
        const std::size_t before = modelCount();
        const Outcome outcome = create({stamp(), stamp(changes)});
        EXPECT_EQ(outcome.state, eCommandFailed) << reason;
        EXPECT_EQ(outcome.fault.code, eInvalidInput) << reason;
        EXPECT_EQ(modelCount(), before);
        EXPECT_EQ(textOf(runBare(L"CREATEANNOTATIONFROMJSON", array({stamp(), stamp(changes)}))),
                  "Annotation [1] cannot be used: " + reason + ".");
        EXPECT_EQ(modelCount(), before);
    }
};

TEST_F(StampTest, AStampIsABlockReferenceWithItsOwnDefinition)
{
    const std::string handle = createOne({{"X", "1"}, {"Y", "2"}, {"Angle", "30"}});
    const OdDbBlockReferencePtr opened = reference(handle);
    EXPECT_EQ(opened->layer(), L"*ZOL_Annotations_Layer");
    EXPECT_EQ(opened->position(), OdGePoint3d(1, 2, 0));
    EXPECT_NEAR(opened->rotation(), OdaPI / 6, 1e-15);
    EXPECT_EQ(opened->ownerId(), db->getModelSpaceId());
    EXPECT_EQ(definition(handle)->getName(), L"Annotation");
    const std::vector<OdDbObjectId> content = contentOf(handle);
    ASSERT_EQ(content.size(), 3u);
    EXPECT_EQ(content[0].objectClass(), OdDbHatch::desc());
    EXPECT_EQ(content[1].objectClass(), OdDbPolyline::desc());
    EXPECT_EQ(content[2].objectClass(), OdDbMText::desc());
    for (const OdDbObjectId& id : content)
        EXPECT_EQ(OdDbEntityPtr(id.safeOpenObject())->layer(), L"0");
}

TEST_F(StampTest, EntitiesHaveWhatTheRecordSays)
{
    const std::string handle = createOne({{"TextColor", "\"#80FF0000\""}, {"LineSpacingFactor", "1.5"}});
    const OdSmartPtr<OdDbMText> text = the<OdDbMText>(handle);
    EXPECT_EQ(text->contents(), L"\\fArial;Checked");
    EXPECT_EQ(text->textHeight(), 2.5);
    EXPECT_EQ(text->width(), 38);
    EXPECT_EQ(text->height(), 8);
    EXPECT_EQ(text->lineSpacingFactor(), 1.5);
    EXPECT_EQ(text->lineSpacingStyle(), OdDb::kAtLeast);
    EXPECT_EQ(text->attachment(), OdDbMText::kMiddleCenter);
    EXPECT_EQ(text->entityColor(), OdCmEntityColor(255, 0, 0));
    EXPECT_EQ(text->transparency().serializeOut(), 0x02000080u);
    const OdDbTextStyleTablePtr styles = db->getTextStyleTableId().safeOpenObject();
    EXPECT_EQ(text->textStyle(), styles->getAt(L"ZOL_STAMP_TEXTSTYLE_ARIAL"));

    const OdSmartPtr<OdDbHatch> hatch = the<OdDbHatch>(handle);
    EXPECT_EQ(hatch->numLoops(), 1);
    EXPECT_EQ(hatch->loopTypeAt(0), 3);
    EXPECT_EQ(hatch->patternName(), L"SOLID");
    EXPECT_EQ(hatch->patternType(), OdDbHatch::kPreDefined);
    EXPECT_TRUE(hatch->isSolidFill());
    EXPECT_EQ(hatch->hatchStyle(), OdDbHatch::kOuter);
    EXPECT_FALSE(hatch->associative());
    EXPECT_EQ(hatch->entityColor(), OdCmEntityColor(0xFF, 0xFF, 0xCC));
    EXPECT_EQ(hatch->transparency().serializeOut(), 0x02000080u);

    const OdSmartPtr<OdDbPolyline> border = the<OdDbPolyline>(handle);
    EXPECT_TRUE(border->isClosed());
    EXPECT_EQ(border->getConstantWidth(), 0.5);
    EXPECT_EQ(border->entityColor(), OdCmEntityColor(0, 0, 255));
    EXPECT_EQ(border->transparency().serializeOut(), 0x020000FFu);
}

TEST_F(StampTest, LayerAndStyleThatAreThereAreUsed)
{
    createOne();
    const OdDbLayerTablePtr layers = db->getLayerTableId().safeOpenObject();
    const OdDbObjectId layer = layers->getAt(L"*ZOL_Annotations_Layer");
    EXPECT_FALSE(layer.isNull());
    OdDbLayerTableRecordPtr(layer.safeOpenObject(OdDb::kForWrite))->setColorIndex(3);
    EXPECT_EQ(reference(createOne())->layerId(), layer);
    EXPECT_EQ(OdDbLayerTableRecordPtr(layer.safeOpenObject())->colorIndex(), 3);
}

TEST_F(StampTest, ColoursThatAreNotSetAreInvisible)
{
    const std::string handle = createOne({{"BorderColor", "null"}, {"BackgroundColor", "\"\""}, {"TextColor", "null"}});
    EXPECT_EQ(the<OdDbPolyline>(handle)->transparency().serializeOut(), 0x02000000u);
    EXPECT_EQ(the<OdDbHatch>(handle)->transparency().serializeOut(), 0x02000000u);
    EXPECT_TRUE(the<OdDbMText>(handle)->color().isByLayer());
    EXPECT_TRUE(the<OdDbMText>(handle)->transparency().isByLayer());
}

TEST_F(StampTest, SpacingIsBroughtIntoItsBounds)
{
    for (const auto& [given, kept] : std::initializer_list<std::pair<const char*, double>>{
             {"10", 4.0}, {"0.1", 0.25}, {"-1", 0.25}, {"0.25", 0.25}, {"4", 4.0}, {"1e99", 4.0}})
        EXPECT_EQ(the<OdDbMText>(createOne({{"LineSpacingFactor", given}}))->lineSpacingFactor(), kept) << given;
}

TEST_F(StampTest, PaddingCountsWhereThereIsDecoration)
{
    const std::tuple<Changes, double, double> rows[] = {
        {{{"Width", "1"}, {"Height", "1"}, {"Padding", "0.6"}}, 0.01, 0.01},
        {{{"BorderColor", "null"}, {"BackgroundColor", "null"}}, 40, 10},
        {{{"BorderColor", "\"#00FFFFFF\""}, {"BackgroundColor", "\"#00FFFFFF\""}}, 40, 10},
        {{{"BorderColor", "null"}}, 38, 8},
        {{{"BackgroundColor", "null"}}, 38, 8},
        {{{"Padding", "-2"}}, 44, 14},
        {{{"FitToText", "true"}, {"Padding", "3"}}, 0, 0},
    };
    for (const auto& [changes, width, height] : rows)
    {
        const OdSmartPtr<OdDbMText> text = the<OdDbMText>(createOne(changes));
        EXPECT_DOUBLE_EQ(text->width(), width);
        EXPECT_DOUBLE_EQ(text->height(), height);
    }
}

TEST_F(StampTest, WhatWouldShowNothingShowsAPlaceholder)
{
    const Changes nothing = {{"Text", "\"\""}, {"BorderColor", "null"}, {"BackgroundColor", "\"#00123456\""}};
    for (const char* color : {"null", "\"#00FF0000\"", "\"#FFFF0000\""})
    {
        Changes changes = nothing;
        changes.emplace_back("TextColor", color);
        const OdSmartPtr<OdDbMText> text = the<OdDbMText>(createOne(changes));
        EXPECT_EQ(text->contents(), L"[...]") << color;
        EXPECT_EQ(text->entityColor(), OdCmEntityColor(192, 192, 192)) << color;
        EXPECT_EQ(text->transparency().alpha(), 255) << color;
    }
    for (const Changes& shown : {Changes{{"Text", "\" \""}}, Changes{{"BorderColor", "\"#01000000\""}},
                                 Changes{{"BackgroundColor", "\"#01000000\""}}})
    {
        Changes changes = nothing;
        changes.insert(changes.end(), shown.begin(), shown.end());
        EXPECT_NE(contents(createOne(changes)), "[...]");
    }
    // It goes when there is something to show.
    const std::string handle = createOne(nothing);
    modify({stamp(with(handle))});
    EXPECT_EQ(contents(handle), "\\fArial;Checked");
    EXPECT_EQ(the<OdDbMText>(handle)->entityColor(), OdCmEntityColor(0, 0, 0));
}

TEST_F(StampTest, TextsStandWhereTheirModesSay)
{
    const std::string plain = "\"Hxn\"", deep = "\"Hgx\"";
    const struct
    {
        const char *horizontal, *vertical;
        std::string text;
    } rows[] = {{"0", "3", plain}, {"1", "2", plain}, {"2", "1", plain},         {"0", "0", deep},
                {"1", "3", deep},  {"2", "2", deep},  {"1", "2", "\"H\\\\PHg\""}};
    for (const auto& row : rows)
    {
        const std::string what = std::string(row.horizontal) + row.vertical + row.text;
        const OdSmartPtr<OdDbMText> text = the<OdDbMText>(createOne(
            {{"HorizontalAlignment", row.horizontal}, {"VerticalAlignment", row.vertical}, {"Text", row.text}}));
        OdGeExtents3d seen;
        ASSERT_EQ(text->getGeomExtents(seen), eOk);
        const double bearing = 0.4; // of the first and the last letter
        if (row.horizontal[0] == '0')
            EXPECT_NEAR(seen.minPoint().x, -19, bearing) << what;
        else if (row.horizontal[0] == '2')
            EXPECT_NEAR(seen.maxPoint().x, 19, bearing) << what;
        else
            EXPECT_NEAR(seen.minPoint().x + seen.maxPoint().x, 0, bearing) << what;
        const double tolerance = 0.15; // some letters reach a little above capitals or below others
        if (row.vertical[0] == '3')
            EXPECT_NEAR(seen.maxPoint().y, 4, tolerance) << what;
        else if (row.vertical[0] == '2')
            EXPECT_NEAR(seen.minPoint().y + seen.maxPoint().y, 0, tolerance) << what;
        else
            EXPECT_NEAR(seen.minPoint().y, -4, tolerance) << what;
    }
}

TEST_F(StampTest, BoxesTakeTheSizeOfTheirText)
{
    const Changes fit = {{"FitToText", "true"}, {"Padding", "1.5"}, {"Width", "0"}, {"Height", "-1"}};
    const auto sizeOf = [&](const std::string& text, const char* horizontal = "1")
    {
        Changes changes = fit;
        changes.emplace_back("Text", quoted(text));
        changes.emplace_back("HorizontalAlignment", horizontal);
        const std::string handle = createOne(changes);
        OdGeExtents3d box, seen;
        EXPECT_EQ(the<OdDbPolyline>(handle)->getGeomExtents(box), eOk);
        const OdSmartPtr<OdDbMText> mtext = the<OdDbMText>(handle);
        if (mtext->getGeomExtents(seen) == eOk)
        {
            EXPECT_NEAR(box.minPoint().x + 0.25 + 1.5, seen.minPoint().x, 1e-9) << text;
            EXPECT_NEAR(box.maxPoint().x - 0.25 - 1.5, seen.maxPoint().x, 1e-9) << text;
            EXPECT_LE(box.minPoint().y + 0.25 + 1.5 - 0.12, seen.minPoint().y) << text;
            EXPECT_GE(box.maxPoint().y - 0.25 - 1.5 + 0.12, seen.maxPoint().y) << text;
        }
        return OdGeVector2d(box.maxPoint().x - box.minPoint().x - 0.5, box.maxPoint().y - box.minPoint().y - 0.5);
    };
    const OdGeVector2d one = sizeOf("Hxn");
    EXPECT_NEAR(one.y, 2.5 + 3, 1e-9);
    EXPECT_GT(sizeOf("Hgn").y, one.y + 0.4);
    EXPECT_NEAR(sizeOf("xn").y, one.y, 1e-9); // small letters take no smaller box
    EXPECT_GT(sizeOf("Hxn Hxn").x, 2 * (one.x - 3));
    EXPECT_GT(sizeOf("Hxn\\\\PHxn").y, one.y + 2.5);
    EXPECT_NEAR(sizeOf("Hxn\\\\PHxnHxn", "0").x, sizeOf("Hxn\\\\PHxnHxn", "2").x, 1e-9);
    const OdGeVector2d empty = sizeOf("");
    EXPECT_NEAR(empty.x, 3, 0.5);
    EXPECT_NEAR(empty.y, 5.5, 1e-9);
}

TEST_F(StampTest, ResultsReportTheSizeThatWasDrawn)
{
    const std::string json = create({stamp({{"FitToText", "true"}, {"BorderThickness", "0"}})}).json();
    OdGeExtents3d box;
    EXPECT_EQ(the<OdDbPolyline>(json.substr(12, json.find('"', 12) - 12))->getGeomExtents(box), eOk);
    std::string x = json.substr(json.find("\"Size\":{\"X\":") + 12);
    EXPECT_NEAR(std::stod(x), box.maxPoint().x - box.minPoint().x, 1e-9);
    EXPECT_LT(std::stod(x), 20);
}

TEST_F(StampTest, PlanesAndAnglesTurnTheWholeBox)
{
    const std::tuple<const char*, const char*, const char*, const char*> rows[] = {
        {"0", "0", "1", "90"},     {"0", "0", "-1", "45"},   {"1", "0", "0", "-30"},       {"0", "-2", "0", "400"},
        {"1", "2", "3", "12.345"}, {"0.001", "0", "1", "0"}, {"1e-5", "1e-5", "1e-5", "5"}};
    for (const auto& [nx, ny, nz, angle] : rows)
    {
        Changes changes = changesFrom("X=7|Y=8|Z=9|BorderShape=5");
        changes.insert(changes.end(), {{"Nx", nx}, {"Ny", ny}, {"Nz", nz}, {"Angle", angle}});
        const std::string handle = createOne(changes);
        const OdDbBlockReferencePtr opened = reference(handle);
        const OdGeVector3d normal(std::stod(nx), std::stod(ny), std::stod(nz));
        EXPECT_LT((opened->normal() - normal * (1.0 / normal.length())).length(), 1e-12);
        EXPECT_LT(opened->position().distanceTo(OdGePoint3d(7, 8, 9)), 1e-12);
        EXPECT_NEAR(std::remainder(opened->rotation() - std::stod(angle) / 180 * OdaPI, Oda2PI), 0, 1e-12);
        // Every corner of the border lies in the plane, as far from the centre as in the definition.
        const OdSmartPtr<OdDbPolyline> border = the<OdDbPolyline>(handle);
        for (unsigned i = 0; i < border->numVerts(); ++i)
        {
            OdGePoint2d point;
            border->getPointAt(i, point);
            const OdGeVector3d arm = opened->blockTransform() * OdGePoint3d(point.x, point.y, 0) - opened->position();
            EXPECT_NEAR(arm.dotProduct(opened->normal()), 0, 1e-10);
            EXPECT_NEAR(arm.length(), point.asVector().length(), 1e-10);
        }
    }
}

TEST_F(StampTest, FiguresThatCannotBeDrawnAreNamed)
{
    expectRefused({{"Width", "0"}}, "\"Width\" is not above 0");
    expectRefused({{"Height", "-1"}}, "\"Height\" is not above 0");
    expectRefused({{"FontSize", "0"}}, "\"FontSize\" is not above 0");
    expectRefused({{"BorderThickness", "-0.1"}}, "\"BorderThickness\" is below 0");
    expectRefused({{"BorderShape", "2147483647"}}, "\"BorderShape\" is too great");
    expectRefused({{"BorderShape", "-2147483648"}}, "\"BorderShape\" is too great");
    for (const char* figure : {"1e-101", "5e-324"})
        for (const std::string key : {"Width", "Height", "FontSize"})
            expectRefused({{key, figure}}, '"' + key + "\" is too small");
    for (const char* figure : {"0", "1e-10", "-1e-300"})
        expectRefused({{"Nz", figure}}, "\"Nx\", \"Ny\" and \"Nz\" are too small");
    expectRefused({{"X", "1e300"}}, "\"X\" is too great");
    expectRefused({{"Width", "1e101"}}, "\"Width\" is too great");
    expectRefused({{"Angle", "-1e200"}}, "\"Angle\" is too great");
    expectRefused({{"Text", ""}}, "\"Text\" is missing");
    EXPECT_FALSE(createOne({{"Text", "\"\""}, {"FontSize", "0"}}).empty());
    EXPECT_FALSE(createOne({{"BorderShape", "1024"}, {"CornerRadius", "1"}}).empty());
}

TEST_F(StampTest, AnyTextIsDrawnAndKept)
{
    const std::string json =
        "\"\\u0000{\\\\S1/2;\\\\fX|b1;\\\\H0;\\\\C999;}}}\\\\\\n\\t%%c\\u05E9\\u05DC\\ud83d\\ude00;^J\\\\U+00E9\"";
    const std::string handle = createOne({{"Text", json}, {"Font", "\"A;{\\\\P}|b\""}, {"FitToText", "true"}});
    const std::string kept = contents(handle);
    EXPECT_EQ(kept, "\\fA;{\\P}|b;" + odStringToUtf8(record({{"Text", json}}).text));
}

// ---- Modifying ------------------------------------------------------------------------------------------------------

TEST_F(StampTest, ModifyingUsesTheEntitiesAgain)
{
    const std::string handle = createOne();
    const std::vector<OdDbObjectId> before = contentOf(handle);
    {
        const OdDbBlockReferencePtr opened = reference(handle, OdDb::kForWrite);
        opened->setScaleFactors(OdGeScale3d(2, 3, -1));
        opened->setLayer(L"0");
    }
    const Outcome outcome =
        modify({stamp(with(handle, {{"X", "5"}, {"Text", "\"Seen\""}, {"BorderShape", "6"}, {"FontSize", "3"}}))});
    ASSERT_EQ(outcome.state, eCommandEnded) << outcome.fault;
    EXPECT_EQ(handlesOf(outcome), std::vector{handle});
    EXPECT_EQ(contentOf(handle), before);
    EXPECT_EQ(contents(handle), "\\fArial;Seen");
    EXPECT_EQ(the<OdDbPolyline>(handle)->numVerts(), 6u);
    EXPECT_EQ(the<OdDbHatch>(handle)->numLoops(), 1);
    EXPECT_EQ(reference(handle)->scaleFactors(), OdGeScale3d(1, 1, 1));
    EXPECT_EQ(reference(handle)->layer(), L"*ZOL_Annotations_Layer");
    EXPECT_EQ(reference(handle)->position(), OdGePoint3d(5, 0, 0));
    EXPECT_EQ(definition(handle)->getName(), L"Annotation");
}

TEST_F(StampTest, WhatIsMissingOfAStampIsMadeAgain)
{
    const std::string handle = createOne();
    erase(contentOf(handle)[1]);
    addLine(0, definition(handle)->objectId());
    modify({stamp(with(handle))});
    EXPECT_EQ(contentOf(handle).size(), 4u); // with the line, which is nobody's business
    EXPECT_EQ(the<OdDbPolyline>(handle)->numVerts(), 4u);
}

TEST_F(StampTest, AnyBlockReferenceBecomesAStamp)
{
    const OdDbObjectId insert = addInsert(addBlock(L"Empty"));
    const std::string handle = odStringToUtf8(insert.getHandle().ascii());
    EXPECT_EQ(modify({stamp(with(handle))}).state, eCommandEnded);
    EXPECT_EQ(contentOf(handle).size(), 3u);
    EXPECT_EQ(definition(handle)->getName(), L"Empty");
}

} // namespace
