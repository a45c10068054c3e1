// Changes of dictionaries as the journal knows them, and the form that dictionaries have in files.
//
//   100 AcDbDictionary  280 hard owner  281 merge style  { 3 name  350 or 360 object }...   100
//   AcDbDictionaryWithDefault ...
#include "DictionaryCore.h"

#include "DatabaseImpl.h"
#include "ObjectCore.h"
#include "RecordTables.h"

namespace oddb
{

namespace
{

constexpr int kNameCode = 3;
constexpr int kSoftCode = 350;
constexpr int kHardCode = 360;

bool isEntry(const DictionaryEntry& entry)
{
    return entry.object != nullptr;
}

// One entry as it was before and as it is behind the change; an entry without object stands for none.
class EntryChange : public JournalChange
{
public:
    EntryChange(OdDbStub& dictionary, DictionaryEntry before, DictionaryEntry after, OdDbStub* behind)
        : m_dictionary(dictionary), m_before(std::move(before)), m_after(std::move(after)), m_behind(behind)
    {
    }

    void replay(OdDbDatabase&, bool forward) override
    {
        put(forward ? m_before : m_after, forward ? m_after : m_before);
    }
    OdDbStub* changed() const override { return &m_dictionary; }

private:
    // Changes that were not recorded may have come in between: then what is not there is passed over.
    void put(const DictionaryEntry& present, const DictionaryEntry& wanted)
    {
        DictionaryEntries& entries = DictionaryCore::entries(static_cast<const OdDbDictionary&>(*m_dictionary.object));
        if (!isEntry(present))
        {
            const std::uint32_t behind = m_behind ? entries.find(m_behind) : DictionaryEntries::kNone;
            if (m_behind && behind == DictionaryEntries::kNone)
                entries.append(wanted);
            else
                entries.insert(wanted, behind);
            return;
        }
        const std::uint32_t number = entries.find(present.object);
        if (number == DictionaryEntries::kNone)
            return;
        if (isEntry(wanted))
            entries.replace(number, wanted);
        else
            entries.remove(number);
    }

    OdDbStub& m_dictionary;
    DictionaryEntry m_before;
    DictionaryEntry m_after;
    OdDbStub* m_behind; // the object of the entry in front, null for the first entry
};

void record(OdDbDictionary& dictionary, DictionaryEntry before, DictionaryEntry after, OdDbStub* behind)
{
    dictionary.assertWriteEnabled(false);
    databaseImpl(dictionary)
        ->journal.record(
            std::make_unique<EntryChange>(*ObjectCore::stub(dictionary), std::move(before), std::move(after), behind));
}

OdDbStub* objectInFront(const DictionaryEntries& entries, std::uint32_t number)
{
    const std::uint32_t previous = entries.previous(number);
    return previous == DictionaryEntries::kNone ? nullptr : entries[previous].object;
}

} // namespace

// ---- Recorded changes ----------------------------------------------------------------------------------------------

void DictionaryCore::add(OdDbDictionary& dictionary, DictionaryEntry entry)
{
    DictionaryEntries& entries = *dictionary.m_entries;
    const std::uint32_t number = entries.append(std::move(entry));
    record(dictionary, {}, entries[number], objectInFront(entries, number));
}

void DictionaryCore::replace(OdDbDictionary& dictionary, std::uint32_t number, DictionaryEntry entry)
{
    record(dictionary, (*dictionary.m_entries)[number], entry, nullptr);
    dictionary.m_entries->replace(number, std::move(entry));
}

void DictionaryCore::remove(OdDbDictionary& dictionary, std::uint32_t number)
{
    DictionaryEntries& entries = *dictionary.m_entries;
    record(dictionary, entries[number], {}, objectInFront(entries, number));
    entries.remove(number);
}

void DictionaryCore::adoptObject(OdDbDictionary& dictionary, OdDbStub& stub)
{
    OdDbStub* self = ObjectCore::stub(dictionary);
    Journal& journal = self->database->impl().journal;
    OdDbObject& object = *stub.object;
    if (ObjectCore::owner(object) != self)
    {
        journal.recordOwner(stub, ObjectCore::owner(object));
        ObjectCore::putOwner(object, self);
    }
    if (object.hasPersistentReactor(self))
        return;
    journal.recordReactorAdded(stub, self);
    ObjectCore::putReactor(object, self);
}

void DictionaryCore::releaseObject(OdDbDictionary& dictionary, OdDbStub& stub)
{
    OdDbStub* self = ObjectCore::stub(dictionary);
    const ObjectExtras* extras = stub.object ? ObjectCore::extras(*stub.object) : nullptr;
    if (!extras || !extras->reactors.contains(self))
        return;
    self->database->impl().journal.recordReactorRemoved(stub, self, extras->reactors.before(self));
    ObjectCore::takeReactor(*stub.object, self);
}

// ---- Files ---------------------------------------------------------------------------------------------------------

static void appendEntries(GroupsBuilder& groups, const DictionaryEntries& entries)
{
    for (std::uint32_t number = entries.first(); number != DictionaryEntries::kNone; number = entries.next(number))
    {
        const DictionaryEntry& entry = entries[number];
        // A reference to nothing is what the file had; an erased object is gone.
        if (entry.object->has(OdDbStub::kErased))
            continue;
        groups.text(kNameCode, entry.name).id(entry.hard ? kHardCode : kSoftCode, entry.object);
    }
}

// The entries stand at the end of the first part, whatever parts follow.
Groups DictionaryCore::savedGroups(const OdDbDictionary& dictionary)
{
    const Groups own = ObjectCore::groups(dictionary);
    GroupsBuilder groups;
    int parts = 0;
    for (const GroupView& group : own)
    {
        if (group.beginsSection() && ++parts == 2)
            appendEntries(groups, *dictionary.m_entries);
        groups.append(group);
    }
    if (parts < 2)
        appendEntries(groups, *dictionary.m_entries);
    return groups.build();
}

namespace
{

// Takes the entries of a file's groups out. Names without an object are put behind everything else of their part, so
// that they do not come to stand in front of some other reference.
class EntriesReader
{
public:
    explicit EntriesReader(DictionaryEntries& entries) : m_entries(entries) {}

    Groups read(const Groups& groups)
    {
        int parts = 0;
        for (const GroupView& group : groups)
        {
            if (group.beginsSection() && ++parts == 2)
                endPart();
            if (parts < 2)
                readGroup(group);
            else
                m_own.append(group);
        }
        if (parts < 2)
            endPart();
        return m_own.build();
    }

private:
    void readGroup(const GroupView& group)
    {
        const bool isObject = group.code() == kSoftCode || group.code() == kHardCode;
        if (m_name && isObject && group.stub())
            m_entries.append({std::string(m_name->text()), group.stub(), group.code() == kHardCode});
        else if (m_name)
            m_namesOnly.append(*m_name);
        const bool isTaken = m_name && isObject && group.stub();
        m_name.reset();
        if (group.code() == kNameCode && group.type() == GroupType::Text)
            m_name = group;
        else if (!isTaken)
            m_own.append(group);
    }
    void endPart()
    {
        if (m_name)
            m_namesOnly.append(*m_name);
        m_name.reset();
        m_own.appendItems(m_namesOnly.begin(), m_namesOnly.end());
        m_namesOnly.clear();
    }

    DictionaryEntries& m_entries;
    GroupsBuilder m_own;
    GroupsBuilder m_namesOnly;
    std::optional<GroupView> m_name; // waits for its object
};

} // namespace

void DictionaryCore::loadGroups(OdDbDictionary& dictionary, const Groups& groups)
{
    dictionary.m_entries->clear();
    ObjectCore::putGroups(dictionary, EntriesReader(*dictionary.m_entries).read(groups));
}

} // namespace oddb
