// Implements the breaking of a multi-line text into lines. Characters gather in a word; a finished word goes to the
// line, or begins the next one when it does not fit, so that each character is moved at most once.
#include "entities/MTextLayout.h"

#include <algorithm>
#include <cmath>

#include "entities/MTextParser.h"
#include "gi/TextMetrics.h"

namespace mtext
{

namespace
{

constexpr double kGreatestFigure = 1e100;
constexpr double kStackHeight = 0.7; ///< height of stacked characters in parts of that around them
constexpr double kStackRise = 0.55;
constexpr double kStackDrop = -0.45;
constexpr wchar_t kTab = 9;

/// What format codes change.
struct Look
{
    double height;
    double widthFactor;
    double oblique;
    double tracking = 1.0;

    bool matches(const Run& run) const
    {
        return run.height == height && run.widthFactor == widthFactor && run.oblique == oblique && run.y == 0.0;
    }
};

/// The new value after a code with an absolute or relative number; a useless number changes nothing.
double changed(double value, const Piece& piece)
{
    const double result = piece.relative ? value * piece.number : piece.number;
    return result > 0.0 && result < kGreatestFigure ? result : value;
}

class Typesetter
{
public:
    explicit Typesetter(const Style& style) : m_style(style), m_look{style.height, style.widthFactor, style.oblique} {}

    void take(const Piece& piece);
    Layout finish();

private:
    void takeCharacter(wchar_t character);
    void takeStack(const Piece& piece);
    void appendToWord(wchar_t character);
    void appendStacked(std::wstring_view text, double rise, double x);
    void finishWord();
    void finishLine();
    double advance(wchar_t character, double height) const;

    const Style& m_style;
    Look m_look;
    std::vector<Look> m_groups;
    std::vector<Run> m_word; // x counts from the word's start, y is the rise above the base line
    double m_wordWidth = 0.0;
    LineOfRuns m_line;
    double m_cursor = 0.0; // the line's width with the spaces at its end
    Layout m_layout;
};

double Typesetter::advance(wchar_t character, double height) const
{
    return textmetrics::advance(character) * height * m_look.widthFactor * m_look.tracking;
}

void Typesetter::take(const Piece& piece)
{
    switch (piece.kind)
    {
    case PieceKind::kCharacter:
        return takeCharacter(piece.character);
    case PieceKind::kLineEnd:
    case PieceKind::kColumnEnd:
        finishWord();
        return finishLine();
    case PieceKind::kStack:
        return takeStack(piece);
    case PieceKind::kHeight:
        m_look.height = changed(m_look.height, piece);
        return;
    case PieceKind::kWidthFactor:
        m_look.widthFactor = changed(m_look.widthFactor, piece);
        return;
    case PieceKind::kTracking:
        m_look.tracking = changed(m_look.tracking, piece);
        return;
    case PieceKind::kOblique:
        if (std::fabs(piece.number) <= 85.0)
            m_look.oblique = piece.number * 3.14159265358979323846 / 180.0;
        return;
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
        return;
    }
}

void Typesetter::takeCharacter(wchar_t character)
{
    if (character == L' ' || character == kTab)
    {
        finishWord();
        m_cursor += advance(character, m_look.height);
    }
    else
        appendToWord(character);
}

void Typesetter::appendToWord(wchar_t character)
{
    if (m_word.empty() || !m_look.matches(m_word.back()))
        m_word.push_back({{}, m_wordWidth, 0.0, m_look.height, m_look.widthFactor, m_look.oblique, 0.0});
    const double width = advance(character, m_look.height);
    m_word.back().characters.push_back(character);
    m_word.back().width += width;
    m_wordWidth += width;
}

void Typesetter::appendStacked(std::wstring_view text, double rise, double x)
{
    Run run{std::wstring(text), x,  rise * m_look.height, m_look.height * kStackHeight, m_look.widthFactor,
            m_look.oblique,     0.0};
    for (const wchar_t character : text)
        run.width += advance(character, run.height);
    m_wordWidth = std::max(m_wordWidth, x + run.width);
    m_word.push_back(std::move(run));
}

void Typesetter::takeStack(const Piece& piece)
{
    const double left = m_wordWidth;
    if (piece.character == 0)
    {
        for (const wchar_t character : piece.text)
            appendToWord(character);
        return;
    }
    appendStacked(piece.text, kStackRise, left);
    appendStacked(piece.lower, kStackDrop, piece.character == L'#' ? m_wordWidth : left);
}

void Typesetter::finishWord()
{
    if (m_word.empty())
        return;
    if (m_style.width > 0.0 && !m_line.runs.empty() && m_cursor + m_wordWidth > m_style.width)
        finishLine();
    for (Run& run : m_word)
    {
        run.x += m_cursor;
        m_line.height = std::max(m_line.height, run.height);
        m_line.runs.push_back(std::move(run));
    }
    m_cursor += m_wordWidth;
    m_line.width = m_cursor;
    m_word.clear();
    m_wordWidth = 0.0;
}

void Typesetter::finishLine()
{
    if (m_line.runs.empty())
        m_line.height = m_look.height;
    m_layout.lines.push_back(std::move(m_line));
    m_line = LineOfRuns();
    m_cursor = 0.0;
}

Layout Typesetter::finish()
{
    finishWord();
    finishLine();
    double baseLine = 0.0;
    for (LineOfRuns& line : m_layout.lines)
    {
        const bool first = &line == &m_layout.lines.front();
        const double spacing = textmetrics::kLineSpacing * m_style.spacingFactor;
        const double step = spacing * (m_style.exactSpacing ? m_style.height : line.height);
        baseLine -= first ? line.height : step;
        for (Run& run : line.runs)
            run.y += baseLine;
        m_layout.width = std::max(m_layout.width, line.width);
    }
    m_layout.height = -baseLine;
    return std::move(m_layout);
}

} // namespace

Layout layOut(std::wstring_view contents, const Style& style)
{
    Typesetter typesetter(style);
    Parser parser(contents);
    for (Piece piece; parser.next(piece);)
        typesetter.take(piece);
    return typesetter.finish();
}

} // namespace mtext
