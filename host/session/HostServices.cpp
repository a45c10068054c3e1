// Starts the SDK and loads the plug-in.
#include "session/HostServices.h"

#include <filesystem>

#include "DynamicLinker.h"
#include "RxInit.h"
#include "commands/HostCommand.h"

namespace session
{

const OdChar* const kPluginName = L"Quend.Zol.Cad.tx";

namespace
{

// The plug-in and the SDK's modules lie in the folder "lib" beside the program's own folder, wherever the program was
// started from.
OdString moduleFolder()
{
    std::error_code failure;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", failure);
    if (failure)
        return L"../lib";
    return odUtf8ToString((program.parent_path().parent_path() / "lib").string());
}

} // namespace

HostServices::HostServices(Plugin plugin)
{
    odInitialize();
    try
    {
        odrxDynamicLinker()->addSearchFolder(moduleFolder());
        hostcommands::registerHostCommands();
        if (plugin == Plugin::kLoaded)
            loadPlugin();
    }
    catch (...)
    {
        end();
        throw;
    }
}

HostServices::~HostServices()
{
    end();
}

void HostServices::loadPlugin()
{
    odrxDynamicLinker()->loadApp(kPluginName, false);
}

void HostServices::end()
{
    hostcommands::unregisterHostCommands();
    odUninitialize();
}

} // namespace session
