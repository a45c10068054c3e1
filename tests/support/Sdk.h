// The SDK, started with the first test of the program that needs it.
#pragma once

#include "RxInit.h"

namespace support
{

inline void startSdk()
{
    static const bool started = (odInitialize(), true);
    static_cast<void>(started);
}

} // namespace support
