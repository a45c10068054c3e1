// Maps a file, or reads it where it cannot be mapped (a pipe).
#include "InputFile.h"

#include "Failures.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace dxf
{
namespace
{

struct FileDescriptor
{
    int number;
    ~FileDescriptor()
    {
        if (number >= 0)
            ::close(number);
    }
};

} // namespace

InputFile::InputFile(const std::string& path)
{
    const FileDescriptor file{::open(path.c_str(), O_RDONLY | O_CLOEXEC)};
    struct stat status
    {
    };
    if (file.number < 0 || ::fstat(file.number, &status) != 0)
        failToOpen(path, errno);
    if (S_ISDIR(status.st_mode))
        failToOpen(path, EISDIR);
    if (S_ISREG(status.st_mode) && status.st_size > 0)
        map(file.number, static_cast<std::size_t>(status.st_size));
    if (m_mapping == nullptr)
        readAll(file.number, path);
}

InputFile::~InputFile()
{
    if (m_mapping != nullptr)
        ::munmap(m_mapping, m_bytes.size());
}

void InputFile::map(int file, std::size_t size)
{
    void* const mapping = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file, 0);
    if (mapping == MAP_FAILED)
        return;
    ::madvise(mapping, size, MADV_SEQUENTIAL);
    m_mapping = mapping;
    m_bytes = {static_cast<const char*>(mapping), size};
}

void InputFile::readAll(int file, const std::string& path)
{
    constexpr std::size_t kStep = std::size_t{1} << 20;
    for (std::size_t used = 0;;)
    {
        m_copy.resize(used + kStep);
        const ssize_t count = ::read(file, m_copy.data() + used, kStep);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            failToOpen(path, errno);
        used += static_cast<std::size_t>(count);
        if (count > 0)
            continue;
        m_copy.resize(used);
        m_bytes = {m_copy.data(), used};
        return;
    }
}

void InputFile::releaseBefore(std::size_t offset)
{
    constexpr std::size_t kStep = std::size_t{1} << 22;
    const std::size_t end = offset / kStep * kStep;
    if (m_mapping == nullptr || end <= m_released)
        return;
    ::madvise(static_cast<char*>(m_mapping) + m_released, end - m_released, MADV_DONTNEED);
    m_released = end;
}

} // namespace dxf
