// Turning the bytes of old drawings into text and back: code pages, and characters written as \U+XXXX.
#pragma once

#include <string>
#include <string_view>

#include "OdCodePage.h"
#include "OdResult.h"
#include "OdString.h"

/** OdCharMapper converts between the character sets of drawings and Unicode. Threads may share it.

    Whatever cannot be converted is kept: a byte that is no character of its code page becomes U+DC00 plus the byte (see
    OdString) and that byte again on the way back, a character that a code page does not have becomes \U+XXXX. As UTF-8,
    several such bytes in a row that happen to make UTF-8 are the character that they make. */
class OdCharMapper
{
public:
    /** The code page that a drawing's header names ("ANSI_1252"), without regard to case. Returns eInvalidInput, with
        id unchanged, for a name that is not known. */
    static OdResult getCodepageByDesc(const OdString& description, OdCodePageId& id);

    /** The name for a drawing's header. Returns eInvalidInput, with description unchanged, for no code page. */
    static OdResult getCodepageDesc(OdCodePageId id, OdString& description);

    /** True when a byte begins a character of two bytes. */
    static bool isLeadByte(OdUInt8 byte, OdCodePageId id);

    /** Puts the text behind what the buffer holds. Bytes of an undefined code page are taken as UTF-8. */
    static void codepageToUnicode(std::string_view bytes, OdCodePageId id, std::wstring& text);
    static OdString codepageToUnicode(std::string_view bytes, OdCodePageId id);

    /** As codepageToUnicode, with the text as UTF-8. */
    static void codepageToUtf8(std::string_view bytes, OdCodePageId id, std::string& utf8);

    /** Puts the bytes of the text behind what the buffer holds. */
    static void unicodeToCodepage(std::wstring_view text, OdCodePageId id, std::string& bytes);
    static void utf8ToCodepage(std::string_view utf8, OdCodePageId id, std::string& bytes);

    /** True when the code page has the character. */
    static bool hasCharacter(OdChar character, OdCodePageId id);

    /** True when UTF-8 text may hold \U+XXXX or \M+nXXXX: a cheap test, so that ordinary text need not be decoded. */
    static bool hasEscapes(std::string_view utf8)
    {
        return utf8.find('+') != std::string_view::npos && findEscape(utf8) != std::string_view::npos;
    }

    /** Replaces each \U+XXXX (from 0080 on) in UTF-8 text by its character, two surrogates that follow each other by
       the one character they stand for, and each \M+nXXXX by the character of its double-byte code page. A lone
       surrogate and whatever has not exactly this form stay as they are. Puts the result behind what the buffer holds.
     */
    static void decodeEscapes(std::string_view utf8, std::string& decoded);
    static OdString decodeEscapes(const OdString& text);

    /** Writes every character above 127 as \U+XXXX, one above U+FFFF as two surrogates. Characters that stand for bytes
        (see OdString) become those bytes. Puts the result behind what the buffer holds. */
    static void encodeEscapes(std::wstring_view text, std::string& encoded);

private:
    static std::size_t findEscape(std::string_view utf8);
};
