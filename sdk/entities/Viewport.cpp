// Windows on sheets of paper.
#include "DbViewport.h"

#include <cmath>

#include "DbBlockTableRecord.h"
#include "DbLayout.h"
#include "Gi/GiWorldDraw.h"
#include "OdError.h"
#include "entities/Fields.h"

using namespace entityfields;
using entitytables::kViewport;

namespace
{

constexpr int kSheet = 1; // the number of the viewport that is the sheet itself

void requireFinite(double value)
{
    if (!std::isfinite(value))
        throw OdError(eInvalidInput);
}

} // namespace

OdGePoint3d OdDbViewport::centerPoint() const
{
    return read<kViewport>(*this).point(10);
}

void OdDbViewport::setCenterPoint(const OdGePoint3d& point)
{
    setPoint(*this, kViewport, 10, point);
}

double OdDbViewport::width() const
{
    return read<kViewport>(*this).real(40);
}

void OdDbViewport::setWidth(double width)
{
    requireNotNegative(width);
    setReal(*this, kViewport, 40, width);
}

double OdDbViewport::height() const
{
    return read<kViewport>(*this).real(41);
}

void OdDbViewport::setHeight(double height)
{
    requireNotNegative(height);
    setReal(*this, kViewport, 41, height);
}

OdInt16 OdDbViewport::number() const
{
    return static_cast<OdInt16>(read<kViewport>(*this).integer(69));
}

bool OdDbViewport::isOn() const
{
    return read<kViewport>(*this).integer(68) > 0;
}

OdGePoint2d OdDbViewport::viewCenter() const
{
    const OdGePoint3d center = read<kViewport>(*this).point(12);
    return OdGePoint2d(center.x, center.y);
}

void OdDbViewport::setViewCenter(const OdGePoint2d& center)
{
    requireFinite(center.x + center.y);
    setPoint(*this, kViewport, 12, OdGePoint3d(center.x, center.y, 0.0));
}

OdGePoint3d OdDbViewport::viewTarget() const
{
    return read<kViewport>(*this).point(17);
}

void OdDbViewport::setViewTarget(const OdGePoint3d& target)
{
    requireFinite(target.x + target.y + target.z);
    setPoint(*this, kViewport, 17, target);
}

OdGeVector3d OdDbViewport::viewDirection() const
{
    return read<kViewport>(*this).vector(16);
}

void OdDbViewport::setViewDirection(const OdGeVector3d& direction)
{
    requireDirection(direction);
    setVector(*this, kViewport, 16, direction);
}

double OdDbViewport::viewHeight() const
{
    return read<kViewport>(*this).real(45);
}

void OdDbViewport::setViewHeight(double height)
{
    requirePositive(height);
    setReal(*this, kViewport, 45, height);
}

double OdDbViewport::twistAngle() const
{
    return read<kViewport>(*this).angle(51);
}

void OdDbViewport::setTwistAngle(double angle)
{
    requireFinite(angle);
    setAngle(*this, kViewport, 51, angle);
}

double OdDbViewport::lensLength() const
{
    return read<kViewport>(*this).real(42);
}

double OdDbViewport::customScale() const
{
    const double seen = viewHeight();
    return seen != 0.0 ? height() / seen : 0.0;
}

void OdDbViewport::getFrozenLayerList(OdDbObjectIdArray& layerIds) const
{
    const Reader fields = read<kViewport>(*this);
    layerIds.clear();
    bool inside = false;
    for (const oddb::GroupView& group : fields.groups())
    {
        if (group.beginsSection())
            inside = group.code() == 100 && group.atom() == fields.atom();
        else if (inside && (group.code() == 331 || group.code() == 341) && group.stub())
            layerIds.append(OdDbObjectId(group.stub()));
    }
}

OdDbObjectId OdDbViewport::nonRectClipEntityId() const
{
    return read<kViewport>(*this).stub(340);
}

bool OdDbViewport::subWorldDraw(OdGiWorldDraw* worldDraw) const
{
    if (number() == kSheet)
        return true;
    const OdGePoint3d center = centerPoint();
    const OdGeVector3d right(width() * 0.5, 0.0, 0.0);
    const OdGeVector3d up(0.0, height() * 0.5, 0.0);
    const OdGePoint3d corners[4] = {center - right - up, center + right - up, center + right + up, center - right + up};
    worldDraw->geometry().polygon(4, corners);
    return true;
}

// ---- The view of a sheet --------------------------------------------------------------------------------------------

OdDbObjectId OdDbLayout::overallVportId() const
{
    const OdDbBlockTableRecordPtr block = OdDbBlockTableRecord::cast(getBlockTableRecordId().openObject());
    if (block.isNull())
        return {};
    for (OdDbObjectIteratorPtr entity = block->newIterator(); !entity->done(); entity->step())
        if (const OdDbViewportPtr viewport = OdDbViewport::cast(entity->entity()); !viewport.isNull())
            if (viewport->number() == kSheet)
                return viewport->objectId();
    return {};
}
