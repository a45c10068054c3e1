// What the entities of a space have told of themselves, kept to be told once more.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "Gi/GiGeometry.h"
#include "Gi/GiPolyline.h"
#include "Gi/GiSubEntityTraitsData.h"
#include "Gi/GiTextStyle.h"

class OdDbStub;

namespace render
{

/// A row of parts in the order in which entities were asked. Neighbours with the same looks are one part. It takes
/// some dozens of bytes for a line, and no more than kMostBytes and what the last entity tells, besides 16 bytes for
/// each entity that has to be asked again.
class Recording
{
    struct Shape;

public:
    static constexpr std::size_t kMostBytes = 96u << 20;

    Recording();

    struct Part
    {
        OdDbStub* asked = nullptr; ///< the entity that has to be asked again; null for shapes
        std::uint32_t looks = 0;   ///< those that the shapes begin with, by looksAt
        std::uint32_t shapes = 0;
    };

    // ---- Keeping: for each entity, beginEntity, shapes, and keepEntity or askEntity

    /// What comes next is of one entity, with looks of its own.
    void beginEntity(const OdGiSubEntityTraitsData& looks);
    /// What comes next within the entity has these looks.
    void setLooks(const OdGiSubEntityTraitsData& looks);
    void addPolyline(OdInt32 numPoints, const OdGePoint3d* points, const OdGeVector3d* normal);
    void addPolygon(OdInt32 numPoints, const OdGePoint3d* points);
    void addArc(const OdGePoint3d& center, double radius, const OdGeVector3d& normal, const OdGeVector3d& startVector,
                double sweepAngle, OdGiArcType arcType);
    void addEllipse(const OdGePoint3d& center, const OdGeVector3d& majorAxis, const OdGeVector3d& minorAxis,
                    double startAngle, double endAngle);
    void addFlatPolyline(const OdGiPolyline& polyline);
    void addText(const OdGePoint3d& position, const OdGeVector3d& normal, const OdGeVector3d& direction,
                 const OdChar* message, OdInt32 length, bool raw, const OdGiTextStyle* textStyle);
    /// The entity has told everything.
    void keepEntity();
    /// Forgets the shapes since beginEntity, if that was called: the entity is asked instead.
    void askEntity(OdDbStub* entity);

    /// True when nothing more is kept, so that all entities that follow have to be asked.
    bool isFull() const { return m_isFull; }

    // ---- Telling

    const std::vector<Part>& parts() const { return m_parts; }
    const OdGiSubEntityTraitsData& looksAt(std::uint32_t looks) const { return m_looks[looks]; }

    /// Tells the shapes of the parts one after the other.
    class Teller
    {
    public:
        explicit Teller(const Recording& recording) : m_recording(recording) {}
        /// Tells the shapes of the next part that has some.
        void tell(const Part& part, OdGiGeometry& geometry, OdGiSubEntityTraitsToData& traits);

    private:
        void tellFlatPolyline(const Shape& shape, OdGiGeometry& geometry);

        const Recording& m_recording;
        std::size_t m_shape = 0;
        std::size_t m_point = 0;
        std::size_t m_vertex = 0;
        std::size_t m_character = 0;
        std::uint32_t m_frame = 0;
        OdGiPolyline m_polyline; // reused
    };

private:
    enum class Kind : std::uint8_t
    {
        kLooks,            ///< detail: which looks
        kFrame,            ///< detail: which frame
        kPolyline,         ///< count points
        kExtrudedPolyline, ///< count points; the frame's normal
        kPolygon,          ///< count points
        kArc,              ///< centre, (radius, sweep, 0); detail: the type; the frame's normal and start vector
        kEllipse,          ///< centre, both axes, (start, end, 0)
        kFlatPolyline,     ///< count vertices; detail: flags; the frame's plane
        kText,             ///< position; count characters; detail: the style; the frame's normal and direction
        kRawText           ///< the same
    };

    /// What hardly ever changes from shape to shape: the plane that it lies in.
    struct Frame
    {
        OdGePoint3d origin;
        OdGeVector3d x; ///< also the start vector of an arc, the direction of a text
        OdGeVector3d y;
        OdGeVector3d normal;
    };

    enum FlatPolylineFlag : std::uint32_t
    {
        kClosed = 1,
        kPlinegen = 2
    };

    static constexpr std::uint32_t kNoStyle = 0xFFFFFFFF;

    struct Shape
    {
        Kind kind;
        std::uint32_t count;
        std::uint32_t detail;
    };

    /// How much there is of each.
    struct Sizes
    {
        std::size_t shapes = 0;
        std::size_t points = 0;
        std::size_t vertices = 0;
        std::size_t characters = 0;
    };

    void add(Kind kind, std::size_t count, std::uint32_t detail);
    const Frame& frame() const { return m_frames[m_lastFrame]; }
    void setFrame(const Frame& frame);
    void setFrame(const OdGeVector3d& normal, const OdGeVector3d& x);
    void addPoints(std::initializer_list<OdGePoint3d> points) { m_points.insert(m_points.end(), points); }
    std::uint32_t numberOf(const OdGiSubEntityTraitsData& looks);
    std::uint32_t numberOf(const OdGiTextStyle& style);
    Sizes sizes() const { return {m_shapes.size(), m_points.size(), m_vertices.size(), m_characters.size()}; }
    std::size_t bytes() const;

    std::vector<Part> m_parts;
    std::vector<Shape> m_shapes;
    std::vector<OdGePoint3d> m_points; ///< and vectors
    std::vector<OdGiPolyline::Vertex> m_vertices;
    std::wstring m_characters;
    std::vector<Frame> m_frames{1};
    std::vector<OdGiSubEntityTraitsData> m_looks;
    std::vector<OdGiTextStyle> m_styles;
    // While an entity is kept:
    Sizes m_begin;
    std::uint32_t m_firstLooks = 0;
    std::uint32_t m_lastLooks = 0; ///< those in force where the last shape is
    std::uint32_t m_lastFrame = 0;
    std::uint32_t m_frameAtBegin = 0;
    bool m_isBegun = false;
    bool m_goesOn = false; ///< it belongs to the last part
    bool m_isFull = false;
};

} // namespace render
