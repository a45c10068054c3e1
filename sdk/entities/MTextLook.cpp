// Implements the reading of the options of format codes.
#include "entities/MTextLook.h"

#include <cmath>
#include <cwchar>
#include <string>

namespace mtext
{

namespace
{

constexpr double kGreatestLength = 1e6; ///< of a paragraph's measures, in text heights

/// Takes the part up to the divider off the front of rest.
std::wstring_view takePart(std::wstring_view& rest, wchar_t divider)
{
    const std::size_t end = rest.find(divider);
    const std::wstring_view part = rest.substr(0, end);
    rest.remove_prefix(end == std::wstring_view::npos ? rest.size() : end + 1);
    return part;
}

double numberOf(std::wstring_view text)
{
    const std::wstring number(text.substr(0, 40));
    const double value = std::wcstod(number.c_str(), nullptr);
    return std::isfinite(value) && std::fabs(value) < kGreatestLength ? value : 0.0;
}

Alignment alignmentOf(wchar_t letter)
{
    switch (letter)
    {
    case L'l':
        return Alignment::kLeft;
    case L'c':
        return Alignment::kCenter;
    case L'r':
        return Alignment::kRight;
    case L'j':
        return Alignment::kJustified;
    case L'd':
        return Alignment::kDistributed;
    default:
        return Alignment::kDefault;
    }
}

void addTab(Paragraph& paragraph, std::wstring_view text)
{
    if (text.empty())
        return;
    TabKind kind = TabKind::kLeft;
    if (text.front() == L'c' || text.front() == L'r')
    {
        kind = text.front() == L'c' ? TabKind::kCenter : TabKind::kRight;
        text.remove_prefix(1);
    }
    const double place = numberOf(text);
    if (place > (paragraph.tabs.empty() ? 0.0 : paragraph.tabs.back().place))
        paragraph.tabs.push_back({place, kind});
}

/// "m1.5" and "e1.5": times the usual, whatever the characters' height; "*" the text's own.
std::optional<double> spacingOf(std::wstring_view text)
{
    while (!text.empty() && (text.front() == L'm' || text.front() == L'e' || text.front() == L'a'))
        text.remove_prefix(1);
    const double factor = numberOf(text);
    return factor > 0.0 ? std::optional(factor) : std::nullopt;
}

/// The options of a paragraph that are numbers, by their letters.
constexpr std::pair<wchar_t, double Paragraph::*> kNumbers[] = {{L'i', &Paragraph::firstIndent},
                                                                {L'l', &Paragraph::left},
                                                                {L'r', &Paragraph::right},
                                                                {L'b', &Paragraph::before},
                                                                {L'a', &Paragraph::after}};

void applyOption(Paragraph& paragraph, wchar_t key, std::wstring_view value)
{
    for (const auto& [letter, number] : kNumbers)
        if (letter == key)
            paragraph.*number = numberOf(value);
    if (key == L's')
        paragraph.spacing = spacingOf(value);
    else if (key == L'q')
        paragraph.alignment = alignmentOf(value.empty() ? L'*' : value.front());
}

bool isOn(std::wstring_view option)
{
    return option.size() > 1 && option[1] != L'0';
}

} // namespace

void applyOptions(Paragraph& paragraph, std::wstring_view options)
{
    bool inTabs = false;
    while (!options.empty())
    {
        std::wstring_view option = takePart(options, L',');
        if (inTabs)
        {
            addTab(paragraph, option);
            continue;
        }
        if (!option.empty() && option.front() == L'x')
            option.remove_prefix(1);
        if (option.empty())
            continue;
        if (option.front() == L't')
        {
            inTabs = true;
            paragraph.tabs.clear();
            addTab(paragraph, option.substr(1));
        }
        else
            applyOption(paragraph, option.front(), option.substr(1));
    }
}

OdGiTextStyle withFont(const OdGiTextStyle& base, std::wstring_view name, bool isFile)
{
    OdGiTextStyle style = base;
    if (isFile || name.find(L".shx") != std::wstring_view::npos)
    {
        const std::wstring_view file = takePart(name, L',');
        style.setFileName(OdString(file));
        style.setBigFontFileName(OdString(name));
        return style;
    }
    const OdString typeface(takePart(name, L'|'));
    bool bold = false;
    bool italic = false;
    while (!name.empty())
    {
        const std::wstring_view option = takePart(name, L'|');
        if (!option.empty() && (option.front() == L'b' || option.front() == L'i'))
            (option.front() == L'b' ? bold : italic) = isOn(option);
    }
    style.setFont(typeface, bold, italic);
    return style;
}

} // namespace mtext
