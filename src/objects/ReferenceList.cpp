// A list with a table of hashes beside it. Removing leaves a gap, and gaps are closed when they outnumber the ids.
#include "objects/ReferenceList.h"

#include <algorithm>
#include <bit>

// Up to this number of entries, looking at each is faster than a table.
static constexpr std::size_t kShort = 8;

OdDbObjectId CReferenceList::Removed()
{
    static char g_place;
    return OdDbObjectId(reinterpret_cast<OdDbStub*>(&g_place));
}

std::size_t CReferenceList::SlotOf(const OdDbObjectId& id) const
{
    const auto address = reinterpret_cast<std::uintptr_t>(static_cast<OdDbStub*>(id));
    return static_cast<std::size_t>((address * 0x9E3779B97F4A7C15u) >> 32) & (m_slots.size() - 1);
}

// Of ids that are the same, the one that stands first in the list counts, wherever it came to lie in the table.
std::int64_t CReferenceList::Find(const OdDbObjectId& id) const
{
    if (m_slots.empty())
    {
        const auto found = std::find(m_entries.begin(), m_entries.end(), id);
        return found == m_entries.end() ? -1 : found - m_entries.begin();
    }
    std::int64_t iFound = -1;
    for (std::size_t slot = SlotOf(id); m_slots[slot] != 0; slot = (slot + 1) & (m_slots.size() - 1))
    {
        const std::int64_t iEntry = m_slots[slot] - 1;
        if (m_entries[static_cast<std::size_t>(iEntry)] == id && (iFound < 0 || iEntry < iFound))
            iFound = iEntry;
    }
    return iFound;
}

void CReferenceList::Index(std::uint32_t uiEntry)
{
    std::size_t slot = SlotOf(m_entries[uiEntry]);
    while (m_slots[slot] != 0)
        slot = (slot + 1) & (m_slots.size() - 1);
    m_slots[slot] = uiEntry + 1;
}

void CReferenceList::Rebuild()
{
    std::erase(m_entries, Removed());
    m_slots.clear();
    if (m_entries.size() < kShort)
        return;
    m_slots.resize(std::bit_ceil(m_entries.size() * 4));
    for (std::uint32_t i = 0; i < m_entries.size(); ++i)
        Index(i);
}

void CReferenceList::Append(const OdDbObjectId& id)
{
    if (m_entries.size() >= kShort && IsFull())
        Rebuild();
    m_entries.push_back(id);
    ++m_uiCount;
    if (!m_slots.empty())
        Index(static_cast<std::uint32_t>(m_entries.size() - 1));
}

bool CReferenceList::RemoveFirst(const OdDbObjectId& id)
{
    const std::int64_t iFound = Find(id);
    if (iFound < 0)
        return false;
    m_entries[static_cast<std::size_t>(iFound)] = Removed();
    --m_uiCount;
    if (m_entries.size() >= std::size_t{2} * m_uiCount + kShort)
        Rebuild();
    return true;
}

void CReferenceList::Clear()
{
    m_entries.clear();
    m_slots.clear();
    m_uiCount = 0;
}

OdDbObjectIdArray CReferenceList::Ids() const
{
    OdDbObjectIdArray ids;
    ids.reserve(m_uiCount);
    ForEach([&](const OdDbObjectId& id) { ids.append(id); });
    return ids;
}
