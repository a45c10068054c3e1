// The file that a drawing is saved to. All bytes go to a new file beside the old one; only when every one of them has
// reached the disk does the new file take the old one's name. Whatever happens before, the old drawing stays whole.
#pragma once

#include "TemporaryFile.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace dxf
{

/// A buffered file under a temporary name, which becomes the target by commit() and vanishes without it. The target
/// keeps its permissions and, as far as the system allows, its owner; one that is a symbolic link stays one. A target
/// that is no regular file (a device) is written directly.
class OutputFile
{
public:
    /// Creates the new file in the folder of the target. Throws OdError (eCantOpenFile, eFileAccessErr) when that is
    /// not possible or the target is write-protected.
    explicit OutputFile(const std::string& target);
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    /// Returns a place for at least so many bytes (at most kBufferSize); what was written there is taken by advance().
    /// Throws OdError (eFileWriteError) when earlier bytes cannot be written.
    char* reserve(std::size_t size)
    {
        if (kBufferSize - m_used < size)
            flush();
        return m_buffer.get() + m_used;
    }
    void advance(const char* end) { m_used = static_cast<std::size_t>(end - m_buffer.get()); }

    /// How many bytes were written so far.
    std::uint64_t size() const { return m_flushed + m_used; }

    /// The bytes from there to the end, when they are still in the buffer; else nothing.
    std::string_view since(std::uint64_t place) const
    {
        return place < m_flushed ? std::string_view()
                                 : std::string_view(m_buffer.get() + (place - m_flushed), m_used - (place - m_flushed));
    }

    /// Writes bytes of any length.
    void write(std::string_view bytes);

    /// Makes the written file the target. Throws OdError (eFileWriteError) and leaves the target alone on failure.
    void commit();

    static constexpr std::size_t kBufferSize = std::size_t{1} << 18;

private:
    void openDirectly();
    void flush();
    void writeOut(const char* bytes, std::size_t size);

    std::string m_target;
    std::optional<TemporaryFile> m_temporary; // none when the target is written directly
    int m_file = -1;
    std::unique_ptr<char[]> m_buffer;
    std::size_t m_used = 0;
    std::uint64_t m_flushed = 0; // bytes that are not in the buffer any more
};

} // namespace dxf
