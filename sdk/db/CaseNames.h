// Names that are the same whatever their case: comparing them, and finding things by them in constant time.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace oddb
{

/// Equal for UTF-8 names that are the same without regard to case.
std::uint32_t nameHash(std::string_view name);

/// True for UTF-8 names that are the same without regard to case.
bool isSameName(std::string_view first, std::string_view second);

/// The name in the form by which names are sorted: compare the results by their characters.
std::wstring foldedName(std::string_view name);

/// Finds the numbers of things by hash. Several may have the same hash.
class HashIndex
{
public:
    static constexpr std::uint32_t kNone = UINT32_MAX;

    void clear();
    void add(std::uint32_t hash, std::uint32_t number);
    void remove(std::uint32_t hash, std::uint32_t number);

    /// The first number with this hash, in no particular order, that matches; kNone when there is none.
    template<class Match>
    std::uint32_t find(std::uint32_t hash, Match match) const
    {
        if (m_slots.empty())
            return kNone;
        for (std::size_t at = hash & mask(); m_slots[at].number != kNone; at = (at + 1) & mask())
            if (m_slots[at].hash == hash && m_slots[at].number != kRemoved && match(m_slots[at].number))
                return m_slots[at].number;
        return kNone;
    }

private:
    static constexpr std::uint32_t kRemoved = UINT32_MAX - 1;
    struct Slot
    {
        std::uint32_t hash = 0;
        std::uint32_t number = kNone;
    };

    std::size_t mask() const { return m_slots.size() - 1; }
    void rehash();

    std::vector<Slot> m_slots; // open addressing, a power of two, at most three quarters taken
    std::size_t m_count = 0;
    std::size_t m_taken = 0; // with the places of removed ones
};

} // namespace oddb
