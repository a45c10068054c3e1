// Clipping what a block reference shows.
#pragma once

#include "DbObject.h"
#include "Ge/GeMatrix3d.h"
#include "Ge/GePoint2d.h"

class OdDbBlockReference;

/** The base of what restricts block references. */
class OdDbFilter : public OdDbObject
{
public:
    ODDB_DECLARE_MEMBERS(OdDbFilter);

    bool keepsGroups() const override { return true; }
};

using OdDbFilterPtr = OdSmartPtr<OdDbFilter>;

/** A SPATIAL_FILTER shows of a block reference what lies within an outline, and in front of and behind which planes. */
class OdDbSpatialFilter : public OdDbFilter
{
public:
    ODDB_DECLARE_MEMBERS(OdDbSpatialFilter);

    /** A front or back distance that clips nothing. */
    static constexpr double kInfiniteClip = 1e300;

    /** The outline in the plane of the normal at the elevation: two opposite corners of a rectangle, or three or more
        points of a polygon, in the coordinates that hold the reference. */
    void getDefinition(OdGePoint2dArray& points, OdGeVector3d& normal, double& elevation, double& frontClip,
                       double& backClip, bool& enabled) const;
    /** Throws OdError(eInvalidInput), and changes nothing, for fewer than two points or the zero vector. */
    void setDefinition(const OdGePoint2dArray& points, const OdGeVector3d& normal, double elevation,
                       double frontClip = kInfiniteClip, double backClip = kInfiniteClip, bool enabled = true);

    /** The map from the coordinates that hold the reference to those of its block, as it was when the filter was given
        to the reference: the outline goes with a reference that is moved. */
    OdGeMatrix3d getOriginalInverseBlockXform() const;
    void setOriginalInverseBlockXform(const OdGeMatrix3d& xform);
};

using OdDbSpatialFilterPtr = OdSmartPtr<OdDbSpatialFilter>;

/** Filters of block references. They lie in the dictionary "ACAD_FILTER" of the reference's extension dictionary. */
namespace OdDbIndexFilterManager
{
/** Gives a filter to a reference, which is open for write and resident, in place of one of the same kind. The filter
    becomes resident and, when it is spatial, remembers the place of the reference. */
void addFilter(OdDbBlockReference* reference, OdDbFilter* filter);

/** The filter of that class, null when the reference has none. */
OdDbFilterPtr getFilter(const OdDbBlockReference* reference, const OdRxClass* filterClass,
                        OdDb::OpenMode openMode = OdDb::kForRead);

/** Erases the filter of that class; nothing happens when there is none. */
void removeFilter(OdDbBlockReference* reference, const OdRxClass* filterClass);
} // namespace OdDbIndexFilterManager
