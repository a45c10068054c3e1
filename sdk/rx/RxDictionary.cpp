// Dictionaries: an entry for each id, a table from folded name to id.
#include "RxDictionary.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <mutex>
#include <unordered_map>
#include <vector>

#include "OdError.h"
#include "RxObjectImpl.h"
#include "rx/FoldedKeys.h"

ODRX_NO_CONS_DEFINE_MEMBERS(OdRxIterator, OdRxObject)
ODRX_NO_CONS_DEFINE_MEMBERS(OdRxDictionaryIterator, OdRxIterator)
ODRX_NO_CONS_DEFINE_MEMBERS(OdRxDictionary, OdRxObject)

namespace
{

struct KeyRule
{
    bool caseSensitive;

    std::size_t operator()(const OdString& key) const
    {
        return caseSensitive ? std::hash<OdString>()(key) : odkeys::FoldedHash()(key);
    }
    bool operator()(const OdString& first, const OdString& second) const
    {
        return caseSensitive ? first == second : odkeys::FoldedEqual()(first, second);
    }
    bool isLess(const OdString& first, const OdString& second) const
    {
        return caseSensitive ? first < second : first.iCompare(second) < 0;
    }
};

/// Keeps nobody apart.
struct NoMutex
{
    void lock() {}
    void unlock() {}
};

struct Entry
{
    OdString key;
    OdRxObjectPtr object;
    OdUInt64 serial = 0; ///< tells entries that had the same id one after the other apart; 0 for none
};

struct EntryReference
{
    OdUInt32 id;
    OdUInt64 serial;
    OdString key;
};

/// What iterators need of either kind of dictionary.
class EntryReader
{
public:
    virtual ~EntryReader() = default;
    /// False when the entry is gone.
    virtual bool readEntry(const EntryReference& reference, Entry& entry) const = 0;
};

class Iterator : public OdRxDictionaryIterator
{
public:
    Iterator(const OdRxDictionary& owner, const EntryReader& reader, std::vector<EntryReference> entries)
        : m_owner(&owner), m_reader(reader), m_entries(std::move(entries))
    {
    }

    bool done() const override
    {
        current();
        return m_at >= m_entries.size();
    }
    bool next() override
    {
        if (!done())
            ++m_at;
        return !done();
    }
    OdRxObjectPtr object() const override { return current().object; }
    OdString getKey() const override { return current().key; }
    OdUInt32 id() const override { return done() ? OdRxDictionary::kInvalidId : m_entries[m_at].id; }

private:
    // The entry that the iterator stands on; entries that were removed are stepped over.
    Entry current() const
    {
        Entry entry;
        while (m_at < m_entries.size() && !m_reader.readEntry(m_entries[m_at], entry))
            ++m_at;
        return entry;
    }

    OdSmartPtr<OdRxDictionary> m_owner;
    const EntryReader& m_reader;
    std::vector<EntryReference> m_entries;
    mutable std::size_t m_at = 0;
};

template<class Mutex>
class Dictionary : public OdRxDictionary, public EntryReader
{
public:
    explicit Dictionary(bool caseSensitive) : m_rule{caseSensitive}, m_ids(0, m_rule, m_rule) {}

    void reserve(OdUInt32 numEntries) override
    {
        const std::lock_guard<Mutex> lock(m_mutex);
        m_entries.reserve(numEntries);
        if (numEntries > kFew)
            m_ids.reserve(numEntries);
    }

    OdRxObjectPtr getAt(const OdString& key) const override
    {
        const std::lock_guard<Mutex> lock(m_mutex);
        return objectOf(findId(key));
    }
    OdRxObjectPtr getAt(OdUInt32 id) const override
    {
        const std::lock_guard<Mutex> lock(m_mutex);
        return objectOf(id);
    }

    OdRxObjectPtr putAt(const OdString& key, OdRxObject* object, OdUInt32* id) override
    {
        if (key.isEmpty())
            odThrow(eEmptyName);
        const std::lock_guard<Mutex> lock(m_mutex);
        OdUInt32 found = findId(key);
        if (found == kInvalidId)
            found = addEntry(key);
        if (id)
            *id = found;
        return exchange(found, object);
    }
    OdRxObjectPtr putAt(OdUInt32 id, OdRxObject* object) override
    {
        const std::lock_guard<Mutex> lock(m_mutex);
        if (!isEntry(id))
            odThrow(eKeyNotFound);
        return exchange(id, object);
    }

    bool resetKey(const OdString& oldKey, const OdString& newKey) override
    {
        const std::lock_guard<Mutex> lock(m_mutex);
        return rename(findId(oldKey), newKey);
    }
    bool resetKey(OdUInt32 id, const OdString& newKey) override
    {
        const std::lock_guard<Mutex> lock(m_mutex);
        return rename(id, newKey);
    }

    OdRxObjectPtr remove(const OdString& key) override
    {
        const std::lock_guard<Mutex> lock(m_mutex);
        return removeEntry(findId(key));
    }
    OdRxObjectPtr remove(OdUInt32 id) override
    {
        const std::lock_guard<Mutex> lock(m_mutex);
        return removeEntry(id);
    }

    bool has(const OdString& key) const override
    {
        const std::lock_guard<Mutex> lock(m_mutex);
        return findId(key) != kInvalidId;
    }
    bool has(OdUInt32 id) const override
    {
        const std::lock_guard<Mutex> lock(m_mutex);
        return isEntry(id);
    }

    OdUInt32 idAt(const OdString& key) const override
    {
        const std::lock_guard<Mutex> lock(m_mutex);
        return findId(key);
    }
    OdString keyAt(OdUInt32 id) const override
    {
        const std::lock_guard<Mutex> lock(m_mutex);
        return isEntry(id) ? m_entries[id].key : OdString();
    }

    OdUInt32 numEntries() const override
    {
        const std::lock_guard<Mutex> lock(m_mutex);
        return static_cast<OdUInt32>(m_entries.size() - m_freeIds.size());
    }

    OdRxDictionaryIteratorPtr newIterator(OdRx::DictIterType type) const override
    {
        std::vector<EntryReference> entries = references();
        std::sort(entries.begin(), entries.end(),
                  [this, type](const EntryReference& first, const EntryReference& second) {
                      return type == OdRx::kDictSorted ? m_rule.isLess(first.key, second.key)
                                                       : first.serial < second.serial;
                  });
        return OdRxObjectImpl<Iterator, OdRxDictionaryIterator>::createObject(
            static_cast<const OdRxDictionary&>(*this), static_cast<const EntryReader&>(*this), std::move(entries));
    }

    bool isCaseSensitive() const override { return m_rule.caseSensitive; }

    bool readEntry(const EntryReference& reference, Entry& entry) const override
    {
        const std::lock_guard<Mutex> lock(m_mutex);
        if (!isEntry(reference.id) || m_entries[reference.id].serial != reference.serial)
            return false;
        entry = m_entries[reference.id];
        return true;
    }

private:
    bool isEntry(OdUInt32 id) const { return id < m_entries.size() && m_entries[id].serial != 0; }
    // Many dictionaries hold two or three entries, which are found sooner without a table.
    OdUInt32 findId(const OdString& key) const
    {
        if (m_hasTable)
        {
            const auto found = m_ids.find(key);
            return found == m_ids.end() ? kInvalidId : found->second;
        }
        for (OdUInt32 id = 0; id < m_entries.size(); ++id)
            if (isEntry(id) && m_rule(m_entries[id].key, key))
                return id;
        return kInvalidId;
    }
    void enter(const OdString& key, OdUInt32 id)
    {
        if (m_hasTable)
            m_ids.emplace(key, id);
        else if (m_entries.size() > kFew)
            makeTable();
    }
    void leave(const OdString& key)
    {
        if (m_hasTable)
            m_ids.erase(key);
    }
    void makeTable()
    {
        m_hasTable = true;
        for (OdUInt32 id = 0; id < m_entries.size(); ++id)
            if (isEntry(id))
                m_ids.emplace(m_entries[id].key, id);
    }
    OdRxObjectPtr objectOf(OdUInt32 id) const { return isEntry(id) ? m_entries[id].object : OdRxObjectPtr(); }

    OdUInt32 addEntry(const OdString& key)
    {
        OdUInt32 id = static_cast<OdUInt32>(m_entries.size());
        if (m_freeIds.empty())
        {
            if (m_entries.empty())
                m_entries.reserve(4); // as a start
            m_entries.emplace_back();
        }
        else
        {
            id = m_freeIds.back();
            m_freeIds.pop_back();
        }
        m_entries[id].key = key;
        m_entries[id].serial = ++m_lastSerial;
        enter(key, id);
        return id;
    }
    // The object before is handed out rather than released here: its end may call back.
    OdRxObjectPtr exchange(OdUInt32 id, OdRxObject* object)
    {
        OdRxObjectPtr previous(object);
        previous.swap(m_entries[id].object);
        return previous;
    }
    OdRxObjectPtr removeEntry(OdUInt32 id)
    {
        if (!isEntry(id))
            return {};
        leave(m_entries[id].key);
        OdRxObjectPtr removed = exchange(id, nullptr);
        m_entries[id] = Entry();
        m_freeIds.push_back(id);
        return removed;
    }
    bool rename(OdUInt32 id, const OdString& newKey)
    {
        const OdUInt32 present = findId(newKey);
        if (!isEntry(id) || newKey.isEmpty() || (present != kInvalidId && present != id))
            return false;
        leave(m_entries[id].key);
        m_entries[id].key = newKey;
        enter(newKey, id);
        return true;
    }
    std::vector<EntryReference> references() const
    {
        const std::lock_guard<Mutex> lock(m_mutex);
        std::vector<EntryReference> all;
        all.reserve(m_entries.size() - m_freeIds.size());
        for (OdUInt32 id = 0; id < m_entries.size(); ++id)
            if (isEntry(id))
                all.push_back({id, m_entries[id].serial, m_entries[id].key});
        return all;
    }

    const KeyRule m_rule;
    mutable Mutex m_mutex;
    std::vector<Entry> m_entries;
    std::vector<OdUInt32> m_freeIds;
    static constexpr std::size_t kFew = 8;
    bool m_hasTable = false;                                        // from when there were more entries than a few
    std::unordered_map<OdString, OdUInt32, KeyRule, KeyRule> m_ids; // the table
    OdUInt64 m_lastSerial = 0;
};

} // namespace

OdRxDictionaryPtr odrxCreateRxDictionary(bool caseSensitive)
{
    return OdRxObjectImpl<Dictionary<NoMutex>, OdRxDictionary>::createObject(caseSensitive);
}

OdRxDictionaryPtr odrxCreateSyncRxDictionary(bool caseSensitive)
{
    return OdRxObjectImpl<Dictionary<std::mutex>, OdRxDictionary>::createObject(caseSensitive);
}
