// Memory for the pixels of a picture.
#pragma once

#include <future>
#include <memory>

#include "render/Canvas.h"

namespace render
{

/// Makes room for the pixels of a page, four zero bytes for each, on another thread: the memory of a large page takes
/// some time to come, and where the page ends is known only after all of a drawing was looked at.
class PixelMemory
{
public:
    PixelMemory() = default;
    /// For pages that are no larger.
    explicit PixelMemory(const PageSize& largest);

    /// The room for a page; null when there was none to be had, or when a larger page was asked for than was said.
    std::unique_ptr<unsigned char[]> take(const PageSize& size);

private:
    std::future<std::unique_ptr<unsigned char[]>> m_room;
    std::size_t m_size = 0;
};

} // namespace render
