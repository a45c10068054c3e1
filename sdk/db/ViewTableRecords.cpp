// Coordinate systems, views and viewports that have a name.
#include <cmath>

#include "DbUCSTableRecord.h"
#include "DbViewTableRecord.h"
#include "DbViewportTableRecord.h"
#include "OdError.h"
#include "RecordFields.h"

namespace
{

using oddb::ObjectCore;
using oddb::RecordFields;

const RecordFields kUcs(oddb::recordtables::kUcs);
const RecordFields kView(oddb::recordtables::kView);
const RecordFields kViewport(oddb::recordtables::kViewport);

const RecordFields& fieldsOf(const OdDbAbstractViewTableRecord& record)
{
    return record.isKindOf(OdDbViewportTableRecord::desc()) ? kViewport : kView;
}

void requireDirection(const OdGeVector3d& direction)
{
    if (!std::isfinite(direction.length()) || direction.isZeroLength())
        throw OdError(eInvalidInput);
}

} // namespace

// ---- Coordinate systems --------------------------------------------------------------------------------------------

OdDbUCSTableRecord::OdDbUCSTableRecord()
{
    ObjectCore::putGroups(*this, oddb::initialGroups(oddb::recordtables::kUcs, {2, 70, 10, 11, 12}));
    setAxes(OdGeVector3d::kXAxis, OdGeVector3d::kYAxis);
}

OdGePoint3d OdDbUCSTableRecord::origin() const
{
    return kUcs.point(*this, 10);
}

void OdDbUCSTableRecord::setOrigin(const OdGePoint3d& origin)
{
    kUcs.setPoint(*this, 10, origin);
}

OdGeVector3d OdDbUCSTableRecord::xAxis() const
{
    return kUcs.vector(*this, 11);
}

OdGeVector3d OdDbUCSTableRecord::yAxis() const
{
    return kUcs.vector(*this, 12);
}

void OdDbUCSTableRecord::setAxes(const OdGeVector3d& xAxis, const OdGeVector3d& yAxis)
{
    requireDirection(xAxis);
    requireDirection(yAxis);
    if (!OdZero(xAxis.normal().dotProduct(yAxis.normal())))
        throw OdError(eInvalidInput);
    kUcs.setPoint(*this, 11, OdGePoint3d::kOrigin + xAxis.normal());
    kUcs.setPoint(*this, 12, OdGePoint3d::kOrigin + yAxis.normal());
}

// ---- What views have in common -------------------------------------------------------------------------------------

OdGePoint2d OdDbAbstractViewTableRecord::centerPoint() const
{
    return fieldsOf(*this).point2d(*this, codes().center);
}

void OdDbAbstractViewTableRecord::setCenterPoint(const OdGePoint2d& center)
{
    fieldsOf(*this).setPoint2d(*this, codes().center, center);
}

double OdDbAbstractViewTableRecord::height() const
{
    return fieldsOf(*this).real(*this, codes().height);
}

void OdDbAbstractViewTableRecord::setHeight(double height)
{
    oddb::requirePositive(height);
    fieldsOf(*this).setReal(*this, codes().height, height);
}

double OdDbAbstractViewTableRecord::width() const
{
    return fieldsOf(*this).real(*this, codes().width);
}

void OdDbAbstractViewTableRecord::setWidth(double width)
{
    oddb::requirePositive(width);
    fieldsOf(*this).setReal(*this, codes().width, width);
}

OdGePoint3d OdDbAbstractViewTableRecord::target() const
{
    return fieldsOf(*this).point(*this, codes().target);
}

void OdDbAbstractViewTableRecord::setTarget(const OdGePoint3d& target)
{
    fieldsOf(*this).setPoint(*this, codes().target, target);
}

OdGeVector3d OdDbAbstractViewTableRecord::viewDirection() const
{
    const OdGeVector3d direction = fieldsOf(*this).vector(*this, codes().direction);
    return direction.isZeroLength() ? OdGeVector3d::kZAxis : direction;
}

void OdDbAbstractViewTableRecord::setViewDirection(const OdGeVector3d& direction)
{
    requireDirection(direction);
    fieldsOf(*this).setPoint(*this, codes().direction, OdGePoint3d::kOrigin + direction);
}

double OdDbAbstractViewTableRecord::viewTwist() const
{
    return fieldsOf(*this).angle(*this, codes().twist);
}

void OdDbAbstractViewTableRecord::setViewTwist(double angle)
{
    fieldsOf(*this).setAngle(*this, codes().twist, angle);
}

double OdDbAbstractViewTableRecord::lensLength() const
{
    return fieldsOf(*this).real(*this, codes().lens);
}

// ---- Views and viewports -------------------------------------------------------------------------------------------

OdDbViewTableRecord::OdDbViewTableRecord() : OdDbAbstractViewTableRecord({10, 40, 41, 12, 11, 50, 42})
{
    ObjectCore::putGroups(*this, oddb::initialGroups(oddb::recordtables::kView,
                                                     {2, 70, 40, 10, 41, 11, 12, 42, 43, 44, 50, 71, 281, 72}));
    kView.setPoint(*this, 11, {0.0, 0.0, 1.0});
}

OdDbViewportTableRecord::OdDbViewportTableRecord() : OdDbAbstractViewTableRecord({12, 40, 41, 17, 16, 51, 42})
{
    ObjectCore::putGroups(
        *this, oddb::initialGroups(oddb::recordtables::kViewport, {2,  70, 10, 11, 12, 13, 14, 15, 16, 17, 40, 41, 42,
                                                                   43, 44, 50, 51, 71, 72, 73, 74, 75, 76, 77, 78}));
    kViewport.setPoint(*this, 16, {0.0, 0.0, 1.0});
}

OdGePoint2d OdDbViewportTableRecord::lowerLeftCorner() const
{
    return kViewport.point2d(*this, 10);
}

OdGePoint2d OdDbViewportTableRecord::upperRightCorner() const
{
    return kViewport.point2d(*this, 11);
}

double OdDbViewportTableRecord::width() const
{
    return height() * kViewport.real(*this, 41);
}

void OdDbViewportTableRecord::setWidth(double width)
{
    oddb::requirePositive(width);
    kViewport.setReal(*this, 41, width / height());
}
