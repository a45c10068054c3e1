// Implements the breaking of a multi-line text into lines. Characters gather in a word; a finished word goes to the
// line, or begins the next one when it does not fit, so that each character is moved at most once.
#include "entities/MTextLayout.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "entities/MTextLine.h"
#include "entities/MTextParser.h"
#include "gi/fonts/Shaper.h"

namespace mtext
{

namespace
{

constexpr double kGreatestFigure = 1e100;
constexpr double kDegree = 3.14159265358979323846 / 180.0;
constexpr double kLineSpacing = 5.0 / 3.0; ///< from one base line to the next, in text heights
constexpr double kTabDistance = 4.0;       ///< of stops nobody has set, in text heights
constexpr int kNoJoin = -1;

/// The new value after a code with an absolute or relative number; a useless number changes nothing.
double changed(double value, const Piece& piece)
{
    const double result = piece.relative ? value * piece.number : piece.number;
    return result > 0.0 && result < kGreatestFigure ? result : value;
}

/// Characters that lines may be broken before and behind.
bool isIdeograph(wchar_t c)
{
    return (c >= 0x2E80 && c <= 0x9FFF) || (c >= 0xAC00 && c <= 0xD7A3) || (c >= 0xF900 && c <= 0xFAFF) ||
           (c >= 0xFF00 && c <= 0xFF60) || (c >= 0x20000 && c <= 0x3FFFD);
}

class Typesetter
{
public:
    explicit Typesetter(const Style& style);

    void take(const Piece& piece);
    Layout finish();

private:
    void takeCharacter(wchar_t character);
    void takeSpace();
    void takeTab();
    void takeStack(const Piece& piece);
    void takeLook(const Piece& piece);
    void takeColor(const Piece& piece);
    void takeFont(const Piece& piece);
    void appendToWord(wchar_t character);
    void closeFragment();
    void finishWord();
    void finishLine(bool endsParagraph);
    void finishParagraph();
    void settleTab();
    double startOfLine() const;
    double rightEdge() const;
    double gapWidening(bool endsParagraph) const;
    Tab nextTab(double from) const;
    void placeLines();
    double stepBetween(const Line* before, const Line& line) const;
    void finishColumn(double baseLine);
    void emit(Line& line, double left, double baseLine);

    const Style& m_style;
    Look m_look;
    Paragraph m_paragraph; // outlives the group that it is changed in, as it counts when its line ends
    std::vector<Look> m_groups;
    Layout m_layout;
    std::vector<Line> m_lines;
    std::size_t m_lastRuns = 0; // where the runs of the last line begin

    std::vector<Fragment> m_word; // x counts from the word's start
    double m_wordWidth = 0.0;
    std::wstring m_open; // characters of the word's last look, not yet measured
    Look m_openLook;

    std::vector<Fragment> m_fragments; // of the line
    double m_cursor = 0.0;             // the line's width with the spaces at its end
    int m_spaces = 0;                  // since the last word
    Look m_spaceLook;
    bool m_joins = true;         // nothing but spaces of one look since the last word
    bool m_beginsColumn = false; // the next line does
    bool m_firstLine = true;     // of the paragraph
    std::optional<Tab> m_tab;    // what follows is to be moved to
    std::size_t m_tabFragment = 0;
};

Typesetter::Typesetter(const Style& style) : m_style(style)
{
    m_look.height = style.height;
    m_look.widthFactor = style.text.xScale();
    m_look.oblique = style.text.obliquingAngle();
    m_layout.fonts.push_back(style.text);
}

void Typesetter::take(const Piece& piece)
{
    switch (piece.kind)
    {
    case PieceKind::kCharacter:
        return takeCharacter(piece.character);
    case PieceKind::kLineEnd:
        return finishParagraph();
    case PieceKind::kColumnEnd:
        finishParagraph();
        m_beginsColumn = true;
        return;
    case PieceKind::kStack:
        return takeStack(piece);
    case PieceKind::kParagraph:
        return applyOptions(m_paragraph, piece.text);
    case PieceKind::kGroupBegin:
        m_groups.push_back(m_look);
        return;
    case PieceKind::kGroupEnd:
        if (!m_groups.empty())
        {
            m_look = m_groups.back();
            m_groups.pop_back();
        }
        return;
    default:
        return takeLook(piece);
    }
}

void Typesetter::takeLook(const Piece& piece)
{
    const auto switched = [&piece](bool value) { return piece.number < 0.0 ? !value : piece.number > 0.0; };
    Look& look = m_look;
    switch (piece.kind)
    {
    case PieceKind::kHeight:
        look.height = changed(look.height, piece);
        return;
    case PieceKind::kWidthFactor:
        look.widthFactor = changed(look.widthFactor, piece);
        return;
    case PieceKind::kTracking:
        look.tracking = changed(look.tracking, piece);
        return;
    case PieceKind::kOblique:
        look.oblique = std::fabs(piece.number) <= 85.0 ? piece.number * kDegree : look.oblique;
        return;
    case PieceKind::kLineAlignment:
        look.lineAlignment = piece.number == 1.0 || piece.number == 2.0 ? static_cast<int>(piece.number) : 0;
        return;
    case PieceKind::kUnderline:
        look.underlined = switched(look.underlined);
        return;
    case PieceKind::kOverline:
        look.overlined = switched(look.overlined);
        return;
    case PieceKind::kStrike:
        look.striked = switched(look.striked);
        return;
    case PieceKind::kFont:
        return takeFont(piece);
    default:
        return takeColor(piece);
    }
}

void Typesetter::takeColor(const Piece& piece)
{
    OdCmEntityColor color;
    if (piece.kind == PieceKind::kTrueColor && piece.number >= 0.0 && piece.number <= 0xFFFFFF)
    {
        const auto bgr = static_cast<OdUInt32>(piece.number);
        color.setRGB(static_cast<OdUInt8>(bgr), static_cast<OdUInt8>(bgr >> 8), static_cast<OdUInt8>(bgr >> 16));
    }
    else if (piece.kind == PieceKind::kColorIndex && piece.number >= 0.0 && piece.number <= 256.0)
        color.setColorIndex(static_cast<OdInt16>(piece.number));
    else
        return;
    m_look.color = color.color();
}

void Typesetter::takeFont(const Piece& piece)
{
    OdGiTextStyle style = withFont(m_style.text, piece.text, piece.character == L'F');
    const fonts::Font* font = &fonts::Font::of(style);
    std::size_t place = 0;
    while (place < m_layout.fonts.size() && &fonts::Font::of(m_layout.fonts[place]) != font)
        ++place;
    if (place == m_layout.fonts.size())
        m_layout.fonts.push_back(std::move(style));
    m_look.font = place;
}

void Typesetter::takeCharacter(wchar_t character)
{
    if (character == L' ')
        return takeSpace();
    if (character == L'\t')
        return takeTab();
    const bool breaks = isIdeograph(character);
    if (breaks)
        finishWord();
    appendToWord(character);
    if (breaks)
        finishWord();
}

void Typesetter::takeSpace()
{
    finishWord();
    if (m_spaces > 0 && m_spaceLook != m_look)
        m_joins = false;
    m_spaceLook = m_look;
    ++m_spaces;
    m_cursor += widthOf(L" ", m_look, m_layout.fonts);
}

Tab Typesetter::nextTab(double from) const
{
    const double height = m_style.height;
    for (const Tab& tab : m_paragraph.tabs)
    {
        if (tab.place * height > from)
            return {tab.place * height, tab.kind};
    }
    const double distance = kTabDistance * height;
    return {(std::floor(from / distance + 1e-9) + 1.0) * distance, TabKind::kLeft};
}

void Typesetter::takeTab()
{
    finishWord();
    settleTab();
    const Tab tab = nextTab(m_cursor);
    if (tab.kind == TabKind::kLeft)
        m_cursor = tab.place;
    else
        m_tab = tab;
    m_tabFragment = m_fragments.size();
    m_spaces = 0;
    m_joins = false;
}

/// Moves what came after a stop that centres or ends it to its place.
void Typesetter::settleTab()
{
    if (!m_tab)
        return;
    const Tab tab = *m_tab;
    m_tab.reset();
    if (m_tabFragment == m_fragments.size())
    {
        m_cursor = std::max(m_cursor, tab.place);
        return;
    }
    const double start = m_fragments[m_tabFragment].x;
    const double width = m_cursor - start;
    const double wanted = tab.place - (tab.kind == TabKind::kCenter ? width / 2 : width);
    const double by = std::max(wanted - start, 0.0);
    for (std::size_t i = m_tabFragment; i < m_fragments.size(); ++i)
        m_fragments[i].x += by;
    m_cursor += by;
}

void Typesetter::appendToWord(wchar_t character)
{
    if (!m_open.empty() && m_openLook != m_look)
        closeFragment();
    m_openLook = m_look;
    m_open.push_back(character);
}

void Typesetter::closeFragment()
{
    if (m_open.empty())
        return;
    Fragment fragment;
    fragment.look = m_openLook;
    fragment.x = m_wordWidth;
    fragment.width = widthOf(m_open, m_openLook, m_layout.fonts);
    fragment.top = m_openLook.height;
    m_wordWidth += fragment.width;
    fragment.runs.push_back({std::move(m_open), 0.0, 0.0, fragment.width, m_openLook});
    m_word.push_back(std::move(fragment));
    m_open.clear();
}

void Typesetter::takeStack(const Piece& piece)
{
    if (piece.character == 0)
    {
        for (const wchar_t character : piece.text)
            appendToWord(character);
        return;
    }
    closeFragment();
    Fragment stack = makeStack(piece.text, piece.lower, piece.character, m_look, m_layout.fonts);
    stack.x = m_wordWidth;
    m_wordWidth += stack.width;
    m_word.push_back(std::move(stack));
}

double Typesetter::startOfLine() const
{
    const Paragraph& paragraph = m_paragraph;
    return std::max(paragraph.left + (m_firstLine ? paragraph.firstIndent : 0.0), 0.0) * m_style.height;
}

double Typesetter::rightEdge() const
{
    return m_style.width > 0.0 ? m_style.width - m_paragraph.right * m_style.height : 0.0;
}

void Typesetter::finishWord()
{
    closeFragment();
    if (m_word.empty())
        return;
    // Rounding must not break a line that fits exactly.
    if (m_style.width > 0.0 && m_cursor > 0.0 &&
        startOfLine() + m_cursor + m_wordWidth > rightEdge() + 1e-9 * m_style.width)
        finishLine(false);
    Fragment& head = m_word.front();
    head.gapBefore = !m_fragments.empty() && m_spaces > 0;
    head.spacesBefore = m_joins && (m_spaces == 0 || m_spaceLook == head.look) ? m_spaces : kNoJoin;
    for (Fragment& fragment : m_word)
    {
        fragment.x += m_cursor;
        m_fragments.push_back(std::move(fragment));
    }
    m_cursor += m_wordWidth;
    m_word.clear();
    m_wordWidth = 0.0;
    m_spaces = 0;
    m_joins = true;
}

double Typesetter::gapWidening(bool endsParagraph) const
{
    const Alignment alignment = m_paragraph.alignment;
    const bool widens = alignment == Alignment::kDistributed || (alignment == Alignment::kJustified && !endsParagraph);
    if (!widens || m_style.width <= 0.0 || m_fragments.empty())
        return 0.0;
    const auto gaps = std::count_if(m_fragments.begin(), m_fragments.end(),
                                    [](const Fragment& fragment) { return fragment.gapBefore; });
    const double rest = rightEdge() - startOfLine() - m_fragments.back().x - m_fragments.back().width;
    return gaps > 0 && rest > 0.0 ? rest / static_cast<double>(gaps) : 0.0;
}

void Typesetter::finishLine(bool endsParagraph)
{
    settleTab();
    const double extra = gapWidening(endsParagraph);
    const double start = startOfLine();
    Line line = makeLine(std::move(m_fragments), m_look.height, extra);
    for (Run& run : line.runs)
        run.x += start;
    for (Bar& bar : line.bars)
    {
        bar.start.x += start;
        bar.end.x += start;
    }
    line.width += start + m_paragraph.right * m_style.height;
    line.spacing = m_paragraph.spacing.value_or(m_style.spacingFactor);
    line.before += m_firstLine ? m_paragraph.before * m_style.height : 0.0;
    line.alignment = m_paragraph.alignment == Alignment::kDefault ? m_style.alignment : m_paragraph.alignment;
    line.beginsColumn = std::exchange(m_beginsColumn, false);
    m_lines.push_back(std::move(line));
    m_fragments.clear();
    m_cursor = 0.0;
    m_spaces = 0;
    m_joins = true;
    m_firstLine = endsParagraph;
}

void Typesetter::finishParagraph()
{
    finishWord();
    finishLine(true);
    // The room after a paragraph is kept where the next one finds it.
    m_lines.back().descent += std::max(m_paragraph.after, 0.0) * m_style.height;
}

void Typesetter::emit(Line& line, double left, double baseLine)
{
    for (Run& run : line.runs)
    {
        run.x += left;
        run.y += baseLine;
        m_layout.runs.push_back(std::move(run));
    }
    for (const Bar& bar : line.bars)
    {
        const OdGeVector2d by(left, baseLine);
        m_layout.bars.push_back({bar.start + by, bar.end + by, bar.look});
    }
}

double partOf(Alignment alignment)
{
    return alignment == Alignment::kCenter ? 0.5 : alignment == Alignment::kRight ? 1.0 : 0.0;
}

void Typesetter::placeLines()
{
    const Columns& columns = m_style.columns;
    for (const Line& line : m_lines)
        m_layout.width = std::max(m_layout.width, line.width);
    const double columnWidth = m_style.width > 0.0 ? m_style.width : m_layout.width;
    m_layout.frame = columnWidth * columns.count + columns.gutter * (columns.count - 1);
    int column = 0;
    double baseLine = 0.0;
    const Line* before = nullptr; // in the same column
    for (Line& line : m_lines)
    {
        double next = baseLine - stepBetween(before, line);
        const double limit = columns.heightOf(column);
        const bool isFull = limit > 0.0 && before && -next > limit * (1.0 + 1e-9);
        if (before && column + 1 < columns.count && (isFull || line.beginsColumn))
        {
            finishColumn(baseLine);
            ++column;
            next = -stepBetween(nullptr, line);
        }
        baseLine = next;
        const int place = columns.isReversed ? columns.count - 1 - column : column;
        const double left = place * (columnWidth + columns.gutter);
        m_lastRuns = m_layout.runs.size();
        emit(line, left + (columnWidth - line.width) * partOf(line.alignment), baseLine);
        before = &line;
    }
    finishColumn(baseLine);
    m_layout.lines = m_lines.size();
}

/// From the base line of the line before, or the top of the column, down to that of a line.
double Typesetter::stepBetween(const Line* before, const Line& line) const
{
    if (!before)
        return line.ascent;
    const double spacing = kLineSpacing * line.spacing;
    const double overhang = line.ascent - line.height + before->descent;
    return line.before +
           (m_style.exactSpacing ? spacing * m_style.height : spacing * line.height + std::max(overhang, 0.0));
}

/// What reaches below the last base line of a column belongs to the text's height.
void Typesetter::finishColumn(double baseLine)
{
    m_layout.height = std::max(m_layout.height, -baseLine);
    for (std::size_t i = m_lastRuns; i < m_layout.runs.size(); ++i)
    {
        const Run& run = m_layout.runs[i];
        const OdGiShapedText shaped = fonts::shape(styleOf(m_layout, run.look), run.characters, true);
        if (shaped.ink.isValidExtents())
            m_layout.height = std::max(m_layout.height, -run.y - shaped.ink.minPoint().y);
    }
}

Layout Typesetter::finish()
{
    finishWord();
    finishLine(true);
    placeLines();
    return std::move(m_layout);
}

} // namespace

double Columns::heightOf(int column) const
{
    if (heights.empty())
        return 0.0;
    return heights[std::min(static_cast<std::size_t>(column), heights.size() - 1)];
}

Layout layOut(std::wstring_view contents, const Style& style)
{
    Typesetter typesetter(style);
    Parser parser(contents);
    for (Piece piece; parser.next(piece);)
        typesetter.take(piece);
    return typesetter.finish();
}

OdGiTextStyle styleOf(const Layout& layout, const Look& look)
{
    OdGiTextStyle style = layout.fonts[look.font];
    style.setTextSize(look.height);
    style.setXScale(look.widthFactor);
    style.setObliquingAngle(look.oblique);
    style.setTrackingPercent(look.tracking);
    style.setUnderlined(look.underlined);
    style.setOverlined(look.overlined);
    style.setStriked(look.striked);
    style.setVertical(false);
    return style;
}

OdGeExtents2d inkOf(const Layout& layout)
{
    OdGeExtents2d ink;
    for (const Run& run : layout.runs)
    {
        const OdGiShapedText shaped = fonts::shape(styleOf(layout, run.look), run.characters, true);
        OdGeExtents2d box = shaped.ink;
        if (!box.isValidExtents())
            continue;
        box.translate(OdGeVector2d(run.x, run.y));
        ink.addExt(box);
    }
    for (const Bar& bar : layout.bars)
        ink.addPoint(bar.start).addPoint(bar.end);
    return ink;
}

} // namespace mtext
