// Draws spaces: the model, and sheets with what is seen through their viewports.
#pragma once

#include "DbDatabase.h"
#include "DbViewport.h"
#include "render/PictureGeometry.h"
#include "render/ShownDraw.h"
#include "render/View.h"

namespace render
{

class SpaceDraw;

/// Draws what a viewport shows where the viewport comes among what is drawn.
class SpaceGeometry : public PictureGeometry
{
public:
    SpaceGeometry(SpaceDraw& draw, Canvas& canvas, Looks& looks);
    void draw(const OdGiDrawable* drawable) override;

    /// The space that is drawn next is told from the recording when its first entity comes.
    void setRecording(const Recording* recording) { m_recording = recording; }
    /// True when all of the space has been drawn.
    bool hasToldRecording() const { return m_hasToldRecording; }

private:
    void tell(const Recording& recording);

    SpaceDraw& m_spaceDraw;
    const Recording* m_recording = nullptr; ///< until it is told
    bool m_hasToldRecording = false;
};

class SpaceDraw : public ShownDraw
{
public:
    SpaceDraw(Canvas& canvas, Looks& looks, OdDbDatabase& database);

    /// Draws all of a space that the view shows, into a rectangle of the page.
    void drawSpace(const OdDbObjectId& blockId, const View& view, const OdGeExtents2d& page);

    /// Draws the model as a viewport of the sheet that is being drawn shows it.
    void drawViewport(const OdDbViewport& viewport);

    OdGiGeometry& geometry() const override { return m_geometry; }
    double deviation() const override { return m_deviation; }
    bool regenAbort() const override { return m_geometry.hasToldRecording(); }

protected:
    bool isShown(const OdGiDrawable& drawable, OdUInt32 flags) override;

private:
    void look(const PageMap& map, const OdGeExtents2d& page, double unitScale);
    Path outlineOf(const OdDbViewport& viewport) const;

    mutable OdStaticRxObject<SpaceGeometry> m_geometry;
    Canvas& m_canvas;
    OdDbDatabase& m_database;
    PageMap m_sheet; ///< how the space is seen
    double m_sheetScale = 1.0;
    OdGeExtents2d m_page;
    std::vector<OdDbStub*> m_frozenLayers; ///< in the viewport that is being drawn
    double m_deviation = 0.0;
    bool m_isInViewport = false;
};

} // namespace render
