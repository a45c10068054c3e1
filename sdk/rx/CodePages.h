// The character sets of old drawings as tables: byte or pair of bytes to character, and back.
//
//     one byte    00 - 7F  the same character;  80 - FF  a character, the first of a pair, or nothing
//     two bytes   first 81 - FE, second 30 - FE (in the sets for Chinese, Japanese and Korean only)
#pragma once

#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "OdCodePage.h"

namespace odcodepages
{
/// One row of the table of known code pages.
struct Description
{
    OdCodePageId id;
    const char* name;       ///< in the header of a drawing
    const char* systemName; ///< for iconv; null where no table is needed
    bool hasPairs;
};

/// Null for an id that is none.
const Description* find(OdCodePageId id);

/// Compares without regard to case; null for an unknown name.
const Description* find(std::string_view name);

/// The characters of one code page. It is complete when it is first handed out and never changes.
class Table
{
public:
    static constexpr char16_t kNone = 0xFFFF;

    explicit Table(const Description& description);

    /// kNone where there is no character.
    char16_t character(unsigned char byte) const { return m_single[byte]; }
    char16_t character(unsigned char first, unsigned char second) const
    {
        return m_pairs.empty() ? kNone : m_pairs[first * 256u + second];
    }
    bool isLead(unsigned char byte) const { return m_lead[byte]; }

    /// The bytes of a character: a value up to FF for one byte, up to FFFF for a pair, -1 where there are none.
    int bytes(wchar_t character) const
    {
        const auto found = m_bytes.find(character);
        return found == m_bytes.end() ? -1 : found->second;
    }

private:
    void readSingles(void* converter);
    void readPairs(void* converter);
    void add(char16_t character, int bytes, void* backConverter);

    char16_t m_single[256];
    bool m_lead[256] = {};
    std::vector<char16_t> m_pairs;
    std::unordered_map<wchar_t, std::uint16_t> m_bytes;
};

/// The table of a code page, null when it needs none (UTF-8, ASCII) or the system does not know it.
const Table* table(OdCodePageId id);
} // namespace odcodepages
