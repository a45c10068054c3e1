// Implements the setting of single lines.
#include "entities/MTextLine.h"

#include <algorithm>
#include <cmath>

#include "gi/TextCodes.h"
#include "gi/fonts/Shaper.h"

namespace mtext
{

namespace
{

constexpr double kStackGap = 0.35;   ///< between the parts of a stack, in heights of their characters
constexpr double kBarOverhang = 0.1; ///< of the line of a fraction beyond the wider part
constexpr double kSlashRoom = 0.3;   ///< between parts that stand side by side

/// The characters of a part of a stack; a backslash takes the next one's meaning away.
std::wstring charactersOf(std::wstring_view part)
{
    const std::wstring visible = textcodes::visibleText(part);
    std::wstring characters;
    for (std::size_t i = 0; i < visible.size(); ++i)
    {
        if (visible[i] == L'\\' && i + 1 < visible.size())
            ++i;
        characters.push_back(visible[i]);
    }
    return characters;
}

void addPart(Fragment& stack, std::wstring characters, double x, double y, double width)
{
    if (!characters.empty())
        stack.runs.push_back({std::move(characters), x, y, width, stack.look});
}

void stackSideBySide(Fragment& stack, std::wstring upper, std::wstring lower, double upperWidth, double lowerWidth)
{
    const double height = stack.look.height;
    const double rise = height * (0.5 + kStackGap / 2);
    const double room = kSlashRoom * height;
    addPart(stack, std::move(upper), 0.0, rise, upperWidth);
    addPart(stack, std::move(lower), upperWidth + room, 0.0, lowerWidth);
    stack.top = rise + height;
    stack.width = upperWidth + room + lowerWidth;
    stack.bars.push_back({{upperWidth - room / 4, 0.0}, {upperWidth + room * 1.25, stack.top}, stack.look});
}

void stackUpright(Fragment& stack, std::wstring upper, std::wstring lower, double upperWidth, double lowerWidth,
                  bool fraction)
{
    const double height = stack.look.height;
    const double gap = kStackGap * height;
    const double overhang = fraction ? kBarOverhang * height : 0.0;
    const double widest = std::max(upperWidth, lowerWidth);
    const double center = fraction ? 0.5 : 0.0; // signs of tolerances stand one above the other
    addPart(stack, std::move(upper), overhang + (widest - upperWidth) * center, height + gap, upperWidth);
    addPart(stack, std::move(lower), overhang + (widest - lowerWidth) * center, 0.0, lowerWidth);
    stack.top = 2 * height + gap;
    stack.width = widest + 2 * overhang;
    if (fraction)
        stack.bars.push_back({{0.0, height + gap / 2}, {stack.width, height + gap / 2}, stack.look});
}

/// How far a fragment's base line lies above the line's, by the alignment that its characters ask for.
double riseOf(const Fragment& fragment, double lineHeight)
{
    switch (fragment.look.lineAlignment)
    {
    case 1:
        return (lineHeight - fragment.bottom - fragment.top) / 2;
    case 2:
        return lineHeight - fragment.top;
    default:
        return -fragment.bottom;
    }
}

bool isPlain(const Fragment& fragment)
{
    return fragment.runs.size() == 1 && fragment.bars.empty() && fragment.runs.front().y == 0.0;
}

double heightOf(const std::vector<Fragment>& fragments, double emptyHeight)
{
    double plain = 0.0;
    double any = 0.0;
    for (const Fragment& fragment : fragments)
    {
        any = std::max(any, fragment.look.height);
        plain = isPlain(fragment) ? std::max(plain, fragment.look.height) : plain;
    }
    return plain > 0.0 ? plain : any > 0.0 ? any : emptyHeight;
}

/// True when the fragment goes on where the run ends, with nothing but blanks of the same look between.
bool continues(const Run& run, const Fragment& fragment, double y)
{
    return isPlain(fragment) && fragment.spacesBefore >= 0 && run.look == fragment.look && run.y == y;
}

void appendRuns(Line& line, Fragment& fragment, double x, double y, bool joins)
{
    if (joins && !line.runs.empty() && continues(line.runs.back(), fragment, y))
    {
        Run& last = line.runs.back();
        last.characters.append(static_cast<std::size_t>(fragment.spacesBefore), L' ');
        last.characters += fragment.runs.front().characters;
        last.width = x + fragment.width - last.x;
        return;
    }
    for (Run& run : fragment.runs)
    {
        run.x += x;
        run.y += y;
        line.runs.push_back(std::move(run));
    }
}

} // namespace

double widthOf(std::wstring_view characters, const Look& look, const std::vector<OdGiTextStyle>& fonts)
{
    return fonts::widthOf(fonts::Font::of(fonts[look.font]), characters, look.tracking) * look.height *
           look.widthFactor;
}

Fragment makeStack(std::wstring_view upper, std::wstring_view lower, wchar_t divider, const Look& look,
                   const std::vector<OdGiTextStyle>& fonts)
{
    Fragment stack;
    stack.look = look;
    std::wstring above = charactersOf(upper);
    std::wstring below = charactersOf(lower);
    const double aboveWidth = widthOf(above, look, fonts);
    const double belowWidth = widthOf(below, look, fonts);
    if (divider == L'#')
        stackSideBySide(stack, std::move(above), std::move(below), aboveWidth, belowWidth);
    else
        stackUpright(stack, std::move(above), std::move(below), aboveWidth, belowWidth, divider == L'/');
    return stack;
}

Line makeLine(std::vector<Fragment> fragments, double emptyHeight, double extra)
{
    Line line;
    line.height = heightOf(fragments, emptyHeight);
    line.ascent = line.height;
    double moved = 0.0;
    bool afterPlain = false;
    for (Fragment& fragment : fragments)
    {
        moved += fragment.gapBefore ? extra : 0.0;
        const double x = fragment.x + moved;
        const double y = riseOf(fragment, line.height);
        line.ascent = std::max(line.ascent, y + fragment.top);
        line.descent = std::max(line.descent, -(y + fragment.bottom));
        for (Bar& bar : fragment.bars)
            line.bars.push_back({bar.start + OdGeVector2d(x, y), bar.end + OdGeVector2d(x, y), bar.look});
        line.width = std::max(line.width, x + fragment.width);
        const bool plain = isPlain(fragment);
        appendRuns(line, fragment, x, y, afterPlain && extra == 0.0);
        afterPlain = plain;
    }
    return line;
}

} // namespace mtext
