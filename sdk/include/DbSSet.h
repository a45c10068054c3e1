// Selections of objects.
#pragma once

#include <memory>

#include "DbObjectId.h"
#include "Ge/GePoint3d.h"
#include "SSet.h"

class OdDbDatabase;

/** An OdDbSelectionSetIterator goes over the members that a selection had when the iterator was made. */
class OdDbSelectionSetIterator : public OdRxObject
{
public:
    ODRX_DECLARE_MEMBERS(OdDbSelectionSetIterator);

    /** Goes one member on. Returns false when there is none. */
    virtual bool next() = 0;
    /** True when there is no current member. */
    virtual bool done() const = 0;
    /** The current member, null when there is none. */
    virtual OdDbObjectId objectId() const = 0;
};
using OdDbSelectionSetIteratorPtr = OdSmartPtr<OdDbSelectionSetIterator>;

/** An OdDbSelectionMethod says how members came into a selection. */
class OdDbSelectionMethod : public OdRxObject
{
public:
    ODRX_DECLARE_MEMBERS(OdDbSelectionMethod);
};
using OdDbSelectionMethodPtr = OdSmartPtr<OdDbSelectionMethod>;

/** Selecting by a shape on the screen. */
class OdDbVisualSelection : public OdDbSelectionMethod
{
public:
    ODRX_DECLARE_MEMBERS(OdDbVisualSelection);

    /** The shape, made of points in world coordinates, and what it takes. */
    enum Mode : OdUInt32
    {
        kPoint = 0,    ///< what lies at the point
        kBox = 1,      ///< two corners: a window from left to right, else a crossing
        kWindow = 2,   ///< what lies within the rectangle
        kCrossing = 3, ///< what lies in the rectangle or reaches into it
        kFence = 4,    ///< what the open polyline crosses
        kWPoly = 5,    ///< what lies within the polygon
        kCPoly = 6     ///< what lies in the polygon or reaches into it
    };

    /** Whether parts of entities may be selected too. */
    enum SubentSelectionMode : int
    {
        kDisableSubents = 0,
        kEnableSubents = 1
    };

    virtual Mode mode() const = 0;
};
using OdDbVisualSelectionPtr = OdSmartPtr<OdDbVisualSelection>;

/** An OdDbSelectionSet is a list of objects of one drawing, each there once, in the order in which they were chosen. It
   is no part of the drawing. Adding, finding and removing a member take the same time for any number of them. One
   thread at a time may use it. */
class OdDbSelectionSet : public OdSelectionSet
{
public:
    ODRX_DECLARE_MEMBERS(OdDbSelectionSet);
    ~OdDbSelectionSet() override;

    /** A new, empty selection of objects of the database. Throws OdError as createObject() does. */
    static OdSmartPtr<OdDbSelectionSet> createObject(const OdDbDatabase* database);

    /** Selects among what a viewport shows, which is given as OdDbDatabase::activeViewportId gives it: entities of its
       space that are not invisible, by what they draw on layers that are neither off nor frozen. Points are one for
       kPoint, two opposite corners for kBox, kWindow and kCrossing, two or more for kFence, three or more for polygons,
       whose inside is what an odd number of their turns surrounds. What lies on the border counts as inside. kPoint
       takes at most one entity, of those within a pick box of 0.3 percent of the view's height around the point: lines
       before texts and filled areas, what is nearest, what lies on top. Parts of entities are not told apart.

       filter is null or an OdResBuf chain: elements of type 0 are names of entity types as files have them, those of
       type 8 names of layers, each perhaps several with commas in between; an entity must have what every element says.

       Returns a set in the order in which entities are drawn; it may be empty. The first selection in a space builds an
       index of it, which follows all changes from then on; the time of the others grows with what they find. Throws
       OdError: eNullObjectId, eNotApplicable for a viewport that is none, eInvalidInput for a number of points that the
       mode cannot do with, eNotThatKindOfClass and eInvalidResBuf for a filter that is none. */
    static OdSmartPtr<OdDbSelectionSet>
    select(const OdDbObjectId& viewportId, int numPoints, const OdGePoint3d* points,
           OdDbVisualSelection::Mode mode = OdDbVisualSelection::kCrossing,
           OdDbVisualSelection::SubentSelectionMode subentities = OdDbVisualSelection::kDisableSubents,
           const OdRxObject* filter = nullptr);

    /** The database that createObject was given, or else that of the first member; null when there is neither. */
    const OdRxObject* baseDatabase() const override;
    OdDbDatabase* database() const;

    /** Adds an object at the end; a member, and the null id, are passed over. Throws OdError(eWrongDatabase), and
       changes nothing, for an object of another database. */
    void append(const OdDbObjectId& objectId);
    void append(const OdDbObjectIdArray& objectIds);

    /** Takes an object out; one that is no member is passed over. */
    void remove(const OdDbObjectId& objectId);
    void remove(const OdDbObjectIdArray& objectIds);

    bool isMember(const OdDbObjectId& objectId) const;
    OdUInt32 numEntities() const override;
    void clear() override;

    OdDbObjectIdArray objectIdArray() const;

    /** An iterator on the first member. */
    OdDbSelectionSetIteratorPtr newIterator() const;

protected:
    OdDbSelectionSet();

private:
    struct Members;
    std::unique_ptr<Members> m_members;
};
using OdDbSelectionSetPtr = OdSmartPtr<OdDbSelectionSet>;
