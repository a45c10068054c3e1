// Included by one source of a program of tests: the SDK runs as long as its tests do.
#pragma once

#include <gtest/gtest.h>

#include "RxInit.h"

namespace support
{

class SdkProgram : public testing::Environment
{
public:
    void SetUp() override { odInitialize(); }
    void TearDown() override { odUninitialize(); }
};

[[maybe_unused]] inline testing::Environment* const g_sdkProgram = testing::AddGlobalTestEnvironment(new SdkProgram);

} // namespace support
