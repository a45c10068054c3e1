// Attacks dictionaries: many entries, names in odd cases, erased entries, and entries in files that make no sense.
#include <string>
#include <vector>

#include "ObjectsTest.h"
#include "db/DictionaryCore.h"
#include "db/GroupsDxfFiler.h"

namespace
{

using namespace objectstest;

class DictionaryTest : public ObjectsTest
{
protected:
    DictionaryTest() : dictionaryId(makeDictionary()) {}

    OdDbDictionaryPtr dictionary(OdDb::OpenMode mode = OdDb::kForRead) const
    {
        return open<OdDbDictionary>(dictionaryId, mode);
    }
    OdDbObjectId add(const OdString& name) const
    {
        return dictionary(OdDb::kForWrite)->setAt(name, OdDbXrecord::createObject());
    }
    static std::vector<OdString> namesOf(const OdDbDictionaryIteratorPtr& iterator)
    {
        std::vector<OdString> names;
        for (; !iterator->done(); iterator->next())
            names.push_back(iterator->name());
        return names;
    }

    OdDbObjectId dictionaryId;
};

OdString keyOf(int number)
{
    OdString key;
    return key.format(L"%08X-0000-4000-8000-%012d", static_cast<unsigned>(number) * 2654435761u, number);
}

TEST_F(DictionaryTest, ComparesNamesWithoutCaseInAnyScript)
{
    struct Case
    {
        const OdChar* stored;
        const OdChar* asked;
        bool same;
    };
    static const Case kCases[] = {
        {L"Label", L"lABEL", true},
        {L"\u00C9t\u00E9", L"\u00E9T\u00C9", true},
        {L"\u0416\u0443\u043A", L"\u0436\u0423\u041A", true},
        {L"\u03A3", L"\u03C3", true},
        {L"Kelvin and more", L"\u212Aelvin AND more", true}, // the sign for kelvin
        {L"01234567@AZ[az`{", L"01234567@az[AZ`{", true},
        {L"@AZ[", L"`az{", false},
        {L"stra\u00DFe", L"strasse", false},
        {L"e\u0301", L"\u00E9", false},
        {L"\U0001F600", L"\U0001F601", false},
        {L"a", L"a ", false},
        {L"i", L"\u0131", false},
    };
    for (const Case& test : kCases)
    {
        const OdDbObjectId id = add(test.stored);
        EXPECT_EQ(dictionary()->has(OdString(test.asked)), test.same) << OdDbHandle(id.getHandle()).text();
        EXPECT_TRUE(dictionary()->nameAt(id) == test.stored);
        dictionary(OdDb::kForWrite)->remove(id);
    }
}

TEST_F(DictionaryTest, KeepsAHundredThousandEntries)
{
    constexpr int kCount = 100000;
    std::vector<OdDbObjectId> ids;
    recorded(
        [&]
        {
            const OdDbDictionaryPtr open = dictionary(OdDb::kForWrite);
            for (int i = 0; i < kCount; ++i)
                ids.push_back(open->setAt(keyOf(i), OdDbXrecord::createObject()));
        });
    recorded(
        [&]
        {
            const OdDbDictionaryPtr open = dictionary(OdDb::kForWrite);
            for (int i = 0; i < kCount; i += 2)
                ASSERT_EQ(open->remove(keyOf(i)), ids[static_cast<std::size_t>(i)]);
        });
    EXPECT_EQ(dictionary()->numEntries(), static_cast<OdUInt32>(kCount / 2));
    database->undo();
    ASSERT_EQ(dictionary()->numEntries(), static_cast<OdUInt32>(kCount));
    OdDbDictionaryIteratorPtr inOrder = dictionary()->newIterator();
    for (int i = 0; i < kCount; ++i, inOrder->next())
        ASSERT_EQ(inOrder->objectId(), ids[static_cast<std::size_t>(i)]) << i;
    OdString previous;
    for (auto sorted = dictionary()->newIterator(OdRx::kDictSorted); !sorted->done(); sorted->next())
    {
        ASSERT_LT(previous.iCompare(sorted->name()), 0);
        previous = sorted->name();
    }
    database->undo();
    EXPECT_EQ(dictionary()->numEntries(), 0u);
    EXPECT_FALSE(dictionary()->has(keyOf(7)));
    database->redo();
    EXPECT_EQ(dictionary()->getAt(keyOf(7)), ids[7]);
}

TEST_F(DictionaryTest, AnswersForErasedEntriesOnlyWhenAsked)
{
    const OdDbObjectId first = add(L"b");
    const OdDbObjectId second = add(L"a");
    EXPECT_EQ(open(first, OdDb::kForWrite)->erase(), eOk);

    OdResult status = eOk;
    EXPECT_TRUE(dictionary()->getAt(L"B").isNull());
    EXPECT_EQ(dictionary()->getAt(L"B", &status), first);
    EXPECT_EQ(status, eWasErased);
    EXPECT_TRUE(dictionary()->getAt(L"B", OdDb::kForRead).isNull());
    EXPECT_TRUE(dictionary()->getAt(L"c", &status).isNull());
    EXPECT_EQ(status, eKeyNotFound);
    EXPECT_FALSE(dictionary()->has(first));
    EXPECT_EQ(dictionary()->numEntries(), 1u);

    OdDbDictionaryIteratorPtr iterator = dictionary()->newIterator(OdRx::kDictSorted);
    EXPECT_EQ(namesOf(iterator), std::vector<OdString>{L"a"});
    iterator->start(false);
    EXPECT_EQ(namesOf(iterator), (std::vector<OdString>{L"a", L"b"}));
    iterator->start(false);
    ASSERT_TRUE(iterator->setPosition(first));
    EXPECT_TRUE(iterator->getObject(OdDb::kForRead, false).isNull());
    EXPECT_FALSE(iterator->getObject(OdDb::kForRead, true).isNull());

    EXPECT_EQ(open(first, OdDb::kForWrite)->erase(false), eOk);
    EXPECT_EQ(dictionary()->getAt(L"b"), first);
    EXPECT_EQ(dictionary()->getAt(L"a"), second);
}

TEST_F(DictionaryTest, GivesNamesOfErasedAndOfDisplacedObjectsAway)
{
    const OdDbObjectId erased = add(L"Name");
    open(erased, OdDb::kForWrite)->erase();
    const OdDbObjectId second = add(L"NAME");
    EXPECT_EQ(dictionary()->getAt(L"name"), second);
    EXPECT_EQ(dictionary()->numEntries(), 1u);

    recorded([&] { add(L"name"); });
    EXPECT_TRUE(second.isErased());
    EXPECT_NE(dictionary()->getAt(L"name"), second);
    database->undo();
    EXPECT_FALSE(second.isErased());
    EXPECT_EQ(dictionary()->getAt(L"name"), second);
    EXPECT_TRUE(dictionary()->nameAt(second) == L"NAME");
}

TEST_F(DictionaryTest, RenamesWhatItHasAlready)
{
    const OdDbObjectId first = add(L"first");
    const OdDbObjectId second = add(L"second");
    recorded([&] { dictionary(OdDb::kForWrite)->setAt(L"third", open(first, OdDb::kForWrite)); });
    EXPECT_TRUE(dictionary()->nameAt(first) == L"third");
    EXPECT_FALSE(dictionary()->has(OdString(L"first")));
    EXPECT_EQ(namesOf(dictionary()->newIterator()), (std::vector<OdString>{L"third", L"second"}));
    database->undo();
    EXPECT_TRUE(dictionary()->nameAt(first) == L"first");

    EXPECT_FALSE(dictionary(OdDb::kForWrite)->setName(L"first", L"SECOND"));
    EXPECT_FALSE(dictionary(OdDb::kForWrite)->setName(L"missing", L"x"));
    EXPECT_FALSE(dictionary(OdDb::kForWrite)->setName(L"first", L""));
    EXPECT_TRUE(dictionary(OdDb::kForWrite)->setName(L"first", L"FIRST"));
    EXPECT_TRUE(dictionary()->nameAt(first) == L"FIRST");
    EXPECT_TRUE(dictionary()->nameAt(second) == L"second");
}

TEST_F(DictionaryTest, RefusesWhatCannotBeAnEntry)
{
    const OdDbDatabasePtr other = OdDbDatabase::createObject();
    other->initialize();
    const OdDbObjectPtr foreign = other->getNamedObjectsDictionaryId().safeOpenObject(OdDb::kForWrite);
    const OdDbDictionaryPtr loose = OdDbDictionary::createObject();
    const OdDbXrecordPtr record = OdDbXrecord::createObject();

    EXPECT_EQ(codeOf([&] { dictionary()->setAt(L"x", record); }), eNotOpenForWrite);
    EXPECT_EQ(codeOf([&] { dictionary()->remove(OdString(L"x")); }), eNotOpenForWrite);
    EXPECT_EQ(codeOf([&] { dictionary(OdDb::kForWrite)->setAt(L"", record); }), eInvalidKey);
    EXPECT_EQ(codeOf([&] { dictionary(OdDb::kForWrite)->setAt(L"x", nullptr); }), eNullObjectPointer);
    EXPECT_EQ(codeOf([&] { dictionary(OdDb::kForWrite)->setAt(L"x", foreign); }), eWrongDatabase);
    EXPECT_EQ(codeOf([&] { loose->setAt(L"x", record); }), eNotInDatabase);
    EXPECT_EQ(codeOf([&] { dictionary(OdDb::kForWrite)->remove(OdDbObjectId()); }), eKeyNotFound);
    EXPECT_TRUE(dictionary(OdDb::kForWrite)->remove(OdString(L"x")).isNull());
    EXPECT_FALSE(record->isDBRO());
    EXPECT_EQ(dictionary()->numEntries(), 0u);
}

TEST_F(DictionaryTest, OwnsWhatIsPutIn)
{
    const OdDbObjectId id = add(L"x");
    EXPECT_EQ(open(id)->ownerId(), dictionaryId);
    EXPECT_TRUE(open(id)->hasPersistentReactor(dictionaryId));
    dictionary(OdDb::kForWrite)->remove(id);
    EXPECT_FALSE(open(id)->hasPersistentReactor(dictionaryId));
    EXPECT_FALSE(id.isErased());
}

TEST_F(DictionaryTest, DoesNotDisturbIteratorsByChanges)
{
    for (const OdChar* name : {L"a", L"b", L"c"})
        add(name);
    const OdDbDictionaryIteratorPtr iterator = dictionary()->newIterator();
    std::vector<OdString> names;
    for (; !iterator->done(); iterator->next())
    {
        names.push_back(iterator->name());
        add(iterator->name() + L"x");
        dictionary(OdDb::kForWrite)->remove(iterator->objectId());
    }
    EXPECT_EQ(names, (std::vector<OdString>{L"a", L"b", L"c"}));
    EXPECT_EQ(namesOf(dictionary()->newIterator()), (std::vector<OdString>{L"ax", L"bx", L"cx"}));
}

// ---- Files ----------------------------------------------------------------------------------------------------------

class LoadingDictionaryTest : public DictionaryTest
{
protected:
    LoadingDictionaryTest() { database->impl().loading = true; }
    ~LoadingDictionaryTest() override { database->impl().loading = false; }

    OdDbStub* stub(OdUInt64 handle) const { return database->impl().stubs.findOrCreate(handle); }
    void load(const oddb::GroupsBuilder& groups) const
    {
        ASSERT_EQ(
            dictionary(OdDb::kForWrite)->dxfInFields(oddb::GroupsDxfFiler::createReader(groups.build(), database)),
            eOk);
    }
    oddb::Groups saved() const
    {
        const auto filer = oddb::GroupsDxfFiler::create(database);
        dictionary()->dxfOutFields(filer);
        return filer->finish();
    }
};

TEST_F(LoadingDictionaryTest, WritesBackWhatItDoesNotUnderstand)
{
    oddb::GroupsBuilder groups;
    groups.text(100, "AcDbDictionary").integer(280, 1).integer(281, 1);
    groups.text(3, "one").id(350, stub(0xF001)).text(3, "no object");
    groups.text(3, "two").id(360, stub(0xF002)).id(360, stub(0xF003)).integer(90, 7);
    groups.text(3, "ONE").id(350, stub(0xF004)).text(3, "at the end");
    groups.text(100, "AcDbDictionaryWithDefault").id(340, stub(0xF005)).text(3, "of the default");
    load(groups);
    EXPECT_EQ(oddb::DictionaryCore::entries(*dictionary()).size(), 3u);

    auto sortedItems = [](const oddb::Groups& all)
    {
        std::vector<std::string> items;
        for (const oddb::GroupView& group : all)
            items.emplace_back(reinterpret_cast<const char*>(group.item()),
                               reinterpret_cast<const char*>(group.next()));
        std::sort(items.begin(), items.end());
        return items;
    };
    const oddb::Groups once = saved();
    EXPECT_EQ(sortedItems(once), sortedItems(groups.build()));
    oddb::GroupsBuilder again;
    load(again.append(once));
    EXPECT_EQ(saved(), once) << "reading what was written gives the same";
}

TEST_F(LoadingDictionaryTest, LeavesErasedEntriesOut)
{
    database->impl().loading = false;
    const OdDbObjectId kept = add(L"kept");
    open(add(L"erased"), OdDb::kForWrite)->erase();
    int names = 0;
    for (const oddb::GroupView& group : saved())
    {
        names += group.code() == 3;
        EXPECT_FALSE(group.stub() && group.stub() != oddb::stubOf(kept));
    }
    EXPECT_EQ(names, 1);
}

TEST_F(LoadingDictionaryTest, LetsObjectsRenameTheirEntriesOnly)
{
    database->impl().loading = false;
    const OdDbObjectId first = add(L"first");
    const OdDbObjectId second = add(L"second");
    const OdUInt64 mark = database->undoMark();
    database->impl().loading = true;
    dictionary()->setAt(L"first", open(first));
    EXPECT_TRUE(dictionary()->nameAt(first) == L"first");
    dictionary()->setAt(L"renamed", open(first));
    EXPECT_TRUE(dictionary()->nameAt(first) == L"renamed");
    dictionary()->setAt(L"second", open(first));
    EXPECT_TRUE(dictionary()->nameAt(first) == L"renamed") << "the name is another object's";
    EXPECT_EQ(dictionary()->getAt(L"second"), second);
    EXPECT_EQ(database->recoveryReport().size(), 1u);
    EXPECT_TRUE(dictionary()->remove(OdString(L"second")).isNull());
    EXPECT_EQ(database->undoMark(), mark);
}

} // namespace
