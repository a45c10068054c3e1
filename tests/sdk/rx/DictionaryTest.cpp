// Attacks dictionaries: changes under iterators, ids that are used again, several threads.
#include "RxDictionary.h"

#include <gtest/gtest.h>

#include <thread>

#include "RxSysRegistry.h"
#include "RxVariant.h"
#include "support/ErrorCode.h"

namespace
{

OdRxObjectPtr number(int value)
{
    return OdRxVariantValue(OdInt32(value));
}

int numberOf(const OdRxObjectPtr& object)
{
    return OdRxVariantPtr(object)->getInt32();
}

OdString keysOf(OdRxDictionary& dictionary, OdRx::DictIterType type)
{
    OdString keys;
    for (OdRxDictionaryIteratorPtr it = dictionary.newIterator(type); !it->done(); it->next())
        keys += it->getKey() + L" ";
    return keys;
}

class Dictionaries : public testing::TestWithParam<bool>
{
protected:
    OdRxDictionaryPtr make(bool caseSensitive) const
    {
        return GetParam() ? odrxCreateSyncRxDictionary(caseSensitive) : odrxCreateRxDictionary(caseSensitive);
    }
};

TEST_P(Dictionaries, CompareNamesAsTheyWereMade)
{
    const OdRxDictionaryPtr folding = make(false);
    EXPECT_TRUE(folding->putAt(L"\u00C9tage", number(1)).isNull());
    EXPECT_EQ(numberOf(folding->putAt(L"\u00E9TAGE", number(2))), 1);
    EXPECT_EQ(folding->numEntries(), 1u);
    EXPECT_TRUE(keysOf(*folding, OdRx::kDictCollated) == L"\u00C9tage ") << "the name stays as it was first given";
    const OdRxDictionaryPtr exact = make(true);
    exact->putAt(L"a", number(1));
    exact->putAt(L"A", number(2));
    EXPECT_EQ(exact->numEntries(), 2u);
    EXPECT_EQ(support::codeOf([&] { exact->putAt(L"", number(3)); }), eEmptyName);
    EXPECT_EQ(support::codeOf([&] { exact->putAt(77, number(3)); }), eKeyNotFound);
    EXPECT_TRUE(exact->getAt(L"b").isNull() && exact->remove(L"b").isNull() && exact->keyAt(77).isEmpty());
    EXPECT_EQ(exact->idAt(L"b"), OdRxDictionary::kInvalidId);
    EXPECT_TRUE(exact->getAt(OdRxDictionary::kInvalidId).isNull());
    exact->putAt(L"null", nullptr);
    EXPECT_TRUE(exact->has(L"null") && exact->getAt(L"null").isNull());
}

TEST_P(Dictionaries, RenameEntriesInPlace)
{
    const OdRxDictionaryPtr dictionary = make(false);
    OdUInt32 id = 0;
    dictionary->putAt(L"one", number(1), &id);
    dictionary->putAt(L"two", number(2));
    EXPECT_FALSE(dictionary->resetKey(L"one", L"TWO"));
    EXPECT_FALSE(dictionary->resetKey(L"one", L""));
    EXPECT_FALSE(dictionary->resetKey(L"none", L"three"));
    EXPECT_TRUE(dictionary->resetKey(L"one", L"ONE")) << "another spelling of its own name";
    EXPECT_TRUE(dictionary->resetKey(id, L"uno"));
    EXPECT_TRUE(dictionary->keyAt(id) == L"uno");
    EXPECT_EQ(numberOf(dictionary->getAt(L"UNO")), 1);
    EXPECT_FALSE(dictionary->has(L"one"));
}

TEST_P(Dictionaries, IteratorsSeeWhatIsStillThere)
{
    const OdRxDictionaryPtr dictionary = make(false);
    for (const OdChar* key : {L"d", L"B", L"a", L"C"})
        dictionary->putAt(key, number(key[0]));
    EXPECT_TRUE(keysOf(*dictionary, OdRx::kDictSorted) == L"a B C d ");
    EXPECT_TRUE(keysOf(*dictionary, OdRx::kDictCollated) == L"d B a C ");

    const OdRxDictionaryIteratorPtr it = dictionary->newIterator(OdRx::kDictSorted);
    EXPECT_TRUE(it->getKey() == L"a");
    dictionary->remove(L"a");
    dictionary->putAt(L"e", number(5)); // takes the id of the removed one
    EXPECT_TRUE(it->getKey() == L"B");
    dictionary->putAt(L"b", number(7));
    EXPECT_EQ(numberOf(it->object()), 7);
    dictionary->remove(L"c");
    dictionary->remove(L"d");
    EXPECT_FALSE(it->next());
    EXPECT_TRUE(it->done() && !it->next() && it->object().isNull() && it->getKey().isEmpty());
    EXPECT_EQ(it->id(), OdRxDictionary::kInvalidId);
    EXPECT_TRUE(keysOf(*dictionary, OdRx::kDictCollated) == L"B e ");
}

TEST_P(Dictionaries, OutliveTheirNamesInIterators)
{
    OdRxDictionaryPtr dictionary = make(false);
    dictionary->putAt(L"a", number(1));
    const OdRxDictionaryIteratorPtr it = dictionary->newIterator();
    dictionary.release();
    EXPECT_EQ(numberOf(it->object()), 1);
}

TEST_P(Dictionaries, PuttingAndRemovingOverAndOverUsesIdsAgain)
{
    const OdRxDictionaryPtr dictionary = make(false);
    OdUInt32 greatest = 0;
    for (int i = 0; i < 100000; ++i)
    {
        OdUInt32 id = 0;
        dictionary->putAt(L"FunctionParameterObject", number(i), &id);
        greatest = std::max(greatest, id);
        dictionary->remove(L"FunctionParameterObject");
    }
    EXPECT_LE(greatest, 1u);
}

INSTANTIATE_TEST_SUITE_P(PlainAndSynchronised, Dictionaries, testing::Bool());

// An object whose end reaches back into the dictionary that held it.
class Reaching : public OdRxVariant
{
public:
    ~Reaching() override
    {
        if (target)
            target->putAt(L"last words", number(1));
    }
    OdRxDictionary* target = nullptr;
};

TEST(SynchronisedDictionary, MayBeUsedByTheEndOfAnObject)
{
    const OdRxDictionaryPtr dictionary = odrxCreateSyncRxDictionary();
    const OdSmartPtr<Reaching> reaching = OdRxObjectImpl<Reaching>::createObject();
    reaching->target = dictionary;
    dictionary->putAt(L"x", reaching);
    const_cast<OdSmartPtr<Reaching>&>(reaching).release();
    dictionary->putAt(L"x", number(2));
    EXPECT_TRUE(dictionary->has(L"last words"));
}

TEST(SynchronisedDictionary, IsWholeForSeveralThreads)
{
    const OdRxDictionaryPtr dictionary = odrxCreateSyncRxDictionary();
    std::vector<std::thread> threads;
    for (int worker = 0; worker < 4; ++worker)
        threads.emplace_back(
            [&dictionary, worker]
            {
                for (int i = 0; i < 3000; ++i)
                {
                    const OdString key = OdString().format(L"key %d", (i * 7 + worker) % 50);
                    dictionary->putAt(key, number(i));
                    dictionary->getAt(key);
                    for (OdRxDictionaryIteratorPtr it = dictionary->newIterator(); i % 100 == 0 && !it->done();
                         it->next())
                        it->object();
                    if (i % 3 == 0)
                        dictionary->remove(key);
                }
            });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_LE(dictionary->numEntries(), 50u);
}

TEST(SystemRegistry, HoldsTheClassesAndTellsCase)
{
    EXPECT_EQ(odrxSysRegistry()->getAt(L"ClassDictionary").get(), odrxClassDictionary());
    odrxSysRegistry()->putAt(L"KEY", number(1));
    EXPECT_FALSE(odrxSysRegistry()->has(L"key"));
    odrxSysRegistry()->remove(L"KEY");
}

} // namespace
