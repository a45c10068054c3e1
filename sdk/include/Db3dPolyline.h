// Polylines in space.
#pragma once

#include <memory>

#include "DbComplexEntity.h"
#include "DbVertex.h"

/** A POLYLINE of straight lines between points of the world. */
class OdDb3dPolyline : public OdDbCurve
{
public:
    ODDB_DECLARE_MEMBERS(OdDb3dPolyline);
    ~OdDb3dPolyline() override;

    OdDb::Poly3dType polyType() const;
    void makeClosed();
    void makeOpen();

    /** Adds a vertex after the last one. Returns its id. Throws OdError, and changes nothing: eNotInDatabase when the
        polyline is in no database, eAlreadyInDb when the vertex is in one. */
    OdDbObjectId appendVertex(OdDb3dPolylineVertex* vertex);
    /** Goes over the vertices that are not erased. */
    OdDbObjectIteratorPtr vertexIterator() const;

    bool isClosed() const override;
    OdResult getStartPoint(OdGePoint3d& point) const override;
    OdResult getEndPoint(OdGePoint3d& point) const override;
    oddb::SubentityList* subentities() const override;

protected:
    OdDb3dPolyline();
    bool subWorldDraw(OdGiWorldDraw* worldDraw) const override;

private:
    std::unique_ptr<oddb::SubentityList> m_vertices;
};

using OdDb3dPolylinePtr = OdSmartPtr<OdDb3dPolyline>;
