// Listening to what happens to one database object while the program runs.
#pragma once

#include "RxObject.h"
#include "SmartPtr.h"

class OdDbObject;

/** An OdDbObjectReactor hears of changes of the objects it is attached to (OdDbObject::addReactor).
    It is not saved with the drawing; an object that is to keep a listener for good uses a persistent reactor.
    Every operation does nothing unless it is overridden. */
class OdDbObjectReactor : public OdRxObject
{
public:
    ODRX_DECLARE_MEMBERS(OdDbObjectReactor);

    /** The object was closed after having been changed. */
    virtual void modified(const OdDbObject* object);

    /** The object was erased or, with erasing false, brought back. */
    virtual void erased(const OdDbObject* object, bool erasing);

    /** A copy of the object was made. */
    virtual void copied(const OdDbObject* object, const OdDbObject* newObject);

    /** The making of the object was undone. */
    virtual void unappended(const OdDbObject* object);

    /** The undoing of the making of the object was redone. */
    virtual void reappended(const OdDbObject* object);

    /** XData of the object was set. */
    virtual void xDataModified(const OdDbObject* object);

    /** The object is about to leave memory. */
    virtual void goodbye(const OdDbObject* object);
};
using OdDbObjectReactorPtr = OdSmartPtr<OdDbObjectReactor>;
