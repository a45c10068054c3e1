// What the user sees of the current layout: a view that is kept in the drawing and saved with it.
#pragma once

#include "DbDatabase.h"
#include "Ge/GeExtents3d.h"
#include "Ge/GeMatrix3d.h"
#include "Ge/GePoint2d.h"

namespace hostcommands
{

// The active view of the current layout: the active viewport record of the model, or the viewport of a sheet that
// stands for the sheet itself, which is always seen straight from above. It looks at a plane, in which it shows a
// rectangle around a centre.
class ActiveView
{
public:
    // Throws OdError(eNotApplicable), with a text, for a sheet that was never shown and so has no view.
    explicit ActiveView(OdDbDatabase& database);

    // The box around the rectangle that is shown, in the coordinates of the drawing.
    OdGeExtents3d extents() const;

    // Shows the extents in the middle of the view, whose proportions stay, with a margin on every side. Extents that
    // are a point in the view's plane have no size to go by: the centre goes there, and the size stays. Throws
    // OdError(eInvalidInput) for extents beyond all numbers; nothing is changed then.
    void zoomTo(const OdGeExtents3d& extents);

    // Moves the centre to the point as the view sees it; the size stays. Throws as zoomTo.
    void dollyTo(const OdGePoint3d& point);

private:
    void readModel(const OdDbObject& record);
    void readSheet(const OdDbObject& viewport);
    void show(const OdGePoint2d& center, double height);
    double width() const { return m_height * m_proportion; }

    OdDbObjectId m_id;
    bool m_isModel = false;
    OdGeMatrix3d m_toDrawing; // from the plane
    OdGePoint2d m_center;     // in the plane
    double m_height = 0.0;
    double m_proportion = 1.0; // of width to height
};

} // namespace hostcommands
