// One line of a multi-line text while it is being set.
#pragma once

#include "entities/MTextLayout.h"

namespace mtext
{

/// A part of a word that is set as a whole: characters of one look, or a stack.
struct Fragment
{
    std::vector<Run> runs; ///< from the fragment's start and its base line
    std::vector<Bar> bars;
    Look look;
    double x = 0.0; ///< from the word's start, then from the line's
    double width = 0.0;
    double bottom = 0.0; ///< where it reaches from its base line
    double top = 0.0;
    int spacesBefore = 0;   ///< blanks of its own look between the fragment before and this one
    bool gapBefore = false; ///< room before it may grow when the line is justified
};

/// A finished line; runs and bars lie from the left edge of the text and from the line's base line.
struct Line
{
    std::vector<Run> runs;
    std::vector<Bar> bars;
    double width = 0.0;   ///< with its indents
    double height = 0.0;  ///< of its highest characters
    double ascent = 0.0;  ///< above the base line, what is stacked included
    double descent = 0.0; ///< below, of what is stacked
    double before = 0.0;  ///< room to the line before, beyond the line spacing
    double spacing = 0.0; ///< the line spacing factor
    bool beginsColumn = false;
    Alignment alignment = Alignment::kLeft;
};

/// A stack of two texts: "/" with a line between, "#" side by side with a slash, "^" without any line.
Fragment makeStack(std::wstring_view upper, std::wstring_view lower, wchar_t divider, const Look& look,
                   const std::vector<OdGiTextStyle>& fonts);

/// The width of characters in a look.
double widthOf(std::wstring_view characters, const Look& look, const std::vector<OdGiTextStyle>& fonts);

/// Sets fragments on their common base line and joins neighbours of the same look. extra is what each gap is widened
/// by.
Line makeLine(std::vector<Fragment> fragments, double emptyHeight, double extra);

} // namespace mtext
