// Listening to what happens to the objects of a database while the program runs.
#pragma once

#include "RxObject.h"
#include "SmartPtr.h"

class OdDbDatabase;
class OdDbObject;

/** An OdDbDatabaseReactor hears of every object of the database it is attached to (OdDbDatabase::addReactor).
    Every operation does nothing unless it is overridden. */
class OdDbDatabaseReactor : public OdRxObject
{
public:
    ODRX_DECLARE_MEMBERS(OdDbDatabaseReactor);

    /** An object was made resident. */
    virtual void objectAppended(const OdDbDatabase* database, const OdDbObject* object);

    /** The making of an object was undone. */
    virtual void objectUnAppended(const OdDbDatabase* database, const OdDbObject* object);

    /** The undoing of the making of an object was redone. */
    virtual void objectReAppended(const OdDbDatabase* database, const OdDbObject* object);

    /** An object was closed after having been changed. */
    virtual void objectModified(const OdDbDatabase* database, const OdDbObject* object);

    /** An object was erased or, with erased false, brought back. */
    virtual void objectErased(const OdDbDatabase* database, const OdDbObject* object, bool erased);

    /** The database is about to leave memory. */
    virtual void goodbye(const OdDbDatabase* database);
};
using OdDbDatabaseReactorPtr = OdSmartPtr<OdDbDatabaseReactor>;
