// Feeds the reader of stamps with anything. A text is refused with an error that says why, or it gives records; those
// that can be drawn have outlines of finite figures that turn one way.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "OdError.h"
#include "RxInit.h"
#include "annotations/AnnotationChecks.h"
#include "annotations/AnnotationJson.h"
#include "annotations/AnnotationOutline.h"
#include "module/ground/Messages.h"

namespace
{

void require(bool holds)
{
    if (!holds)
        std::abort();
}

void checkOutline(const Annotation::AnnotationProperties& properties)
{
    if (properties.fitToText)
        return;
    const Annotation::Outline outline = Annotation::MakeOutline(properties);
    require(outline.points.size() >= 2 && outline.points.size() == outline.bulges.size());
    for (unsigned i = 0; i < outline.points.size(); ++i)
    {
        require(std::isfinite(outline.points[i].x) && std::isfinite(outline.points[i].y));
        require(std::isfinite(outline.bulges[i]) && std::fabs(outline.bulges[i]) <= 1.0);
    }
    Annotation::FlattenOutline(outline);
}

std::vector<Annotation::AnnotationProperties> readAll(std::string_view bytes)
{
    try
    {
        return Annotation::ReadAnnotationsFromJson(odUtf8ToString(bytes));
    }
    catch (const OdError& error)
    {
        require(!error.description().isEmpty());
        return {};
    }
}

void start()
{
    static const bool started = (odInitialize(), RegisterMessages(), true);
    static_cast<void>(started);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    start();
    for (const Annotation::AnnotationProperties& properties : readAll({reinterpret_cast<const char*>(data), size}))
    {
        try
        {
            Annotation::RequireDrawable({properties});
        }
        catch (const OdError&)
        {
            continue;
        }
        checkOutline(properties);
    }
    return 0;
}
