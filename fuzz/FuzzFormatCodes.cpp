// Feeds multi-line texts with any contents. Contents are kept as they are, and whatever codes they hold, the text has
// finite sizes.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "DbMText.h"
#include "RxInit.h"

namespace
{

void require(bool holds)
{
    if (!holds)
        std::abort();
}

void checkExtents(const OdDbMText& text)
{
    OdGeExtents3d extents;
    if (text.getGeomExtents(extents) != eOk)
        return;
    for (const OdGePoint3d& corner : {extents.minPoint(), extents.maxPoint()})
        require(std::isfinite(corner.x) && std::isfinite(corner.y) && std::isfinite(corner.z));
}

void start()
{
    static const bool started = (odInitialize(), true);
    static_cast<void>(started);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    start();
    if (size == 0)
        return 0;
    const OdString contents = odUtf8ToString({reinterpret_cast<const char*>(data) + 1, size - 1});
    const OdDbMTextPtr text = OdDbMText::createObject();
    text->setWidth(data[0] % 16); // none, or so narrow that every word is broken
    text->setAttachment(static_cast<OdDbMText::AttachmentPoint>(1 + data[0] % 9));
    text->setContents(contents);
    require(text->contents() == contents);
    text->text();
    require(std::isfinite(text->actualWidth()) && std::isfinite(text->actualHeight()));
    checkExtents(*text);
    return 0;
}
