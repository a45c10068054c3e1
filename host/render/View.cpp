// Implements the choice of what a picture shows.
#include "render/View.h"

#include <algorithm>
#include <cmath>

#include "DbBlockTableRecord.h"
#include "DbDictionary.h"
#include "DbViewport.h"
#include "DbViewportTable.h"
#include "DbViewportTableRecord.h"
#include "OdError.h"
#include "render/SpaceBounds.h"

namespace render
{

namespace
{

constexpr double kRoom = 0.02; ///< around the drawing, of its longer side
constexpr double kPixelsPerMillimetre = 96 / 25.4;
constexpr int kLongerSide = 1600;
constexpr int kLargestSide = 5000; ///< unless a larger size is asked for

OdGeExtents2d rectangle(const OdGePoint2d& center, double width, double height)
{
    const OdGeVector2d half(width / 2, height / 2);
    return {center - half, center + half};
}

OdGeExtents2d withRoom(const OdGeExtents2d& plane)
{
    if (!plane.isValidExtents())
        return rectangle({0.0, 0.0}, 1.0, 1.0);
    const OdGeVector2d size = plane.diagonal();
    double room = std::max(size.x, size.y) * kRoom;
    if (room == 0.0)
        room = 0.5;
    return {plane.minPoint() - OdGeVector2d(room, room), plane.maxPoint() + OdGeVector2d(room, room)};
}

bool isSize(double size)
{
    return std::isfinite(size) && size > 0.0;
}

View activeViewOf(OdDbDatabase& database, const OdDbLayout& layout)
{
    View view;
    if (!isModel(layout))
    {
        const OdDbViewportPtr sheet = OdDbViewport::cast(layout.overallVportId().openObject());
        // The sheet is seen straight from above; its viewport lies on it as far as it is seen.
        if (!sheet.isNull() && isSize(sheet->width()) && isSize(sheet->height()))
            view.plane = rectangle({sheet->centerPoint().x, sheet->centerPoint().y}, sheet->width(), sheet->height());
        return view;
    }
    const OdDbViewportTablePtr table = OdDbViewportTable::cast(database.getViewportTableId().openObject());
    const OdDbViewportTableRecordPtr record =
        table.isNull() ? OdDbViewportTableRecordPtr()
                       : OdDbViewportTableRecord::cast(table->getActiveViewportId().openObject());
    if (record.isNull() || !isSize(record->height()) || !isSize(record->width()))
        return view;
    view.from = {record->target(), record->viewDirection(), record->viewTwist()};
    view.plane = rectangle(record->centerPoint(), record->width(), record->height());
    return view;
}

OdGeExtents2d wholeOf(const OdDbLayout& layout, const OdGeExtents2d& drawn)
{
    if (isModel(layout))
        return withRoom(drawn);
    OdGeExtents2d sheet = sheetOf(layout);
    if (!sheet.isValidExtents())
        return withRoom(drawn);
    sheet.addExt(drawn);
    return sheet;
}

void widen(OdGeExtents2d& plane, double proportions)
{
    const OdGeVector2d size = plane.diagonal();
    const bool isTooNarrow = size.x < size.y * proportions;
    plane = isTooNarrow ? rectangle(plane.center(), size.y * proportions, size.y)
                        : rectangle(plane.center(), size.x, size.x / proportions);
}

} // namespace

OdDbLayoutPtr findLayout(OdDbDatabase& database, const OdString& name)
{
    if (name.isEmpty())
        return OdDbLayout::cast(database.currentLayoutId().safeOpenObject());
    const OdDbDictionaryPtr named = OdDbDictionary::cast(database.getNamedObjectsDictionaryId().safeOpenObject());
    const OdDbDictionaryPtr layouts = OdDbDictionary::cast(named->getAt(L"ACAD_LAYOUT").safeOpenObject());
    OdString names;
    for (OdDbDictionaryIteratorPtr at = layouts->newIterator(); !at->done(); at->next())
    {
        OdDbLayoutPtr layout = OdDbLayout::cast(at->objectId().openObject());
        if (layout.isNull())
            continue;
        if (odEqualsNoCase(at->name(), name))
            return layout;
        names += (names.isEmpty() ? OdString() : OdString(L", ")) + at->name();
    }
    throw OdError(eKeyNotFound, L"The drawing has no layout \"" + name + L"\". It has: " + names);
}

bool isModel(const OdDbLayout& layout)
{
    return layout.getBlockTableRecordId() == layout.database()->getModelSpaceId();
}

double unitsPerMillimetre(const OdDbLayout& layout)
{
    double numerator = 1.0;
    double denominator = 1.0;
    layout.getCustomPrintScale(numerator, denominator);
    const double unit = layout.plotPaperUnits() == OdDbPlotSettings::kInches ? 1 / 25.4 : 1.0;
    const bool isUsable = numerator > 0.0 && denominator > 0.0;
    return isUsable ? unit * denominator / numerator : unit;
}

OdGeExtents2d sheetOf(const OdDbLayout& layout)
{
    double width = 0.0;
    double height = 0.0;
    double left = 0.0;
    double bottom = 0.0;
    double right = 0.0;
    double top = 0.0;
    layout.getPlotPaperSize(width, height);
    layout.getPlotPaperMargins(left, bottom, right, top);
    if (!(width > 0.0) || !(height > 0.0))
        return {};
    const OdDbPlotSettings::PlotRotation rotation = layout.plotRotation();
    if (rotation == OdDbPlotSettings::k90degrees || rotation == OdDbPlotSettings::k270degrees)
    {
        std::swap(width, height);
        std::swap(left, bottom);
    }
    double x = 0.0;
    double y = 0.0;
    layout.getPlotOrigin(x, y);
    const double unit = unitsPerMillimetre(layout);
    const OdGePoint2d corner(-(left + x) * unit, -(bottom + y) * unit);
    return {corner, corner + OdGeVector2d(width * unit, height * unit)};
}

View viewOf(OdDbDatabase& database, const OdDbLayout& layout, const PictureOrder& order)
{
    View view;
    if (order.isActiveView)
        view = activeViewOf(database, layout);
    if (order.window)
    {
        view = View();
        view.plane = *order.window;
    }
    if (!view.plane.isValidExtents())
    {
        SpaceBounds bounds = boundsOf(layout.getBlockTableRecordId());
        view.plane = wholeOf(layout, bounds.box);
        view.recording = std::move(bounds.recording);
    }
    return view;
}

namespace
{

bool hasPaperSize(const OdDbLayout& layout, const PictureOrder& order)
{
    return !isModel(layout) && !order.window && !order.isActiveView;
}

} // namespace

std::optional<PageSize> largestPage(const OdDbLayout& layout, const PictureOrder& order)
{
    if (order.size || hasPaperSize(layout, order))
        return order.size;
    return PageSize{kLongerSide, kLongerSide};
}

PageSize fitPage(View& view, const OdDbLayout& layout, const PictureOrder& order)
{
    const OdGeVector2d seen = view.plane.diagonal();
    const double proportions = std::clamp(seen.y > 0.0 ? seen.x / seen.y : 1.0, 0.01, 100.0);
    PageSize size;
    if (order.size)
        size = *order.size;
    else
    {
        double longer = kLongerSide;
        if (hasPaperSize(layout, order))
            longer = std::max(seen.x, seen.y) / unitsPerMillimetre(layout) * kPixelsPerMillimetre;
        longer = std::clamp(std::isfinite(longer) ? longer : kLongerSide, 100.0, static_cast<double>(kLargestSide));
        const double width = proportions >= 1.0 ? longer : longer * proportions;
        size = {std::max(static_cast<int>(std::lround(width)), 1),
                std::max(static_cast<int>(std::lround(width / proportions)), 1)};
    }
    widen(view.plane, static_cast<double>(size.width) / size.height);
    return size;
}

} // namespace render
