// Implements the painting of pictures: one layout, as it is or through its viewports.
#include "render/Picture.h"

#include <algorithm>

#include "DbBlockTableRecord.h"
#include "OdError.h"
#include "render/PixelMemory.h"
#include "render/SpaceDraw.h"
#include "render/View.h"

namespace render
{

namespace
{

constexpr double kPixelsPerMillimetre = 96 / 25.4;

std::unique_ptr<Canvas> makeCanvas(const PictureOrder& order, const PageSize& size, PixelMemory& pixels)
{
    switch (order.format)
    {
    case Format::kSvg:
        return makeSvgCanvas(order.file, size, order.background);
    case Format::kPdf:
        return makePdfCanvas(order.file, size, order.background);
    default:
        return makePngCanvas(order.file, size, order.background, pixels.take(size));
    }
}

/// Pixels of a millimetre of line weight: those of the paper where the whole sheet is seen, else those of a screen.
double lineWeightScale(const OdDbLayout& layout, const View& view, const PageSize& size, const PictureOrder& order)
{
    if (isModel(layout) || order.window || order.isActiveView)
        return kPixelsPerMillimetre;
    return size.width / view.plane.diagonal().x * unitsPerMillimetre(layout);
}

} // namespace

void paintPicture(OdDbDatabase& database, const PictureOrder& order)
{
    const OdDbLayoutPtr layout = findLayout(database, order.layout);
    const std::optional<PageSize> largest = largestPage(*layout, order);
    PixelMemory pixels = largest && order.format == Format::kPng ? PixelMemory(*largest) : PixelMemory();
    View view = viewOf(database, *layout, order);
    const PageSize size = fitPage(view, *layout, order);
    const std::unique_ptr<Canvas> canvas = makeCanvas(order, size, pixels);
    Looks looks(order.background, canvas->thinnestLine(), lineWeightScale(*layout, view, size, order),
                database.getLTSCALE());
    OdStaticRxObject<SpaceDraw> draw(*canvas, looks, database);
    const OdGeExtents2d page({0.0, 0.0}, {static_cast<double>(size.width), static_cast<double>(size.height)});
    draw.drawSpace(layout->getBlockTableRecordId(), view, page);
    canvas->finish();
}

std::optional<Format> formatOf(const std::string& file)
{
    const std::size_t dot = file.rfind('.');
    std::string ending = dot == std::string::npos ? std::string() : file.substr(dot + 1);
    std::transform(ending.begin(), ending.end(), ending.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; });
    if (ending == "png")
        return Format::kPng;
    if (ending == "svg")
        return Format::kSvg;
    return ending == "pdf" ? std::optional(Format::kPdf) : std::nullopt;
}

} // namespace render
