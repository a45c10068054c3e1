// Flat polylines that keep each vertex as an entity of its own.
#pragma once

#include <memory>

#include "DbComplexEntity.h"
#include "DbVertex.h"

/** A POLYLINE of one plane, as old drawings hold them and as curve fitting makes them. */
class OdDb2dPolyline : public OdDbCurve
{
public:
    ODDB_DECLARE_MEMBERS(OdDb2dPolyline);
    ~OdDb2dPolyline() override;

    OdDb::Poly2dType polyType() const;
    void makeClosed();
    void makeOpen();
    double defaultStartWidth() const;
    double defaultEndWidth() const;
    double elevation() const;
    void setElevation(double elevation);
    double thickness() const;
    void setThickness(double thickness);
    void setNormal(const OdGeVector3d& normal);

    /** Adds a vertex after the last one. Returns its id. Throws OdError, and changes nothing: eNotInDatabase when the
        polyline is in no database, eAlreadyInDb when the vertex is in one. */
    OdDbObjectId appendVertex(OdDb2dVertex* vertex);
    /** Goes over the vertices that are not erased. */
    OdDbObjectIteratorPtr vertexIterator() const;

    bool isPlanar() const override;
    bool isClosed() const override;
    OdResult getStartPoint(OdGePoint3d& point) const override;
    OdResult getEndPoint(OdGePoint3d& point) const override;
    oddb::SubentityList* subentities() const override;

protected:
    OdDb2dPolyline();
    bool subWorldDraw(OdGiWorldDraw* worldDraw) const override;

private:
    std::unique_ptr<oddb::SubentityList> m_vertices;
};

using OdDb2dPolylinePtr = OdSmartPtr<OdDb2dPolyline>;
