// Stubs in slabs that never move, and an index of them by handle.
#include "StubTable.h"

namespace oddb
{

namespace
{

constexpr std::size_t kFirstSlots = 256;

// Handles are mostly consecutive numbers; the multiplication spreads them and any other pattern over the table.
std::size_t spread(OdUInt64 handle)
{
    const OdUInt64 mixed = handle * 0x9E3779B97F4A7C15ull;
    return static_cast<std::size_t>(mixed ^ mixed >> 32);
}

} // namespace

std::size_t StubTable::slot(OdUInt64 handle) const
{
    const std::size_t mask = m_slots.size() - 1;
    std::size_t at = spread(handle) & mask;
    while (m_slots[at] && m_slots[at]->handle != handle)
        at = (at + 1) & mask;
    return at;
}

OdDbStub* StubTable::find(OdUInt64 handle) const
{
    return m_slots.empty() ? nullptr : m_slots[slot(handle)];
}

OdDbStub* StubTable::findOrCreate(OdUInt64 handle)
{
    if ((m_count + 1) * 4 > m_slots.size() * 3)
        rehash(m_slots.empty() ? kFirstSlots : m_slots.size() * 2);
    OdDbStub*& place = m_slots[slot(handle)];
    if (!place)
        place = allocate(handle);
    return place;
}

void StubTable::reserve(std::size_t count)
{
    std::size_t slots = m_slots.empty() ? kFirstSlots : m_slots.size();
    while (count * 4 > slots * 3)
        slots *= 2;
    if (slots != m_slots.size())
        rehash(slots);
}

void StubTable::rehash(std::size_t slots)
{
    std::vector<OdDbStub*> old(slots);
    old.swap(m_slots);
    for (OdDbStub* stub : old)
        if (stub)
            m_slots[slot(stub->handle)] = stub;
}

OdDbStub* StubTable::allocate(OdUInt64 handle)
{
    if (m_count == m_slabs.size() * kSlabSize)
        m_slabs.push_back(std::make_unique<OdDbStub[]>(kSlabSize));
    OdDbStub& stub = m_slabs.back()[m_count % kSlabSize];
    stub.handle = handle;
    stub.database = m_database;
    ++m_count;
    return &stub;
}

} // namespace oddb
