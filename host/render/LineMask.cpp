// Implements the covering of pixels by lines.
#include "render/LineMask.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

namespace render
{

namespace
{

constexpr double kDeviation = 0.2; ///< of curves, in pixels
constexpr double kFar = 1e6;

bool isNear(const OdGePoint2d& point)
{
    return std::fabs(point.x) < kFar && std::fabs(point.y) < kFar;
}

int floorOf(double value)
{
    const int cut = static_cast<int>(value);
    return cut - (value < cut ? 1 : 0);
}

} // namespace

LineMask::LineMask(int width, int height) : m_width(width), m_height(height), m_used{width, height, 0, 0} {}

bool LineMask::makeRoom()
{
    if (!m_surface)
    {
        m_surface = cairo_image_surface_create(CAIRO_FORMAT_A8, m_width, m_height);
        m_stride = cairo_image_surface_get_stride(m_surface);
        m_pixels = cairo_image_surface_get_data(m_surface);
    }
    return m_pixels != nullptr;
}

LineMask::~LineMask()
{
    if (m_adding.valid())
        m_adding.wait(); // and let nobody hear of what went wrong
    cairo_surface_destroy(m_surface);
}

void LineMask::add(Path path, double width)
{
    m_isEmpty = false;
    const std::lock_guard lock(m_mutex);
    m_waiting.push_back({std::move(path), width});
    if (!std::exchange(m_isAdding, true)) // deferred, and so done by wait(), when there is no thread left
        m_adding = std::async(std::launch::async | std::launch::deferred, [this] { addWaiting(); });
}

void LineMask::addAtOnce(const Path& path, double width)
{
    wait();
    m_isEmpty = false;
    addLines(path, width);
}

void LineMask::addWaiting()
{
    std::vector<Waiting> taken;
    while (true)
    {
        {
            const std::lock_guard lock(m_mutex);
            taken = std::exchange(m_waiting, {});
            m_isAdding = !taken.empty();
        }
        if (taken.empty())
            return;
        for (const Waiting& waiting : taken)
            addLines(waiting.path, waiting.width);
    }
}

void LineMask::wait()
{
    if (m_adding.valid())
        m_adding.get();
}

void LineMask::addLines(const Path& path, double width)
{
    path.visitLines(kDeviation,
                    [&](const OdGePoint2d& from, const OdGePoint2d& to)
                    {
                        if (isNear(from) && isNear(to))
                            addLine(from, to, width);
                    });
}

/// A line is a row of spans across it, one for each pixel along the axis that it runs along most.
void LineMask::addLine(const OdGePoint2d& from, const OdGePoint2d& to, double width)
{
    const bool isSteep = std::fabs(to.y - from.y) > std::fabs(to.x - from.x);
    double start = isSteep ? from.y : from.x;
    double end = isSteep ? to.y : to.x;
    double across = isSteep ? from.x : from.y;
    double acrossEnd = isSteep ? to.x : to.y;
    if (start > end)
    {
        std::swap(start, end);
        std::swap(across, acrossEnd);
    }
    const int alongSize = isSteep ? m_height : m_width;
    const int acrossSize = isSteep ? m_width : m_height;
    const std::ptrdiff_t alongStep = isSteep ? m_stride : 1;
    const std::ptrdiff_t acrossStep = isSteep ? 1 : m_stride;
    const double slope = end > start ? (acrossEnd - across) / (end - start) : 0.0;
    const double half = width / 2.0 * std::sqrt(1.0 + slope * slope);
    const double first = std::max(start - width / 2.0, 0.0);
    const double last = std::min(end + width / 2.0, static_cast<double>(alongSize));
    unsigned char* const pixels = m_pixels;
    int lowest = acrossSize;
    int highest = 0;
    for (int along = floorOf(first); along < last; ++along)
    {
        const double left = std::max(first, static_cast<double>(along));
        const double right = std::min(last, along + 1.0);
        const double middle = across + slope * ((left + right) / 2.0 - start);
        const double low = std::max(middle - half, 0.0);
        const double high = std::min(middle + half, static_cast<double>(acrossSize));
        if (low >= high)
            continue;
        int at = floorOf(low);
        lowest = std::min(lowest, at);
        unsigned char* pixel = pixels + along * alongStep + at * acrossStep;
        for (; at < high; ++at, pixel += acrossStep)
        {
            const double covered = std::min(high, at + 1.0) - std::max(low, static_cast<double>(at));
            // Never negative, so cutting rounds. NOLINTNEXTLINE(bugprone-incorrect-roundings)
            *pixel = std::max(*pixel, static_cast<unsigned char>(covered * (right - left) * 255.0 + 0.5));
        }
        highest = std::max(highest, at);
    }
    if (lowest >= highest)
        return;
    const int begin = floorOf(first);
    const int stop = std::min(static_cast<int>(std::ceil(last)), alongSize);
    m_used.left = std::min(m_used.left, isSteep ? lowest : begin);
    m_used.right = std::max(m_used.right, isSteep ? highest : stop);
    m_used.top = std::min(m_used.top, isSteep ? begin : lowest);
    m_used.bottom = std::max(m_used.bottom, isSteep ? stop : highest);
}

void LineMask::paint(cairo_t* context)
{
    wait();
    m_isEmpty = true;
    const int width = m_used.right - m_used.left;
    if (width <= 0)
        return;
    cairo_surface_mark_dirty(m_surface);
    cairo_save(context);
    cairo_rectangle(context, m_used.left, m_used.top, width, m_used.bottom - m_used.top);
    cairo_clip(context);
    cairo_mask_surface(context, m_surface, 0.0, 0.0);
    cairo_restore(context);
    cairo_surface_flush(m_surface);
    for (int y = m_used.top; y < m_used.bottom; ++y)
        std::memset(m_pixels + static_cast<std::ptrdiff_t>(y) * m_stride + m_used.left, 0,
                    static_cast<std::size_t>(width));
    m_used = {m_width, m_height, 0, 0};
}

} // namespace render
