// Puts texts into reading order and joins them.
#include "commands/textparser/ComposeText.h"

#include <algorithm>
#include <numeric>
#include <string>

namespace textparser
{

namespace
{

using Line = std::vector<std::size_t>;

struct Markers
{
    const wchar_t* before;
    const wchar_t* behind;
};

// By FrameKind. Those who take the markers out again know exactly these spellings.
constexpr Markers kMarkers[] = {
    {L"", L""},
    {L"<inRect>", L"</inRect>"},
    {L"<inCir>", L"/<inCir>"},
    {L"<inOv>", L"/<inOv>"},
};

// What a line covers vertically: the lowest of its texts says so, for a tall text beside several lines belongs to one
// of them and must not draw the others in.
struct Band
{
    explicit Band(const Box& box) : bottom(box.bottom()), top(box.top()) {}

    double height() const { return top - bottom; }

    double bottom;
    double top;
};

bool overlapByHalf(const Band& first, const Band& second)
{
    const double overlap = std::min(first.top, second.top) - std::max(first.bottom, second.bottom);
    const double tolerance = 1e-9 * std::max(first.height(), second.height());
    return overlap + tolerance >= 0.5 * std::min(first.height(), second.height());
}

std::vector<std::size_t> sortFromTop(const std::vector<FoundText>& texts)
{
    std::vector<std::size_t> order(texts.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::stable_sort(order.begin(), order.end(),
                     [&](std::size_t first, std::size_t second)
                     { return texts[first].box.center.y > texts[second].box.center.y; });
    return order;
}

void sortFromLeft(const std::vector<FoundText>& texts, Line& line)
{
    std::stable_sort(line.begin(), line.end(),
                     [&](std::size_t first, std::size_t second)
                     { return texts[first].box.left() < texts[second].box.left(); });
}

std::vector<Line> gatherLines(const std::vector<FoundText>& texts)
{
    std::vector<Line> lines;
    Band lineBand{Box()};
    for (const std::size_t text : sortFromTop(texts))
    {
        const Band band(texts[text].box);
        if (lines.empty() || !overlapByHalf(lineBand, band))
        {
            lines.emplace_back();
            lineBand = band;
        }
        lines.back().push_back(text);
        if (band.height() < lineBand.height())
            lineBand = band;
    }
    for (Line& line : lines)
        sortFromLeft(texts, line);
    return lines;
}

void appendText(std::wstring& composed, const FoundText& text)
{
    const Markers& markers = kMarkers[static_cast<std::size_t>(text.frame)];
    if (!composed.empty())
        composed += L' ';
    composed.append(markers.before).append(text.characters.view()).append(markers.behind);
}

} // namespace

OdString composeText(const std::vector<FoundText>& texts)
{
    if (texts.size() == 1 && texts.front().frame == FrameKind::kNone)
        return texts.front().characters;
    std::wstring composed;
    for (const Line& line : gatherLines(texts))
        for (const std::size_t text : line)
            appendText(composed, texts[text]);
    return OdString(composed);
}

} // namespace textparser
