// What tests of this area share: the code that a piece of work throws.
#pragma once

#include "OdError.h"

/// eOk when nothing is thrown.
template<class Work>
OdResult codeThrownBy(Work work)
{
    try
    {
        work();
        return eOk;
    }
    catch (const OdError& error)
    {
        return error.code();
    }
}
