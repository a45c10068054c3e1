// What both forms of a DXF file share: telling them apart, places, and the bytes of a binary chunk.
#include "TagScanner.h"

#include "BinarySentinel.h"
#include "Handles.h"

namespace dxf
{
namespace
{

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// The first group is (0, SECTION) or a comment; a code of two bytes shows by its second one.
bool hasWordCodes(std::string_view groups)
{
    constexpr std::string_view kZero("\0\0", 2);
    constexpr std::string_view kComment = "\xE7\x03";
    return groups.substr(0, 2) == kZero || groups.substr(0, 2) == kComment;
}

} // namespace

bool Tag::opens(std::string_view name) const
{
    return code == 0 && trimmed(text) == name;
}

bool Tag::is(int groupCode, std::string_view value) const
{
    return code == groupCode && trimmed(text) == value;
}

TagScanner::TagScanner(std::string_view file, FaultLog& faults) : m_file(file), m_faults(faults)
{
    if (file.substr(0, kBinarySentinel.size()) == kBinarySentinel)
    {
        m_at = kBinarySentinel.size();
        m_form = hasWordCodes(file.substr(m_at)) ? Form::BinaryWordCodes : Form::BinaryByteCodes;
    }
    else if (file.substr(0, kByteOrderMark.size()) == kByteOrderMark)
        m_at = kByteOrderMark.size();
}

bool TagScanner::next(Tag& tag)
{
    do
    {
        if (m_form == Form::Ascii ? !nextAscii(tag) : !nextBinary(tag))
            return false;
    } while (tag.kind == ValueKind::Comment);
    return true;
}

std::string_view TagScanner::bytes(const Tag& tag)
{
    if (isBinary())
        return tag.text;
    const std::string_view digits = trimmed(tag.text);
    m_bytes.clear();
    for (std::size_t i = 0; i + 1 < digits.size(); i += 2)
    {
        const int high = hexDigit(digits[i]);
        const int low = hexDigit(digits[i + 1]);
        if (high < 0 || low < 0)
        {
            m_faults.add(place(),
                         "the bytes are no hexadecimal digits from character " + std::to_string(i + 1) + " on");
            break;
        }
        m_bytes.push_back(static_cast<char>(high << 4 | low));
    }
    return m_bytes;
}

void TagScanner::seek(ScanPosition position)
{
    m_at = static_cast<std::size_t>(position.offset);
    m_line = position.line;
}

Place TagScanner::place() const
{
    return isBinary() ? Place{m_tagAt, false} : Place{m_tagLine, true};
}

} // namespace dxf
