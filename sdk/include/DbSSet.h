// Selections of objects.
#pragma once

#include <memory>

#include "DbObjectId.h"
#include "RxObject.h"

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

/** An OdDbSelectionSet is a list of objects of one drawing, each there once, in the order in which they were chosen. It
   is no part of the drawing. Adding, finding and removing a member take the same time for any number of them. One
   thread at a time may use it. */
class OdDbSelectionSet : public OdRxObject
{
public:
    ODRX_DECLARE_MEMBERS(OdDbSelectionSet);
    ~OdDbSelectionSet() override;

    /** A new, empty selection of objects of the database. Throws OdError as createObject() does. */
    static OdSmartPtr<OdDbSelectionSet> createObject(const OdDbDatabase* database);

    /** The database that createObject was given, or else that of the first member; null when there is neither. */
    const OdDbDatabase* baseDatabase() const;
    OdDbDatabase* database() const;

    /** Adds an object at the end; a member, and the null id, are passed over. Throws OdError(eWrongDatabase), and
       changes nothing, for an object of another database. */
    void append(const OdDbObjectId& objectId);
    void append(const OdDbObjectIdArray& objectIds);

    /** Takes an object out; one that is no member is passed over. */
    void remove(const OdDbObjectId& objectId);
    void remove(const OdDbObjectIdArray& objectIds);

    bool isMember(const OdDbObjectId& objectId) const;
    OdUInt32 numEntities() const;
    void clear();

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
