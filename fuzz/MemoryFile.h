// A file that exists in memory only, for what can be read by its path alone.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <sys/mman.h>
#include <unistd.h>

/** A MemoryFile holds some bytes under a path for as long as it lives. */
class MemoryFile
{
public:
    MemoryFile(const std::uint8_t* data, std::size_t size) : m_file(memfd_create("input", 0))
    {
        for (std::size_t done = 0; done < size;)
        {
            const ssize_t step = write(m_file, data + done, size - done);
            if (step <= 0)
                break;
            done += static_cast<std::size_t>(step);
        }
    }
    ~MemoryFile() { close(m_file); }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    std::string path() const { return "/proc/self/fd/" + std::to_string(m_file); }

private:
    int m_file;
};
