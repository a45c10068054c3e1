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
    enum Mode
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
    enum SubentSelectionMode
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

    /** Selects among what a viewport shows, which is given as OdDbDatabase::activeViewportId gives it. filter is null
       or a chain of what the entities must have. Returns a set that may be empty. Throws OdError: eNullObjectId,
       eInvalidInput for a number of points that the mode cannot do with. */
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
