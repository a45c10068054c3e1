// A new drawing has to be one that other programs take without repairing anything.
#include <string>

#include "DbBlockReference.h"
#include "DbBlockTable.h"
#include "DbBlockTableRecord.h"
#include "DbHostAppServices.h"
#include "DbLayerTable.h"
#include "DbLayerTableRecord.h"
#include "DbLayout.h"
#include "DbLine.h"
#include "DbText.h"
#include "ObjectsTest.h"
#include "support/Audit.h"
#include "support/TemporaryFolder.h"

namespace
{

using namespace objectstest;
using support::TemporaryFolder;

class NewDrawingTest : public ObjectsTest
{
protected:
    // Something of everything that can be made through the interface.
    void draw() const
    {
        const OdDbLayerTableRecordPtr layer = OdDbLayerTableRecord::createObject();
        layer->setName(L"W\u00E4nde");
        open<OdDbLayerTable>(database->getLayerTableId(), OdDb::kForWrite)->add(layer);
        const OdDbObjectId block = makeBlock();
        const OdDbBlockTableRecordPtr space = open<OdDbBlockTableRecord>(database->getModelSpaceId(), OdDb::kForWrite);
        const OdDbLinePtr line = OdDbLine::createObject();
        const OdDbTextPtr text = OdDbText::createObject();
        const OdDbBlockReferencePtr reference = OdDbBlockReference::createObject();
        for (OdDbEntity* entity :
             {static_cast<OdDbEntity*>(line), static_cast<OdDbEntity*>(text), static_cast<OdDbEntity*>(reference)})
            space->appendOdDbEntity(entity);
        line->setEndPoint(OdGePoint3d(10, 5, 0));
        ASSERT_EQ(line->setLayer(layer->objectId()), eOk);
        text->setTextString(L"Text");
        text->setHeight(2.5);
        reference->setBlockTableRecord(block);
        database->newRegApp(L"TESTED");
        const OdResBufPtr xdata = OdResBuf::newRb(1001, L"TESTED");
        xdata->setNext(OdResBuf::newRb(1000, L"value"));
        line->setXData(xdata);
        makeDictionaries(*line);
    }
    OdDbObjectId makeBlock() const
    {
        const OdDbBlockTableRecordPtr block = OdDbBlockTableRecord::createObject();
        block->setName(L"Block");
        const OdDbObjectId id = open<OdDbBlockTable>(database->getBlockTableId(), OdDb::kForWrite)->add(block);
        block->appendOdDbEntity(OdDbLine::createObject());
        block->setOrigin(OdGePoint3d(1, 1, 0));
        return id;
    }
    void makeDictionaries(OdDbObject& owner) const
    {
        const OdDbDictionaryPtr dictionary = open<OdDbDictionary>(makeDictionary(), OdDb::kForWrite);
        const OdDbXrecordPtr record = OdDbXrecord::createObject();
        record->setFromRbChain(OdResBuf::newRb(1, L"data"));
        dictionary->setAt(L"kept", record);
        const OdDbXrecordPtr erased = OdDbXrecord::createObject();
        dictionary->setAt(L"erased", erased);
        erased->erase();
        OdDbDictionaryPtr extension = open<OdDbDictionary>(owner.createExtensionDictionary(), OdDb::kForWrite);
        extension->setAt(L"own", OdDbXrecord::createObject());
    }
};

TEST_F(NewDrawingTest, NeedsNoRepairElsewhere)
{
    if (!support::canAudit())
        GTEST_SKIP() << "python3-ezdxf is not installed";
    struct Form
    {
        const char* name;
        OdDb::SaveType type;
        OdDb::DwgVersion version;
        bool drawn;
    };
    static const Form kForms[] = {
        {"empty2018.dxf", OdDb::kDxf, OdDb::vAC32, false}, {"empty2000.dxf", OdDb::kDxf, OdDb::vAC15, false},
        {"drawn2018.dxf", OdDb::kDxf, OdDb::vAC32, true},  {"drawn2007.dxf", OdDb::kDxf, OdDb::vAC21, true},
        {"drawn2000.dxf", OdDb::kDxf, OdDb::vAC15, true},  {"drawnbin.dxf", OdDb::kDxb, OdDb::vAC32, true},
    };
    const TemporaryFolder folder;
    bool drawn = false;
    for (const Form& form : kForms)
    {
        if (form.drawn && !drawn)
            draw();
        drawn = form.drawn;
        const std::string file = folder.path(form.name);
        database->writeFile(odUtf8ToString(file), form.type, form.version);
        EXPECT_EQ(support::audit(file), drawn ? "3 entities\n" : "0 entities\n") << form.name;
    }
}

TEST_F(NewDrawingTest, StaysTheSameWhenItIsCompletedOnceMore)
{
    draw();
    const OdUInt64 objects = database->approxNumObjects();
    database->initialize();
    EXPECT_EQ(database->approxNumObjects(), objects);
    EXPECT_FALSE(database->hasUndo() && database->numActiveTransactions() != 0);
}

TEST_F(NewDrawingTest, HasWhatItsOperationsPromise)
{
    EXPECT_EQ(database->getActiveLayoutBTRId(), database->getModelSpaceId());
    EXPECT_TRUE(open<OdDbLayout>(database->currentLayoutId())->getLayoutName() == L"Model");
    EXPECT_EQ(open<OdDbLayout>(database->currentLayoutId())->getBlockTableRecordId(), database->getModelSpaceId());
    EXPECT_FALSE(database->hasUndo());
    EXPECT_FALSE(database->newRegApp(L"acad"));
    EXPECT_EQ(codeOf([&] { database->newRegApp(L""); }), eInvalidSymbolTableName);
}

TEST_F(NewDrawingTest, IsFoundAndReadByTheServices)
{
    const TemporaryFolder folder;
    draw();
    const OdString path = odUtf8ToString(folder.path("drawing.dxf"));
    database->writeFile(path);
    OdDbHostAppServices services;
    const OdDbDatabasePtr read = services.readFile(path);
    EXPECT_EQ(read->appServices(), &services);
    EXPECT_TRUE(read->recoveryReport().isEmpty());
    EXPECT_TRUE(services.findFile(L"drawing.dxf").isEmpty());
    read->setFilename(path);
    EXPECT_TRUE(services.findFile(L"drawing.dxf", read) == path);
    EXPECT_EQ(codeOf([&] { services.readFile(L"missing.dxf"); }), eFileNotFound);
    EXPECT_EQ(services.createDatabase(false)->approxNumObjects(), 0u);
}

// ---- Settings ------------------------------------------------------------------------------------------------------

TEST_F(NewDrawingTest, UndoesSettings)
{
    const double before = database->getLTSCALE();
    const OdUInt64 mark = database->undoMark();
    recorded([&] { database->setSysVar(L"$ltscale", OdResBuf::newRb(40, before)); });
    EXPECT_EQ(database->undoMark(), mark) << "setting what is set already is no change";
    recorded([&] { database->setSysVar(L"LTSCALE", OdResBuf::newRb(40, 2.5)); });
    EXPECT_EQ(database->getLTSCALE(), 2.5);
    database->undo();
    EXPECT_EQ(database->getLTSCALE(), before);
    database->redo();
    EXPECT_EQ(database->getLTSCALE(), 2.5);
    EXPECT_EQ(codeOf([&] { database->setSysVar(L"LTSCALE", OdResBuf::newRb(70, OdInt16(1))); }), eInvalidInput);
    EXPECT_EQ(codeOf([&] { database->setSysVar(L"LTSCALE", nullptr); }), eInvalidInput);
    EXPECT_EQ(codeOf([&] { database->setSysVar(L"NOSUCH", OdResBuf::newRb(40, 1.0)); }), eInvalidInput);
    EXPECT_TRUE(database->getSysVar(L"NOSUCH").isNull());
    EXPECT_EQ(database->getLTSCALE(), 2.5);
}

TEST_F(NewDrawingTest, LetsSettingsFollowRecordsThatAreRenamed)
{
    draw();
    const OdDbObjectId layer = open<OdDbLayerTable>(database->getLayerTableId())->getAt(L"W\u00C4NDE");
    database->setSysVar(L"CLAYER", OdResBuf::newRb(8, L"w\u00E4nde"));
    EXPECT_EQ(database->getCLAYER(), layer);
    recorded([&] { open<OdDbLayerTableRecord>(layer, OdDb::kForWrite)->setName(L"Walls"); });
    EXPECT_EQ(database->getCLAYER(), layer);
    EXPECT_TRUE(database->getSysVar(L"CLAYER")->getString() == L"Walls");
    database->undo();
    EXPECT_EQ(database->getCLAYER(), layer);
    EXPECT_TRUE(database->getSysVar(L"CLAYER")->getString() == L"w\u00E4nde");
}

} // namespace
