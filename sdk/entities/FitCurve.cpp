// Implements curves through points: the slopes at the points follow from one another by a system of equations with
// three unknowns each, which is solved in one walk there and one back. Parameters are lengths of chords.
#include "entities/FitCurve.h"

#include <cmath>

namespace fitcurve
{

namespace
{

constexpr int kSteps = 16; ///< lines for each piece of the curve

/// The points without those that lie on the one before.
std::vector<OdGePoint3d> withoutRepetitions(const std::vector<OdGePoint3d>& points)
{
    std::vector<OdGePoint3d> distinct;
    for (const OdGePoint3d& point : points)
    {
        if (distinct.empty() || (point - distinct.back()).length() > 1e-12)
            distinct.push_back(point);
    }
    return distinct;
}

OdGeVector3d unit(const OdGeVector3d& tangent)
{
    const double length = tangent.length();
    return length > 0.0 ? tangent / length : tangent;
}

/// The derivatives of the curve at the points.
std::vector<OdGeVector3d> slopesOf(const std::vector<OdGePoint3d>& points, const std::vector<double>& chords,
                                   const std::optional<OdGeVector3d>& startTangent,
                                   const std::optional<OdGeVector3d>& endTangent)
{
    const std::size_t last = points.size() - 1;
    std::vector<double> upper(points.size());
    std::vector<OdGeVector3d> slopes(points.size());
    // First row: a given slope, or no curvature.
    upper[0] = startTangent ? 0.0 : 0.5;
    slopes[0] = startTangent ? unit(*startTangent) : (points[1] - points[0]) * (1.5 / chords[0]);
    for (std::size_t i = 1; i < last; ++i)
    {
        const double before = 1.0 / chords[i - 1];
        const double behind = 1.0 / chords[i];
        const OdGeVector3d right = (points[i] - points[i - 1]) * (3.0 * before * before) +
                                   (points[i + 1] - points[i]) * (3.0 * behind * behind);
        const double pivot = 2.0 * (before + behind) - before * upper[i - 1];
        upper[i] = behind / pivot;
        slopes[i] = (right - slopes[i - 1] * before) / pivot;
    }
    if (endTangent)
        slopes[last] = unit(*endTangent);
    else
        slopes[last] = ((points[last] - points[last - 1]) * (1.5 / chords[last - 1]) - slopes[last - 1] * 0.5) /
                       (1.0 - 0.5 * upper[last - 1]);
    for (std::size_t i = last; i-- > 0;)
        slopes[i] = slopes[i] - slopes[i + 1] * upper[i];
    return slopes;
}

} // namespace

std::vector<OdGePoint3d> sampleThrough(const std::vector<OdGePoint3d>& given,
                                       const std::optional<OdGeVector3d>& startTangent,
                                       const std::optional<OdGeVector3d>& endTangent)
{
    const std::vector<OdGePoint3d> points = withoutRepetitions(given);
    if (points.size() < 3 && !(points.size() == 2 && (startTangent || endTangent)))
        return given;
    std::vector<double> chords;
    for (std::size_t i = 1; i < points.size(); ++i)
        chords.push_back((points[i] - points[i - 1]).length());
    const std::vector<OdGeVector3d> slopes = slopesOf(points, chords, startTangent, endTangent);
    std::vector<OdGePoint3d> samples(1, points.front());
    for (std::size_t i = 0; i + 1 < points.size(); ++i)
    {
        for (int step = 1; step <= kSteps; ++step)
        {
            const double t = static_cast<double>(step) / kSteps;
            const double s = 1.0 - t;
            const OdGeVector3d way = (points[i + 1] - points[i]) * (t * t * (3.0 - 2.0 * t)) +
                                     slopes[i] * (chords[i] * t * s * s) - slopes[i + 1] * (chords[i] * t * t * s);
            samples.push_back(points[i] + way);
        }
    }
    return samples;
}

} // namespace fitcurve
