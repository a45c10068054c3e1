// Draws leaders: the line, straight or smooth, and the arrow at its first vertex.
#include <cmath>
#include <vector>

#include "DbDatabase.h"
#include "DbDimStyleTableRecord.h"
#include "DbLeader.h"
#include "Gi/GiWorldDraw.h"
#include "entities/BlockContents.h"
#include "entities/DimensionLooks.h"
#include "entities/Drawing.h"
#include "entities/Fields.h"
#include "entities/FitCurve.h"

using namespace entityfields;
using entitytables::kLeader;

namespace
{

constexpr double kArrowWidth = 1.0 / 3.0; ///< of its length

std::vector<OdGePoint3d> verticesOf(const OdDbLeader& leader)
{
    std::vector<OdGePoint3d> vertices;
    vertices.reserve(static_cast<std::size_t>(leader.numVertices()));
    for (int i = 0; i < leader.numVertices(); ++i)
        vertices.push_back(leader.vertexAt(i));
    return vertices;
}

/// The filled triangle that most arrows are.
void drawTriangle(OdGiWorldDraw& worldDraw, const OdGePoint3d& tip, const OdGeVector3d& along,
                  const OdGeVector3d& normal, double size)
{
    const OdGeVector3d across = normal.crossProduct(along) * (size * kArrowWidth / 2.0);
    const OdGePoint3d base = tip + along * size;
    const OdGePoint3d corners[3] = {tip, base + across, base - across};
    worldDraw.subEntityTraits().setFillType(kOdGiFillAlways);
    worldDraw.geometry().polygon(3, corners);
    worldDraw.subEntityTraits().setFillType(kOdGiFillNever);
}

/// An arrow of the drawing's own; its block has the tip at the origin and points to the right at the line's start.
void drawArrowBlock(OdGiWorldDraw& worldDraw, OdDbStub* block, const OdGePoint3d& tip, const OdGeVector3d& along,
                    const OdGeVector3d& normal, double size)
{
    const OdGeVector3d x = along * -size;
    OdGeMatrix3d place;
    place.setCoordSystem(tip, x, normal.crossProduct(along) * -size, normal * size);
    worldDraw.geometry().pushModelTransform(place);
    drawing::drawBlock(worldDraw, block);
    worldDraw.geometry().popModelTransform();
}

} // namespace

bool OdDbLeader::subWorldDraw(OdGiWorldDraw* worldDraw) const
{
    const Reader fields = read<kLeader>(*this);
    const dimensionlooks::Looks looks = dimensionlooks::looksOf(*this, fields.stub(3));
    std::vector<OdGePoint3d> vertices = verticesOf(*this);
    if (looks.lineColor != 0)
        worldDraw->subEntityTraits().setColor(looks.lineColor);
    if (vertices.size() >= 2 && hasArrowHead() && looks.arrowSize > 0.0)
    {
        const OdGePoint3d tip = vertices[0];
        const OdGeVector3d first = vertices[1] - tip;
        const double length = first.length();
        // There is no arrow where the line is too short for it.
        if (length >= 2.0 * looks.arrowSize)
        {
            const OdGeVector3d along = first / length;
            if (looks.leaderArrow)
                drawArrowBlock(*worldDraw, looks.leaderArrow, tip, along, fields.normal(), looks.arrowSize);
            else
                drawTriangle(*worldDraw, tip, along, fields.normal(), looks.arrowSize);
            if (!looks.leaderArrow && !isSplined())
                vertices[0] = tip + along * looks.arrowSize;
        }
    }
    if (isSplined())
        vertices = fitcurve::sampleThrough(vertices);
    worldDraw->geometry().polyline(static_cast<OdInt32>(vertices.size()), vertices.data());
    return true;
}
