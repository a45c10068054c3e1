// What listeners hear after recorded states were put back: told at the end, when the whole drawing is as it is
// recorded.
#pragma once

#include <cstdint>
#include <vector>

#include "Stub.h"

class OdDbDatabaseReactor;
class OdDbObjectReactor;

namespace oddb
{

class DatabaseImpl;

/// The news of one replay. Collecting them costs nothing while nobody listens.
class ReplayNews
{
public:
    explicit ReplayNews(DatabaseImpl& database);
    ~ReplayNews();
    ReplayNews(const ReplayNews&) = delete;
    ReplayNews& operator=(const ReplayNews&) = delete;

    /// The object has another state; said once for each object.
    void noteModified(OdDbStub& stub);
    void noteErased(OdDbStub& stub, bool erased);
    void noteMade(OdDbStub& stub, bool made);

    /// Tells every listener everything, in the order in which it happened. What listeners throw is dropped, as the
    /// outcome of a replay does not depend on them.
    void tell();

private:
    enum class Kind : std::uint8_t
    {
        Modified,
        Erased,
        Unerased,
        UnAppended,
        ReAppended
    };
    struct Item
    {
        OdDbStub* stub;
        Kind kind;
    };

    void note(OdDbStub& stub, Kind kind);
    void tell(OdDbDatabaseReactor& reactor) const;
    void tellOfObject(const Item& item) const;
    static void tell(OdDbObjectReactor& reactor, const Item& item);
    void clear();

    DatabaseImpl& m_database;
    bool m_isHeard;
    std::vector<Item> m_items;
};

} // namespace oddb
