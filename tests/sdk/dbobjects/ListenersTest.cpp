// Attacks what listeners hear: one that keeps a record of every entity must never differ from the drawing.
#include <map>
#include <random>

#include "BlockDrawing.h"
#include "DbDatabaseReactor.h"
#include "DbObjectReactor.h"
#include "StaticRxObject.h"

namespace
{

using namespace objectstest;

using Ends = std::map<OdDbObjectId, double>;

double endOf(const OdDbLine& line)
{
    return line.endPoint().x;
}

// Knows where every line ends, from what it is told alone.
class Follower : public OdStaticRxObject<OdDbDatabaseReactor>
{
public:
    void objectAppended(const OdDbDatabase*, const OdDbObject* object) override { follow(object); }
    void objectReAppended(const OdDbDatabase*, const OdDbObject* object) override { follow(object); }
    void objectModified(const OdDbDatabase*, const OdDbObject* object) override { follow(object); }
    void objectUnAppended(const OdDbDatabase*, const OdDbObject* object) override { ends.erase(object->objectId()); }
    void objectErased(const OdDbDatabase*, const OdDbObject* object, bool erased) override
    {
        if (erased)
            ends.erase(object->objectId());
        else
            follow(object);
    }

    Ends ends;

private:
    void follow(const OdDbObject* object)
    {
        const OdDbLinePtr line = OdDbLine::cast(object);
        if (!line.isNull() && !line->isErased())
            ends[line->objectId()] = endOf(*line);
    }
};

Ends endsIn(const OdDbDatabase& database)
{
    Ends ends;
    database.impl().stubs.visit(
        [&](const OdDbStub& stub)
        {
            if (!stub.isErased() && stub.object->isKindOf(OdDbLine::desc()))
                ends[stub.object->objectId()] = endOf(*OdDbLinePtr(stub.object->objectId().safeOpenObject()));
        });
    return ends;
}

class ListenersTest : public BlockDrawing
{
protected:
    ListenersTest() { database->addReactor(&follower); }
    ~ListenersTest() override { database->removeReactor(&follower); }

    Follower follower;
};

// One random change after the other, among them those that take changes back.
class Changes
{
public:
    Changes(OdDbDatabase& database, std::function<OdDbObjectId(double)> addLine, OdDbObjectId block)
        : m_database(database), m_addLine(std::move(addLine)), m_block(block)
    {
    }

    void next()
    {
        switch (m_random() % 11)
        {
        case 0:
            m_lines.push_back(m_addLine(number()));
            return;
        case 1:
            return change([&](OdDbLine& line) { line.setEndPoint(OdGePoint3d(number(), 0, 0)); });
        case 2:
            return change([&](OdDbLine& line) { line.transformBy(OdGeMatrix3d::translation({number(), 0, 0})); });
        case 3:
            return change([&](OdDbLine& line) { line.erase(!line.isErased()); });
        case 4:
            return change([&](OdDbLine& line) { line.addPersistentReactor(m_block); });
        case 5:
            return copy();
        case 6:
            return toggleBlock();
        case 7:
            return m_database.startUndoRecord();
        case 8:
            return m_database.numActiveTransactions() < 3 ? m_database.startTransaction() : endTransaction();
        case 9:
            return m_database.numActiveTransactions() > 0 ? endTransaction() : undoOrRedo();
        default:
            m_database.disableUndoRecording(m_random() % 4 == 0);
        }
    }

private:
    double number() { return static_cast<double>(m_random() % 1000); }

    template<class Change>
    void change(Change change)
    {
        if (m_lines.empty())
            return;
        const OdDbObjectId id = m_lines[m_random() % m_lines.size()];
        if (const OdDbLinePtr line = OdDbLine::cast(id.openObject(OdDb::kForWrite, true)); !line.isNull())
            change(*line);
    }
    void copy()
    {
        const OdDbObjectId id = m_lines.empty() ? OdDbObjectId() : m_lines[m_random() % m_lines.size()];
        if (!id.isErased())
            m_database.deepCloneObjects({id}, OdDbObjectId(), *OdDbIdMappingPtr(OdDbIdMapping::createObject()));
    }
    void toggleBlock()
    {
        const OdDbObjectPtr block = m_block.safeOpenObject(OdDb::kForWrite, true);
        EXPECT_EQ(block->erase(!block->isErased()), eOk);
    }
    void endTransaction() { m_random() % 2 ? m_database.endTransaction() : m_database.abortTransaction(); }
    void undoOrRedo() { m_random() % 2 ? m_database.undo() : m_database.redo(); }

    std::mt19937 m_random{7};
    OdDbDatabase& m_database;
    std::function<OdDbObjectId(double)> m_addLine;
    OdDbObjectId m_block;
    std::vector<OdDbObjectId> m_lines;
};

TEST_F(ListenersTest, CanFollowADrawingThroughUndoRedoAndAbort)
{
    const OdDbObjectId block = makeBlock(L"block");
    for (int i = 0; i < 5; ++i)
        addLine(block, OdGePoint3d(-i, 0, 0));
    database->clearUndo();
    Changes changes(
        *database, [&](double end) { return addLine(database->getModelSpaceId(), OdGePoint3d(end, 0, 0)); }, block);
    for (int i = 0; i < 4000; ++i)
    {
        changes.next();
        if (follower.ends != endsIn(*database))
            FAIL() << "differs behind change " << i;
    }
}

TEST_F(ListenersTest, HearOfEachObjectOnceWhenTheWholeDrawingIsRestored)
{
    class Counter : public OdStaticRxObject<OdDbDatabaseReactor>
    {
    public:
        void objectModified(const OdDbDatabase* told, const OdDbObject* object) override
        {
            ++count;
            EXPECT_TRUE(told->isUndoing());
            for (const auto& [id, end] : expected)
                EXPECT_EQ(endOf(*OdDbLinePtr(id.safeOpenObject())), end);
            EXPECT_TRUE(expected.count(object->objectId()));
        }
        Ends expected;
        int count = 0;
    };
    const OdDbObjectId first = addLine(database->getModelSpaceId(), OdGePoint3d(1, 0, 0)),
                       second = addLine(first.safeOpenObject()->ownerId(), OdGePoint3d(2, 0, 0));
    Counter counter;
    counter.expected = {{first, 1}, {second, 2}};
    recorded(
        [&]
        {
            for (const OdDbObjectId& id : {first, second, first})
            {
                open<OdDbLine>(id, OdDb::kForWrite)->setEndPoint(OdGePoint3d(9, 9, 9));
                open(id, OdDb::kForWrite)->addPersistentReactor(database->getLayerZeroId());
                open(id, OdDb::kForWrite)->removePersistentReactor(database->getLayerZeroId());
            }
        });
    database->addReactor(&counter);
    database->undo();
    EXPECT_EQ(counter.count, 2);
    database->removeReactor(&counter);
}

/// Else each new one would have to wake all that came before it.
TEST_F(ListenersTest, HearNothingOfFurtherListeners)
{
    class Counter : public OdStaticRxObject<OdDbDatabaseReactor>
    {
    public:
        void objectModified(const OdDbDatabase*, const OdDbObject*) override { ++count; }
        int count = 0;
    };
    const OdDbObjectId line = addLine(database->getModelSpaceId(), OdGePoint3d(1, 0, 0));
    const OdDbObjectId layer = database->getLayerZeroId();
    Counter counter;
    database->addReactor(&counter);
    open(line, OdDb::kForWrite)->addPersistentReactor(layer);
    open(line, OdDb::kForWrite)->removePersistentReactor(layer);
    EXPECT_EQ(counter.count, 0);
    open(line, OdDb::kForWrite)->addPersistentReactor(layer);
    EXPECT_EQ(counter.count, 0);
    open<OdDbLine>(line, OdDb::kForWrite)->setEndPoint(OdGePoint3d(9, 9, 9));
    EXPECT_EQ(counter.count, 1);
    database->removeReactor(&counter);
}

// What a listener does while changes are taken back must not reach the drawing, the history or the other listeners.
TEST_F(ListenersTest, CannotSpoilWhatIsTakenBack)
{
    class Spoiler : public OdStaticRxObject<OdDbDatabaseReactor>
    {
    public:
        void objectModified(const OdDbDatabase* told, const OdDbObject* object) override
        {
            auto* drawing = const_cast<OdDbDatabase*>(told);
            if (!drawing->isUndoing())
                return;
            ++heard;
            OdDbLinePtr(object->objectId().safeOpenObject(OdDb::kForWrite))->setEndPoint(OdGePoint3d(-1, -1, -1));
            OdDbLinePtr(other.safeOpenObject(OdDb::kForWrite))->setEndPoint(OdGePoint3d(-1, -1, -1));
            other.safeOpenObject(OdDb::kForWrite)->erase();
            for (void (OdDbDatabase::*operation)() :
                 {&OdDbDatabase::undo, &OdDbDatabase::redo, &OdDbDatabase::startTransaction,
                  &OdDbDatabase::endTransaction, &OdDbDatabase::abortTransaction, &OdDbDatabase::startUndoRecord,
                  &OdDbDatabase::clearUndo})
                EXPECT_EQ(codeOf([&] { (drawing->*operation)(); }), eUndoOperationNotAvailable);
            if (leaves)
                told->removeReactor(leaves);
            throw OdError(eInvalidInput);
        }
        OdDbObjectId other;
        OdDbDatabaseReactor* leaves = nullptr;
        int heard = 0;
    };
    const OdDbObjectId space = database->getModelSpaceId();
    const OdDbObjectId line = addLine(space, OdGePoint3d(1, 0, 0)), other = addLine(space, OdGePoint3d(2, 0, 0));
    recorded([&] { open<OdDbLine>(line, OdDb::kForWrite)->setEndPoint(OdGePoint3d(5, 0, 0)); });
    Spoiler spoiler, leaver;
    spoiler.other = leaver.other = other;
    spoiler.leaves = &leaver;
    database->addReactor(&spoiler);
    database->addReactor(&leaver);
    for (int round = 0; round < 3; ++round)
    {
        database->undo();
        EXPECT_EQ(endsIn(*database), (Ends{{line, 1}, {other, 2}}));
        database->redo();
        EXPECT_EQ(endsIn(*database), (Ends{{line, 5}, {other, 2}}));
    }
    EXPECT_EQ(spoiler.heard, 6);
    EXPECT_EQ(leaver.heard, 0) << "it was withdrawn before its turn";
    database->removeReactor(&spoiler);
}

TEST_F(ListenersTest, OfOneObjectHearOfItsWholeLife)
{
    class Diary : public OdStaticRxObject<OdDbObjectReactor>
    {
    public:
        void modified(const OdDbObject*) override { text += 'm'; }
        void erased(const OdDbObject*, bool erasing) override { text += erasing ? 'e' : 'u'; }
        void copied(const OdDbObject* object, const OdDbObject* copy) override { text += object != copy ? 'c' : '?'; }
        void unappended(const OdDbObject*) override { text += '-'; }
        void reappended(const OdDbObject*) override { text += '+'; }
        void goodbye(const OdDbObject*) override { text += '.'; }
        std::string take() { return std::exchange(text, {}); }
        std::string text;
    };
    class Leaver : public Diary
    {
    public:
        void erased(const OdDbObject* object, bool erasing) override
        {
            Diary::erased(object, erasing);
            object->removeReactor(this);
        }
    };
    Leaver leaver;
    Diary diary;
    OdDbObjectId line;
    recorded([&] { line = addLine(database->getModelSpaceId(), OdGePoint3d(1, 0, 0)); });
    open(line)->addReactor(&leaver);
    open(line)->addReactor(&diary);
    open(line, OdDb::kForWrite).release(); // of which nothing comes
    recorded([&] { open<OdDbLine>(line, OdDb::kForWrite)->setEndPoint(OdGePoint3d(5, 0, 0)); });
    recorded([&] { open(line, OdDb::kForWrite)->erase(); });
    EXPECT_EQ(diary.take(), "mem");
    EXPECT_EQ(leaver.take(), "me") << "it left when it was told";
    database->undo();
    database->undo();
    database->undo();
    EXPECT_EQ(diary.take(), "um-");
    database->redo();
    database->redo();
    EXPECT_EQ(diary.take(), "+m");
    copyWithin({line});
    EXPECT_EQ(diary.take(), "c");
    database = nullptr;
    EXPECT_EQ(diary.take(), ".");
    database = OdDbDatabase::createObject();
}

} // namespace
