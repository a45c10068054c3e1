// Leaders: lines with an arrow that lead to a note.
#pragma once

#include "DbCurve.h"

/** A LEADER: a line through its vertices, from the arrow to the note. */
class OdDbLeader : public OdDbCurve
{
public:
    ODDB_DECLARE_MEMBERS(OdDbLeader);

    int numVertices() const;
    /** Throws OdError(eInvalidIndex) for an index that names no vertex. */
    OdGePoint3d vertexAt(int index) const;
    /** Throws OdError(eInvalidIndex), and changes nothing, for an index that names no vertex. */
    void setVertexAt(int index, const OdGePoint3d& point);
    void appendVertex(const OdGePoint3d& point);
    bool hasArrowHead() const;
    bool isSplined() const;
    /** The text, tolerance or block reference that the leader leads to, null when there is none. */
    OdDbObjectId annotationObjId() const;
    OdDbObjectId dimensionStyle() const;

    bool isClosed() const override;
    OdResult getStartPoint(OdGePoint3d& point) const override;
    OdResult getEndPoint(OdGePoint3d& point) const override;

protected:
    bool subWorldDraw(OdGiWorldDraw* worldDraw) const override;
};

using OdDbLeaderPtr = OdSmartPtr<OdDbLeader>;
