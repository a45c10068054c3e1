// Where the bytes of a drawing file are put together, on their way to the disk or to another buffer.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

namespace dxf
{

/// A buffer that bytes are appended to. What happens to it when it is full is for derived classes to say.
class OutputBuffer
{
public:
    OutputBuffer(const OutputBuffer&) = delete;
    OutputBuffer& operator=(const OutputBuffer&) = delete;
    virtual ~OutputBuffer() = default;

    /// Returns a place for at least so many bytes (at most kMostReserved); what was written there is taken by
    /// advance(). Throws what makeRoom() throws.
    char* reserve(std::size_t size)
    {
        if (m_capacity - m_used < size)
            makeRoom(size);
        return m_bytes.get() + m_used;
    }
    void advance(const char* end) { m_used = static_cast<std::size_t>(end - m_bytes.get()); }

    /// Appends bytes of any length.
    virtual void write(std::string_view bytes) = 0;

    /// How many bytes were appended so far.
    std::uint64_t size() const { return m_gone + m_used; }

    /// The bytes from there to the end, when they are still in the buffer; else nothing.
    std::string_view since(std::uint64_t place) const
    {
        return place < m_gone ? std::string_view()
                              : std::string_view(m_bytes.get() + (place - m_gone), m_used - (place - m_gone));
    }

    static constexpr std::size_t kMostReserved = std::size_t{1} << 16;

protected:
    explicit OutputBuffer(std::size_t capacity)
        : m_bytes(std::make_unique_for_overwrite<char[]>(capacity)), m_capacity(capacity)
    {
    }

    /// Makes room for so many bytes: behind those that are there, or in place of them.
    virtual void makeRoom(std::size_t size) = 0;

    std::size_t capacity() const { return m_capacity; }
    /// The bytes that are there.
    std::string_view bytes() const { return {m_bytes.get(), m_used}; }
    void append(std::string_view bytes);
    /// Counts the bytes that are there, and so many more that never were, as gone to where they belong.
    void letGo(std::size_t more = 0);
    /// Moves the bytes that are there to a larger buffer.
    void grow(std::size_t capacity);

private:
    std::unique_ptr<char[]> m_bytes;
    std::size_t m_capacity;
    std::size_t m_used = 0;
    std::uint64_t m_gone = 0; // bytes that are not in the buffer any more
};

/// Keeps what is appended until it is cleared.
class OutputMemory : public OutputBuffer
{
public:
    OutputMemory() : OutputBuffer(kMostReserved) {}

    void write(std::string_view bytes) override { append(bytes); }

    using OutputBuffer::bytes;
    /// Makes it empty; the room stays.
    void clear() { letGo(); }

private:
    void makeRoom(std::size_t size) override;
};

} // namespace dxf
