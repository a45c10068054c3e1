// Objects of classes that are not known.
#pragma once

#include "DbObject.h"

/** An object whose class nobody has registered. It keeps all its data, so that it is saved as it was read, and becomes
    an object of its real class when the drawing is opened with the class at hand. */
class OdDbProxyObject : public OdDbObject
{
public:
    ODDB_DECLARE_MEMBERS(OdDbProxyObject);

    /** The name of the object's class in drawing files. */
    OdString originalDxfName() const;

    /** The name of the class in the application that made it; empty when the drawing does not say. */
    OdString originalClassName() const;

    /** The application that has to be loaded for the class; empty when the drawing does not say. */
    OdString applicationDescription() const;

    bool keepsGroups() const override { return true; }
};
using OdDbProxyObjectPtr = OdSmartPtr<OdDbProxyObject>;
