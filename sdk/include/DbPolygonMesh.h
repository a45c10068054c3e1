// Meshes that are kept as polylines.
#pragma once

#include <memory>

#include "DbComplexEntity.h"
#include "DbVertex.h"

/** A POLYLINE that is a net of M by N points, each joined to its neighbours in both directions. */
class OdDbPolygonMesh : public OdDbEntity
{
public:
    ODDB_DECLARE_MEMBERS(OdDbPolygonMesh);
    ~OdDbPolygonMesh() override;

    OdInt16 mSize() const;
    OdInt16 nSize() const;
    bool isMClosed() const;
    bool isNClosed() const;

    /** Adds a vertex after the last one. Returns its id. Throws OdError, and changes nothing: eNotInDatabase when the
        mesh is in no database, eAlreadyInDb when the vertex is in one. */
    OdDbObjectId appendVertex(OdDbPolygonMeshVertex* vertex);
    /** Goes over the vertices that are not erased. */
    OdDbObjectIteratorPtr vertexIterator() const;
    oddb::SubentityList* subentities() const override;

protected:
    OdDbPolygonMesh();
    bool subWorldDraw(OdGiWorldDraw* worldDraw) const override;

private:
    std::unique_ptr<oddb::SubentityList> m_vertices;
};

using OdDbPolygonMeshPtr = OdSmartPtr<OdDbPolygonMesh>;
