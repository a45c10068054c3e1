// The kinds of dimensions: each is a row of points and angles beside what all dimensions have.
#include "DbDimension.h"
#include "entities/Fields.h"
#include "entities/Ocs.h"

using namespace entityfields;
using namespace entitytables;

OdGePoint3d OdDbAlignedDimension::dimLinePoint() const
{
    return read<kDimension>(*this).point(10);
}

void OdDbAlignedDimension::setDimLinePoint(const OdGePoint3d& point)
{
    setPoint(*this, kDimension, 10, point);
}

OdGePoint3d OdDbAlignedDimension::xLine1Point() const
{
    return read<kAlignedDimension>(*this).point(13);
}

void OdDbAlignedDimension::setXLine1Point(const OdGePoint3d& point)
{
    setPoint(*this, kAlignedDimension, 13, point);
}

OdGePoint3d OdDbAlignedDimension::xLine2Point() const
{
    return read<kAlignedDimension>(*this).point(14);
}

void OdDbAlignedDimension::setXLine2Point(const OdGePoint3d& point)
{
    setPoint(*this, kAlignedDimension, 14, point);
}

double OdDbAlignedDimension::oblique() const
{
    return read<kAlignedDimension>(*this).angle(52);
}

void OdDbAlignedDimension::setOblique(double oblique)
{
    setAngle(*this, kAlignedDimension, 52, oblique);
}

OdGePoint3d OdDbRotatedDimension::dimLinePoint() const
{
    return read<kDimension>(*this).point(10);
}

void OdDbRotatedDimension::setDimLinePoint(const OdGePoint3d& point)
{
    setPoint(*this, kDimension, 10, point);
}

OdGePoint3d OdDbRotatedDimension::xLine1Point() const
{
    return read<kAlignedDimension>(*this).point(13);
}

void OdDbRotatedDimension::setXLine1Point(const OdGePoint3d& point)
{
    setPoint(*this, kAlignedDimension, 13, point);
}

OdGePoint3d OdDbRotatedDimension::xLine2Point() const
{
    return read<kAlignedDimension>(*this).point(14);
}

void OdDbRotatedDimension::setXLine2Point(const OdGePoint3d& point)
{
    setPoint(*this, kAlignedDimension, 14, point);
}

double OdDbRotatedDimension::oblique() const
{
    return read<kAlignedDimension>(*this).angle(52);
}

void OdDbRotatedDimension::setOblique(double oblique)
{
    setAngle(*this, kAlignedDimension, 52, oblique);
}

double OdDbRotatedDimension::rotation() const
{
    return read<kAlignedDimension>(*this).angle(50);
}

void OdDbRotatedDimension::setRotation(double rotation)
{
    setAngle(*this, kAlignedDimension, 50, rotation);
}

OdGePoint3d OdDb2LineAngularDimension::arcPoint() const
{
    return ocs::frameOf(normal()).toWorld(read<k2LineAngularDimension>(*this).point(16));
}

void OdDb2LineAngularDimension::setArcPoint(const OdGePoint3d& point)
{
    setPoint(*this, k2LineAngularDimension, 16, ocs::frameOf(normal()).fromWorld(point));
}

OdGePoint3d OdDb2LineAngularDimension::xLine1Start() const
{
    return read<k2LineAngularDimension>(*this).point(13);
}

void OdDb2LineAngularDimension::setXLine1Start(const OdGePoint3d& point)
{
    setPoint(*this, k2LineAngularDimension, 13, point);
}

OdGePoint3d OdDb2LineAngularDimension::xLine1End() const
{
    return read<k2LineAngularDimension>(*this).point(14);
}

void OdDb2LineAngularDimension::setXLine1End(const OdGePoint3d& point)
{
    setPoint(*this, k2LineAngularDimension, 14, point);
}

OdGePoint3d OdDb2LineAngularDimension::xLine2Start() const
{
    return read<k2LineAngularDimension>(*this).point(15);
}

void OdDb2LineAngularDimension::setXLine2Start(const OdGePoint3d& point)
{
    setPoint(*this, k2LineAngularDimension, 15, point);
}

OdGePoint3d OdDb2LineAngularDimension::xLine2End() const
{
    return read<kDimension>(*this).point(10);
}

void OdDb2LineAngularDimension::setXLine2End(const OdGePoint3d& point)
{
    setPoint(*this, kDimension, 10, point);
}

OdGePoint3d OdDb3PointAngularDimension::arcPoint() const
{
    return read<kDimension>(*this).point(10);
}

void OdDb3PointAngularDimension::setArcPoint(const OdGePoint3d& point)
{
    setPoint(*this, kDimension, 10, point);
}

OdGePoint3d OdDb3PointAngularDimension::centerPoint() const
{
    return read<k3PointAngularDimension>(*this).point(15);
}

void OdDb3PointAngularDimension::setCenterPoint(const OdGePoint3d& point)
{
    setPoint(*this, k3PointAngularDimension, 15, point);
}

OdGePoint3d OdDb3PointAngularDimension::xLine1Point() const
{
    return read<k3PointAngularDimension>(*this).point(13);
}

void OdDb3PointAngularDimension::setXLine1Point(const OdGePoint3d& point)
{
    setPoint(*this, k3PointAngularDimension, 13, point);
}

OdGePoint3d OdDb3PointAngularDimension::xLine2Point() const
{
    return read<k3PointAngularDimension>(*this).point(14);
}

void OdDb3PointAngularDimension::setXLine2Point(const OdGePoint3d& point)
{
    setPoint(*this, k3PointAngularDimension, 14, point);
}

OdGePoint3d OdDbRadialDimension::center() const
{
    return read<kDimension>(*this).point(10);
}

void OdDbRadialDimension::setCenter(const OdGePoint3d& point)
{
    setPoint(*this, kDimension, 10, point);
}

OdGePoint3d OdDbRadialDimension::chordPoint() const
{
    return read<kRadialDimension>(*this).point(15);
}

void OdDbRadialDimension::setChordPoint(const OdGePoint3d& point)
{
    setPoint(*this, kRadialDimension, 15, point);
}

double OdDbRadialDimension::leaderLength() const
{
    return read<kRadialDimension>(*this).real(40);
}

void OdDbRadialDimension::setLeaderLength(double length)
{
    setReal(*this, kRadialDimension, 40, length);
}

OdGePoint3d OdDbRadialDimensionLarge::center() const
{
    return read<kDimension>(*this).point(10);
}

void OdDbRadialDimensionLarge::setCenter(const OdGePoint3d& point)
{
    setPoint(*this, kDimension, 10, point);
}

OdGePoint3d OdDbRadialDimensionLarge::overrideCenter() const
{
    return read<kRadialDimensionLarge>(*this).point(13);
}

void OdDbRadialDimensionLarge::setOverrideCenter(const OdGePoint3d& point)
{
    setPoint(*this, kRadialDimensionLarge, 13, point);
}

OdGePoint3d OdDbRadialDimensionLarge::jogPoint() const
{
    return read<kRadialDimensionLarge>(*this).point(14);
}

void OdDbRadialDimensionLarge::setJogPoint(const OdGePoint3d& point)
{
    setPoint(*this, kRadialDimensionLarge, 14, point);
}

OdGePoint3d OdDbRadialDimensionLarge::chordPoint() const
{
    return read<kRadialDimensionLarge>(*this).point(15);
}

void OdDbRadialDimensionLarge::setChordPoint(const OdGePoint3d& point)
{
    setPoint(*this, kRadialDimensionLarge, 15, point);
}

OdGePoint3d OdDbDiametricDimension::chordPoint() const
{
    return read<kDiametricDimension>(*this).point(15);
}

void OdDbDiametricDimension::setChordPoint(const OdGePoint3d& point)
{
    setPoint(*this, kDiametricDimension, 15, point);
}

OdGePoint3d OdDbDiametricDimension::farChordPoint() const
{
    return read<kDimension>(*this).point(10);
}

void OdDbDiametricDimension::setFarChordPoint(const OdGePoint3d& point)
{
    setPoint(*this, kDimension, 10, point);
}

double OdDbDiametricDimension::leaderLength() const
{
    return read<kDiametricDimension>(*this).real(40);
}

void OdDbDiametricDimension::setLeaderLength(double length)
{
    setReal(*this, kDiametricDimension, 40, length);
}

OdGePoint3d OdDbOrdinateDimension::origin() const
{
    return read<kDimension>(*this).point(10);
}

void OdDbOrdinateDimension::setOrigin(const OdGePoint3d& point)
{
    setPoint(*this, kDimension, 10, point);
}

OdGePoint3d OdDbOrdinateDimension::definingPoint() const
{
    return read<kOrdinateDimension>(*this).point(13);
}

void OdDbOrdinateDimension::setDefiningPoint(const OdGePoint3d& point)
{
    setPoint(*this, kOrdinateDimension, 13, point);
}

OdGePoint3d OdDbOrdinateDimension::leaderEndPoint() const
{
    return read<kOrdinateDimension>(*this).point(14);
}

void OdDbOrdinateDimension::setLeaderEndPoint(const OdGePoint3d& point)
{
    setPoint(*this, kOrdinateDimension, 14, point);
}

OdGePoint3d OdDbArcDimension::arcPoint() const
{
    return read<kDimension>(*this).point(10);
}

void OdDbArcDimension::setArcPoint(const OdGePoint3d& point)
{
    setPoint(*this, kDimension, 10, point);
}

OdGePoint3d OdDbArcDimension::centerPoint() const
{
    return read<kArcDimension>(*this).point(15);
}

void OdDbArcDimension::setCenterPoint(const OdGePoint3d& point)
{
    setPoint(*this, kArcDimension, 15, point);
}

OdGePoint3d OdDbArcDimension::xLine1Point() const
{
    return read<kArcDimension>(*this).point(13);
}

void OdDbArcDimension::setXLine1Point(const OdGePoint3d& point)
{
    setPoint(*this, kArcDimension, 13, point);
}

OdGePoint3d OdDbArcDimension::xLine2Point() const
{
    return read<kArcDimension>(*this).point(14);
}

void OdDbArcDimension::setXLine2Point(const OdGePoint3d& point)
{
    setPoint(*this, kArcDimension, 14, point);
}

namespace
{

constexpr int kAlongX = 64;

} // namespace

bool OdDbOrdinateDimension::isUsingXAxis() const
{
    return read<kDimension>(*this).flag(70, kAlongX);
}

void OdDbOrdinateDimension::useXAxis()
{
    setFlag(*this, kDimension, 70, kAlongX, true);
}

void OdDbOrdinateDimension::useYAxis()
{
    setFlag(*this, kDimension, 70, kAlongX, false);
}
