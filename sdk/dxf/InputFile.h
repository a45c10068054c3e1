// A drawing file in memory: mapped, so that opening costs nothing and pages are read when they are scanned.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace dxf
{

/// The bytes of a file, for as long as the object lives; the file may meanwhile be replaced by another of its name.
class InputFile
{
public:
    /// Throws OdError (eFileNotFound, eCantOpenFile, eFileAccessErr) naming the file and the reason.
    explicit InputFile(const std::string& path);
    ~InputFile();
    InputFile(const InputFile&) = delete;
    InputFile& operator=(const InputFile&) = delete;

    std::string_view bytes() const { return m_bytes; }

    /// Gives the memory of the bytes before the offset back to the system; they are read again when they are needed.
    void releaseBefore(std::size_t offset);

private:
    void map(int file, std::size_t size);
    void readAll(int file, const std::string& path);

    std::string_view m_bytes;
    std::vector<char> m_copy; // of what cannot be mapped
    void* m_mapping = nullptr;
    std::size_t m_released = 0;
};

} // namespace dxf
