// Free-form curves.
#pragma once

#include "DbCurve.h"
#include "OdArray.h"

/** A SPLINE: a rational B-spline curve given by degree, knots, control points and weights. A spline that holds only
    the points it passes through is drawn as the lines between them. */
class OdDbSpline : public OdDbCurve
{
public:
    ODDB_DECLARE_MEMBERS(OdDbSpline);

    int degree() const;
    int numControlPoints() const;
    int numFitPoints() const;
    /** Returns eInvalidIndex, and leaves point as it was, for an index out of range. */
    OdResult getControlPointAt(int index, OdGePoint3d& point) const;
    OdResult getFitPointAt(int index, OdGePoint3d& point) const;

    /** Sets the curve. weights is empty for a curve that is not rational. Throws OdError(eInvalidInput), and changes
        nothing, unless 1 <= degree < number of control points, knots do not fall and number control points +
        degree + 1, and weights are positive and number as the control points. */
    void setNurbsData(int degree, const OdArray<OdGePoint3d>& controlPoints, const OdArray<double>& knots,
                      const OdArray<double>& weights, bool closed = false);

    bool isClosed() const override;
    OdResult getStartPoint(OdGePoint3d& point) const override;
    OdResult getEndPoint(OdGePoint3d& point) const override;

protected:
    bool subWorldDraw(OdGiWorldDraw* worldDraw) const override;
};

using OdDbSplinePtr = OdSmartPtr<OdDbSpline>;
