// Folding of names, and a hash table of numbers.
#include "CaseNames.h"

#include <algorithm>
#include <cstring>
#include <string>

#include "OdString.h"

namespace oddb
{

namespace
{

// Eight characters of a name at a time.
using Block = std::uint64_t;

constexpr Block kEach = 0x0101010101010101;
constexpr Block kHighBits = 0x80 * kEach;

Block readBlock(std::string_view name, std::size_t at)
{
    Block block = 0;
    if (name.size() - at >= sizeof block)
        std::memcpy(&block, name.data() + at, sizeof block);
    else
        std::memcpy(&block, name.data() + at, name.size() - at);
    return block;
}

// What odCaseFold makes of ASCII characters: the letters become small ones. None may be above 127.
Block foldBlock(Block characters)
{
    const Block fromA = characters + (0x80 - 'A') * kEach;
    const Block aboveZ = characters + (0x80 - 'Z' - 1) * kEach;
    return characters | (fromA & ~aboveZ & kHighBits) >> 2;
}

bool isAscii(std::string_view name)
{
    Block all = 0;
    for (std::size_t at = 0; at < name.size(); at += sizeof(Block))
        all |= readBlock(name, at);
    return (all & kHighBits) == 0;
}

constexpr std::uint64_t kHashPrime = 0x9E3779B97F4A7C15;

std::uint64_t hashStep(std::uint64_t hash, std::uint64_t part)
{
    hash = (hash ^ part) * kHashPrime;
    return hash ^ hash >> 32;
}

// Sets the hash of an ASCII name; false for others.
bool hashAscii(std::string_view name, std::uint64_t& hash)
{
    hash = name.size();
    for (std::size_t at = 0; at < name.size(); at += sizeof(Block))
    {
        const Block block = readBlock(name, at);
        if (block & kHighBits)
            return false;
        hash = hashStep(hash, foldBlock(block));
    }
    return true;
}

// Characters that are not ASCII may be the same as some that are.
std::uint64_t hashFolded(std::wstring_view folded)
{
    std::uint64_t hash = 0;
    if (std::all_of(folded.begin(), folded.end(), odIsAscii) &&
        hashAscii(std::string(folded.begin(), folded.end()), hash))
        return hash;
    for (const OdChar c : folded)
        hash = hashStep(hash, static_cast<std::uint64_t>(c));
    return hash;
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
    std::uint64_t hash = 0;
    return static_cast<std::uint32_t>(hashAscii(name, hash) ? hash : hashFolded(foldedName(name)));
}

bool isSameName(std::string_view first, std::string_view second)
{
    if (first == second)
        return true;
    // Characters that are not ASCII may be the same as some that are, with more bytes.
    if (!isAscii(first) || !isAscii(second))
        return foldedName(first) == foldedName(second);
    if (first.size() != second.size())
        return false;
    for (std::size_t at = 0; at < first.size(); at += sizeof(Block))
        if (foldBlock(readBlock(first, at)) != foldBlock(readBlock(second, at)))
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
