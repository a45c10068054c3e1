// The vertices of polylines and meshes that keep each vertex as an entity of its own.
#pragma once

#include "DbEntity.h"

/** A VERTEX, the base of all kinds. */
class OdDbVertex : public OdDbEntity
{
public:
    ODDB_DECLARE_MEMBERS(OdDbVertex);
};

/** A vertex of a flat polyline; its position is in the plane's coordinates, as bulge and widths are those of
    OdDbPolyline. */
class OdDb2dVertex : public OdDbVertex
{
public:
    ODDB_DECLARE_MEMBERS(OdDb2dVertex);

    OdGePoint3d position() const;
    void setPosition(const OdGePoint3d& position);
    double bulge() const;
    void setBulge(double bulge);
    double startWidth() const;
    void setStartWidth(double width);
    double endWidth() const;
    void setEndWidth(double width);
    OdDb::Vertex2dType vertexType() const;
};

/** A vertex of a polyline in space. */
class OdDb3dPolylineVertex : public OdDbVertex
{
public:
    ODDB_DECLARE_MEMBERS(OdDb3dPolylineVertex);

    OdGePoint3d position() const;
    void setPosition(const OdGePoint3d& position);
    OdDb::Vertex3dType vertexType() const;
};

/** A vertex of a mesh of M by N points. */
class OdDbPolygonMeshVertex : public OdDbVertex
{
public:
    ODDB_DECLARE_MEMBERS(OdDbPolygonMeshVertex);

    OdGePoint3d position() const;
    void setPosition(const OdGePoint3d& position);
    OdDb::Vertex3dType vertexType() const;
};

/** A point of a mesh of faces. */
class OdDbPolyFaceMeshVertex : public OdDbVertex
{
public:
    ODDB_DECLARE_MEMBERS(OdDbPolyFaceMeshVertex);

    OdGePoint3d position() const;
    void setPosition(const OdGePoint3d& position);
};

/** A face of a mesh of faces: up to four numbers of points of the mesh, the first point being 1. */
class OdDbFaceRecord : public OdDbVertex
{
public:
    ODDB_DECLARE_MEMBERS(OdDbFaceRecord);

    /** The number of the point at a corner from 0 to 3, negative when the edge from there is invisible, 0 when the face
        has no such corner. Throws OdError(eInvalidIndex) for another corner. */
    OdInt16 getVertexAt(int corner) const;
    void setVertexAt(int corner, OdInt16 vertex);
};

using OdDbVertexPtr = OdSmartPtr<OdDbVertex>;
using OdDb2dVertexPtr = OdSmartPtr<OdDb2dVertex>;
using OdDb3dPolylineVertexPtr = OdSmartPtr<OdDb3dPolylineVertex>;
using OdDbPolygonMeshVertexPtr = OdSmartPtr<OdDbPolygonMeshVertex>;
using OdDbPolyFaceMeshVertexPtr = OdSmartPtr<OdDbPolyFaceMeshVertex>;
using OdDbFaceRecordPtr = OdSmartPtr<OdDbFaceRecord>;
