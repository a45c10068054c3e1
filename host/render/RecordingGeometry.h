// Stands between the entities of a space and the receiver of their shapes, and keeps what they tell.
#pragma once

#include "Gi/GiBaseVectorizer.h"
#include "render/Recording.h"

namespace render
{

/// Hands everything on. An entity is kept when all it tells are shapes without others within, when it says them
/// whatever the drawing is for and however exact it has to be, and when it tells something; the others have to be asked
/// again.
class RecordingGeometry : public OdGiGeometry
{
public:
    /// The receiver draws by itself what is drawn through this one.
    RecordingGeometry(OdGiGeometry& receiver, OdGiSubEntityTraitsToData& traits, Recording& recording)
        : m_receiver(receiver), m_traits(traits), m_recording(recording)
    {
    }

    /// The entity that is being drawn is shown; its looks are in force.
    void beginShown();
    /// What is being drawn has asked for something that is not the same in every drawing.
    void noteQuestion() { m_isVaried = m_isVaried || !m_isAnswering; }
    /// True while entities of the space are chosen, false within them.
    bool isInSpace() const { return m_depth <= kSpace; }
    /// False when the space cannot be drawn by what was kept.
    bool isComplete() const { return m_isComplete; }

    OdGeMatrix3d getModelToWorldTransform() const override { return m_receiver.getModelToWorldTransform(); }
    void pushModelTransform(const OdGeMatrix3d& xform) override;
    void popModelTransform() override;
    void circle(const OdGePoint3d& center, double radius, const OdGeVector3d& normal) override;
    void circularArc(const OdGePoint3d& center, double radius, const OdGeVector3d& normal,
                     const OdGeVector3d& startVector, double sweepAngle, OdGiArcType arcType) override;
    void ellipArc(const OdGePoint3d& center, const OdGeVector3d& majorAxis, const OdGeVector3d& minorAxis,
                  double startAngle, double endAngle) override;
    void polyline(OdInt32 numPoints, const OdGePoint3d* points, const OdGeVector3d* normal) override;
    void polygon(OdInt32 numPoints, const OdGePoint3d* points) override;
    void shell(OdInt32 numVertices, const OdGePoint3d* vertices, OdInt32 faceListSize,
               const OdInt32* faceList) override;
    void pline(const OdGiPolyline& polyline) override;
    void text(const OdGePoint3d& position, const OdGeVector3d& normal, const OdGeVector3d& direction,
              const OdChar* message, OdInt32 length, bool raw, const OdGiTextStyle* textStyle) override;
    void text(const OdGePoint3d& position, const OdGeVector3d& normal, const OdGeVector3d& direction, double height,
              double width, double oblique, const OdString& message) override;
    void rasterImageDc(const OdGePoint3d& origin, const OdGeVector3d& u, const OdGeVector3d& v,
                       const OdGiRasterImage* image, const OdGePoint2d* uvBoundary, OdUInt32 numBoundPts,
                       bool transparency, double brightness, double contrast, double fade) override;
    void pushClipBoundary(const OdGiClipBoundary& boundary) override;
    void popClipBoundary() override;
    void xline(const OdGePoint3d& first, const OdGePoint3d& second) override;
    void ray(const OdGePoint3d& first, const OdGePoint3d& second) override;
    void draw(const OdGiDrawable* drawable) override;

private:
    enum Depth : int
    {
        kSpace = 1,
        kEntity = 2
    };

    /// Keeps a shape of the entity, if it is still kept.
    template<class Add>
    void keep(Add add);
    /// Notes what is not kept.
    void pass();
    void drawEntity(const OdGiDrawable* drawable);

    OdGiGeometry& m_receiver;
    OdGiSubEntityTraitsToData& m_traits;
    Recording& m_recording;
    int m_depth = 0;
    OdUInt64 m_seenChanges = 0; ///< of the looks, that the recording has
    bool m_isShown = false;     ///< the entity
    bool m_hasTold = false;
    bool m_isVaried = false;    ///< the entity has to be asked again
    bool m_isAnswering = false; ///< questions are the receiver's
    bool m_isComplete = true;
};

} // namespace render
