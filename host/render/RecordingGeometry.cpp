// Implements the keeping of what is handed on.
#include "render/RecordingGeometry.h"

#include "render/ShownDraw.h"

namespace render
{

void RecordingGeometry::beginShown()
{
    if (m_depth != kEntity || m_isVaried)
        return;
    m_recording.beginEntity(m_traits.values());
    m_seenChanges = m_traits.changes();
    m_isShown = true;
}

template<class Add>
void RecordingGeometry::keep(Add add)
{
    m_isComplete = m_isComplete && m_depth > kSpace;
    if (m_depth != kEntity || m_isVaried || !m_isShown)
        return;
    m_hasTold = true;
    if (m_seenChanges != m_traits.changes())
    {
        m_recording.setLooks(m_traits.values());
        m_seenChanges = m_traits.changes();
    }
    add(m_recording);
}

void RecordingGeometry::pass()
{
    m_isVaried = true;
    m_isComplete = m_isComplete && m_depth > kSpace;
}

void RecordingGeometry::draw(const OdGiDrawable* drawable)
{
    if (m_depth >= kEntity)
        m_isVaried = true;
    ++m_depth;
    if (m_depth == kEntity)
        drawEntity(drawable);
    else
        m_receiver.draw(drawable);
    --m_depth;
}

void RecordingGeometry::drawEntity(const OdGiDrawable* drawable)
{
    m_isShown = false;
    m_hasTold = false;
    m_isVaried = m_recording.isFull() || showsModel(*drawable);
    m_receiver.draw(drawable);
    if (m_hasTold && !m_isVaried)
        m_recording.keepEntity();
    else if (OdDbStub* entity = drawable->id())
        m_recording.askEntity(entity);
    else
        m_isComplete = false;
}

// ---- What is kept --------------------------------------------------------------------------------------------------

void RecordingGeometry::circle(const OdGePoint3d& center, double radius, const OdGeVector3d& normal)
{
    circularArc(center, radius, normal, normal.perpVector().normal(), Oda2PI, kOdGiArcSimple);
}

void RecordingGeometry::circularArc(const OdGePoint3d& center, double radius, const OdGeVector3d& normal,
                                    const OdGeVector3d& startVector, double sweepAngle, OdGiArcType arcType)
{
    keep([&](Recording& to) { to.addArc(center, radius, normal, startVector, sweepAngle, arcType); });
    m_receiver.circularArc(center, radius, normal, startVector, sweepAngle, arcType);
}

void RecordingGeometry::ellipArc(const OdGePoint3d& center, const OdGeVector3d& majorAxis,
                                 const OdGeVector3d& minorAxis, double startAngle, double endAngle)
{
    keep([&](Recording& to) { to.addEllipse(center, majorAxis, minorAxis, startAngle, endAngle); });
    m_receiver.ellipArc(center, majorAxis, minorAxis, startAngle, endAngle);
}

void RecordingGeometry::polyline(OdInt32 numPoints, const OdGePoint3d* points, const OdGeVector3d* normal)
{
    keep([&](Recording& to) { to.addPolyline(numPoints, points, normal); });
    m_receiver.polyline(numPoints, points, normal);
}

void RecordingGeometry::polygon(OdInt32 numPoints, const OdGePoint3d* points)
{
    keep([&](Recording& to) { to.addPolygon(numPoints, points); });
    m_receiver.polygon(numPoints, points);
}

void RecordingGeometry::pline(const OdGiPolyline& polyline)
{
    keep([&](Recording& to) { to.addFlatPolyline(polyline); });
    m_isAnswering = true;
    m_receiver.pline(polyline);
    m_isAnswering = false;
}

void RecordingGeometry::text(const OdGePoint3d& position, const OdGeVector3d& normal, const OdGeVector3d& direction,
                             const OdChar* message, OdInt32 length, bool raw, const OdGiTextStyle* textStyle)
{
    keep([&](Recording& to) { to.addText(position, normal, direction, message, length, raw, textStyle); });
    m_receiver.text(position, normal, direction, message, length, raw, textStyle);
}

// ---- What is not kept ----------------------------------------------------------------------------------------------

void RecordingGeometry::text(const OdGePoint3d& position, const OdGeVector3d& normal, const OdGeVector3d& direction,
                             double height, double width, double oblique, const OdString& message)
{
    pass();
    m_receiver.text(position, normal, direction, height, width, oblique, message);
}

void RecordingGeometry::shell(OdInt32 numVertices, const OdGePoint3d* vertices, OdInt32 faceListSize,
                              const OdInt32* faceList)
{
    pass();
    m_receiver.shell(numVertices, vertices, faceListSize, faceList);
}

void RecordingGeometry::rasterImageDc(const OdGePoint3d& origin, const OdGeVector3d& u, const OdGeVector3d& v,
                                      const OdGiRasterImage* image, const OdGePoint2d* uvBoundary, OdUInt32 numBoundPts,
                                      bool transparency, double brightness, double contrast, double fade)
{
    pass();
    m_receiver.rasterImageDc(origin, u, v, image, uvBoundary, numBoundPts, transparency, brightness, contrast, fade);
}

void RecordingGeometry::xline(const OdGePoint3d& first, const OdGePoint3d& second)
{
    pass();
    m_receiver.xline(first, second);
}

void RecordingGeometry::ray(const OdGePoint3d& first, const OdGePoint3d& second)
{
    pass();
    m_receiver.ray(first, second);
}

void RecordingGeometry::pushModelTransform(const OdGeMatrix3d& xform)
{
    pass();
    m_receiver.pushModelTransform(xform);
}

void RecordingGeometry::popModelTransform()
{
    m_receiver.popModelTransform();
}

void RecordingGeometry::pushClipBoundary(const OdGiClipBoundary& boundary)
{
    pass();
    m_receiver.pushClipBoundary(boundary);
}

void RecordingGeometry::popClipBoundary()
{
    m_receiver.popClipBoundary();
}

} // namespace render
