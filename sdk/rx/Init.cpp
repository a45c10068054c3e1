// Starting and ending the SDK.
#include "RxInit.h"

#include <algorithm>

#include "DynamicLinker.h"
#include "OdError.h"
#include "ResBuf.h"
#include "RxObjectImpl.h"
#include "RxOverrule.h"
#include "RxSysRegistry.h"
#include "RxVariant.h"
#include "rx/ClassRows.h"
#include "rx/Layers.h"
#include "rx/Linker.h"
#include "rx/SysRegistry.h"

namespace
{

constexpr auto kClasses = odlayers::rowsOf<OdRxObject, OdRxClass, OdErrorContext, OdRxIterator, OdRxDictionaryIterator,
                                           OdRxDictionary, OdRxModule, OdRxDLinkerReactor, OdRxDynamicLinker,
                                           OdRxSystemServices, OdRxVariant, OdRxOverrule, OdResBuf>();

int g_runtimeStarts = 0;
int g_starts = 0;

OdRxSystemServicesPtr& givenServices()
{
    static OdRxSystemServicesPtr* const services = new OdRxSystemServicesPtr;
    return *services;
}

OdRxSystemServices* ownServices()
{
    static OdRxSystemServices* const services = OdRxObjectImpl<OdRxSystemServices>::createObject().detach();
    return services;
}

std::vector<odlayers::Layer>& layers()
{
    static std::vector<odlayers::Layer> all;
    return all;
}

void startLayers()
{
    const std::vector<odlayers::Layer> all = odlayers::sorted();
    std::size_t started = 0;
    try
    {
        for (; started < all.size(); ++started)
            all[started].start();
    }
    catch (...)
    {
        while (started > 0)
            all[--started].end();
        throw;
    }
}

void endLayers()
{
    std::vector<odlayers::Layer> all = odlayers::sorted();
    std::reverse(all.begin(), all.end());
    for (const odlayers::Layer& layer : all)
        layer.end();
}

} // namespace

namespace odlayers
{
Registration::Registration(Order order, void (*start)(), void (*end)())
{
    layers().push_back({order, start, end});
}

std::vector<Layer> sorted()
{
    std::vector<Layer> all = layers();
    std::stable_sort(all.begin(), all.end(), [](const Layer& a, const Layer& b) { return a.order < b.order; });
    return all;
}
} // namespace odlayers

OdRxSystemServices* odSystemServices()
{
    return givenServices().isNull() ? ownServices() : givenServices().get();
}

void odrxInitialize(OdRxSystemServices* systemServices)
{
    if (g_runtimeStarts == 0)
    {
        odlayers::startClasses(kClasses);
        givenServices() = systemServices;
    }
    ++g_runtimeStarts;
}

void odrxUninitialize()
{
    if (g_runtimeStarts == 0 || --g_runtimeStarts > 0)
        return;
    odlinker::unloadAll();
    odregistry::clear();
    odlayers::endClasses(kClasses);
    givenServices().release();
}

void odInitialize(OdRxSystemServices* systemServices, OdUInt32)
{
    if (g_starts == 0)
    {
        odrxInitialize(systemServices);
        try
        {
            startLayers();
        }
        catch (...)
        {
            odrxUninitialize();
            throw;
        }
    }
    ++g_starts;
}

void odUninitialize()
{
    if (g_starts == 0 || --g_starts > 0)
        return;
    odlinker::unloadAll();
    endLayers();
    odrxUninitialize();
}
