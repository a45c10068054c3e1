// Stubs in slabs that never move, and pages of them by handle.
#include "StubTable.h"

namespace oddb
{

namespace
{

constexpr std::size_t kFirstSlots = 64;

// Pages mostly have consecutive numbers; the multiplication spreads them and any other pattern over the table.
std::size_t spread(OdUInt64 pageNumber)
{
    const OdUInt64 mixed = pageNumber * 0x9E3779B97F4A7C15ull;
    return static_cast<std::size_t>(mixed ^ mixed >> 32);
}

} // namespace

std::size_t StubTable::slot(OdUInt64 pageNumber) const
{
    const std::size_t mask = m_slots.size() - 1;
    std::size_t at = spread(pageNumber) & mask;
    while (m_slots[at] && m_slots[at]->number != pageNumber)
        at = (at + 1) & mask;
    return at;
}

StubTable::Page* StubTable::findPage(OdUInt64 pageNumber) const
{
    if (m_recent && m_recent->number == pageNumber)
        return m_recent;
    Page* page = m_slots.empty() ? nullptr : m_slots[slot(pageNumber)];
    if (page)
        m_recent = page;
    return page;
}

StubTable::Page& StubTable::findOrCreatePage(OdUInt64 pageNumber)
{
    if (Page* page = findPage(pageNumber))
        return *page;
    if ((m_pages.size() + 1) * 4 > m_slots.size() * 3)
        rehash(m_slots.empty() ? kFirstSlots : m_slots.size() * 2);
    Page& page = m_pages.emplace_back();
    page.number = pageNumber;
    m_recent = m_slots[slot(pageNumber)] = &page;
    return page;
}

OdDbStub* StubTable::find(OdUInt64 handle) const
{
    const Page* page = findPage(handle / kPageSize);
    return page ? page->stubs[handle % kPageSize] : nullptr;
}

OdDbStub* StubTable::findOrCreate(OdUInt64 handle)
{
    OdDbStub*& place = findOrCreatePage(handle / kPageSize).stubs[handle % kPageSize];
    if (!place)
        place = allocate(handle);
    return place;
}

void StubTable::rehash(std::size_t slots)
{
    m_slots.assign(slots, nullptr);
    for (Page& page : m_pages)
        m_slots[slot(page.number)] = &page;
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
