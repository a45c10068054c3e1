// Errors and their codes, for tests that attack.
#pragma once

#include "OdError.h"

namespace support
{

/// The OdError that the work throws, one of the code eOk when it throws none.
template<class Work>
OdError caught(Work work)
{
    try
    {
        work();
    }
    catch (const OdError& error)
    {
        return error;
    }
    return OdError(eOk);
}

template<class Work>
OdResult codeOf(Work work)
{
    return caught(work).code();
}

} // namespace support
