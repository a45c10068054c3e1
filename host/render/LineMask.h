// Many thin lines at once: how much of each pixel they cover.
#pragma once

#include <future>
#include <mutex>
#include <vector>

#include <cairo.h>

#include "render/Path.h"

namespace render
{

/// Lines of some pixels' width are laid into a mask, which is then painted in one go. What several of them cover, they
/// cover once.
class LineMask
{
public:
    LineMask(int width, int height);
    ~LineMask();
    LineMask(const LineMask&) = delete;
    LineMask& operator=(const LineMask&) = delete;

    /// False when there is no memory for the mask. Until it is asked, the mask takes none.
    bool makeRoom();
    /// Adds the lines of a path, their ends half a width longer. There has to be room. The caller goes on meanwhile,
    /// and may add more at once.
    void add(Path path, double width);
    /// The same before it returns, for lines that are not worth a thread.
    void addAtOnce(const Path& path, double width);
    bool isEmpty() const { return m_isEmpty; }
    /// Paints with the source of the context, whose coordinates are pixels, and forgets the lines.
    void paint(cairo_t* context);

private:
    /// Pixels, the last ones not included.
    struct Box
    {
        int left, top, right, bottom;
    };

    /// Lines that are not in the mask yet.
    struct Waiting
    {
        Path path;
        double width;
    };

    void wait();
    void addWaiting();
    void addLines(const Path& path, double width);
    void addLine(const OdGePoint2d& from, const OdGePoint2d& to, double width);

    cairo_surface_t* m_surface = nullptr;
    int m_width;
    int m_height;
    int m_stride = 0;
    unsigned char* m_pixels = nullptr;
    Box m_used;
    bool m_isEmpty = true;
    std::future<void> m_adding; ///< what else the mask is used for has to wait for it
    std::mutex m_mutex;         ///< for the two that follow
    std::vector<Waiting> m_waiting;
    bool m_isAdding = false; ///< what waits will be added without further ado
};

} // namespace render
