// Implements the placing of a line of text.
#include "entities/TextLine.h"

#include "Gi/GiWorldDraw.h"
#include "entities/Drawing.h"
#include "gi/TextMetrics.h"

namespace textline
{

namespace
{

/// A line ready to be drawn: left aligned on its base line.
struct Placed
{
    OdGePoint3d start;
    double rotation;
    double height;
    double widthFactor;
};

/// How far the base line's start lies before the alignment point, in parts of the line's width.
double horizontalPart(OdDb::TextHorzMode mode)
{
    switch (mode)
    {
    case OdDb::kTextCenter:
    case OdDb::kTextMid:
        return 0.5;
    case OdDb::kTextRight:
        return 1.0;
    default:
        return 0.0;
    }
}

/// How far the base line lies below the alignment point, in text heights.
double verticalPart(const Line& line)
{
    if (line.horizontal == OdDb::kTextMid)
        return 0.5;
    switch (line.vertical)
    {
    case OdDb::kTextBottom:
        return -textmetrics::kDescent;
    case OdDb::kTextVertMid:
        return 0.5;
    case OdDb::kTextTop:
        return 1.0;
    default:
        return 0.0;
    }
}

bool isBetweenTwoPoints(const Line& line)
{
    return line.horizontal == OdDb::kTextAlign || line.horizontal == OdDb::kTextFit;
}

/// The text fills the distance of its two points: by its height when aligned, by its width factor when fitted.
Placed placeBetweenPoints(const Line& line, double naturalWidth)
{
    const double dx = line.alignment.x - line.position.x;
    const double dy = line.alignment.y - line.position.y;
    const double distance = std::hypot(dx, dy);
    Placed placed{line.position, line.rotation, line.height, line.widthFactor};
    if (distance == 0.0 || naturalWidth == 0.0)
        return placed;
    placed.rotation = std::atan2(dy, dx);
    if (line.horizontal == OdDb::kTextAlign)
        placed.height = distance / (naturalWidth * line.widthFactor);
    else
        placed.widthFactor = distance / (naturalWidth * line.height);
    return placed;
}

Placed placeAtPoint(const Line& line, double naturalWidth)
{
    Placed placed{line.position, line.rotation, line.height, line.widthFactor};
    if (line.horizontal == OdDb::kTextLeft && line.vertical == OdDb::kTextBase)
        return placed;
    const double width = naturalWidth * line.height * line.widthFactor;
    const double left = (line.backward ? -1.0 : 1.0) * horizontalPart(line.horizontal) * width;
    const double down = (line.upsideDown ? -1.0 : 1.0) * verticalPart(line) * line.height;
    const double c = std::cos(line.rotation);
    const double s = std::sin(line.rotation);
    placed.start =
        OdGePoint3d(line.alignment.x - left * c + down * s, line.alignment.y - left * s - down * c, line.alignment.z);
    return placed;
}

} // namespace

void draw(OdGiWorldDraw& worldDraw, const Line& line)
{
    const double naturalWidth = textmetrics::measure(line.characters).width;
    const Placed placed =
        isBetweenTwoPoints(line) ? placeBetweenPoints(line, naturalWidth) : placeAtPoint(line, naturalWidth);
    // Characters that run backward or stand upside down are seen from behind, turned once more where both hold.
    const OdGeVector3d direction = line.frame.direction(placed.rotation) * (line.backward ? -1.0 : 1.0);
    const OdGeVector3d normal = line.frame.z * (line.backward != line.upsideDown ? -1.0 : 1.0);
    drawing::setThickness(worldDraw, line.thickness);
    worldDraw.geometry().text(line.frame.toWorld(placed.start), normal, direction, placed.height, placed.widthFactor,
                              line.oblique, OdString(line.characters.c_str()));
}

} // namespace textline
