// Filled areas and faces with three or four corners.
#include "DbFace.h"
#include "DbSolid.h"
#include "DbTrace.h"
#include "Gi/GiWorldDraw.h"
#include "OdError.h"
#include "entities/Drawing.h"
#include "entities/Fields.h"

using namespace entityfields;
using entitytables::kFace;
using entitytables::kTrace;

namespace
{

constexpr int kCorners = 4;

int cornerCode(int index)
{
    if (index < 0 || index >= kCorners)
        throw OdError(eInvalidIndex);
    return 10 + index;
}

/// The corners in the order of the outline: solids and traces store the third and fourth one crosswise.
void drawSolid(const OdDbEntity& solid, OdGiWorldDraw& worldDraw)
{
    const Reader fields = read<kTrace>(solid);
    const ocs::Frame frame = ocs::frameOf(fields.normal());
    const int last = fields.has(13) ? 13 : 12;
    OdGePoint3d corners[kCorners + 1] = {fields.point(10), fields.point(11), fields.point(last), fields.point(12)};
    for (OdGePoint3d& corner : corners)
        corner = frame.toWorld(corner);
    corners[kCorners] = corners[0];
    const double thickness = fields.real(39);
    worldDraw.subEntityTraits().setFillType(kOdGiFillAlways);
    worldDraw.geometry().polygon(kCorners, corners);
    if (thickness == 0.0)
        return;
    drawing::setThickness(worldDraw, thickness);
    worldDraw.geometry().polyline(kCorners + 1, corners, &frame.z);
}

OdGePoint3d solidPoint(const OdDbEntity& solid, int index)
{
    const Reader fields = read<kTrace>(solid);
    return ocs::frameOf(fields.normal()).toWorld(fields.point(cornerCode(index)));
}

void setSolidPoint(OdDbEntity& solid, int index, const OdGePoint3d& point)
{
    setPoint(solid, kTrace, cornerCode(index), ocs::frameOf(solid.normal()).fromWorld(point));
}

} // namespace

void OdDbSolid::getPointAt(int index, OdGePoint3d& point) const
{
    point = solidPoint(*this, index);
}

void OdDbSolid::setPointAt(int index, const OdGePoint3d& point)
{
    setSolidPoint(*this, index, point);
}

double OdDbSolid::thickness() const
{
    return read<kTrace>(*this).real(39);
}

void OdDbSolid::setThickness(double thickness)
{
    setReal(*this, kTrace, 39, thickness);
}

void OdDbSolid::setNormal(const OdGeVector3d& normal)
{
    setVector(*this, kTrace, 210, requireDirection(normal));
}

bool OdDbSolid::isPlanar() const
{
    return true;
}

bool OdDbSolid::subWorldDraw(OdGiWorldDraw* worldDraw) const
{
    drawSolid(*this, *worldDraw);
    return true;
}

void OdDbTrace::getPointAt(int index, OdGePoint3d& point) const
{
    point = solidPoint(*this, index);
}

void OdDbTrace::setPointAt(int index, const OdGePoint3d& point)
{
    setSolidPoint(*this, index, point);
}

double OdDbTrace::thickness() const
{
    return read<kTrace>(*this).real(39);
}

void OdDbTrace::setThickness(double thickness)
{
    setReal(*this, kTrace, 39, thickness);
}

void OdDbTrace::setNormal(const OdGeVector3d& normal)
{
    setVector(*this, kTrace, 210, requireDirection(normal));
}

bool OdDbTrace::isPlanar() const
{
    return true;
}

bool OdDbTrace::subWorldDraw(OdGiWorldDraw* worldDraw) const
{
    drawSolid(*this, *worldDraw);
    return true;
}

void OdDbFace::getVertexAt(int index, OdGePoint3d& point) const
{
    point = read<kFace>(*this).point(cornerCode(index));
}

void OdDbFace::setVertexAt(int index, const OdGePoint3d& point)
{
    setPoint(*this, kFace, cornerCode(index), point);
}

bool OdDbFace::isEdgeVisibleAt(int index) const
{
    return !read<kFace>(*this).flag(70, 1 << (cornerCode(index) - 10));
}

void OdDbFace::makeEdgeVisibleAt(int index)
{
    setFlag(*this, kFace, 70, 1 << (cornerCode(index) - 10), false);
}

void OdDbFace::makeEdgeInvisibleAt(int index)
{
    setFlag(*this, kFace, 70, 1 << (cornerCode(index) - 10), true);
}

bool OdDbFace::subWorldDraw(OdGiWorldDraw* worldDraw) const
{
    const Reader fields = read<kFace>(*this);
    const int last = fields.has(13) ? 13 : 12;
    const OdGePoint3d corners[kCorners] = {fields.point(10), fields.point(11), fields.point(12), fields.point(last)};
    const int hidden = worldDraw->regenType() == kOdGiForExtents ? 0 : fields.integer(70);
    if (hidden == 0)
        worldDraw->geometry().polygon(kCorners, corners);
    for (int i = 0; i < kCorners && hidden != 0; ++i)
    {
        const OdGePoint3d edge[2] = {corners[i], corners[(i + 1) % kCorners]};
        if ((hidden & 1 << i) == 0)
            worldDraw->geometry().polyline(2, edge);
    }
    return true;
}
