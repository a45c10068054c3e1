// A module as it should be: it brings one class while it is loaded.
#include "OdaCommon.h"
#include "RxModule.h"
#include "RxObjectImpl.h"

class Greeting : public OdRxObject
{
public:
    ODRX_DECLARE_MEMBERS(Greeting);
};

ODRX_CONS_DEFINE_MEMBERS(Greeting, OdRxObject, RXIMPL_CONSTR)

class GreetingModule : public OdRxModule
{
public:
    void initApp() override { Greeting::rxInit(); }
    void uninitApp() override { Greeting::rxUninit(); }
};

ODRX_DEFINE_DYNAMIC_MODULE(GreetingModule, L"GreetingModule.tx")
