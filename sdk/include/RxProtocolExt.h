// Operations that are added to a class from outside.
#pragma once

#include "RxObject.h"

/** The object of a protocol extension that adds operations to a class (OdRxClass::addX) derives from OdRxObject; a
    protocol class is a registered class that declares them. OdStaticRxObject is the usual way to keep one.

    odrxQueryX gives the extension of an object's class, null when there is none. */
template<class TProtocol>
OdSmartPtr<TProtocol> odrxQueryX(const OdRxObject* object)
{
    return TProtocol::cast(object);
}
