// Meshes of faces that are kept as polylines.
#pragma once

#include <memory>

#include "DbComplexEntity.h"
#include "DbVertex.h"

/** A POLYLINE that is a list of points and a list of faces with up to four corners among them. */
class OdDbPolyFaceMesh : public OdDbEntity
{
public:
    ODDB_DECLARE_MEMBERS(OdDbPolyFaceMesh);
    ~OdDbPolyFaceMesh() override;

    OdInt16 numVertices() const;
    OdInt16 numFaces() const;

    /** Adds a point or a face after the last one. Return its id. Throw OdError, and change nothing: eNotInDatabase when
        the mesh is in no database, eAlreadyInDb when the vertex is in one. */
    OdDbObjectId appendVertex(OdDbPolyFaceMeshVertex* vertex);
    OdDbObjectId appendFaceRecord(OdDbFaceRecord* face);
    /** Goes over points and faces that are not erased. */
    OdDbObjectIteratorPtr vertexIterator() const;
    oddb::SubentityList* subentities() const override;

protected:
    OdDbPolyFaceMesh();
    bool subWorldDraw(OdGiWorldDraw* worldDraw) const override;

private:
    std::unique_ptr<oddb::SubentityList> m_vertices;
};

using OdDbPolyFaceMeshPtr = OdSmartPtr<OdDbPolyFaceMesh>;
