// Prints groups into a drawing file, in the ASCII or the binary form.
#pragma once

#include "OutputBuffer.h"
#include "ValueKind.h"

#include <cstdint>
#include <string_view>

namespace dxf
{

enum class FileForm
{
    Ascii,
    Binary,
};

/// Writes one group after the other. The caller gives each value in the kind that the code announces; texts are written
/// as they are and so have to be encoded before. Every operation throws OdError (eFileWriteError) when the file takes
/// no more.
class TagPrinter
{
public:
    TagPrinter(OutputBuffer& output, FileForm form) : m_output(output), m_ascii(form == FileForm::Ascii) {}

    /// Writes what a file begins with that is no group.
    void beginFile();

    void text(int code, std::string_view value);
    void real(int code, double value);
    void integer(int code, std::int64_t value);
    void handle(int code, std::uint64_t value);
    /// Writes bytes, cut into groups of the size that readers expect.
    void bytes(int code, std::string_view value);

    /// Writes groups once more that were printed before.
    void again(std::string_view printed) { m_output.write(printed); }
    /// Where the next group will stand, and what has been printed since such a place as long as that is at hand.
    std::uint64_t place() const { return m_output.size(); }
    std::string_view since(std::uint64_t place) const { return m_output.since(place); }

private:
    char* putCode(char* at, int code) const;
    char* putLineEnd(char* at) const;
    void binaryInteger(int code, std::int64_t value);
    void asciiInteger(int code, std::int64_t value);
    void chunk(int code, std::string_view value);

    OutputBuffer& m_output;
    bool m_ascii;
};

} // namespace dxf
