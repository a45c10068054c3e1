// Two members in place, or a table of links in order with an index.
#include "ReactorSet.h"

#include <utility>

#include "DbObject.h"
#include "Stub.h"

namespace oddb
{

namespace
{

bool isOf(const OdDbStub& member, const OdRxClass* type)
{
    return member.object && member.object->isKindOf(type);
}

} // namespace

// Members as a ring of links around a head, each found through the index.
struct ReactorSet::Table
{
    struct Link
    {
        OdDbStub* member = nullptr;
        Link* before = nullptr;
        Link* after = nullptr;
    };

    Table() { head.before = head.after = &head; }
    Table(const Table&) = delete;
    Table& operator=(const Table&) = delete;

    const Link* find(const OdDbStub* member) const
    {
        auto found = index.find(member);
        return found == index.end() ? nullptr : &found->second;
    }

    bool insert(OdDbStub* member, Link& before)
    {
        auto [place, isNew] = index.try_emplace(member);
        if (!isNew)
            return false;
        Link& link = place->second;
        link.member = member;
        link.before = &before;
        link.after = before.after;
        link.before->after = link.after->before = &link;
        if (isCounted(*member))
            ++count;
        return true;
    }

    bool remove(const OdDbStub* member)
    {
        auto found = index.find(member);
        if (found == index.end())
            return false;
        Link& link = found->second;
        link.before->after = link.after;
        link.after->before = link.before;
        if (isCounted(*link.member))
            --count;
        index.erase(found);
        return true;
    }

    /// A member whose object is not there yet may become one of the class: all are counted again when asked then.
    bool isCounted(const OdDbStub& member)
    {
        if (!member.object)
            countedClass = nullptr;
        return countedClass && isOf(member, countedClass);
    }

    Link head;
    std::unordered_map<const OdDbStub*, Link> index;
    const OdRxClass* countedClass = nullptr; ///< what count is about, null when it is not known
    std::size_t count = 0;
};

ReactorSet::ReactorSet() = default;
ReactorSet::~ReactorSet() = default;

ReactorSet::ReactorSet(ReactorSet&& other) noexcept
    : m_few{std::exchange(other.m_few[0], nullptr), std::exchange(other.m_few[1], nullptr)},
      m_table(std::move(other.m_table))
{
}

ReactorSet& ReactorSet::operator=(ReactorSet&& other) noexcept
{
    std::swap(m_few, other.m_few);
    std::swap(m_table, other.m_table);
    return *this;
}

std::size_t ReactorSet::size() const
{
    if (m_table)
        return m_table->index.size();
    return (m_few[0] ? 1 : 0) + (m_few[1] ? 1 : 0);
}

bool ReactorSet::contains(const OdDbStub* member) const
{
    if (!member)
        return false;
    return m_table ? m_table->find(member) != nullptr : m_few[0] == member || m_few[1] == member;
}

std::size_t ReactorSet::countOf(const OdRxClass* type) const
{
    if (m_table && m_table->countedClass == type)
        return m_table->count;
    std::size_t count = 0;
    visit([&](const OdDbStub* member) { count += isOf(*member, type) ? 1 : 0; });
    if (m_table)
    {
        m_table->countedClass = type;
        m_table->count = count;
    }
    return count;
}

bool ReactorSet::add(OdDbStub* member)
{
    if (contains(member))
        return false;
    if (m_table)
        return m_table->insert(member, *m_table->head.before);
    if (m_few[1])
        return grow().insert(member, *m_table->head.before);
    m_few[m_few[0] ? 1 : 0] = member;
    return true;
}

bool ReactorSet::addBehind(OdDbStub* member, const OdDbStub* behind)
{
    if (contains(member))
        return false;
    if (!m_table && !m_few[1] && m_few[0])
    {
        m_few[1] = member;
        if (behind != m_few[0])
            std::swap(m_few[0], m_few[1]);
        return true;
    }
    if (!m_table && !m_few[0])
        return add(member);
    Table& table = m_table ? *m_table : grow();
    const Table::Link* link = behind ? table.find(behind) : nullptr;
    return table.insert(member, link ? const_cast<Table::Link&>(*link) : table.head);
}

bool ReactorSet::remove(const OdDbStub* member)
{
    if (m_table)
    {
        const bool removed = m_table->remove(member);
        if (m_table->index.empty())
            m_table.reset();
        return removed;
    }
    if (!contains(member))
        return false;
    if (m_few[0] == member)
        m_few[0] = m_few[1];
    m_few[1] = nullptr;
    return true;
}

OdDbStub* ReactorSet::first() const
{
    return m_table ? m_table->head.after->member : m_few[0];
}

OdDbStub* ReactorSet::last() const
{
    if (m_table)
        return m_table->head.before->member;
    return m_few[1] ? m_few[1] : m_few[0];
}

OdDbStub* ReactorSet::after(const OdDbStub* member) const
{
    if (!m_table)
        return m_few[0] == member ? m_few[1] : nullptr;
    const Table::Link* link = m_table->find(member);
    return link ? link->after->member : nullptr;
}

OdDbStub* ReactorSet::before(const OdDbStub* member) const
{
    if (!m_table)
        return m_few[1] == member && member ? m_few[0] : nullptr;
    const Table::Link* link = m_table->find(member);
    return link ? link->before->member : nullptr;
}

ReactorSet::Table& ReactorSet::grow()
{
    m_table = std::make_unique<Table>();
    for (OdDbStub*& member : m_few)
        m_table->insert(std::exchange(member, nullptr), *m_table->head.before);
    return *m_table;
}

} // namespace oddb
