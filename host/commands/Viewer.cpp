// Finds out what the user sees, and changes it.
//
// The plane of a view of the model has its origin in the target and is at right angles to the direction in which the
// eye lies; its axes are those that drawings use for planes in space, turned by the twist. Perspective is not looked
// at. A sheet is always seen straight from above, whatever its viewport says of target, direction and twist: its plane
// is that of the drawing.
#include "commands/Viewer.h"

#include <algorithm>
#include <cmath>

#include "DbViewport.h"
#include "DbViewportTableRecord.h"
#include "OdError.h"

namespace hostcommands
{

namespace
{

constexpr double kMargin = 0.05; // on every side, of the size of what is shown

// From the plane of a view to the drawing.
OdGeMatrix3d planeOf(const OdGePoint3d& target, const OdGeVector3d& direction, double twist)
{
    const OdGeVector3d towardsEye = direction.isZeroLength() ? OdGeVector3d::kZAxis : direction;
    return OdGeMatrix3d::rotation(-twist, towardsEye, target) * OdGeMatrix3d::translation(target.asVector()) *
           OdGeMatrix3d::planeToWorld(towardsEye);
}

// Saved views may lack a height or have one that is no number.
double orElse(double value, double otherwise)
{
    return std::isfinite(value) && value > 0.0 ? value : otherwise;
}

} // namespace

// ---- Reading -------------------------------------------------------------------------------------------------------

ActiveView::ActiveView(OdDbDatabase& database) : m_id(database.activeViewportId())
{
    const OdDbObjectPtr object = m_id.openObject();
    m_isModel = !OdDbViewportTableRecord::cast(object).isNull();
    if (m_isModel)
        readModel(*object);
    else if (!OdDbViewport::cast(object).isNull())
        readSheet(*object);
    else
        throw OdError(eNotApplicable, OdString(L"the current layout was never shown, so there is no view of it"));
}

void ActiveView::readModel(const OdDbObject& record)
{
    const auto& view = static_cast<const OdDbViewportTableRecord&>(record);
    m_toDrawing = planeOf(view.target(), view.viewDirection(), view.viewTwist());
    m_center = view.centerPoint();
    m_height = orElse(view.height(), 1.0);
    m_proportion = orElse(view.width() / view.height(), 1.0);
}

void ActiveView::readSheet(const OdDbObject& viewport)
{
    const auto& view = static_cast<const OdDbViewport&>(viewport);
    m_center = OdGePoint2d(view.centerPoint().x, view.centerPoint().y);
    m_height = orElse(view.height(), orElse(view.viewHeight(), 1.0));
    m_proportion = orElse(view.width() / view.height(), 1.0);
}

OdGeExtents3d ActiveView::extents() const
{
    const double right = width() / 2.0;
    const double up = m_height / 2.0;
    OdGeExtents3d inPlane(OdGePoint3d(m_center.x - right, m_center.y - up, 0.0),
                          OdGePoint3d(m_center.x + right, m_center.y + up, 0.0));
    inPlane.transformBy(m_toDrawing);
    return inPlane;
}

// ---- Changing ------------------------------------------------------------------------------------------------------

void ActiveView::zoomTo(const OdGeExtents3d& extents)
{
    OdGeExtents3d inPlane = extents;
    inPlane.transformBy(m_toDrawing.inverse());
    const OdGeVector3d size = inPlane.diagonal();
    const double height = std::max(size.y, size.x / m_proportion) * (1.0 + 2.0 * kMargin);
    const OdGePoint3d center = inPlane.center();
    show(OdGePoint2d(center.x, center.y), height == 0.0 ? m_height : height);
}

void ActiveView::dollyTo(const OdGePoint3d& point)
{
    const OdGePoint3d center = m_toDrawing.inverse() * point;
    show(OdGePoint2d(center.x, center.y), m_height);
}

// A view that stays as it is is not touched: a change of it would take away what can be redone.
void ActiveView::show(const OdGePoint2d& center, double height)
{
    if (!std::isfinite(center.x) || !std::isfinite(center.y) || !(height > 0.0) ||
        !std::isfinite(height * m_proportion))
        throw OdError(eInvalidInput, OdString(L"what is to be shown lies beyond all numbers"));
    if (center.x == m_center.x && center.y == m_center.y && height == m_height)
        return;
    m_center = center;
    m_height = height;
    const OdDbObjectPtr object = m_id.safeOpenObject(OdDb::kForWrite);
    if (m_isModel)
    {
        auto& view = static_cast<OdDbViewportTableRecord&>(*object);
        view.setCenterPoint(center);
        view.setHeight(height);
        return;
    }
    // The sheet's viewport lies on the sheet as far as it shows it; what it says of that in the plane of its own target
    // and direction means the same.
    auto& view = static_cast<OdDbViewport&>(*object);
    const OdGePoint3d onSheet(center.x, center.y, view.centerPoint().z);
    const OdGePoint3d inOwnPlane =
        planeOf(view.viewTarget(), view.viewDirection(), view.twistAngle()).inverse() * onSheet;
    const bool isPlane = std::isfinite(inOwnPlane.x) && std::isfinite(inOwnPlane.y);
    view.setViewCenter(isPlane ? OdGePoint2d(inOwnPlane.x, inOwnPlane.y) : center);
    view.setViewHeight(height);
    view.setCenterPoint(onSheet);
    view.setHeight(height);
    view.setWidth(width());
}

} // namespace hostcommands
