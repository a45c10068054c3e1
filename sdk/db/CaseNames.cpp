// Folding of names, and a hash table of numbers.
#include "CaseNames.h"

#include <array>
#include <string>

#include "OdString.h"

namespace oddb
{

namespace
{

constexpr std::uint32_t kHashStart = 2166136261u;
constexpr std::uint32_t kHashPrime = 16777619u;

bool isAscii(std::string_view name)
{
    for (const char c : name)
        if (static_cast<unsigned char>(c) > 127)
            return false;
    return true;
}

// What odCaseFold makes of ASCII characters: the letters become small ones.
constexpr std::uint32_t foldAscii(char c)
{
    return static_cast<std::uint32_t>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
}

std::uint32_t hashStep(std::uint32_t hash, std::uint32_t character)
{
    return (hash ^ character) * kHashPrime;
}

// The low bits choose the slot, so the high ones have to reach them.
std::uint32_t finishHash(std::uint32_t hash)
{
    hash ^= hash >> 15;
    hash *= 0x2C1B3C6Du;
    return hash ^ hash >> 13;
}

} // namespace

std::wstring foldedName(std::string_view name)
{
    std::wstring folded;
    odAppendWide(folded, name);
    for (OdChar& c : folded)
        c = odCaseFold(c);
    return folded;
}

std::uint32_t nameHash(std::string_view name)
{
    std::uint32_t hash = kHashStart;
    if (isAscii(name))
        for (const char c : name)
            hash = hashStep(hash, foldAscii(c));
    else
        for (const OdChar c : foldedName(name))
            hash = hashStep(hash, static_cast<std::uint32_t>(c));
    return finishHash(hash);
}

bool isSameName(std::string_view first, std::string_view second)
{
    if (first == second)
        return true;
    if (!isAscii(first) || !isAscii(second))
        return foldedName(first) == foldedName(second);
    if (first.size() != second.size())
        return false;
    for (std::size_t i = 0; i < first.size(); ++i)
        if (foldAscii(first[i]) != foldAscii(second[i]))
            return false;
    return true;
}

// ---- HashIndex -----------------------------------------------------------------------------------------------------

void HashIndex::clear()
{
    m_slots.clear();
    m_count = 0;
    m_taken = 0;
}

void HashIndex::add(std::uint32_t hash, std::uint32_t number)
{
    if (4 * (m_taken + 1) > 3 * m_slots.size())
        rehash();
    std::size_t at = hash & mask();
    while (m_slots[at].number < kRemoved)
        at = (at + 1) & mask();
    m_taken += m_slots[at].number == kNone;
    m_slots[at] = {hash, number};
    ++m_count;
}

void HashIndex::remove(std::uint32_t hash, std::uint32_t number)
{
    if (m_slots.empty())
        return;
    for (std::size_t at = hash & mask(); m_slots[at].number != kNone; at = (at + 1) & mask())
        if (m_slots[at].number == number && m_slots[at].hash == hash)
        {
            m_slots[at].number = kRemoved;
            --m_count;
            return;
        }
}

void HashIndex::rehash()
{
    std::size_t size = 16;
    while (size < 2 * (m_count + 1))
        size *= 2;
    std::vector<Slot> old(size);
    old.swap(m_slots);
    m_taken = m_count;
    for (const Slot& slot : old)
    {
        if (slot.number >= kRemoved)
            continue;
        std::size_t at = slot.hash & mask();
        while (m_slots[at].number != kNone)
            at = (at + 1) & mask();
        m_slots[at] = slot;
    }
}

} // namespace oddb
