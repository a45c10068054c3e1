// Finds installed fonts.
#pragma once

#include <vector>

#include "Gi/GiShapedText.h"
#include "gi/fonts/FontNames.h"

namespace fonts
{

using FontFile = OdGiFontFile;

/// Whether characters are in a font. Shares what the system keeps of the font.
class Coverage
{
public:
    /// Of a set of the system, which it keeps.
    explicit Coverage(void* charset) : m_charset(charset) {}
    bool has(wchar_t character) const;

private:
    void* m_charset;
};

/// A font that may serve for characters another one lacks.
struct Substitute
{
    FontFile file;
    Coverage coverage;
};

/// The installed outline font that comes next to the request: the file, the family, one of equal metrics, a plain one.
/// Its path is empty when no font is installed.
FontFile findFont(const FontRequest& request);

/// The installed outline fonts in the order in which they come next to the request.
std::vector<Substitute> findSubstitutes(const FontRequest& request);

} // namespace fonts
