// Implements the search for fonts with fontconfig.
#include "gi/fonts/FontFinder.h"

#include <fontconfig/fontconfig.h>

#include <algorithm>
#include <filesystem>
#include <memory>

namespace fonts
{

namespace
{

struct Release
{
    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
    void operator()(FcFontSet* set) const { FcFontSetDestroy(set); }
};

using Pattern = std::unique_ptr<FcPattern, Release>;
using FontSet = std::unique_ptr<FcFontSet, Release>;

const FcChar8* bytes(const char* text)
{
    return reinterpret_cast<const FcChar8*>(text);
}

std::string textOf(const FcPattern* pattern, const char* name)
{
    FcChar8* value = nullptr;
    return FcPatternGetString(pattern, name, 0, &value) == FcResultMatch ? reinterpret_cast<const char*>(value) : "";
}

int numberOf(const FcPattern* pattern, const char* name)
{
    int value = 0;
    return FcPatternGetInteger(pattern, name, 0, &value) == FcResultMatch ? value : 0;
}

bool isTrue(const FcPattern* pattern, const char* name)
{
    FcBool value = FcFalse;
    return FcPatternGetBool(pattern, name, 0, &value) == FcResultMatch && value == FcTrue;
}

/// Outlines in the formats that can be read, in one cut.
bool isUsable(const FcPattern* pattern)
{
    const std::string format = textOf(pattern, FC_FONTFORMAT);
    return isTrue(pattern, FC_SCALABLE) && !isTrue(pattern, FC_VARIABLE) && !isTrue(pattern, FC_COLOR) &&
           (format == "TrueType" || format == "CFF");
}

FontFile fileOf(const FcPattern* pattern)
{
    FontFile file;
    file.path = textOf(pattern, FC_FILE);
    file.family = textOf(pattern, FC_FAMILY);
    file.face = numberOf(pattern, FC_INDEX);
    file.bold = numberOf(pattern, FC_WEIGHT) >= FC_WEIGHT_DEMIBOLD;
    file.italic = numberOf(pattern, FC_SLANT) != FC_SLANT_ROMAN;
    return file;
}

Pattern patternOf(const FontRequest& request)
{
    Pattern pattern(FcPatternCreate());
    FcPatternAddString(pattern.get(), FC_FAMILY, bytes(request.family.c_str()));
    FcPatternAddString(pattern.get(), FC_FAMILY, bytes(kPlainFamily.data()));
    FcPatternAddInteger(pattern.get(), FC_WEIGHT, request.bold ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
    FcPatternAddInteger(pattern.get(), FC_SLANT, request.italic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
    FcPatternAddBool(pattern.get(), FC_SCALABLE, FcTrue);
    FcPatternAddBool(pattern.get(), FC_VARIABLE, FcFalse);
    FcPatternAddBool(pattern.get(), FC_COLOR, FcFalse);
    FcConfigSubstitute(nullptr, pattern.get(), FcMatchPattern);
    FcDefaultSubstitute(pattern.get());
    return pattern;
}

/// The installed font whose file has this name.
FontFile findFile(const std::string& name)
{
    const FcFontSet* installed = FcConfigGetFonts(nullptr, FcSetSystem);
    for (int i = 0; installed && i < installed->nfont; ++i)
    {
        const FcPattern* font = installed->fonts[i];
        std::string file = std::filesystem::path(textOf(font, FC_FILE)).filename().string();
        std::transform(file.begin(), file.end(), file.begin(),
                       [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c; });
        if (file == name && isUsable(font))
            return fileOf(font);
    }
    return {};
}

FontSet sortedFonts(const FontRequest& request)
{
    FcResult result = FcResultNoMatch;
    const Pattern pattern = patternOf(request);
    return FontSet(FcFontSort(nullptr, pattern.get(), FcFalse, nullptr, &result));
}

} // namespace

bool Coverage::has(wchar_t character) const
{
    return FcCharSetHasChar(static_cast<const FcCharSet*>(m_charset), static_cast<FcChar32>(character)) == FcTrue;
}

FontFile findFont(const FontRequest& request)
{
    if (!request.file.empty())
    {
        if (FontFile file = findFile(request.file); !file.path.empty())
            return file;
    }
    FcResult result = FcResultNoMatch;
    const Pattern pattern = patternOf(request);
    const Pattern match(FcFontMatch(nullptr, pattern.get(), &result));
    if (match && isUsable(match.get()))
        return fileOf(match.get());
    const FontSet sorted = sortedFonts(request);
    for (int i = 0; sorted && i < sorted->nfont; ++i)
    {
        if (isUsable(sorted->fonts[i]))
            return fileOf(sorted->fonts[i]);
    }
    return {};
}

std::vector<Substitute> findSubstitutes(const FontRequest& request)
{
    std::vector<Substitute> substitutes;
    const FontSet sorted = sortedFonts(request);
    for (int i = 0; sorted && i < sorted->nfont; ++i)
    {
        const FcPattern* font = sorted->fonts[i];
        FcCharSet* charset = nullptr;
        if (!isUsable(font) || FcPatternGetCharSet(font, FC_CHARSET, 0, &charset) != FcResultMatch)
            continue;
        substitutes.push_back({fileOf(font), Coverage(FcCharSetCopy(charset))});
    }
    return substitutes;
}

} // namespace fonts
