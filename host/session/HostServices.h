// Starts the SDK and loads the plug-in for as long as the object lives.
#pragma once

#include "RxModule.h"

namespace session
{

extern const OdChar* const kPluginName; // "Quend.Zol.Cad.tx"

enum class Plugin
{
    kLoaded,
    kLeftOut // labels are then proxies
};

class HostServices
{
public:
    // Throws OdError when the plug-in cannot be loaded.
    explicit HostServices(Plugin plugin);
    ~HostServices();
    HostServices(const HostServices&) = delete;
    HostServices& operator=(const HostServices&) = delete;

private:
    void loadPlugin();
    void end();
};

} // namespace session
