// Implements nested drawing and the reduction of shapes to simpler ones.
#include "gi/WorldDraw.h"

#include <cmath>

#include "Ge/GePoint2d.h"
#include "Gi/GiRasterImage.h"
#include "Gi/GiTextStyle.h"
#include "gi/Inheritance.h"
#include "gi/PolylineShapes.h"
#include "gi/TextPlane.h"
#include "gi/fonts/Shaper.h"

namespace
{

constexpr double kFullTurn = 6.28318530717958647692;

} // namespace

// ---- Looks ---------------------------------------------------------------------------------------------------------

OdGiBaseVectorizer::OdGiBaseVectorizer(OdGiRegenType regenType) : m_regenType(regenType) {}

OdGiBaseVectorizer::~OdGiBaseVectorizer() = default;

gi::Inheritance& OdGiBaseVectorizer::inheritance() const
{
    if (!m_inheritance)
        m_inheritance = std::make_unique<gi::Inheritance>();
    return *m_inheritance;
}

const OdGiSubEntityTraitsData& OdGiBaseVectorizer::effectiveTraits() const
{
    return inheritance().effective(m_traits);
}

bool OdGiBaseVectorizer::isLayerShown() const
{
    const gi::LayerLooks& layer = inheritance().looksOf(m_traits.layer());
    return !layer.isOff && !layer.isFrozen;
}

bool OdGiBaseVectorizer::isLayerFrozen() const
{
    return inheritance().looksOf(m_traits.layer()).isFrozen;
}

bool OdGiBaseVectorizer::isShown(const OdGiDrawable&, OdUInt32 flags)
{
    return (flags & OdGiDrawable::kDrawableIsInvisible) == 0;
}

// ---- Nested drawing ------------------------------------------------------------------------------------------------

OdGiGeometrySimplifier::OdGiGeometrySimplifier(OdGiBaseVectorizer& vectorizer)
    : m_worldDraw(vectorizer), m_transforms(1, OdGeMatrix3d::kIdentity)
{
}

void OdGiGeometrySimplifier::pushModelTransform(const OdGeMatrix3d& xform)
{
    m_transforms.push_back(m_transforms.back() * xform);
}

void OdGiGeometrySimplifier::popModelTransform()
{
    if (m_transforms.size() > 1)
        m_transforms.pop_back();
}

template<class Begin, class Tell>
void OdGiGeometrySimplifier::drawWithin(Begin begin, Tell tell)
{
    const std::size_t depth = m_transforms.size();
    OdGiSubEntityTraitsToData& traits = m_worldDraw.m_traits;
    const OdGiSubEntityTraitsData outer = traits.values();
    traits.setValues(OdGiSubEntityTraitsData());
    if (begin(traits))
    {
        gi::Inheritance* inheritance = m_worldDraw.wantsTraits() ? &m_worldDraw.inheritance() : nullptr;
        if (inheritance)
            inheritance->enter(traits.values());
        tell();
        if (inheritance)
            inheritance->leave();
    }
    traits.setValues(outer);
    m_transforms.resize(depth, OdGeMatrix3d::kIdentity);
}

void OdGiGeometrySimplifier::draw(const OdGiDrawable* drawable)
{
    drawWithin([&](const OdGiSubEntityTraitsToData&) { return begin(*drawable); },
               [&] { drawable->worldDraw(&m_worldDraw); });
}

void OdGiGeometrySimplifier::drawAs(const OdGiSubEntityTraitsData& looks, const std::function<void()>& tell)
{
    drawWithin(
        [&](OdGiSubEntityTraitsToData& traits)
        {
            traits.setValues(looks);
            return true;
        },
        tell);
}

/// Asks a drawable for its looks, and the client whether it is to be drawn.
bool OdGiGeometrySimplifier::begin(const OdGiDrawable& drawable)
{
    if (!m_worldDraw.wantsTraits())
        return m_worldDraw.isShown(drawable, 0);
    OdGiSubEntityTraitsToData& traits = m_worldDraw.m_traits;
    const OdUInt32 flags = drawable.setAttributes(&traits);
    if (OdDbStub* layer = m_worldDraw.inheritance().layerOf(traits.layer()); layer != traits.layer())
        traits.setLayer(layer);
    return m_worldDraw.isShown(drawable, flags);
}

// ---- Simpler shapes ------------------------------------------------------------------------------------------------

void OdGiGeometrySimplifier::circle(const OdGePoint3d& center, double radius, const OdGeVector3d& normal)
{
    circularArc(center, radius, normal, normal.perpVector().normal(), kFullTurn, kOdGiArcSimple);
}

void OdGiGeometrySimplifier::circularArc(const OdGePoint3d& center, double radius, const OdGeVector3d& normal,
                                         const OdGeVector3d& startVector, double sweepAngle, OdGiArcType)
{
    const OdGeVector3d major = startVector * radius;
    ellipArc(center, major, normal.normal().crossProduct(startVector) * radius, 0.0, sweepAngle);
}

void OdGiGeometrySimplifier::polygon(OdInt32 numPoints, const OdGePoint3d* points)
{
    polyline(numPoints, points);
    if (numPoints > 2)
    {
        const OdGePoint3d closing[2] = {points[numPoints - 1], points[0]};
        polyline(2, closing);
    }
}

void OdGiGeometrySimplifier::shell(OdInt32 numVertices, const OdGePoint3d* vertices, OdInt32 faceListSize,
                                   const OdInt32* faceList)
{
    std::vector<OdGePoint3d> outline;
    for (OdInt32 at = 0; at < faceListSize;)
    {
        const OdInt32 count = std::abs(faceList[at++]);
        outline.clear();
        for (const OdInt32 end = std::min(at + count, faceListSize); at < end; ++at)
        {
            if (faceList[at] >= 0 && faceList[at] < numVertices)
                outline.push_back(vertices[faceList[at]]);
        }
        polygon(static_cast<OdInt32>(outline.size()), outline.data());
    }
}

void OdGiGeometrySimplifier::pline(const OdGiPolyline& polyline)
{
    gi::drawPolyline(*this, m_worldDraw, polyline);
}

void OdGiGeometrySimplifier::text(const OdGePoint3d& position, const OdGeVector3d& normal,
                                  const OdGeVector3d& direction, const OdChar* message, OdInt32 length, bool raw,
                                  const OdGiTextStyle* textStyle)
{
    const OdGiTextStyle usual;
    const OdGiTextInk ink = odgiTextInk(textStyle ? *textStyle : usual, message, length, raw);
    if (!ink.box.isValidExtents())
        return;
    const gi::TextPlane plane(position, normal, direction, ink.slant);
    const OdGePoint2d& low = ink.box.minPoint();
    const OdGePoint2d& high = ink.box.maxPoint();
    const OdGePoint3d corners[4] = {plane.at(low.x, low.y), plane.at(high.x, low.y), plane.at(high.x, high.y),
                                    plane.at(low.x, high.y)};
    polygon(4, corners);
}

void OdGiGeometrySimplifier::text(const OdGePoint3d& position, const OdGeVector3d& normal,
                                  const OdGeVector3d& direction, double height, double width, double oblique,
                                  const OdString& message)
{
    OdGiTextStyle style;
    style.setTextSize(height);
    style.setXScale(width);
    style.setObliquingAngle(oblique);
    text(position, normal, direction, message.c_str(), message.getLength(), true, &style);
}

void OdGiGeometrySimplifier::rasterImageDc(const OdGePoint3d& origin, const OdGeVector3d& u, const OdGeVector3d& v,
                                           const OdGiRasterImage* image, const OdGePoint2d* uvBoundary,
                                           OdUInt32 numBoundPts, bool, double, double, double)
{
    std::vector<OdGePoint3d> outline{origin, origin + u, origin + u + v, origin + v};
    if (uvBoundary && numBoundPts > 2)
    {
        outline.clear();
        for (OdUInt32 i = 0; i < numBoundPts; ++i)
        {
            const double across = uvBoundary[i].x / image->pixelWidth();
            const double down = uvBoundary[i].y / image->pixelHeight();
            outline.push_back(origin + u * across + v * (1.0 - down));
        }
    }
    const OdGiFillType before = m_worldDraw.traits().fillType();
    m_worldDraw.traits().setFillType(kOdGiFillAlways);
    polygon(static_cast<OdInt32>(outline.size()), outline.data());
    m_worldDraw.traits().setFillType(before);
}

void OdGiGeometrySimplifier::xline(const OdGePoint3d&, const OdGePoint3d&) {}

void OdGiGeometrySimplifier::ray(const OdGePoint3d&, const OdGePoint3d&) {}
