// Where the reader of a drawing says what is wrong with the file and how it was mended: one line for each fault, with
// its place in the file.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace dxf
{

/// A place in a drawing file: a line of an ASCII file (from 1), or a byte of a binary one (from 0).
struct Place
{
    std::uint64_t number = 0;
    bool isLine = true;
};

/// Returns "line 12" or "byte 340".
std::string placeName(Place place);

/// The faults found in one file, in the order in which they were found. A file of nothing but faults does not make the
/// log grow without end: beyond kMostLines faults are counted only.
class FaultLog
{
public:
    static constexpr std::size_t kMostLines = 1000;

    /// Adds the line "<place>: <what>".
    void add(Place place, std::string_view what);

    /// Adds a line on a fault that belongs to no single place of the file.
    void add(std::string_view what);

    /// Adds a line on a fault of one object: "object <handle>: <what>".
    void addForObject(std::uint64_t handle, std::string_view what);

    /// Returns the lines; when there were more than kMostLines faults, the last line says how many are not shown.
    std::vector<std::string> lines() const;

    std::size_t count() const { return m_count; }

private:
    void addLine(std::string line);

    std::vector<std::string> m_lines;
    std::size_t m_count = 0;
};

} // namespace dxf
