// The shapes that a drawable is described with.
#pragma once

#include "Ge/GeMatrix3d.h"
#include "Ge/GePoint3d.h"
#include "Ge/GeVector3d.h"
#include "OdString.h"
#include "RxObject.h"

class OdGePoint2d;
class OdGiDrawable;
class OdGiRasterImage;
class OdGiTextStyle;
struct OdGiClipBoundary;
struct OdGiPolyline;

enum OdGiArcType : int
{
    kOdGiArcSimple = 0, // the curve alone
    kOdGiArcSector = 1, // with the lines to the centre
    kOdGiArcChord = 2   // with the line between its ends
};

// The receiver of shapes. Coordinates are those of the innermost pushed model transform; the client maps them to the
// world. Arrays of points are read during the call only. A null normal pointer means that none is given. Closed shapes
// are filled when the fill type says so; a fill whose colour is none hides what was drawn before with the background.
// Operations that are not pure do nothing unless the client has them.
class OdGiGeometry : public OdRxObject
{
public:
    ODRX_DECLARE_MEMBERS(OdGiGeometry);

    // The transform from the coordinates in use to world coordinates.
    virtual OdGeMatrix3d getModelToWorldTransform() const = 0;

    // Coordinates that follow are mapped by xform first, then by what was in force. Every push has its pop.
    virtual void pushModelTransform(const OdGeMatrix3d& xform) = 0;
    virtual void popModelTransform() = 0;

    virtual void circle(const OdGePoint3d& center, double radius, const OdGeVector3d& normal) = 0;

    // An arc that begins at center + radius * startVector and turns counter-clockwise about normal by sweepAngle
    // radians; startVector is a unit vector.
    virtual void circularArc(const OdGePoint3d& center, double radius, const OdGeVector3d& normal,
                             const OdGeVector3d& startVector, double sweepAngle,
                             OdGiArcType arcType = kOdGiArcSimple) = 0;

    // center + cos(t) majorAxis + sin(t) minorAxis for t from startAngle to endAngle.
    virtual void ellipArc(const OdGePoint3d& center, const OdGeVector3d& majorAxis, const OdGeVector3d& minorAxis,
                          double startAngle, double endAngle) = 0;

    // numPoints points joined by straight lines; one point is a dot.
    virtual void polyline(OdInt32 numPoints, const OdGePoint3d* points, const OdGeVector3d* normal = nullptr) = 0;

    // A closed area with straight edges.
    virtual void polygon(OdInt32 numPoints, const OdGePoint3d* points) = 0;

    // Areas with holes. faceList holds, for each face, the number of its outline's vertices and then their places among
    // vertices; a negative number begins a further outline of the same face. What lies within an odd number of a
    // face's outlines belongs to it.
    virtual void shell(OdInt32 /*numVertices*/, const OdGePoint3d* /*vertices*/, OdInt32 /*faceListSize*/,
                       const OdInt32* /*faceList*/)
    {
    }

    // A flat polyline. Segments with a width are filled and mitred with their neighbours.
    virtual void pline(const OdGiPolyline& /*polyline*/) {}

    // A line of text. position is the start of its base line, direction the unit vector along it, normal the unit
    // vector towards who reads it. With raw false, codes that begin with %% stand for characters, underline and
    // overline. odgiShapeText tells what the line looks like. A null style is a new OdGiTextStyle.
    virtual void text(const OdGePoint3d& position, const OdGeVector3d& normal, const OdGeVector3d& direction,
                      const OdChar* message, OdInt32 length, bool raw, const OdGiTextStyle* textStyle) = 0;

    // The same in the font of drawings: height is that of capital letters, width the factor of character widths,
    // oblique the slant in radians.
    virtual void text(const OdGePoint3d& position, const OdGeVector3d& normal, const OdGeVector3d& direction,
                      double height, double width, double oblique, const OdString& message) = 0;

    // A picture that fills the parallelogram of u and v at its lower left corner, which is not null. What is shown of
    // it is the polygon of uvBoundary, in pixels from its upper left corner; none for all of it. transparency asks for
    // its transparent pixels to be so; brightness, contrast and fade run from 0 to 100, where 50, 50 and 0 leave it as
    // it is.
    virtual void rasterImageDc(const OdGePoint3d& /*origin*/, const OdGeVector3d& /*u*/, const OdGeVector3d& /*v*/,
                               const OdGiRasterImage* /*image*/, const OdGePoint2d* /*uvBoundary*/,
                               OdUInt32 /*numBoundPts*/, bool /*transparency*/, double /*brightness*/,
                               double /*contrast*/, double /*fade*/)
    {
    }

    // Cuts off what lies outside of the outline, until its pop.
    virtual void pushClipBoundary(const OdGiClipBoundary& /*boundary*/) {}
    virtual void popClipBoundary() {}

    // Lines without end on both sides or on one; they take no part in extents.
    virtual void xline(const OdGePoint3d& first, const OdGePoint3d& second) = 0;
    virtual void ray(const OdGePoint3d& first, const OdGePoint3d& second) = 0;

    // Draws another drawable within this one, with its own traits.
    virtual void draw(const OdGiDrawable* drawable) = 0;
};
