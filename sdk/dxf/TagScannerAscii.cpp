// The ASCII form: two lines for each group.
//
//   "  0"  "  10"    the code, with or without blanks around it
//   "LINE" "12.5"    the value; a text is everything up to the end of the line, blanks included
//
// Lines end in LF, CR LF or CR.
#include "TagScanner.h"

#include <algorithm>
#include <bit>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace dxf
{
namespace
{

#ifdef __SSE2__

constexpr std::ptrdiff_t kBlock = 16; // bytes that are looked at together

// Marks the ends of lines in a block, a bit for each byte.
unsigned int markLineEnds(const char* block)
{
    const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(block));
    const __m128i marks =
        _mm_or_si128(_mm_cmpeq_epi8(bytes, _mm_set1_epi8('\n')), _mm_cmpeq_epi8(bytes, _mm_set1_epi8('\r')));
    return static_cast<unsigned int>(_mm_movemask_epi8(marks));
}

#else

constexpr std::ptrdiff_t kBlock = 8;

unsigned int markLineEnds(const char* block)
{
    unsigned int marks = 0;
    for (int i = 0; i < kBlock; ++i)
        marks |= static_cast<unsigned int>(block[i] == '\n' || block[i] == '\r') << i;
    return marks;
}

#endif

// Where the line ends: a block at a time, for most lines are not longer.
const char* findLineEnd(const char* at, const char* end)
{
    for (; end - at >= kBlock; at += kBlock)
        if (const unsigned int marks = markLineEnds(at); marks != 0)
            return at + std::countr_zero(marks);
    while (at != end && *at != '\n' && *at != '\r')
        ++at;
    return at;
}

constexpr std::ptrdiff_t kMostDigits = 4; // of a group code

// Reads a code that is right-aligned in three places, the form in which nearly all programs write them; -1 for any
// other.
int readAlignedCode(const char* at)
{
    const auto valueOf = [](char character) { return character == ' ' ? 0 : character - '0'; };
    const auto isPlace = [](char character) { return character == ' ' || (character >= '0' && character <= '9'); };
    const bool isAligned =
        at[2] >= '0' && at[2] <= '9' && isPlace(at[1]) && isPlace(at[0]) && (at[1] != ' ' || at[0] == ' ');
    return isAligned ? valueOf(at[0]) * 100 + valueOf(at[1]) * 10 + valueOf(at[2]) : -1;
}

// Reads a group code that has blanks behind it or a sign, or finds that it is none.
bool parseCode(std::string_view line, int& code)
{
    while (!line.empty() && line.front() == ' ')
        line.remove_prefix(1);
    if (!line.empty() && (line.back() < '0' || line.front() < '0'))
        line = trimmed(line);
    const bool negative = !line.empty() && line.front() == '-';
    line.remove_prefix(negative);
    if (line.empty() || line.size() > kMostDigits)
        return false;
    int value = 0;
    for (const char character : line)
    {
        if (character < '0' || character > '9')
            return false;
        value = value * 10 + (character - '0');
    }
    code = negative ? -value : value;
    return isGroupCode(code);
}

// A line that can be the value of a group 0: the reader finds its way again by it.
bool looksLikeRecordName(std::string_view line)
{
    line = trimmed(line);
    if (line.empty() || line.size() > 64 || line.front() < 'A' || line.front() > 'Z')
        return false;
    return std::all_of(line.begin(), line.end(),
                       [](char c) {
                           return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' || c == '-' ||
                                  c == '.' || c == '$';
                       });
}

std::string quoted(std::string_view line)
{
    constexpr std::size_t kMostShown = 24;
    std::string text = "'";
    for (const char character : trimmed(line).substr(0, kMostShown))
        text += character >= ' ' && character < 0x7F ? character : '?';
    return text + (line.size() > kMostShown ? "...'" : "'");
}

} // namespace

bool TagScanner::readLine(std::string_view& line)
{
    const char* const begin = m_file.data() + m_at;
    const char* const end = m_file.data() + m_file.size();
    if (begin == end)
        return false;
    const char* at = findLineEnd(begin, end);
    line = {begin, static_cast<std::size_t>(at - begin)};
    if (at != end)
        at += *at == '\r' && at + 1 != end && at[1] == '\n' ? 2 : 1;
    m_at = static_cast<std::size_t>(at - m_file.data());
    ++m_line;
    return true;
}

// Reads a line that is a code and has nothing but blanks in front of it, as nearly all do. Any other line is left
// alone.
bool TagScanner::readUsualCode(int& code)
{
    const char* at = m_file.data() + m_at;
    const char* const end = m_file.data() + m_file.size();
    constexpr std::ptrdiff_t kAlignedLine = 5; // three places and CR LF
    if (end - at >= kAlignedLine && (at[3] == '\n' || (at[3] == '\r' && at[4] == '\n')))
        if (const int aligned = readAlignedCode(at); aligned >= 0)
        {
            code = aligned;
            m_at += at[3] == '\n' ? 4 : 5;
            ++m_line;
            return true;
        }
    while (at != end && *at == ' ')
        ++at;
    const char* const first = at;
    const char* const last = first + std::min(end - first, kMostDigits);
    int value = 0;
    for (; at != last && *at >= '0' && *at <= '9'; ++at)
        value = value * 10 + (*at - '0');
    const bool hasDigits = at != first;
    at += at != end && *at == '\r';
    if (!hasDigits || at == end || *at != '\n' || !isGroupCode(value))
        return false;
    code = value;
    m_at = static_cast<std::size_t>(at + 1 - m_file.data());
    ++m_line;
    return true;
}

bool TagScanner::nextAscii(Tag& tag)
{
    std::string_view codeLine;
    std::string_view valueLine;
    for (;;)
    {
        m_tagAt = m_at;
        m_tagLine = m_line;
        if (readUsualCode(tag.code))
            break;
        if (!readLine(codeLine))
            return false;
        if (parseCode(codeLine, tag.code))
            break;
        if (!trimmed(codeLine).empty())
            return resumeAscii(tag, codeLine);
    }
    if (!readLine(valueLine))
    {
        m_faults.add(place(), "the file ends after a group code");
        return false;
    }
    return readAsciiValue(tag, valueLine);
}

bool TagScanner::readAsciiValue(Tag& tag, std::string_view line)
{
    tag.kind = valueKind(tag.code);
    tag.text = line;
    NumberText outcome = NumberText::Exact;
    if (tag.kind == ValueKind::Real)
        outcome = parseReal(line, tag.real);
    else if (isInteger(tag.kind))
        outcome = parseInteger(line, tag.integer);
    if (outcome != NumberText::Exact)
        noteMended(tag);
    return true;
}

void TagScanner::noteMended(const Tag& tag)
{
    char digits[kLongestNumber];
    char* const end = tag.kind == ValueKind::Real ? printReal(tag.real, digits) : printInteger(tag.integer, digits);
    m_faults.add(place(), "group " + std::to_string(tag.code) + ": " + quoted(tag.text) +
                              " is no number of its kind, " + std::string(digits, end) + " is taken");
}

// Goes on at the next group (0, NAME) after a line that should be a code and is none.
bool TagScanner::resumeAscii(Tag& tag, std::string_view wrongLine)
{
    const Place wrong = place();
    std::string_view before;
    std::string_view line;
    for (ScanPosition at = position(), atBefore = at; readLine(line); before = line, atBefore = at, at = position())
    {
        if (trimmed(before) != "0" || !looksLikeRecordName(line))
            continue;
        m_tagAt = static_cast<std::size_t>(atBefore.offset);
        m_tagLine = atBefore.line;
        tag.code = 0;
        m_faults.add(wrong, quoted(wrongLine) + " is no group code; reading goes on at " + placeName(place()));
        return readAsciiValue(tag, line);
    }
    m_faults.add(wrong, quoted(wrongLine) + " is no group code, and no record follows");
    return false;
}

} // namespace dxf
