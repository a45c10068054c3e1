// A list of entries with two hash tables over it.
#include "DictionaryEntries.h"

#include <algorithm>

namespace oddb
{

namespace
{

std::uint32_t objectHash(const OdDbStub* object)
{
    const auto bits = reinterpret_cast<std::uintptr_t>(object) >> 4;
    return static_cast<std::uint32_t>((bits * 0x9E3779B97F4A7C15ull) >> 32);
}

} // namespace

// ---- Finding -------------------------------------------------------------------------------------------------------

// Damaged drawings have several entries of one name; the first one that is not erased counts.
std::uint32_t DictionaryEntries::find(std::string_view name) const
{
    std::uint32_t erased = kNone;
    const std::uint32_t found = m_names.find(nameHash(name),
                                             [&](std::uint32_t number)
                                             {
                                                 const DictionaryEntry& entry = m_nodes[number].entry;
                                                 if (!isSameName(entry.name, name))
                                                     return false;
                                                 if (!entry.object || !entry.object->has(OdDbStub::kErased))
                                                     return true;
                                                 erased = number;
                                                 return false;
                                             });
    return found != kNone ? found : erased;
}

std::uint32_t DictionaryEntries::find(const OdDbStub* object) const
{
    return m_objects.find(objectHash(object),
                          [&](std::uint32_t number) { return m_nodes[number].entry.object == object; });
}

// ---- Changing ------------------------------------------------------------------------------------------------------

std::uint32_t DictionaryEntries::insert(DictionaryEntry entry, std::uint32_t behind)
{
    std::uint32_t number;
    if (m_free.empty())
    {
        number = static_cast<std::uint32_t>(m_nodes.size());
        m_nodes.emplace_back();
    }
    else
    {
        number = m_free.back();
        m_free.pop_back();
    }
    Node& node = m_nodes[number];
    node.entry = std::move(entry);
    node.previous = behind;
    node.next = behind == kNone ? m_first : m_nodes[behind].next;
    (behind == kNone ? m_first : m_nodes[behind].next) = number;
    (node.next == kNone ? m_last : m_nodes[node.next].previous) = number;
    ++m_size;
    index(number);
    noteChange();
    return number;
}

void DictionaryEntries::replace(std::uint32_t number, DictionaryEntry entry)
{
    unindex(number);
    m_nodes[number].entry = std::move(entry);
    index(number);
    noteChange();
}

void DictionaryEntries::remove(std::uint32_t number)
{
    unindex(number);
    Node& node = m_nodes[number];
    (node.previous == kNone ? m_first : m_nodes[node.previous].next) = node.next;
    (node.next == kNone ? m_last : m_nodes[node.next].previous) = node.previous;
    node = Node();
    m_free.push_back(number);
    --m_size;
    noteChange();
}

void DictionaryEntries::clear()
{
    *this = DictionaryEntries();
}

void DictionaryEntries::index(std::uint32_t number)
{
    m_names.add(nameHash(m_nodes[number].entry.name), number);
    m_objects.add(objectHash(m_nodes[number].entry.object), number);
}

void DictionaryEntries::unindex(std::uint32_t number)
{
    m_names.remove(nameHash(m_nodes[number].entry.name), number);
    m_objects.remove(objectHash(m_nodes[number].entry.object), number);
}

void DictionaryEntries::noteChange()
{
    m_inOrder.reset();
    m_byName.reset();
}

// ---- Going over all ------------------------------------------------------------------------------------------------

DictionaryEntries::Snapshot DictionaryEntries::inOrder() const
{
    if (m_inOrder)
        return m_inOrder;
    std::vector<DictionaryEntry> entries;
    entries.reserve(m_size);
    for (std::uint32_t number = m_first; number != kNone; number = next(number))
        entries.push_back(m_nodes[number].entry);
    m_inOrder = std::make_shared<const std::vector<DictionaryEntry>>(std::move(entries));
    return m_inOrder;
}

DictionaryEntries::Snapshot DictionaryEntries::byName() const
{
    if (m_byName)
        return m_byName;
    std::vector<std::pair<std::wstring, std::uint32_t>> sorted;
    sorted.reserve(m_size);
    for (std::uint32_t number = m_first; number != kNone; number = next(number))
        sorted.emplace_back(foldedName(m_nodes[number].entry.name), number);
    std::stable_sort(sorted.begin(), sorted.end(),
                     [](const auto& first, const auto& second) { return first.first < second.first; });
    std::vector<DictionaryEntry> entries;
    entries.reserve(m_size);
    for (const auto& [name, number] : sorted)
        entries.push_back(m_nodes[number].entry);
    m_byName = std::make_shared<const std::vector<DictionaryEntry>>(std::move(entries));
    return m_byName;
}

} // namespace oddb
