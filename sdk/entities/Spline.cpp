// Free-form curves.
#include <cmath>

#include "DbSpline.h"
#include "Gi/GiWorldDraw.h"
#include "OdError.h"
#include "entities/Drawing.h"
#include "entities/Fields.h"
#include "entities/FitCurve.h"
#include "entities/NurbsCurve.h"

using namespace entityfields;
using entitytables::kSpline;

namespace
{

enum Flag
{
    kClosed = 1,
    kRational = 4
};

/// The x, y, z of a point that arrive as three groups.
void addCoordinate(std::vector<OdGePoint3d>& points, int code, double value)
{
    if (code < 20)
        points.emplace_back(value, 0.0, 0.0);
    else if (!points.empty())
        (code < 30 ? points.back().y : points.back().z) = value;
}

struct SplineData
{
    nurbs::Curve curve;
    std::vector<OdGePoint3d> fitPoints;

    void take(const oddb::GroupView& group)
    {
        switch (group.code())
        {
        case 40:
            curve.knots.push_back(group.real());
            break;
        case 41:
            curve.weights.push_back(group.real());
            break;
        case 10:
        case 20:
        case 30:
            addCoordinate(curve.points, group.code(), group.real());
            break;
        case 11:
        case 21:
        case 31:
            addCoordinate(fitPoints, group.code(), group.real());
            break;
        default:
            break;
        }
    }
};

SplineData dataOf(const OdDbSpline& spline)
{
    const Reader fields = read<kSpline>(spline);
    SplineData data;
    data.curve.degree = fields.integer(71);
    bool inside = false;
    for (const oddb::GroupView& group : fields.groups())
    {
        if (group.beginsSection())
            inside = group.atom() == fields.atom();
        else if (inside)
            data.take(group);
    }
    return data;
}

/// What stands for the curve when its figures do not make one: the fit points, or else the control points.
const std::vector<OdGePoint3d>& replacement(const SplineData& data);

/// A smooth curve through points, with the tangents at its ends where they are given.
std::vector<OdGePoint3d> curveThrough(const std::vector<OdGePoint3d>& points, const Reader& fields)
{
    const auto tangent = [&fields](int code)
    {
        const OdGeVector3d vector = fields.has(code) ? fields.vector(code) : OdGeVector3d(0.0, 0.0, 0.0);
        return vector.length() > 0.0 ? std::optional(vector) : std::nullopt;
    };
    return fitcurve::sampleThrough(points, tangent(12), tangent(13));
}

const std::vector<OdGePoint3d>& replacement(const SplineData& data)
{
    return data.fitPoints.empty() ? data.curve.points : data.fitPoints;
}

oddb::GroupsBuilder& appendAll(oddb::GroupsBuilder& groups, int code, const std::vector<double>& values)
{
    for (const double value : values)
        groups.real(code, value);
    return groups;
}

OdResult elementAt(const std::vector<OdGePoint3d>& points, int index, OdGePoint3d& point)
{
    if (index < 0 || static_cast<std::size_t>(index) >= points.size())
        return eInvalidIndex;
    point = points[static_cast<std::size_t>(index)];
    return eOk;
}

} // namespace

int OdDbSpline::degree() const
{
    return read<kSpline>(*this).integer(71);
}

int OdDbSpline::numControlPoints() const
{
    return static_cast<int>(dataOf(*this).curve.points.size());
}

int OdDbSpline::numFitPoints() const
{
    return static_cast<int>(dataOf(*this).fitPoints.size());
}

OdResult OdDbSpline::getControlPointAt(int index, OdGePoint3d& point) const
{
    return elementAt(dataOf(*this).curve.points, index, point);
}

OdResult OdDbSpline::getFitPointAt(int index, OdGePoint3d& point) const
{
    return elementAt(dataOf(*this).fitPoints, index, point);
}

void OdDbSpline::setNurbsData(int degree, const OdArray<OdGePoint3d>& controlPoints, const OdArray<double>& knots,
                              const OdArray<double>& weights, bool closed)
{
    nurbs::Curve curve;
    curve.degree = degree;
    curve.points.assign(controlPoints.begin(), controlPoints.end());
    curve.knots.assign(knots.begin(), knots.end());
    curve.weights.assign(weights.begin(), weights.end());
    if (!curve.isValid())
        throw OdError(eInvalidInput);
    oddb::GroupsBuilder groups;
    remove(*this, kSpline, 11);
    setGroups(*this, kSpline, 40, appendAll(groups, 40, curve.knots));
    groups.clear();
    setGroups(*this, kSpline, 41, appendAll(groups, 41, curve.weights));
    groups.clear();
    for (const OdGePoint3d& point : curve.points)
        groups.point(10, point.x, point.y, point.z);
    setGroups(*this, kSpline, 10, groups);
    setInteger(*this, kSpline, 70, (closed ? kClosed : 0) | (curve.weights.empty() ? 0 : kRational));
    setInteger(*this, kSpline, 71, degree);
    setInteger(*this, kSpline, 72, static_cast<int>(curve.knots.size()));
    setInteger(*this, kSpline, 73, static_cast<int>(curve.points.size()));
    setInteger(*this, kSpline, 74, 0);
}

bool OdDbSpline::isClosed() const
{
    return read<kSpline>(*this).flag(70, kClosed);
}

OdResult OdDbSpline::getStartPoint(OdGePoint3d& point) const
{
    const SplineData data = dataOf(*this);
    if (!data.curve.isValid())
        return elementAt(replacement(data), 0, point) == eOk ? eOk : eInvalidExtents;
    point = data.curve.at(data.curve.firstParameter());
    return eOk;
}

OdResult OdDbSpline::getEndPoint(OdGePoint3d& point) const
{
    const SplineData data = dataOf(*this);
    const std::vector<OdGePoint3d>& points = replacement(data);
    if (!data.curve.isValid())
        return elementAt(points, static_cast<int>(points.size()) - 1, point) == eOk ? eOk : eInvalidExtents;
    point = data.curve.at(data.curve.lastParameter());
    return eOk;
}

bool OdDbSpline::subWorldDraw(OdGiWorldDraw* worldDraw) const
{
    const SplineData data = dataOf(*this);
    const std::vector<OdGePoint3d> points =
        data.curve.isValid() ? nurbs::sample(data.curve) : curveThrough(replacement(data), read<kSpline>(*this));
    worldDraw->geometry().polyline(static_cast<OdInt32>(points.size()), points.data());
    return true;
}
