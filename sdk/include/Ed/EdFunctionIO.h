// What a command is given and gives back when another part of the program runs it.
#pragma once

#include "RxObject.h"

/** An OdEdFunctionIO holds the argument and the result of a command, each an object or none. */
class OdEdFunctionIO : public OdRxObject
{
public:
    ODRX_DECLARE_MEMBERS(OdEdFunctionIO);

    /** Sets or, with null, removes the argument. */
    virtual void setParam(OdRxObject* object) = 0;
    /** The argument, null when there is none. */
    virtual OdRxObjectPtr param() = 0;
    /** Sets or, with null, removes the result. */
    virtual void setResult(OdRxObject* object) = 0;
    /** The result, null when there is none. */
    virtual OdRxObjectPtr result() = 0;
};
using OdEdFunctionIOPtr = OdSmartPtr<OdEdFunctionIO>;
