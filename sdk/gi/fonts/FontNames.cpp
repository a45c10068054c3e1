// Implements the reading of font names by a table of those that drawings use.
#include "gi/fonts/FontNames.h"

#include <algorithm>

namespace fonts
{

namespace
{

struct KnownName
{
    std::string_view name;
    std::string_view family;
    bool bold = false;
    bool italic = false;
};

// Files of fonts of strokes that are not plain letters of one stroke width; and typefaces of the same name.
constexpr KnownName kStrokeFonts[] = {
    {"monotxt", "Liberation Mono"},
    {"complex", "Liberation Serif"},
    {"romanc", "Liberation Serif"},
    {"romant", "Liberation Serif"},
    {"italic", "Liberation Serif", false, true},
    {"italicc", "Liberation Serif", false, true},
    {"italict", "Liberation Serif", false, true},
    {"scriptc", "Liberation Serif", false, true},
    {"scripts", "Liberation Serif", false, true},
    {"gothice", "Liberation Serif", true},
    {"gothicg", "Liberation Serif", true},
    {"gothici", "Liberation Serif", true},
};

// Files of outline fonts whose names are not those of their typefaces.
constexpr KnownName kOutlineFiles[] = {
    {"arial", "Arial"},
    {"arialbd", "Arial", true},
    {"ariali", "Arial", false, true},
    {"arialbi", "Arial", true, true},
    {"arialn", "Arial Narrow"},
    {"arialnb", "Arial Narrow", true},
    {"arialni", "Arial Narrow", false, true},
    {"arialnbi", "Arial Narrow", true, true},
    {"ariblk", "Arial Black"},
    {"times", "Times New Roman"},
    {"timesbd", "Times New Roman", true},
    {"timesi", "Times New Roman", false, true},
    {"timesbi", "Times New Roman", true, true},
    {"cour", "Courier New"},
    {"courbd", "Courier New", true},
    {"couri", "Courier New", false, true},
    {"courbi", "Courier New", true, true},
    {"calibri", "Calibri"},
    {"calibrib", "Calibri", true},
    {"calibrii", "Calibri", false, true},
    {"calibriz", "Calibri", true, true},
    {"cambria", "Cambria"},
    {"consola", "Consolas"},
    {"consolab", "Consolas", true},
    {"tahoma", "Tahoma"},
    {"tahomabd", "Tahoma", true},
    {"verdana", "Verdana"},
    {"verdanab", "Verdana", true},
    {"verdanai", "Verdana", false, true},
    {"verdanaz", "Verdana", true, true},
    {"trebuc", "Trebuchet MS"},
    {"georgia", "Georgia"},
    {"segoeui", "Segoe UI"},
};

// Typefaces that are the outline forms of fonts of strokes.
constexpr std::string_view kTechnicalTypefaces[] = {"isocp",  "isocp2",  "isocp3",   "isocpeur", "isoct",
                                                    "isoct2", "isoct3",  "isocteur", "romans",   "simplex",
                                                    "txt",    "technic", "romand",   "iso3098",  "din1451"};

// The height of capitals in parts of the em square, of fonts that others of the same advance widths stand for.
struct EqualWidths
{
    std::string_view family;
    std::string_view substitute;
    double capHeight;
};

constexpr EqualWidths kEqualWidths[] = {
    {"arial", "Liberation Sans", 1466.0 / 2048.0},
    {"helvetica", "Liberation Sans", 1466.0 / 2048.0},
    {"arial narrow", "Liberation Sans Narrow", 1466.0 / 2048.0},
    {"times new roman", "Liberation Serif", 1356.0 / 2048.0},
    {"courier new", "Liberation Mono", 1170.0 / 2048.0},
};

std::string lowered(std::string_view text)
{
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; });
    return lower;
}

std::string_view withoutFolders(std::string_view path)
{
    const std::size_t last = path.find_last_of("/\\");
    return last == std::string_view::npos ? path : path.substr(last + 1);
}

std::string_view trimmed(std::string_view text)
{
    while (!text.empty() && text.front() == ' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    return text;
}

/// The ending of a file name with its dot, empty when there is none.
std::string_view endingOf(std::string_view name)
{
    const std::size_t dot = name.rfind('.');
    return dot == std::string_view::npos ? std::string_view() : name.substr(dot);
}

bool isOutlineEnding(std::string_view ending)
{
    return ending == ".ttf" || ending == ".ttc" || ending == ".otf";
}

template<std::size_t size>
const KnownName* find(const KnownName (&names)[size], std::string_view name)
{
    const auto* found =
        std::find_if(std::begin(names), std::end(names), [name](const KnownName& row) { return row.name == name; });
    return found == std::end(names) ? nullptr : found;
}

bool isTechnical(std::string_view name)
{
    return std::find(std::begin(kTechnicalTypefaces), std::end(kTechnicalTypefaces), name) !=
           std::end(kTechnicalTypefaces);
}

FontRequest requestOf(const KnownName& known, bool bold, bool italic)
{
    return {std::string(known.family), {}, known.bold || bold, known.italic || italic};
}

FontRequest strokeFont(std::string_view stem, bool bold, bool italic)
{
    if (const KnownName* known = find(kStrokeFonts, stem))
        return requestOf(*known, bold, italic);
    return {std::string(kTechnicalFamily), {}, bold, italic};
}

FontRequest outlineFont(std::string_view name, std::string_view file, bool bold, bool italic)
{
    const std::string lower = lowered(name);
    if (isTechnical(lower))
        return {std::string(kTechnicalFamily), {}, bold, italic};
    if (const KnownName* known = find(kOutlineFiles, lower))
        return requestOf(*known, bold, italic);
    return {std::string(name), std::string(file), bold, italic};
}

} // namespace

double widthPartFor(std::string_view meantFamily, std::string_view family, double capHeightOfEm)
{
    const std::string meant = lowered(meantFamily);
    for (const EqualWidths& row : kEqualWidths)
    {
        if (row.family == meant && row.substitute == family)
            return capHeightOfEm / row.capHeight;
    }
    return 1.0;
}

FontRequest requestFor(std::string_view fileName, std::string_view typeface, bool bold, bool italic)
{
    // A name may have a sign in front that asks for its vertical form.
    std::string_view name = trimmed(typeface);
    if (!name.empty() && name.front() == '@')
        name.remove_prefix(1);
    if (!name.empty())
        return outlineFont(name, {}, bold, italic);
    const std::string file = lowered(trimmed(withoutFolders(fileName)));
    const std::string_view ending = endingOf(file);
    const std::string_view stem = std::string_view(file).substr(0, file.size() - ending.size());
    return isOutlineEnding(ending) ? outlineFont(stem, file, bold, italic) : strokeFont(stem, bold, italic);
}

} // namespace fonts
