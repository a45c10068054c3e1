// The insides of symbol tables: their records in order, and finding them by name.
#pragma once

#include <array>
#include <vector>

#include "CaseNames.h"
#include "DbSymbolTable.h"
#include "Stub.h"
#include "SymbolNames.h"

namespace oddb
{

/// The records of one table. A record stays where it is for good: what is erased, or whose making is undone, is passed
/// over.
class SymbolRecords final : public SymbolIndex
{
public:
    explicit SymbolRecords(SymbolTable kind) : kind(kind) {}

    const SymbolTable kind;

    const std::vector<OdDbStub*>& all() const { return m_records; }

    /// Adds a record whose object has its name.
    void append(OdDbStub* record) { m_records.push_back(record); }

    OdDbStub* findName(std::string_view utf8Name) const override;
    /// The erased record of this name that was erased last.
    OdDbStub* findErased(std::string_view utf8Name) const;

    /// Called before a record gets another name.
    void rename(const OdDbStub* record, std::string_view newName);
    /// Called when names of records have changed in any way.
    void forgetNames();

    /// Numbers for names that the table completes, by their letter.
    int& nextNumber(wchar_t letter) { return m_nextNumbers[static_cast<std::size_t>(letter) % m_nextNumbers.size()]; }

private:
    void indexNames() const;
    template<class Accept>
    OdDbStub* find(std::string_view utf8Name, Accept accept) const;

    std::vector<OdDbStub*> m_records;
    mutable HashIndex m_index;
    mutable std::size_t m_indexed = 0; // so many records are in the index
    std::array<int, 128> m_nextNumbers{};
};

class SymbolTableCore
{
public:
    static SymbolRecords& records(const OdDbSymbolTable& table) { return *table.m_records; }

    /// The records of the table behind the stub.
    static SymbolRecords& records(const OdDbStub& table)
    {
        return *static_cast<const OdDbSymbolTable&>(*table.object).m_records;
    }

    /// Adds a record that is tied to its handle, for readers; the table's object is resident.
    static void append(OdDbStub& table, OdDbStub* record);

    /// The table that owns the record, null when there is none.
    static OdDbSymbolTable* tableOf(const OdDbSymbolTableRecord& record);

    /// Changes the name of a record that no other one of its table has. A change that is recorded.
    static void changeName(OdDbSymbolTableRecord& record, std::string_view utf8Name);
};

/// Goes over a list of stubs that only grows. Erased ones are passed over or met; what was never there, as its making
/// was undone, is passed over.
class StubCursor
{
public:
    explicit StubCursor(const std::vector<OdDbStub*>& list) : m_list(list) {}

    void start(bool atBeginning, bool skipErased);
    bool done() const { return m_at >= m_list.size(); }
    OdDbStub* current() const { return done() ? nullptr : m_list[m_at]; }
    void step(bool forward, bool skipErased);
    bool seek(const OdDbStub* stub);

private:
    void settle(bool forward, bool skipErased);

    const std::vector<OdDbStub*>& m_list;
    std::size_t m_at = 0; // stepping in front of the first gives the largest number
};

} // namespace oddb
