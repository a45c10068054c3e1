// The text type of the SDK: any Unicode text, cheap to pass around by value.
#pragma once

#include <atomic>
#include <concepts>
#include <cstdarg>
#include <cwchar>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "OdCodePage.h"
#include "OdPlatform.h"

class OdAnsiString;

/** An OdString is a text of Unicode characters that copies share until one of them is changed, so a copy costs as much
    as a pointer. Different strings may be used by different threads at the same time, also when they share their text;
    one string may not be changed by one thread while another uses it.

    Positions and lengths count characters from 0. An argument that is out of range is brought into range, unless an
    operation says otherwise. A null pointer given for a text stands for the empty text. No operation throws anything
    but OdError (eOutOfMemory), and what each says.

    Bytes that are no UTF-8 become the characters U+DC80 to U+DCFF (U+DC00 plus the byte) and turn into the same bytes
    again when the text is written, so that nothing is lost on the way through a string. */
class OdString
{
public:
    /** The empty text. */
    static const OdString kEmpty;

    OdString() noexcept : m_text(emptyText()) {}
    OdString(const OdString& source) noexcept : m_text(source.m_text) { share(); }
    OdString(OdString&& source) noexcept : m_text(source.m_text) { source.m_text = emptyText(); }
    OdString(const OdChar* source);
    OdString(const OdChar* source, int length);
    OdString(std::wstring_view source);
    OdString(const std::wstring& source) : OdString(std::wstring_view(source)) {}
    /** The character length times. */
    OdString(OdChar character, int length);
    /** Text of a character set; by default UTF-8. */
    OdString(const char* source, OdCodePageId codePage = CP_UNDEFINED);
    OdString(const char* source, int length, OdCodePageId codePage = CP_UNDEFINED);
    OdString(const OdAnsiString& source);
    OdString(std::nullptr_t) noexcept : m_text(emptyText()) {}
    ~OdString() { unshare(); }

    OdString& operator=(const OdString& source) noexcept;
    OdString& operator=(OdString&& source) noexcept;
    OdString& operator=(const OdChar* source);
    OdString& operator=(const char* source);
    OdString& operator=(OdChar character);

    // ---- Reading -------------------------------------------------------------------------------------------------

    int getLength() const { return header()->length; }
    bool isEmpty() const { return header()->length == 0; }
    /** Makes the string the empty text. */
    void empty();
    /** The characters, ended by a null character; valid until the string is changed or destroyed. */
    const OdChar* c_str() const { return m_text; }
    operator const OdChar*() const { return m_text; }
    std::wstring_view view() const { return {m_text, static_cast<std::size_t>(getLength())}; }
    /** The character at a position. Throws OdError (eInvalidIndex) outside of the text. */
    OdChar getAt(int index) const;
    /** The character at a position; at the position of the length, the null character. Not checked. */
    template<std::integral Index>
    OdChar operator[](Index index) const
    {
        return m_text[index];
    }
    /** Replaces one character. Throws OdError (eInvalidIndex) outside of the text. */
    void setAt(int index, OdChar character);
    /** True when no character is above 127. */
    bool isAscii() const;

    // ---- Comparing -----------------------------------------------------------------------------------------------

    /** Less than, equal to or greater than 0 as the text sorts before, is the same as or sorts behind other, by
        character values. */
    int compare(const OdChar* other) const;
    int compare(const OdString& other) const { return view().compare(other.view()); }
    /** As compare, with both texts folded by odCaseFold: independent of the user's language. */
    int iCompare(const OdChar* other) const;
    int iCompare(const OdString& other) const;

    // ---- Taking parts --------------------------------------------------------------------------------------------

    OdString mid(int first, int count) const;
    OdString mid(int first) const;
    OdString left(int count) const;
    OdString right(int count) const;
    /** The longest beginning that consists of these characters only, or of none of them. */
    OdString spanIncluding(const OdChar* characters) const;
    OdString spanExcluding(const OdChar* characters) const;

    // ---- Finding: the position, -1 when there is none ------------------------------------------------------------

    int find(OdChar character, int start = 0) const;
    int find(const OdChar* text, int start = 0) const;
    int find(const OdString& text, int start = 0) const;
    int reverseFind(OdChar character) const;
    int reverseFind(OdChar character, int start) const;
    /** The first, the last character that is one of these. */
    int findOneOf(const OdChar* characters, int start = 0) const;
    int findLastOneOf(const OdChar* characters) const;

    // ---- Changing ------------------------------------------------------------------------------------------------

    OdString& makeUpper();
    OdString& makeLower();
    OdString& makeReverse();
    /** Removes from an end: white space, one character, or every character of a set. */
    OdString& trimRight();
    OdString& trimRight(OdChar character);
    OdString& trimRight(const OdChar* characters);
    OdString& trimLeft();
    OdString& trimLeft(OdChar character);
    OdString& trimLeft(const OdChar* characters);
    /** Replaces every occurrence, from left to right, and returns how many. An empty oldText replaces nothing. */
    int replace(OdChar oldCharacter, OdChar newCharacter);
    int replace(const OdChar* oldText, const OdChar* newText);
    /** Removes every occurrence of the character and returns how many. */
    int remove(OdChar character);
    /** Puts something before a position. Returns the new length. */
    int insert(int index, OdChar character);
    int insert(int index, const OdChar* text);
    /** Removes count characters from a position on. Returns the new length. */
    int deleteChars(int index, int count = 1);
    /** Keeps the first maxLength characters. */
    void truncate(int maxLength);

    OdString& operator+=(const OdString& text) { return append(text.view()); }
    OdString& operator+=(const OdChar* text);
    OdString& operator+=(OdChar character) { return append({&character, 1}); }
    OdString& operator+=(const char* text) { return *this += OdString(text); }
    OdString& append(std::wstring_view text);

    /** Sets the text as wprintf would write it: %ls for a text of OdChar, %s for one of char. Returns the string
       itself. Throws OdError (eInvalidInput), with the string unchanged, for arguments that cannot be written. */
    OdString& format(const OdChar* format, ...);
    OdString& formatV(const OdChar* format, va_list arguments);

    // ---- Writing into the buffer ---------------------------------------------------------------------------------

    /** A buffer of at least minLength characters with the present text, which is this string's own. The string must not
        be used until releaseBuffer. */
    OdChar* getBuffer(int minLength);
    /** As getBuffer, with the length of the text set to length; characters that are new are null. */
    OdChar* getBufferSetLength(int length);
    /** Ends the use of the buffer: the text is its first newLength characters, or up to its null character for -1. */
    void releaseBuffer(int newLength = -1);
    /** Gives memory back that the text does not need. */
    void freeExtra();

    void swap(OdString& other) noexcept { std::swap(m_text, other.m_text); }

private:
    /** Stands before the characters of a text. */
    struct Header
    {
        std::atomic<int> references; ///< below 0 for the empty text, which is never counted
        int length;
        int capacity;
        int unused;
    };
    struct EmptyStorage;
    static EmptyStorage s_emptyStorage;

    explicit constexpr OdString(EmptyStorage& storage) noexcept;
    static OdChar* emptyText() noexcept { return s_emptyText; }
    Header* header() const { return reinterpret_cast<Header*>(m_text) - 1; }
    static OdChar* allocate(std::size_t capacity);
    static OdChar* make(std::wstring_view text);
    static void destroy(OdChar* text) noexcept;
    void share() const noexcept;
    void unshare() noexcept;
    void own(std::size_t capacity);
    void setLength(std::size_t length);
    OdString& keep(std::size_t first, std::size_t count);

    static OdChar* const s_emptyText;
    OdChar* m_text;
};

inline void OdString::share() const noexcept
{
    Header* shared = header();
    if (shared->references.load(std::memory_order_relaxed) >= 0)
        shared->references.fetch_add(1, std::memory_order_relaxed);
}

inline void OdString::unshare() noexcept
{
    Header* shared = header();
    const int references = shared->references.load(std::memory_order_acquire);
    if (references < 0)
        return;
    // nobody can share what only this string has
    if (references == 1 || shared->references.fetch_sub(1, std::memory_order_acq_rel) == 1)
        destroy(m_text);
}

inline OdString& OdString::operator=(OdString&& source) noexcept
{
    std::swap(m_text, source.m_text);
    return *this;
}

inline OdString& OdString::operator=(const OdString& source) noexcept
{
    OdString copy(source);
    std::swap(m_text, copy.m_text);
    return *this;
}

OdString operator+(const OdString& first, const OdString& second);
OdString operator+(const OdString& first, const OdChar* second);
OdString operator+(const OdChar* first, const OdString& second);
OdString operator+(const OdString& first, OdChar second);
OdString operator+(OdChar first, const OdString& second);
OdString operator+(const OdString& first, const char* second);
OdString operator+(const char* first, const OdString& second);

inline bool operator==(const OdString& first, const OdString& second)
{
    return first.c_str() == second.c_str() || first.view() == second.view();
}
inline bool operator==(const OdString& first, const OdChar* second)
{
    return first.compare(second) == 0;
}
inline bool operator==(const OdString& first, const char* second)
{
    return first == OdString(second);
}
inline bool operator<(const OdString& first, const OdString& second)
{
    return first.view() < second.view();
}
inline bool operator<(const OdString& first, const OdChar* second)
{
    return first.compare(second) < 0;
}
inline bool operator<(const OdChar* first, const OdString& second)
{
    return second.compare(first) > 0;
}
inline bool operator>(const OdString& first, const OdString& second)
{
    return second < first;
}
inline bool operator>(const OdString& first, const OdChar* second)
{
    return first.compare(second) > 0;
}
inline bool operator<=(const OdString& first, const OdString& second)
{
    return !(second < first);
}
inline bool operator>=(const OdString& first, const OdString& second)
{
    return !(first < second);
}

/** The form of a character in which upper and lower case are the same: independent of the user's language, one
    character to one. Used for every comparison without regard to case. */
inline OdChar odCaseFold(OdChar character);

/** The character in upper or lower case, independent of the user's language. */
inline OdChar odToUpper(OdChar character);
inline OdChar odToLower(OdChar character);

/** As the operations above, for characters that are not ASCII. */
OdChar odCaseFoldBeyondAscii(OdChar character);
OdChar odToUpperBeyondAscii(OdChar character);
OdChar odToLowerBeyondAscii(OdChar character);

inline bool odIsAscii(OdChar character)
{
    return character >= 0 && character < 0x80;
}
inline OdChar odToUpper(OdChar character)
{
    if (!odIsAscii(character))
        return odToUpperBeyondAscii(character);
    return character >= L'a' && character <= L'z' ? character - 32 : character;
}
inline OdChar odToLower(OdChar character)
{
    if (!odIsAscii(character))
        return odToLowerBeyondAscii(character);
    return character >= L'A' && character <= L'Z' ? character + 32 : character;
}
inline OdChar odCaseFold(OdChar character)
{
    return odIsAscii(character) ? odToLower(character) : odCaseFoldBeyondAscii(character);
}

/** True when both texts are the same without regard to case. */
bool odEqualsNoCase(std::wstring_view first, std::wstring_view second);
inline bool odEqualsNoCase(const OdString& first, const OdString& second)
{
    return first.c_str() == second.c_str() || odEqualsNoCase(first.view(), second.view());
}

/** Compares as OdString::iCompare. */
int odCompareNoCase(std::wstring_view first, std::wstring_view second);

/** The text of UTF-8 bytes; bytes that are none are kept as OdString says. */
OdString odUtf8ToString(std::string_view utf8);
inline OdString odUtf8ToString(const char* utf8, std::size_t length)
{
    return odUtf8ToString(std::string_view(utf8, length));
}

/** The text as UTF-8. A pair of surrogates becomes the character that it stands for, a character U+DC80 to U+DCFF the
    byte that it was read from, any other lone surrogate three bytes. */
std::string odStringToUtf8(std::wstring_view text);
inline std::string odStringToUtf8(const OdString& text)
{
    return odStringToUtf8(text.view());
}
inline std::string odStringToUtf8(const OdChar* text)
{
    return odStringToUtf8(std::wstring_view(text ? text : L""));
}

/** As odStringToUtf8, put behind what the buffer holds. */
void odAppendUtf8(std::string& buffer, std::wstring_view text);

/** Copies the ASCII characters that the text begins with, each to one byte, and returns how many they are. There is
   room for as many bytes as the text has characters; those behind the copied ones may be overwritten. */
std::size_t odCopyAscii(std::wstring_view text, char* target);

/** As odUtf8ToString, put behind what the buffer holds. */
void odAppendWide(std::wstring& buffer, std::string_view utf8);

namespace std
{
template<>
struct hash<OdString>
{
    size_t operator()(const OdString& text) const { return hash<wstring_view>()(text.view()); }
};
} // namespace std
