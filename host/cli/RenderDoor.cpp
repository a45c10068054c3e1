// zolcad render: a drawing becomes a picture.
#include <cstdlib>
#include <optional>

#include "OdError.h"
#include "RxObject.h"
#include "cli/CommandLine.h"
#include "cli/Doors.h"
#include "cli/Drawings.h"
#include "render/Picture.h"

namespace cli
{

namespace
{

/// Numbers with a divider between, and nothing else.
std::optional<std::vector<double>> parseNumbers(const std::string& text, char divider, std::size_t count)
{
    std::vector<double> numbers;
    const char* at = text.c_str();
    for (std::size_t i = 0; i < count; ++i)
    {
        char* end = nullptr;
        const double number = std::strtod(at, &end);
        const char expected = i + 1 < count ? divider : '\0';
        if (end == at || *end != expected || !std::isfinite(number))
            return std::nullopt;
        numbers.push_back(number);
        at = end + 1;
    }
    return numbers;
}

OdGeExtents2d parseWindow(const std::string& text)
{
    const std::optional<std::vector<double>> corners = parseNumbers(text, ',', 4);
    if (!corners)
        throw WrongUsage("--window wants two corners as x1,y1,x2,y2, not \"" + text + "\"");
    OdGeExtents2d window;
    window.comparingSet({(*corners)[0], (*corners)[1]}, {(*corners)[2], (*corners)[3]});
    if (!(window.diagonal().x > 0.0) || !(window.diagonal().y > 0.0))
        throw WrongUsage("--window \"" + text + "\" has no area");
    return window;
}

render::PageSize parseSize(const std::string& text)
{
    constexpr double kLargest = 20000;
    const std::optional<std::vector<double>> sides = parseNumbers(text, 'x', 2);
    const auto isUsable = [](double side) { return side >= 1 && side <= kLargest && side == std::floor(side); };
    if (!sides || !isUsable((*sides)[0]) || !isUsable((*sides)[1]))
        throw WrongUsage("--size wants pixels as WIDTHxHEIGHT, each from 1 to 20000, not \"" + text + "\"");
    return {static_cast<int>((*sides)[0]), static_cast<int>((*sides)[1])};
}

render::PictureOrder readOrder(const RenderOrder& order)
{
    render::PictureOrder picture;
    picture.file = order.pictureFile;
    const std::optional<render::Format> format = render::formatOf(order.pictureFile);
    if (!format)
        throw WrongUsage("the picture's file has to end in .svg, .png or .pdf, not \"" + order.pictureFile + "\"");
    picture.format = *format;
    picture.layout = odUtf8ToString(order.layout);
    picture.isActiveView = order.isActiveView;
    if (!order.window.empty())
        picture.window = parseWindow(order.window);
    if (!order.size.empty())
        picture.size = parseSize(order.size);
    const std::optional<render::Color> background = render::parseColor(order.background);
    if (!background)
        throw WrongUsage("--background wants #RRGGBB, #RRGGBBAA or one of " + std::string(render::colorNames()) +
                         ", not \"" + order.background + "\"");
    picture.background = *background;
    return picture;
}

/// The plug-in's overrule, which is in force as long as it is there.
OdRxObjectPtr markLabelledEntities()
{
    OdRxObjectPtr overrule = odrxCreateObject(L"CDebugEntityDrawableOverrule");
    if (overrule.isNull())
        throw OdError(eKeyNotFound, L"The plug-in has no marks to show");
    return overrule;
}

} // namespace

int renderDrawing(const RenderOrder& order)
{
    const render::PictureOrder picture = readOrder(order);
    const session::HostServices services(session::Plugin::kLoaded);
    std::optional<session::OpenDrawing> drawing;
    openDrawing(drawing, order.drawingFile);
    reportMended(*drawing, order.drawingFile);
    const OdRxObjectPtr marks = order.showsMarks ? markLabelledEntities() : OdRxObjectPtr();
    render::paintPicture(drawing->database(), picture);
    return kSuccess;
}

} // namespace cli
