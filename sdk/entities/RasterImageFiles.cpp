// Finds and reads the files of pictures. Many images may show one picture, so that the last ones are kept.
#include <array>
#include <filesystem>

#include "DbDatabase.h"
#include "DbRasterImageDef.h"
#include "DynamicLinker.h"
#include "OdError.h"
#include "RxRasterServices.h"
#include "StaticRxObject.h"
#include "entities/RasterImageFiles.h"

namespace fs = std::filesystem;

namespace
{

struct Kept
{
    fs::path path;
    fs::file_time_type time;
    std::uintmax_t size = 0;
    OdGiRasterImagePtr image;
};

/// Lives as long as the program; what is in it, as long as the modules that gave it.
std::array<Kept, 16>& keptImages()
{
    static auto* const images = new std::array<Kept, 16>;
    return *images;
}

OdGiRasterImagePtr load(const fs::path& path)
{
    try
    {
        const OdRxRasterServicesPtr services =
            OdRxRasterServices::cast(odrxDynamicLinker()->loadApp(RX_RASTER_SERVICES_APPNAME, false));
        return services.isNull() ? OdGiRasterImagePtr() : services->loadRasterImage(odUtf8ToString(path.string()));
    }
    catch (const OdError&)
    {
        return {};
    }
}

bool isFile(const fs::path& path)
{
    std::error_code failed;
    return fs::is_regular_file(path, failed) && !failed;
}

/// Lets pictures go before the module that they come from.
class ModuleListener : public OdRxDLinkerReactor
{
public:
    void rxAppWillBeUnloaded(OdRxModule*) override { keptImages() = {}; }
};

ModuleListener& listener()
{
    static OdStaticRxObject<ModuleListener> made;
    return made;
}

} // namespace

namespace rasterfiles
{

void start()
{
    odrxDynamicLinker()->addReactor(&listener());
}

void end()
{
    odrxDynamicLinker()->removeReactor(&listener());
    keptImages() = {};
}

} // namespace rasterfiles

OdString OdDbRasterImageDef::activeFileName() const
{
    std::string name = odStringToUtf8(sourceFileName());
    if (name.empty())
        return {};
    std::replace(name.begin(), name.end(), '\\', '/');
    const fs::path path(name);
    const fs::path folder = database() ? fs::path(odStringToUtf8(database()->getFilename())).parent_path() : fs::path();
    for (const fs::path& candidate : {path.is_absolute() ? path : folder / path, folder / path.filename()})
    {
        if (isFile(candidate))
            return odUtf8ToString(candidate.string());
    }
    return {};
}

OdGiRasterImagePtr OdDbRasterImageDef::image() const
{
    static std::size_t next = 0;
    const fs::path path(odStringToUtf8(activeFileName()));
    if (path.empty())
        return {};
    std::error_code failed;
    const fs::file_time_type time = fs::last_write_time(path, failed);
    const std::uintmax_t size = fs::file_size(path, failed);
    for (const Kept& kept : keptImages())
    {
        if (kept.path == path && kept.time == time && kept.size == size)
            return kept.image;
    }
    Kept& place = keptImages()[next++ % keptImages().size()];
    place = {path, time, size, load(path)};
    return place.image;
}
