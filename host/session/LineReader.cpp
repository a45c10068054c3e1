// Cuts what comes through a file descriptor into lines.
#include "session/LineReader.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <new>

#include <unistd.h>

namespace session
{

namespace
{

constexpr std::size_t kSmallestRead = std::size_t{64} * 1024;

} // namespace

LineReader::LineReader(int descriptor) : m_descriptor(descriptor)
{
    grow(kSmallestRead);
}

bool LineReader::read(std::string_view& line)
{
    m_wasTooLong = false;
    std::size_t searched = m_begin;
    for (;;)
    {
        const void* const feed = std::memchr(m_buffer.get() + searched, '\n', m_end - searched);
        if (feed != nullptr)
        {
            const auto end = static_cast<std::size_t>(static_cast<const char*>(feed) - m_buffer.get());
            m_wasTooLong = m_wasTooLong || end - m_begin > kLongestLine;
            line = std::string_view(m_buffer.get() + m_begin, std::min(end - m_begin, kLongestLine));
            m_begin = end + 1;
            return true;
        }
        if (m_end - m_begin > kLongestLine)
        {
            m_wasTooLong = true;
            m_end = m_begin + kLongestLine;
        }
        const std::size_t length = m_end - m_begin;
        if (!fill())
            break;
        searched = m_begin + length;
    }
    line = std::string_view(m_buffer.get() + m_begin, m_end - m_begin);
    m_begin = m_end;
    return !line.empty();
}

void LineReader::grow(std::size_t size)
{
    char* const grown = static_cast<char*>(std::realloc(m_buffer.get(), size));
    if (grown == nullptr)
        throw std::bad_alloc();
    static_cast<void>(m_buffer.release());
    m_buffer.reset(grown);
    m_size = size;
}

// Puts more bytes behind those that are there. Moves them to the beginning of the buffer when there is no room.
bool LineReader::fill()
{
    if (m_size - m_end < kSmallestRead)
    {
        std::memmove(m_buffer.get(), m_buffer.get() + m_begin, m_end - m_begin);
        m_end -= m_begin;
        m_begin = 0;
        if (m_size - m_end < kSmallestRead)
            grow(std::max(2 * m_size, m_end + kSmallestRead));
    }
    ssize_t count = 0;
    do
        count = ::read(m_descriptor, m_buffer.get() + m_end, m_size - m_end);
    while (count < 0 && errno == EINTR);
    if (count <= 0)
        return false;
    m_end += static_cast<std::size_t>(count);
    return true;
}

} // namespace session
