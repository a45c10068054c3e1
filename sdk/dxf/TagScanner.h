// Cuts a DXF file into groups, whether it is ASCII or binary, without copying anything and without giving up at the
// first fault: where the file makes no sense the scanner says so in the fault log and goes on at the next record.
#pragma once

#include "FaultLog.h"
#include "Numbers.h"
#include "Tag.h"

#include <string>
#include <string_view>

namespace dxf
{

/// A forward reader of the groups of one file held in memory. The memory must stay as long as tags are used. Not for
/// use by two threads.
class TagScanner
{
public:
    TagScanner(std::string_view file, FaultLog& faults);

    /// True when the file carries the sentinel of the binary form.
    bool isBinary() const { return m_form != Form::Ascii; }

    /// Delivers the next group; comments are passed over. Returns false at the end of the file.
    bool next(Tag& tag);

    /// Returns the bytes of a group of ValueKind::Bytes. They stay valid until the next call.
    std::string_view bytes(const Tag& tag);

    /// Returns where the next group begins.
    ScanPosition position() const { return {m_at, m_line}; }

    /// Returns where the group that was delivered last begins.
    ScanPosition tagPosition() const { return {m_tagAt, m_tagLine}; }

    /// Goes to a place that one of these has returned.
    void seek(ScanPosition position);

    /// Returns the place of the group that was delivered last, for messages.
    Place place() const;

    std::uint64_t fileSize() const { return m_file.size(); }

private:
    enum class Form
    {
        Ascii,
        BinaryByteCodes, // R12 and before
        BinaryWordCodes,
    };

    bool nextAscii(Tag& tag);
    bool readUsualCode(int& code);
    bool readLine(std::string_view& line);
    bool readAsciiValue(Tag& tag, std::string_view line);
    void noteMended(const Tag& tag);
    bool resumeAscii(Tag& tag, std::string_view wrongLine);

    bool nextBinary(Tag& tag);
    bool readBinaryCode(int& code);
    bool readBinaryValue(Tag& tag);
    bool resumeBinary(Tag& tag);
    template<class Value>
    bool take(Value& value);

    std::string_view m_file;
    FaultLog& m_faults;
    Form m_form = Form::Ascii;
    std::size_t m_at = 0;
    std::uint64_t m_line = 1;
    std::size_t m_tagAt = 0;
    std::uint64_t m_tagLine = 1;
    std::string m_bytes;
};

} // namespace dxf
