// Random histories of a dictionary: whatever is undone, redone or aborted has to end in exactly the state it began
// with.
#include <random>
#include <string>
#include <vector>

#include "ObjectsTest.h"
#include "db/DictionaryCore.h"

namespace
{

using namespace objectstest;

class DictionaryHistoryTest : public ObjectsTest, public testing::WithParamInterface<unsigned>
{
protected:
    DictionaryHistoryTest() : random(GetParam()), dictionaryId(makeDictionary()) {}

    std::size_t below(std::size_t limit) { return random() % limit; }

    OdString anyName()
    {
        static const OdChar* const kNames[] = {L"a", L"A", L"b", L"\u00E9", L"\u00C9", L"c", L"d", L"E", L"e", L"f"};
        return kNames[below(std::size(kNames))];
    }

    // All that can be seen of the dictionary and its objects, in order.
    std::string state() const
    {
        std::string shown;
        const OdDbDictionaryPtr dictionary = open<OdDbDictionary>(dictionaryId);
        const auto& entries = oddb::DictionaryCore::entries(*dictionary);
        for (auto at = entries.first(); at != oddb::DictionaryEntries::kNone; at = entries.next(at))
        {
            const OdDbObjectId id(entries[at].object);
            shown += entries[at].name + "=" + id.getHandle().text() + (id.isErased() ? "!" : "");
            shown += open(id)->hasPersistentReactor(dictionaryId) ? "r " : " ";
            EXPECT_EQ(entries[entries.find(entries[at].object)].name, entries[at].name);
            EXPECT_TRUE(dictionary->isTreatElementsAsHard() || !entries[at].hard);
        }
        return shown;
    }

    void changeSomething()
    {
        OdDbDictionaryPtr dictionary = open<OdDbDictionary>(dictionaryId, OdDb::kForWrite);
        const OdDbObjectId any = anyObject(*dictionary);
        switch (below(6))
        {
        case 0:
        case 1:
            dictionary->setAt(anyName(), OdDbXrecord::createObject());
            return;
        case 2:
            if (!any.isErased())
                dictionary->setAt(anyName(), open(any, OdDb::kForWrite));
            return;
        case 3:
            dictionary->remove(anyName());
            return;
        case 4:
            dictionary->setName(anyName(), anyName());
            return;
        case 5:
            if (!any.isNull())
                open(any, OdDb::kForWrite)->erase(!any.isErased());
            return;
        }
    }

    OdDbObjectId anyObject(const OdDbDictionary& dictionary)
    {
        const auto& entries = oddb::DictionaryCore::entries(dictionary);
        auto at = entries.first();
        for (std::size_t skipped = below(entries.size() + 1); at != oddb::DictionaryEntries::kNone && skipped > 0;
             --skipped)
            at = entries.next(at);
        return at == oddb::DictionaryEntries::kNone ? OdDbObjectId() : OdDbObjectId(entries[at].object);
    }

    std::mt19937 random;
    OdDbObjectId dictionaryId;
};

TEST_P(DictionaryHistoryTest, EndsWhereItBegan)
{
    std::vector<std::string> states{state()};
    for (int record = 0; record < 30; ++record)
    {
        const OdUInt64 mark = database->undoMark();
        recorded(
            [&]
            {
                for (std::size_t change = below(6); change > 0; --change)
                    changeSomething();
            });
        if (database->undoMark() != mark)
            states.push_back(state());
        ASSERT_EQ(state(), states.back()) << "a run that leaves no record changes nothing";
        const std::string before = state();
        database->startTransaction();
        for (std::size_t change = below(6); change > 0; --change)
            changeSomething();
        database->abortTransaction();
        ASSERT_EQ(state(), before) << "after a transaction that was aborted";
    }
    for (int round = 0; round < 2; ++round)
    {
        for (std::size_t i = states.size() - 1; i > 0; --i)
        {
            database->undo();
            ASSERT_EQ(state(), states[i - 1]) << "undone to " << i - 1;
        }
        for (std::size_t i = 1; i < states.size(); ++i)
        {
            database->redo();
            ASSERT_EQ(state(), states[i]) << "redone to " << i;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, DictionaryHistoryTest, testing::Range(1u, 25u));

} // namespace
