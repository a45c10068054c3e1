// Points.
#include "DbDatabase.h"
#include "DbPoint.h"
#include "Gi/GiWorldDraw.h"
#include "entities/Drawing.h"
#include "entities/Fields.h"

using namespace entityfields;
using entitytables::kPoint;

OdGePoint3d OdDbPoint::position() const
{
    return read<kPoint>(*this).point(10);
}

void OdDbPoint::setPosition(const OdGePoint3d& point)
{
    setPoint(*this, kPoint, 10, point);
}

double OdDbPoint::thickness() const
{
    return read<kPoint>(*this).real(39);
}

void OdDbPoint::setThickness(double thickness)
{
    setReal(*this, kPoint, 39, thickness);
}

void OdDbPoint::setNormal(const OdGeVector3d& normal)
{
    setVector(*this, kPoint, 210, requireDirection(normal));
}

double OdDbPoint::ecsRotation() const
{
    return read<kPoint>(*this).angle(50);
}

void OdDbPoint::setEcsRotation(double rotation)
{
    setAngle(*this, kPoint, 50, rotation);
}

namespace
{

/// How points look in the drawing.
struct PointLooks
{
    int mode = 0;
    double size = 0.0; ///< of the figure; 0 or less for a part of what is seen
};

enum PointMode
{
    kDot = 0,
    kNothing = 1,
    kPlus = 2,
    kCross = 3,
    kTick = 4,
    kCircle = 32,
    kSquare = 64
};

PointLooks looksOf(const OdDbDatabase* database)
{
    PointLooks looks;
    if (!database)
        return looks;
    if (const OdResBufPtr mode = database->getSysVar(L"PDMODE"); !mode.isNull())
        looks.mode = mode->getInt16();
    if (const OdResBufPtr size = database->getSysVar(L"PDSIZE"); !size.isNull())
        looks.size = size->getDouble();
    return looks;
}

/// Half the size of the figure. One that is a part of the screen is as large as letters usually are.
double halfSize(const OdGiWorldDraw& worldDraw, const PointLooks& looks)
{
    constexpr double kDeviationsOnScreen = 40.0;
    return looks.size > 0.0 ? looks.size / 2.0 : worldDraw.deviation() * kDeviationsOnScreen;
}

void drawStroke(OdGiGeometry& geometry, const OdGePoint3d& from, const OdGePoint3d& to)
{
    const OdGePoint3d ends[2] = {from, to};
    geometry.polyline(2, ends);
}

void drawFigure(OdGiGeometry& geometry, int mode, const OdGePoint3d& at, const ocs::Frame& frame, double half)
{
    const OdGeVector3d x = frame.x * half;
    const OdGeVector3d y = frame.y * half;
    switch (mode & 7)
    {
    case kPlus:
        drawStroke(geometry, at - x, at + x);
        drawStroke(geometry, at - y, at + y);
        break;
    case kCross:
        drawStroke(geometry, at - x - y, at + x + y);
        drawStroke(geometry, at - x + y, at + x - y);
        break;
    case kTick:
        drawStroke(geometry, at, at + y);
        break;
    default:
        break;
    }
    // The figures around are half as large as the strokes are long.
    if ((mode & kCircle) != 0)
        geometry.circle(at, half / 2.0, frame.z);
    if ((mode & kSquare) != 0)
    {
        const OdGeVector3d a = x * 0.5;
        const OdGeVector3d b = y * 0.5;
        const OdGePoint3d corners[4] = {at - a - b, at + a - b, at + a + b, at - a + b};
        geometry.polygon(4, corners);
    }
}

} // namespace

bool OdDbPoint::subWorldDraw(OdGiWorldDraw* worldDraw) const
{
    const Reader fields = read<kPoint>(*this);
    const OdGePoint3d point = fields.point(10);
    const OdGeVector3d normal = fields.normal();
    drawing::setThickness(*worldDraw, fields.real(39));
    const PointLooks looks = worldDraw->regenType() == kOdGiForExtents ? PointLooks() : looksOf(database());
    if ((looks.mode & 7) == kDot)
        worldDraw->geometry().polyline(1, &point, &normal);
    if (looks.mode == kDot || looks.mode == kNothing)
        return true;
    ocs::Frame frame = ocs::frameOf(normal);
    const OdGeVector3d along = frame.direction(fields.angle(50));
    frame.y = frame.direction(fields.angle(50) + OdaPI2);
    frame.x = along;
    drawFigure(worldDraw->geometry(), looks.mode, point, frame, halfSize(*worldDraw, looks));
    return true;
}
