// Finding the module's services from anywhere in the program.
#include "ModuleServices.h"

#include "DynamicLinker.h"
#include "module/ground/ModuleName.h"

CModuleServices* CModuleServices::Find()
{
    return dynamic_cast<CModuleServices*>(odrxDynamicLinker()->lookupModule(kModuleName).get());
}
