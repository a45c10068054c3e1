// Implements the placing of a line of text.
#include "entities/TextLine.h"

#include "Gi/GiWorldDraw.h"
#include "entities/Drawing.h"
#include "gi/fonts/Shaper.h"

namespace textline
{

namespace
{

double widthOf(const Line& line)
{
    return fonts::shape(line.style, line.characters.view(), false).width;
}

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
        return -fonts::Font::of(line.style).descent();
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
void placeBetweenPoints(Line& line)
{
    const double dx = line.alignment.x - line.position.x;
    const double dy = line.alignment.y - line.position.y;
    const double stretch = std::hypot(dx, dy) / widthOf(line);
    if (!(stretch > 0.0) || !std::isfinite(stretch))
        return;
    line.rotation = std::atan2(dy, dx);
    if (line.horizontal == OdDb::kTextAlign)
        line.style.setTextSize(line.style.textSize() * stretch);
    else
        line.style.setXScale(line.style.xScale() * stretch);
}

void placeAtPoint(Line& line)
{
    if (line.horizontal == OdDb::kTextLeft && line.vertical == OdDb::kTextBase)
        return;
    const double part = horizontalPart(line.horizontal);
    const double left = part == 0.0 ? 0.0 : (line.backward ? -1.0 : 1.0) * part * widthOf(line);
    const double down = (line.upsideDown ? -1.0 : 1.0) * verticalPart(line) * line.style.textSize();
    const double c = std::cos(line.rotation);
    const double s = std::sin(line.rotation);
    line.position =
        OdGePoint3d(line.alignment.x - left * c + down * s, line.alignment.y - left * s - down * c, line.alignment.z);
}

} // namespace

void draw(OdGiWorldDraw& worldDraw, Line line)
{
    // What follows is left aligned on its base line.
    isBetweenTwoPoints(line) ? placeBetweenPoints(line) : placeAtPoint(line);
    // Characters that run backward or stand upside down are seen from behind, turned once more where both hold.
    const OdGeVector3d direction = line.frame.direction(line.rotation) * (line.backward ? -1.0 : 1.0);
    const OdGeVector3d normal = line.frame.z * (line.backward != line.upsideDown ? -1.0 : 1.0);
    drawing::setThickness(worldDraw, line.thickness);
    worldDraw.geometry().text(line.frame.toWorld(line.position), normal, direction, line.characters.c_str(),
                              line.characters.getLength(), false, &line.style);
}

} // namespace textline
