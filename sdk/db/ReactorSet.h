// The persistent reactors of one object: a set that remembers the order in which its members came.
#pragma once

#include <cstddef>
#include <memory>
#include <unordered_map>

class OdDbStub;
class OdRxClass;

namespace oddb
{

/// Up to two members stand in the set itself; more are kept in a table that finds, adds and removes any of them in
/// constant time and still knows their order.
class ReactorSet
{
public:
    ReactorSet();
    ReactorSet(ReactorSet&&) noexcept;
    ReactorSet& operator=(ReactorSet&&) noexcept;
    ~ReactorSet();

    bool empty() const { return size() == 0; }
    std::size_t size() const;
    bool contains(const OdDbStub* member) const;

    /// How many members are objects of a class, erased ones too. The first question about a class takes a walk, those
    /// that follow do not.
    std::size_t countOf(const OdRxClass* type) const;

    /// Adds a member at the end. Returns false when it is one already.
    bool add(OdDbStub* member);

    /// Adds a member right behind another; in front of all when behind is null or no member.
    bool addBehind(OdDbStub* member, const OdDbStub* behind);

    /// Removes a member. Returns false when it is none.
    bool remove(const OdDbStub* member);

    /// The member in front of this one, null for the first and for what is no member.
    OdDbStub* before(const OdDbStub* member) const;
    OdDbStub* first() const;
    OdDbStub* last() const;
    OdDbStub* after(const OdDbStub* member) const;

    template<class Visit>
    void visit(Visit visit) const
    {
        for (OdDbStub* member = first(); member; member = after(member))
            visit(member);
    }

private:
    struct Table;
    Table& grow();

    OdDbStub* m_few[2] = {nullptr, nullptr};
    std::unique_ptr<Table> m_table; // in place of m_few once there were more
};

} // namespace oddb
