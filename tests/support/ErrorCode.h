// The codes of errors, for tests that attack.
#pragma once

#include "OdError.h"

namespace support
{

/// The code of the OdError that the work throws, eOk when it throws none.
template<class Work>
OdResult codeOf(Work work)
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

} // namespace support
