// Implements the convex hull of outlines: curves become points on them, and what lies inside is dropped.
#include "gi/fonts/GlyphHull.h"

#include <hb.h>

#include <algorithm>

namespace fonts
{

namespace
{

constexpr int kSteps = 8; ///< points on a curve

using Points = std::vector<OdGePoint2d>;

Points& pointsOf(void* data)
{
    return *static_cast<Points*>(data);
}

void moveTo(hb_draw_funcs_t*, void* data, hb_draw_state_t*, float x, float y, void*)
{
    pointsOf(data).emplace_back(x, y);
}

void quadraticTo(hb_draw_funcs_t*, void* data, hb_draw_state_t* state, float cx, float cy, float x, float y, void*)
{
    for (int i = 1; i <= kSteps; ++i)
    {
        const double t = static_cast<double>(i) / kSteps;
        const double a = (1 - t) * (1 - t);
        const double b = 2 * t * (1 - t);
        const double c = t * t;
        pointsOf(data).emplace_back(a * state->current_x + b * cx + c * x, a * state->current_y + b * cy + c * y);
    }
}

void cubicTo(hb_draw_funcs_t*, void* data, hb_draw_state_t* state, float c1x, float c1y, float c2x, float c2y, float x,
             float y, void*)
{
    for (int i = 1; i <= kSteps; ++i)
    {
        const double t = static_cast<double>(i) / kSteps;
        const double u = 1 - t;
        const double a = u * u * u;
        const double b = 3 * u * u * t;
        const double c = 3 * u * t * t;
        const double d = t * t * t;
        pointsOf(data).emplace_back(a * state->current_x + b * c1x + c * c2x + d * x,
                                    a * state->current_y + b * c1y + c * c2y + d * y);
    }
}

void closePath(hb_draw_funcs_t*, void*, hb_draw_state_t*, void*) {}

hb_draw_funcs_t* makeDrawFunctions()
{
    hb_draw_funcs_t* functions = hb_draw_funcs_create();
    hb_draw_funcs_set_move_to_func(functions, moveTo, nullptr, nullptr);
    hb_draw_funcs_set_line_to_func(functions, moveTo, nullptr, nullptr);
    hb_draw_funcs_set_quadratic_to_func(functions, quadraticTo, nullptr, nullptr);
    hb_draw_funcs_set_cubic_to_func(functions, cubicTo, nullptr, nullptr);
    hb_draw_funcs_set_close_path_func(functions, closePath, nullptr, nullptr);
    return functions;
}

/// Above 0 when c lies to the left of the line from a to b.
double turn(const OdGePoint2d& a, const OdGePoint2d& b, const OdGePoint2d& c)
{
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

/// Adds points to one half of the hull, dropping those that it bends inward at.
template<class Iterator>
void addHalf(Points& hull, Iterator first, Iterator last)
{
    const std::size_t start = hull.size();
    for (; first != last; ++first)
    {
        while (hull.size() >= start + 2 && turn(hull[hull.size() - 2], hull.back(), *first) <= 0.0)
            hull.pop_back();
        hull.push_back(*first);
    }
    hull.pop_back();
}

Points convexHull(Points points)
{
    if (points.size() < 3)
        return points;
    std::sort(points.begin(), points.end(),
              [](const OdGePoint2d& a, const OdGePoint2d& b) { return a.x != b.x ? a.x < b.x : a.y < b.y; });
    Points hull;
    addHalf(hull, points.begin(), points.end());
    addHalf(hull, points.rbegin(), points.rend());
    return hull;
}

} // namespace

std::vector<OdGePoint2d> hullOfOutline(hb_font_t* font, OdUInt32 glyph, double unitsPerHeight)
{
    static hb_draw_funcs_t* const functions = makeDrawFunctions();
    Points points;
    hb_font_get_glyph_shape(font, glyph, functions, &points);
    for (OdGePoint2d& point : points)
        point = point / unitsPerHeight;
    return convexHull(std::move(points));
}

std::vector<OdGePoint2d> hullOfBox(const OdGeExtents2d& box)
{
    if (!box.isValidExtents())
        return {};
    const OdGePoint2d& low = box.minPoint();
    const OdGePoint2d& high = box.maxPoint();
    return {low, {high.x, low.y}, high, {low.x, high.y}};
}

} // namespace fonts
