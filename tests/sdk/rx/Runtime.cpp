// The runtime classes are registered while this area's tests run.
#include <gtest/gtest.h>

#include "RxInit.h"

namespace
{

class Runtime : public testing::Environment
{
public:
    void SetUp() override { odrxInitialize(); }
    void TearDown() override { odrxUninitialize(); }
};

[[maybe_unused]] const testing::Environment* const environment = testing::AddGlobalTestEnvironment(new Runtime);

} // namespace
