// Reads a file, or whatever else gives bytes (a pipe), into memory of its own. A mapped file would save the copy, but a
// program that cuts the file short while it is read would end this one too.
#include "InputFile.h"

#include "Failures.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace dxf
{
namespace
{

constexpr std::size_t kStep = std::size_t{1} << 20;

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
    // room for one byte more, so that the end is found without growing
    grow(S_ISREG(status.st_mode) ? static_cast<std::size_t>(status.st_size) + 1 : kStep, path);
    readAll(file.number, path);
}

InputFile::Pages::~Pages()
{
    if (memory != nullptr)
        ::munmap(memory, size);
}

void InputFile::grow(std::size_t size, const std::string& path)
{
    void* const memory = m_pages.memory == nullptr
                             ? ::mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0)
                             : ::mremap(m_pages.memory, m_pages.size, size, MREMAP_MAYMOVE);
    if (memory == MAP_FAILED)
        failToOpen(path, errno);
    m_pages.memory = static_cast<char*>(memory);
    m_pages.size = size;
}

void InputFile::readAll(int file, const std::string& path)
{
    for (;;)
    {
        if (m_size == m_pages.size)
            grow(m_pages.size + std::max(m_pages.size, kStep), path);
        const ssize_t count = ::read(file, m_pages.memory + m_size, m_pages.size - m_size);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            failToOpen(path, errno);
        if (count == 0)
            return;
        m_size += static_cast<std::size_t>(count);
    }
}

} // namespace dxf
