// Hands flat polylines to the receiver of shapes.
#include "entities/Drawing.h"

namespace drawing
{

void drawBulgePolyline(OdGiWorldDraw& worldDraw, std::vector<BulgeVertex> vertices, bool closed,
                       const ocs::Frame& frame, double elevation, bool plinegen)
{
    OdGiPolyline polyline;
    polyline.vertices = std::move(vertices);
    polyline.isClosed = closed;
    polyline.hasPlinegen = plinegen;
    polyline.xAxis = frame.x;
    polyline.yAxis = frame.y;
    polyline.normal = frame.z;
    polyline.origin = frame.toWorld(OdGePoint3d(0.0, 0.0, elevation));
    worldDraw.geometry().pline(polyline);
}

} // namespace drawing
