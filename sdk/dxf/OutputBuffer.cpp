// Buffers that grow.
#include "OutputBuffer.h"

#include <algorithm>

namespace dxf
{

void OutputBuffer::append(std::string_view bytes)
{
    char* const at = reserve(bytes.size());
    std::copy(bytes.begin(), bytes.end(), at);
    advance(at + bytes.size());
}

void OutputBuffer::letGo(std::size_t more)
{
    m_gone += m_used + more;
    m_used = 0;
}

void OutputBuffer::grow(std::size_t capacity)
{
    auto larger = std::make_unique_for_overwrite<char[]>(capacity);
    std::copy_n(m_bytes.get(), m_used, larger.get());
    m_bytes = std::move(larger);
    m_capacity = capacity;
}

void OutputMemory::makeRoom(std::size_t size)
{
    grow(std::max(2 * capacity(), bytes().size() + size));
}

} // namespace dxf
