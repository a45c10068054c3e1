// The file that a drawing is saved to. All bytes go to a new file beside the old one; only when every one of them has
// reached the disk does the new file take the old one's name. Whatever happens before, the old drawing stays whole.
#pragma once

#include "OutputBuffer.h"
#include "TemporaryFile.h"

#include <cstdint>
#include <future>
#include <optional>
#include <string>
#include <string_view>

namespace dxf
{

/// A buffered file under a temporary name, which becomes the target by commit() and vanishes without it. The target
/// keeps its permissions and, as far as the system allows, its owner; one that is a symbolic link stays one. A target
/// that is no regular file (a device) is written directly.
class OutputFile : public OutputBuffer
{
public:
    /// Creates the new file in the folder of the target. Throws OdError (eCantOpenFile, eFileAccessErr) when that is
    /// not possible or the target is write-protected.
    explicit OutputFile(const std::string& target);
    ~OutputFile() override;

    /// Appends bytes of any length. This and reserve() throw OdError (eFileWriteError) when bytes cannot be written.
    void write(std::string_view bytes) override;

    /// Makes the written file the target. Throws OdError (eFileWriteError) and leaves the target alone on failure.
    void commit();

private:
    void openDirectly();
    void makeRoom(std::size_t size) override;
    void flush();
    void writeOut(std::string_view bytes);
    void startToDisk();

    std::string m_target;
    std::optional<TemporaryFile> m_temporary; // none when the target is written directly
    int m_file = -1;
    std::uint64_t m_written = 0;
    std::uint64_t m_onItsWay = 0; // of what was written: what the disk has got, or is getting
    std::future<void> m_toDisk;   // behind the file, which it needs until it ends
};

} // namespace dxf
