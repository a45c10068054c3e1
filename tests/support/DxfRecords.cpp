// Compares drawing files record by record.
#include "DxfRecords.h"

#include "OdCharMapper.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <set>
#include <stdexcept>

namespace support
{
namespace
{

enum class Kind
{
    Text,
    Real,
    Integer,
    Bytes,
    Handle
};

bool within(int code, std::initializer_list<std::pair<int, int>> ranges)
{
    return std::any_of(ranges.begin(), ranges.end(),
                       [code](auto range) { return code >= range.first && code <= range.second; });
}

Kind kindOf(int code)
{
    if (within(code, {{5, 5}, {105, 105}, {320, 369}, {390, 399}, {480, 481}, {1005, 1005}}))
        return Kind::Handle;
    if (within(code, {{310, 319}, {1004, 1004}}))
        return Kind::Bytes;
    if (within(code, {{10, 59}, {110, 149}, {210, 239}, {460, 469}, {1010, 1059}}))
        return Kind::Real;
    const bool isInteger =
        within(code, {{60, 99}, {160, 179}, {270, 299}, {370, 389}, {400, 409}, {420, 429}, {440, 459}, {1060, 1071}});
    return isInteger ? Kind::Integer : Kind::Text;
}

int widthOf(int code)
{
    if (within(code, {{290, 299}}))
        return 1;
    if (within(code, {{90, 99}, {420, 429}, {440, 459}, {1071, 1071}}))
        return 4;
    return within(code, {{160, 169}}) ? 8 : 2;
}

std::string hexadecimal(std::string_view bytes)
{
    std::string digits;
    for (const char byte : bytes)
    {
        char two[3];
        std::snprintf(two, sizeof two, "%02X", static_cast<unsigned char>(byte));
        digits += two;
    }
    return digits;
}

// A reader of bytes that fails at the end instead of going on.
class Bytes
{
public:
    explicit Bytes(std::string_view bytes) : m_left(bytes) {}
    bool atEnd() const { return m_left.empty(); }
    std::string_view take(std::size_t count)
    {
        if (count > m_left.size())
            throw std::runtime_error("the binary file is cut off");
        const std::string_view taken = m_left.substr(0, count);
        m_left.remove_prefix(count);
        return taken;
    }
    std::string_view takeText()
    {
        const std::string_view text = take(m_left.find('\0') + 1);
        return text.substr(0, text.size() - 1);
    }
    std::int64_t takeInteger(int width)
    {
        const std::string_view bytes = take(static_cast<std::size_t>(width));
        std::uint64_t value = 0;
        for (int i = width - 1; i >= 0; --i)
            value = value << 8 | static_cast<unsigned char>(bytes[static_cast<std::size_t>(i)]);
        const int unused = 64 - 8 * width;
        return width == 1 ? static_cast<std::int64_t>(value) : static_cast<std::int64_t>(value << unused) >> unused;
    }

private:
    std::string_view m_left;
};

std::vector<DxfGroup> binaryGroups(std::string_view file)
{
    constexpr std::size_t kSentinel = 22;
    Bytes bytes(file.substr(kSentinel));
    const bool hasWordCodes = file.size() > kSentinel + 1 && file[kSentinel + 1] == '\0';
    std::vector<DxfGroup> groups;
    while (!bytes.atEnd())
    {
        int code = static_cast<int>(bytes.takeInteger(hasWordCodes ? 2 : 1));
        if (!hasWordCodes && code == 255)
            code = static_cast<int>(bytes.takeInteger(2));
        switch (kindOf(code))
        {
        case Kind::Real:
        {
            double value = 0;
            std::memcpy(&value, bytes.take(sizeof value).data(), sizeof value);
            char digits[40];
            std::snprintf(digits, sizeof digits, "%.17g", value);
            groups.emplace_back(code, digits);
            break;
        }
        case Kind::Integer:
            groups.emplace_back(code, std::to_string(bytes.takeInteger(widthOf(code))));
            break;
        case Kind::Bytes:
            groups.emplace_back(code, hexadecimal(bytes.take(static_cast<std::size_t>(bytes.takeInteger(1)))));
            break;
        default:
            groups.emplace_back(code, bytes.takeText());
        }
    }
    return groups;
}

std::vector<std::string_view> linesOf(std::string_view file)
{
    std::vector<std::string_view> lines;
    while (!file.empty())
    {
        const std::size_t end = std::min(file.find_first_of("\r\n"), file.size());
        lines.push_back(file.substr(0, end));
        file.remove_prefix(std::min(file.size(), end + (file.substr(end, 2) == "\r\n" ? 2 : 1)));
    }
    return lines;
}

std::vector<DxfGroup> asciiGroups(std::string_view file)
{
    const std::vector<std::string_view> lines = linesOf(file);
    std::vector<DxfGroup> groups;
    for (std::size_t i = 0; i + 1 < lines.size(); i += 2)
    {
        char* end = nullptr;
        const std::string code(lines[i]);
        const long number = std::strtol(code.c_str(), &end, 10);
        if (end == code.c_str())
            throw std::runtime_error("line " + std::to_string(i + 1) + " is no group code: " + code);
        groups.emplace_back(static_cast<int>(number), lines[i + 1]);
    }
    return groups;
}

std::string trimmedText(std::string text)
{
    text.erase(0, text.find_first_not_of(" \t"));
    text.erase(text.find_last_not_of(" \t\r\n") + 1);
    return text;
}

std::string normalReal(const std::string& text)
{
    char* end = nullptr;
    const double value = std::strtod(text.c_str(), &end);
    if (end == text.c_str())
        return text;
    char digits[40];
    std::snprintf(digits, sizeof digits, "%.10g", value == 0.0 ? 0.0 : value);
    return digits;
}

std::string normalHandle(std::string text)
{
    text = trimmedText(text);
    text.erase(0, text.find_first_not_of('0'));
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return c >= 'a' && c <= 'f' ? char(c - 32) : c; });
    return text.empty() ? "0" : text;
}

std::string normal(const DxfGroup& group, OdCodePageId page)
{
    switch (kindOf(group.first))
    {
    case Kind::Handle:
        return normalHandle(group.second);
    case Kind::Real:
        return normalReal(group.second);
    case Kind::Integer:
        return std::to_string(std::strtoll(group.second.c_str(), nullptr, 10));
    case Kind::Bytes:
        return trimmedText(group.second);
    default:
        break;
    }
    std::string utf8;
    std::string decoded;
    OdCharMapper::codepageToUtf8(group.second, page, utf8);
    OdCharMapper::decodeEscapes(utf8, decoded);
    return decoded;
}

bool isFrame(const std::string& kind)
{
    return std::set<std::string>{"SECTION", "ENDSEC", "EOF", "ENDTAB", "ENDBLK", "SEQEND", "TABLE"}.contains(kind);
}

std::string nameOf(const DxfRecord& record)
{
    const std::string& kind = record.front().second;
    const int handleCode = kind == "DIMSTYLE" ? 105 : 5;
    for (const DxfGroup& group : record)
        if (group.first == handleCode)
            return kind + ' ' + group.second;
    std::string all = kind;
    for (const DxfGroup& group : record)
        all += ' ' + std::to_string(group.first) + '=' + group.second;
    return all;
}

OdCodePageId codePageOf(std::string_view file)
{
    OdCodePageId page = CP_ANSI_1252;
    if (dxfHeaderValue(file, "$ACADVER") >= "AC1021")
        return CP_UNDEFINED;
    OdCharMapper::getCodepageByDesc(OdString(dxfHeaderValue(file, "$DWGCODEPAGE").c_str()), page);
    return page;
}

// Bytes are one value however they were cut, and the block references of a block are derived.
DxfRecord comparable(const DxfRecord& record)
{
    DxfRecord result;
    bool isDerived = false;
    for (const DxfGroup& group : record)
    {
        isDerived = isDerived || (group.first == 102 && group.second == "{BLKREFS");
        if (isDerived)
            isDerived = group.first != 102 || group.second != "}";
        else if (kindOf(group.first) == Kind::Bytes && !result.empty() && result.back().first == group.first)
            result.back().second += group.second;
        else
            result.push_back(group);
    }
    std::sort(result.begin(), result.end());
    return result;
}

} // namespace

std::vector<DxfGroup> dxfGroups(std::string_view file)
{
    return file.substr(0, 4) != "Auto" ? asciiGroups(file) : binaryGroups(file);
}

std::string dxfHeaderValue(std::string_view file, std::string_view variable)
{
    bool found = false;
    for (const DxfGroup& group : dxfGroups(file))
    {
        if (found)
            return group.second;
        found = group.first == 9 && group.second == variable;
        if (group.first == 0 && group.second == "ENDSEC")
            break;
    }
    return {};
}

DxfRecords dxfRecords(std::string_view file)
{
    const OdCodePageId page = codePageOf(file);
    const std::set<std::string> compared{"TABLES", "BLOCKS", "ENTITIES", "OBJECTS"};
    DxfRecords records;
    DxfRecord record;
    std::string section;
    const auto close = [&]
    {
        if (!record.empty() && compared.contains(section) && !isFrame(record.front().second))
            records[nameOf(record)] = record;
        record.clear();
    };
    for (const DxfGroup& group : dxfGroups(file))
    {
        if (group.first == 999)
            continue;
        if (group.first == 0)
            close();
        if (group.first == 0)
            record = {{0, trimmedText(group.second)}};
        else if (!record.empty())
            record.emplace_back(group.first, normal(group, page));
        if (record.size() == 2 && record[0].second == "SECTION" && group.first == 2)
            section = trimmedText(group.second);
    }
    close();
    return records;
}

DxfDifference compareDxf(std::string_view before, std::string_view after)
{
    const DxfRecords old = dxfRecords(before);
    const DxfRecords now = dxfRecords(after);
    DxfDifference difference;
    for (const auto& [name, record] : old)
    {
        const auto found = now.find(name);
        if (found == now.end())
        {
            difference.lost.push_back(name.substr(0, 60));
            continue;
        }
        const DxfRecord had = comparable(record);
        const DxfRecord has = comparable(found->second);
        DxfRecord gone;
        std::set_difference(had.begin(), had.end(), has.begin(), has.end(), std::back_inserter(gone));
        if (!gone.empty())
            difference.changed.push_back(name + ": " + std::to_string(gone.front().first) + '=' + gone.front().second);
    }
    for (const auto& [name, record] : now)
        if (!old.contains(name))
            difference.added.push_back(name.substr(0, 60));
    return difference;
}

std::string DxfDifference::summary() const
{
    constexpr std::size_t kMostShown = 5;
    std::string text = "lost " + std::to_string(lost.size()) + " changed " + std::to_string(changed.size());
    for (std::size_t i = 0; i < std::min(kMostShown, lost.size()); ++i)
        text += "\n  lost " + lost[i];
    for (std::size_t i = 0; i < std::min(kMostShown, changed.size()); ++i)
        text += "\n  changed " + changed[i];
    return text;
}

std::string readWholeFile(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file)
        throw std::runtime_error("cannot read " + path);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void writeWholeFile(const std::string& path, std::string_view bytes)
{
    std::ofstream file(path, std::ios::binary);
    file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    if (!file.flush())
        throw std::runtime_error("cannot write " + path);
}

} // namespace support
