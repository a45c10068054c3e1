// The classes of a layer, registered in order and withdrawn in the opposite one: base classes come before those that
// derive from them.
#pragma once

#include <array>
#include <span>

namespace odlayers
{

struct ClassRow
{
    void (*start)();
    void (*end)();
};

template<class... Classes>
constexpr std::array<ClassRow, sizeof...(Classes)> rowsOf()
{
    return {ClassRow{[] { Classes::rxInit(); }, [] { Classes::rxUninit(); }}...};
}

inline void endClasses(std::span<const ClassRow> rows)
{
    for (; !rows.empty(); rows = rows.first(rows.size() - 1))
        rows.back().end();
}

/// When one throws, those before it are withdrawn.
inline void startClasses(std::span<const ClassRow> rows)
{
    std::size_t started = 0;
    try
    {
        for (; started < rows.size(); ++started)
            rows[started].start();
    }
    catch (...)
    {
        endClasses(rows.first(started));
        throw;
    }
}

} // namespace odlayers
