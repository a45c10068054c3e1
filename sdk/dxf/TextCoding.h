// Texts cross the border between a file and the database here. In the database they are UTF-8; in a file they are UTF-8
// from R2007 on and in the drawing's code page before, with \U+XXXX for the characters that the code page lacks and ^J,
// ^M for line ends. Nothing is lost on the way: bytes that the file's coding does not know pass unchanged both ways.
#pragma once

#include "OdCodePage.h"

#include <string>
#include <string_view>

namespace dxf
{

/// Turns the texts of one file into UTF-8.
class TextDecoder
{
public:
    /// The decoder of a file in UTF-8.
    TextDecoder() = default;
    /// The decoder of a file in a code page.
    explicit TextDecoder(OdCodePageId page) : m_page(page) {}

    /// Returns the text in UTF-8: the raw text itself where nothing is to be done, else a text that stays valid until
    /// the next call.
    std::string_view decode(std::string_view raw) { return isPlain(raw) ? raw : decodeSpecial(raw); }

private:
    bool isPlain(std::string_view raw) const;
    std::string_view decodeSpecial(std::string_view raw);

    OdCodePageId m_page = CP_UNDEFINED; // UTF-8
    std::string m_text;
    std::string m_paged; // the text between its two steps
};

/// Turns UTF-8 into the coding of one file.
class TextEncoder
{
public:
    TextEncoder() = default;
    explicit TextEncoder(OdCodePageId page) : m_page(page) {}

    /// Returns the text in the file's coding: the text itself where nothing is to be done, else a text that stays valid
    /// until the next call.
    std::string_view encode(std::string_view utf8) { return isPlain(utf8) ? utf8 : encodeSpecial(utf8); }

private:
    bool isPlain(std::string_view utf8) const;
    std::string_view encodeSpecial(std::string_view utf8);

    OdCodePageId m_page = CP_UNDEFINED; // UTF-8
    std::string m_text;
    std::string m_paged; // the text between its two steps
};

} // namespace dxf
