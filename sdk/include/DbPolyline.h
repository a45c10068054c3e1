// Flat polylines.
#pragma once

#include "DbCurve.h"
#include "Ge/GePoint2d.h"

/** An LWPOLYLINE: straight lines and arcs of one plane, joined at their ends. Each vertex holds a point of the plane,
    the bulge of the segment that starts there (the tangent of a quarter of the arc's angle, positive
    counter-clockwise, 0 for a line) and the widths of that segment. */
class OdDbPolyline : public OdDbCurve
{
public:
    ODDB_DECLARE_MEMBERS(OdDbPolyline);

    unsigned int numVerts() const;

    /** Each throws OdError(eInvalidIndex), and changes nothing, for an index that names no vertex. */
    void getPointAt(unsigned int index, OdGePoint2d& point) const;
    /** The point in world coordinates. */
    void getPointAt(unsigned int index, OdGePoint3d& point) const;
    void setPointAt(unsigned int index, const OdGePoint2d& point);
    double getBulgeAt(unsigned int index) const;
    void setBulgeAt(unsigned int index, double bulge);
    void getWidthsAt(unsigned int index, double& startWidth, double& endWidth) const;
    void setWidthsAt(unsigned int index, double startWidth, double endWidth);
    void removeVertexAt(unsigned int index);

    /** Inserts a vertex before the vertex with this index, or after the last one when index is numVerts(). A negative
        width stands for none. Throws OdError(eInvalidIndex), and changes nothing, for a greater index. */
    void addVertexAt(unsigned int index, const OdGePoint2d& point, double bulge = 0.0, double startWidth = -1.0,
                     double endWidth = -1.0);

    /** Keeps the first numVerts vertices (none when reuse is false) and sets bulges and widths of those kept to 0. */
    void reset(bool reuse = false, unsigned int numVerts = 0);

    void setClosed(bool closed);
    /** The width of all segments, 0 when they differ. */
    double getConstantWidth() const;
    /** Throws OdError(eInvalidInput), and changes nothing, for a negative width. */
    void setConstantWidth(double width);
    bool hasBulges() const;
    bool hasWidth() const;
    bool hasPlinegen() const;
    void setPlinegen(bool plinegen);
    double elevation() const;
    void setElevation(double elevation);
    double thickness() const;
    void setThickness(double thickness);
    /** Throws OdError(eInvalidInput) for the zero vector. */
    void setNormal(const OdGeVector3d& normal);

    bool isPlanar() const override;
    bool isClosed() const override;
    OdResult getStartPoint(OdGePoint3d& point) const override;
    OdResult getEndPoint(OdGePoint3d& point) const override;

protected:
    bool subWorldDraw(OdGiWorldDraw* worldDraw) const override;
};

using OdDbPolylinePtr = OdSmartPtr<OdDbPolyline>;
