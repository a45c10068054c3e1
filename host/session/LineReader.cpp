// Cuts what comes through a file descriptor into lines.
#include "session/LineReader.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <new>

#include <poll.h>
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
        if (const char* const feed = findFeed(searched))
        {
            take(feed, line);
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

bool LineReader::readAhead(std::string_view& line)
{
    std::size_t searched = m_begin;
    for (;;)
    {
        const char* const feed = findFeed(searched);
        const std::size_t length = (feed != nullptr ? feed - m_buffer.get() : m_end) - m_begin;
        if (length > kShortLine)
            return false;
        if (feed != nullptr)
        {
            m_wasTooLong = false;
            take(feed, line);
            return true;
        }
        if (!isReadable() || !fill())
            return false;
        searched = m_begin + length;
    }
}

bool LineReader::hasLines(int count) const
{
    std::size_t from = m_begin;
    for (; count > 0; --count)
    {
        const char* const feed = findFeed(from);
        if (feed == nullptr)
            return false;
        from = static_cast<std::size_t>(feed - m_buffer.get()) + 1;
    }
    return true;
}

// Null when there is none.
const char* LineReader::findFeed(std::size_t from) const
{
    return static_cast<const char*>(std::memchr(m_buffer.get() + from, '\n', m_end - from));
}

void LineReader::take(const char* feed, std::string_view& line)
{
    const auto end = static_cast<std::size_t>(feed - m_buffer.get());
    m_wasTooLong = m_wasTooLong || end - m_begin > kLongestLine;
    line = std::string_view(m_buffer.get() + m_begin, std::min(end - m_begin, kLongestLine));
    m_begin = end + 1;
}

// Whether reading would give something, or the end, at once.
bool LineReader::isReadable() const
{
    pollfd source{m_descriptor, POLLIN, 0};
    return ::poll(&source, 1, 0) == 1;
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
