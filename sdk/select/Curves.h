// What drawings are made of in the plane of the screen: straight pieces and pieces of ellipses, and where they meet.
#pragma once

#include <optional>
#include <vector>

#include "Ge/GePoint2d.h"

namespace picking
{

struct Segment
{
    OdGePoint2d start;
    OdGePoint2d end;

    OdGePoint2d at(double parameter) const { return start + (end - start) * parameter; }
};

/// center + cos(t) major + sin(t) minor for t from start to start + sweep; sweep is not negative and at most a full
/// turn. The axes need not be at right angles, nor differ from zero: a circle seen from its side is a straight piece.
struct EllipticArc
{
    OdGePoint2d center;
    OdGeVector2d major;
    OdGeVector2d minor;
    double start = 0.0;
    double sweep = 0.0;

    OdGePoint2d at(double t) const;
    bool has(double t) const;
};

/// The straight piece that a flattened arc looks like; nothing for one that is not flattened.
std::optional<Segment> flattened(const EllipticArc& arc);

/// The parameters at which the arc reaches farthest along each axis, those that are on it.
std::vector<double> extremesOf(const EllipticArc& arc);

double distanceBetween(const OdGePoint2d& point, const Segment& segment);
double distanceBetween(const Segment& first, const Segment& second);
double distanceBetween(const OdGePoint2d& point, const EllipticArc& arc);

/// Adds the parameters at which a curve meets an edge, those of pieces that they share at both ends of the piece; for a
/// segment between 0 and 1, for an arc between start and start + sweep. Meeting is being no farther than tolerance.
void addMeetings(const Segment& curve, const Segment& edge, double tolerance, std::vector<double>& parameters);
void addMeetings(const EllipticArc& curve, const Segment& edge, double tolerance, std::vector<double>& parameters);

} // namespace picking
