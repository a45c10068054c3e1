// Collects the faults of a drawing file.
#include "FaultLog.h"

#include "Handles.h"

namespace dxf
{

std::string placeName(Place place)
{
    return (place.isLine ? "line " : "byte ") + std::to_string(place.number);
}

void FaultLog::add(Place place, std::string_view what)
{
    addLine(placeName(place).append(": ").append(what));
}

void FaultLog::add(std::string_view what)
{
    addLine(std::string(what));
}

void FaultLog::addForObject(std::uint64_t handle, std::string_view what)
{
    addLine("object " + handleText(handle) + ": " + std::string(what));
}

void FaultLog::addLine(std::string line)
{
    if (++m_count <= kMostLines)
        m_lines.push_back(std::move(line));
}

std::vector<std::string> FaultLog::lines() const
{
    std::vector<std::string> all = m_lines;
    if (m_count > kMostLines)
        all.push_back("and " + std::to_string(m_count - kMostLines) + " more faults");
    return all;
}

} // namespace dxf
