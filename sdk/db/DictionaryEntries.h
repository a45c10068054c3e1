// The entries of one dictionary: in order, and found by name or by object in constant time.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "CaseNames.h"
#include "Stub.h"

namespace oddb
{

struct DictionaryEntry
{
    std::string name; ///< in UTF-8, as it was spelt
    OdDbStub* object = nullptr;
    bool hard = false; ///< files have it as a hard reference
};

/// Entries are numbered; a number is good until the entry is removed.
class DictionaryEntries
{
public:
    static constexpr std::uint32_t kNone = HashIndex::kNone;

    /// The first entry, the one behind an entry; kNone at the end.
    std::uint32_t first() const { return m_first; }
    std::uint32_t next(std::uint32_t number) const { return m_nodes[number].next; }
    std::uint32_t previous(std::uint32_t number) const { return m_nodes[number].previous; }
    const DictionaryEntry& operator[](std::uint32_t number) const { return m_nodes[number].entry; }
    std::size_t size() const { return m_size; }

    std::uint32_t find(std::string_view name) const;
    std::uint32_t find(const OdDbStub* object) const;

    /// Adds an entry behind another one; in front of all when behind is kNone.
    std::uint32_t insert(DictionaryEntry entry, std::uint32_t behind);
    std::uint32_t append(DictionaryEntry entry) { return insert(std::move(entry), m_last); }
    /// Puts another entry in the place of one.
    void replace(std::uint32_t number, DictionaryEntry entry);
    void remove(std::uint32_t number);
    void clear();

    /// The entries as they are now, in their order or by name, shared until the next change.
    using Snapshot = std::shared_ptr<const std::vector<DictionaryEntry>>;
    Snapshot inOrder() const;
    Snapshot byName() const;

private:
    struct Node
    {
        DictionaryEntry entry;
        std::uint32_t previous = kNone;
        std::uint32_t next = kNone;
    };

    void index(std::uint32_t number);
    void unindex(std::uint32_t number);
    void noteChange();

    std::vector<Node> m_nodes; // a removed one is used again
    std::vector<std::uint32_t> m_free;
    std::uint32_t m_first = kNone;
    std::uint32_t m_last = kNone;
    std::size_t m_size = 0;
    HashIndex m_names;
    HashIndex m_objects;
    mutable Snapshot m_inOrder;
    mutable Snapshot m_byName;
};

} // namespace oddb
