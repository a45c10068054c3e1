// All stubs of a database: kept where they are for good, found by handle in constant time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <vector>

#include "Stub.h"

namespace oddb
{

class StubTable
{
public:
    explicit StubTable(OdDbDatabase* database) : m_database(database) {}
    StubTable(const StubTable&) = delete;
    StubTable& operator=(const StubTable&) = delete;

    /// The stub of the handle, null when there is none.
    OdDbStub* find(OdUInt64 handle) const;

    /// The stub of the handle, made when there is none. The handle must not be null.
    OdDbStub* findOrCreate(OdUInt64 handle);

    std::size_t size() const { return m_count; }

    /// Calls visit(OdDbStub&) for every stub in the order of their making.
    template<class Visit>
    void visit(Visit visit) const
    {
        std::size_t left = m_count;
        for (const auto& slab : m_slabs)
            for (std::size_t i = 0; i < kSlabSize && left > 0; ++i, --left)
                visit(slab[i]);
    }

private:
    static constexpr std::size_t kSlabSize = 2048;
    static constexpr OdUInt64 kPageSize = 8;

    /// The stubs of consecutive handles, for handles mostly are: neighbours in a drawing are neighbours here.
    struct Page
    {
        OdUInt64 number = 0; ///< the first handle divided by kPageSize
        OdDbStub* stubs[kPageSize] = {};
    };

    std::size_t slot(OdUInt64 pageNumber) const;
    Page* findPage(OdUInt64 pageNumber) const;
    Page& findOrCreatePage(OdUInt64 pageNumber);
    void rehash(std::size_t slots);
    OdDbStub* allocate(OdUInt64 handle);

    OdDbDatabase* m_database;
    std::vector<std::unique_ptr<OdDbStub[]>> m_slabs;
    std::size_t m_count = 0;
    std::deque<Page> m_pages;
    std::vector<Page*> m_slots; // open addressing, a power of two, at most three quarters full
    mutable Page* m_recent = nullptr;
};

} // namespace oddb
