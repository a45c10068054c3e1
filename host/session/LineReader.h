// Cuts what comes through a file descriptor into lines.
#pragma once

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <string_view>

namespace session
{

class LineReader
{
public:
    // A line may have this many bytes. What is beyond is read and dropped.
    static constexpr std::size_t kLongestLine = std::size_t{256} << 20;
    // What readAhead() takes for short.
    static constexpr std::size_t kShortLine = std::size_t{64} << 10;

    explicit LineReader(int descriptor);

    // Reads up to the next line feed or the end. line is without its line feed and valid until the next call. Returns
    // false at the end, when nothing is left. A read that fails counts as the end.
    bool read(std::string_view& line);

    // Reads the next line if it is short and whole and here: nothing has to be waited for. Returns false if not, and at
    // the end; read() goes on from there.
    bool readAhead(std::string_view& line);

    // True when so many lines are here already.
    bool hasLines(int count) const;

    // True when the line read last was longer than a line may be; line is its beginning then.
    bool wasTooLong() const { return m_wasTooLong; }

private:
    struct Free
    {
        void operator()(char* memory) const { std::free(memory); }
    };

    const char* findFeed(std::size_t from) const;
    void take(const char* feed, std::string_view& line);
    bool isReadable() const;
    bool fill();
    void grow(std::size_t size);

    int m_descriptor;
    std::unique_ptr<char, Free> m_buffer; // grows where it lies, if it can
    std::size_t m_size = 0;               // of the buffer
    std::size_t m_begin = 0;              // what has not been read yet
    std::size_t m_end = 0;
    bool m_wasTooLong = false;
};

} // namespace session
