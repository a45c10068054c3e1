// Listening to what happens to the objects of a database while the program runs.
#pragma once

#include "RxObject.h"
#include "SmartPtr.h"

class OdDbDatabase;
class OdDbObject;

/** An OdDbDatabaseReactor hears of every object of the database it is attached to (OdDbDatabase::addReactor), but
    for what comes with reading a file. Every operation does nothing unless it is overridden.

    Undo, redo and abort tell at their end, when everything is as it was recorded: first all that happened, in order, to
    one listener, then to the next. Meanwhile OdDbDatabase::isUndoing() is true, all objects may be read, what
    a listener changes is put back, and what it throws is dropped.

    Whoever keeps something for every entity, such as its place, follows the drawing so: objectAppended and
   objectModified tell that an entity has another shape, objectErased and objectUnAppended that it has none any more or
   has one again, objectReAppended that it is back. An entity in a block that is drawn by references changes their shape
   too, and a vertex or an attribute that of its owner (OdDbObject::ownerId). */
class OdDbDatabaseReactor : public OdRxObject
{
public:
    ODRX_DECLARE_MEMBERS(OdDbDatabaseReactor);

    /** An object was made resident. It may get its data later; then objectModified follows. */
    virtual void objectAppended(const OdDbDatabase* database, const OdDbObject* object);

    /** The making of an object was undone. */
    virtual void objectUnAppended(const OdDbDatabase* database, const OdDbObject* object);

    /** The undoing of the making of an object was redone. */
    virtual void objectReAppended(const OdDbDatabase* database, const OdDbObject* object);

    /** An object was closed after having been changed, or has another state after undo, redo or abort: then once for
        each object that is not erased. */
    virtual void objectModified(const OdDbDatabase* database, const OdDbObject* object);

    /** An object was erased or, with erased false, brought back. */
    virtual void objectErased(const OdDbDatabase* database, const OdDbObject* object, bool erased);

    /** The database is about to leave memory. */
    virtual void goodbye(const OdDbDatabase* database);
};
using OdDbDatabaseReactorPtr = OdSmartPtr<OdDbDatabaseReactor>;
