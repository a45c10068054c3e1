// Faces in space.
#pragma once

#include "DbEntity.h"

/** A 3DFACE: a triangle or quadrilateral anywhere in space, each of whose edges may be invisible. */
class OdDbFace : public OdDbEntity
{
public:
    ODDB_DECLARE_MEMBERS(OdDbFace);

    /** Corner 0 to 3. Each operation throws OdError(eInvalidIndex), and changes nothing, for another index. */
    void getVertexAt(int index, OdGePoint3d& point) const;
    void setVertexAt(int index, const OdGePoint3d& point);
    bool isEdgeVisibleAt(int index) const;
    void makeEdgeVisibleAt(int index);
    void makeEdgeInvisibleAt(int index);

protected:
    bool subWorldDraw(OdGiWorldDraw* worldDraw) const override;
};

using OdDbFacePtr = OdSmartPtr<OdDbFace>;
