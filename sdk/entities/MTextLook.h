// What the format codes of a multi-line text change: the looks of characters, and the form of paragraphs.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "CmColorBase.h"
#include "Gi/GiTextStyle.h"

namespace mtext
{

/// The looks of characters. Two fonts are the same when they have the same place in the list of the text's fonts.
struct Look
{
    double height = 1.0;
    double widthFactor = 1.0;
    double oblique = 0.0; ///< radians
    double tracking = 1.0;
    std::size_t font = 0;
    int lineAlignment = 0;         ///< of what is not as high as the line: 0 bottom, 1 middle, 2 top
    std::optional<OdUInt32> color; ///< as OdCmEntityColor keeps it; none for the text's own
    bool underlined = false;
    bool overlined = false;
    bool striked = false;

    bool operator==(const Look&) const = default;
};

enum class Alignment
{
    kDefault, ///< as the attachment point has it
    kLeft,
    kCenter,
    kRight,
    kJustified,  ///< both edges straight but for the last line
    kDistributed ///< the last line too
};

enum class TabKind
{
    kLeft,
    kCenter,
    kRight
};

/// Lengths are in text heights, as the codes have them.
struct Tab
{
    double place = 0.0;
    TabKind kind = TabKind::kLeft;
};

struct Paragraph
{
    double firstIndent = 0.0; ///< of the first line, beyond left
    double left = 0.0;
    double right = 0.0;
    double before = 0.0;
    double after = 0.0;
    std::optional<double> spacing; ///< the line spacing factor, where it is not the text's
    Alignment alignment = Alignment::kDefault;
    std::vector<Tab> tabs;
};

/// Changes a paragraph by the options of a \p code: "i-3,l3,qc,t3,c12". What cannot be read is passed over.
void applyOptions(Paragraph& paragraph, std::wstring_view options);

/// The base style with the font of a \f or \F code: "Arial|b0|i1|c0|p34" or "txt.shx,bigfont.shx".
OdGiTextStyle withFont(const OdGiTextStyle& base, std::wstring_view name, bool isFile);

} // namespace mtext
