// A module that cannot start.
#include "OdaCommon.h"
#include "RxModule.h"

namespace
{

class RefusingModule : public OdRxModule
{
public:
    void initApp() override { throw OdError(eClassAlreadyRegistered, L"refused"); }
    void uninitApp() override {}
};

} // namespace

ODRX_DEFINE_DYNAMIC_MODULE(RefusingModule, L"RefusingModule.tx")
