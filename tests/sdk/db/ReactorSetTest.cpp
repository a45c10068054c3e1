// The set of reactors against a list.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

#include "DbDictionary.h"
#include "DbXrecord.h"
#include "db/ReactorSet.h"
#include "db/Stub.h"

namespace
{

using oddb::ReactorSet;

std::vector<OdDbStub*> membersOf(const ReactorSet& set)
{
    std::vector<OdDbStub*> members;
    set.visit([&](OdDbStub* member) { members.push_back(member); });
    return members;
}

TEST(ReactorSet, BehavesAsAListWithoutRepetitions)
{
    std::mt19937 random(3);
    const OdDbDictionaryPtr counted = OdDbDictionary::createObject();
    const OdDbObjectPtr other = OdDbXrecord::createObject();
    OdDbObject* const objects[] = {counted, other, nullptr};
    std::vector<OdDbStub> stubs(6);
    for (std::size_t i = 0; i < stubs.size(); ++i)
        stubs[i].object = objects[i % 3];
    ReactorSet set;
    std::vector<OdDbStub*> list;
    for (int i = 0; i < 20000; ++i)
    {
        OdDbStub* stub = &stubs[random() % stubs.size()];
        OdDbStub* neighbour = random() % 5 ? &stubs[random() % stubs.size()] : nullptr;
        const auto place = std::find(list.begin(), list.end(), stub);
        ASSERT_EQ(set.contains(stub), place != list.end());
        ASSERT_EQ(set.before(stub), place == list.end() || place == list.begin() ? nullptr : *(place - 1));
        switch (random() % 3)
        {
        case 0:
            ASSERT_EQ(set.add(stub), place == list.end());
            if (place == list.end())
                list.push_back(stub);
            break;
        case 1:
            ASSERT_EQ(set.remove(stub), place != list.end());
            if (place != list.end())
                list.erase(place);
            break;
        default:
            ASSERT_EQ(set.addBehind(stub, neighbour), place == list.end());
            if (place == list.end())
            {
                const auto behind = std::find(list.begin(), list.end(), neighbour);
                list.insert(behind == list.end() ? list.begin() : behind + 1, stub);
            }
        }
        ASSERT_EQ(membersOf(set), list);
        ASSERT_EQ(set.size(), list.size());
        if (random() % 3)
        {
            ASSERT_EQ(set.countOf(OdDbDictionary::desc()),
                      std::count_if(list.begin(), list.end(),
                                    [&](OdDbStub* member) { return member->object == counted.get(); }));
        }
        ASSERT_EQ(set.last(), list.empty() ? nullptr : list.back());
    }
}

} // namespace
