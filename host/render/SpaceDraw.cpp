// Implements the drawing of spaces.
#include "render/SpaceDraw.h"

#include <algorithm>
#include <utility>

#include "DbBlockTableRecord.h"
#include "render/OutlineCollector.h"

namespace render
{

namespace
{

constexpr double kDeviation = 0.25; ///< of curves that entities themselves draw as lines, in pixels

bool hasPaperLinetypes(const OdDbDatabase& database)
{
    const OdResBufPtr value = database.getSysVar(L"PSLTSCALE");
    return value.isNull() || value->getInt16() != 0;
}

} // namespace

SpaceGeometry::SpaceGeometry(SpaceDraw& draw, Canvas& canvas, Looks& looks)
    : PictureGeometry(draw, canvas, looks), m_spaceDraw(draw)
{
}

void SpaceGeometry::draw(const OdGiDrawable* drawable)
{
    // The space is being drawn itself, so that what refers to it within it goes no deeper than ever.
    if (const Recording* recording = std::exchange(m_recording, nullptr))
        return tell(*recording);
    if (showsModel(*drawable))
        m_spaceDraw.drawViewport(*OdDbViewport::cast(drawable));
    PictureGeometry::draw(drawable);
}

void SpaceGeometry::tell(const Recording& recording)
{
    Recording::Teller teller(recording);
    for (const Recording::Part& part : recording.parts())
    {
        const OdDbEntityPtr asked =
            part.asked ? OdDbEntity::cast(OdDbObjectId(part.asked).openObject()) : OdDbEntityPtr();
        if (!asked.isNull())
            draw(asked);
        else if (!part.asked)
            drawAs(recording.looksAt(part.looks), [&] { teller.tell(part, *this, worldDraw().traits()); });
    }
    m_hasToldRecording = true;
}

SpaceDraw::SpaceDraw(Canvas& canvas, Looks& looks, OdDbDatabase& database)
    : ShownDraw(kOdGiStandardDisplay, database), m_geometry(*this, canvas, looks), m_canvas(canvas),
      m_database(database)
{
}

void SpaceDraw::look(const PageMap& map, const OdGeExtents2d& page, double unitScale)
{
    m_deviation = kDeviation / std::max(map.along(OdGeVector3d(1.0, 0.0, 0.0)).length(),
                                        map.along(OdGeVector3d(0.0, 1.0, 0.0)).length());
    m_geometry.look(map, page, unitScale);
}

void SpaceDraw::drawSpace(const OdDbObjectId& blockId, const View& view, const OdGeExtents2d& page)
{
    m_sheet = PageMap(toPage(view.plane, page) * toViewPlane(view.from));
    m_sheetScale = page.diagonal().x / view.plane.diagonal().x;
    m_page = page;
    look(m_sheet, page, m_sheetScale);
    const OdDbBlockTableRecordPtr block = OdDbBlockTableRecord::cast(blockId.safeOpenObject());
    m_geometry.setRecording(view.recording ? &*view.recording : nullptr);
    m_geometry.PictureGeometry::draw(block);
}

Path SpaceDraw::outlineOf(const OdDbViewport& viewport) const
{
    const OdDbEntityPtr clip = OdDbEntity::cast(viewport.nonRectClipEntityId().openObject());
    if (!clip.isNull())
    {
        Path outline = collectOutline(*clip, m_sheet);
        if (!outline.empty())
            return outline;
    }
    const OdGePoint3d center = viewport.centerPoint();
    const OdGeVector3d right(viewport.width() / 2, 0.0, 0.0);
    const OdGeVector3d up(0.0, viewport.height() / 2, 0.0);
    Path outline;
    outline.moveTo(m_sheet.at(center - right - up));
    outline.lineTo(m_sheet.at(center + right - up));
    outline.lineTo(m_sheet.at(center + right + up));
    outline.lineTo(m_sheet.at(center - right + up));
    outline.close();
    return outline;
}

void SpaceDraw::drawViewport(const OdDbViewport& viewport)
{
    constexpr int kSheetItself = 1;
    const bool isWindow = viewport.number() != kSheetItself && viewport.isOn() && viewport.viewHeight() > 0.0 &&
                          viewport.width() > 0.0 && viewport.height() > 0.0;
    if (m_isInViewport || !isWindow)
        return;
    const OdGePoint3d center = viewport.centerPoint();
    const double scale = viewport.height() / viewport.viewHeight();
    OdGeMatrix3d toSheet;
    toSheet.setCoordSystem(
        OdGePoint3d(center.x - viewport.viewCenter().x * scale, center.y - viewport.viewCenter().y * scale, 0.0),
        OdGeVector3d(scale, 0.0, 0.0), OdGeVector3d(0.0, scale, 0.0), OdGeVector3d(0.0, 0.0, scale));
    const ViewPoint from{viewport.viewTarget(), viewport.viewDirection(), viewport.twistAngle()};
    const Path outline = outlineOf(viewport);
    OdGeExtents2d area = outline.bounds();
    OdDbObjectIdArray frozen;
    viewport.getFrozenLayerList(frozen);
    m_frozenLayers.assign(frozen.begin(), frozen.end());
    m_isInViewport = true;
    m_canvas.pushClip(outline);
    look(PageMap(m_sheet.matrix() * toSheet * toViewPlane(from)), area,
         hasPaperLinetypes(m_database) ? m_sheetScale : m_sheetScale * scale);
    const OdDbBlockTableRecordPtr model = OdDbBlockTableRecord::cast(m_database.getModelSpaceId().safeOpenObject());
    m_geometry.PictureGeometry::draw(model);
    m_canvas.popClip();
    m_isInViewport = false;
    m_frozenLayers.clear();
    look(m_sheet, m_page, m_sheetScale);
}

bool SpaceDraw::isShown(const OdGiDrawable& drawable, OdUInt32 flags)
{
    return ShownDraw::isShown(drawable, flags) &&
           std::find(m_frozenLayers.begin(), m_frozenLayers.end(), traits().layer()) == m_frozenLayers.end();
}

} // namespace render
