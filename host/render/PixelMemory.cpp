// Implements the memory for pixels.
#include "render/PixelMemory.h"

#include <new>

namespace render
{

namespace
{

std::size_t bytesOf(const PageSize& page)
{
    constexpr std::size_t kPixel = 4;
    return kPixel * static_cast<std::size_t>(page.width) * static_cast<std::size_t>(page.height);
}

} // namespace

PixelMemory::PixelMemory(const PageSize& largest) : m_size(bytesOf(largest))
{
    const auto make = [size = m_size]
    { return std::unique_ptr<unsigned char[]>(new (std::nothrow) unsigned char[size]()); };
    m_room = std::async(std::launch::async | std::launch::deferred, make); // deferred when there is no thread left
}

std::unique_ptr<unsigned char[]> PixelMemory::take(const PageSize& size)
{
    if (!m_room.valid() || bytesOf(size) > m_size)
        return nullptr;
    return m_room.get();
}

} // namespace render
