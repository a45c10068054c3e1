// The memory of texts: sharing, copying before a change, growing.
//
//     references  length  capacity  unused | characters ... 0
//     <------------- header -------------> ^ what a string points to
#include "OdString.h"

#include <cstdlib>
#include <cstring>

#include "OdAnsiString.h"
#include "OdCharMapper.h"
#include "OdError.h"

namespace
{

constexpr std::size_t kMaxLength = 0x1FFFFFF0;

std::size_t lengthOf(const OdChar* text)
{
    return text ? std::wcslen(text) : 0;
}

std::wstring_view viewOf(const OdChar* text)
{
    return {text, lengthOf(text)};
}

} // namespace

struct OdString::EmptyStorage
{
    Header header;
    OdChar text[1];
};

constinit OdString::EmptyStorage OdString::s_emptyStorage{{{-1}, 0, 0, 0}, {0}};
constinit OdChar* const OdString::s_emptyText = s_emptyStorage.text;

constexpr OdString::OdString(EmptyStorage& storage) noexcept : m_text(storage.text) {}

constinit const OdString OdString::kEmpty{s_emptyStorage};

OdString::OdString(const OdChar* source) : m_text(make(viewOf(source))) {}

OdString::OdString(const OdChar* source, int length)
    : m_text(make(source && length > 0 ? std::wstring_view(source, static_cast<std::size_t>(length))
                                       : std::wstring_view()))
{
}

OdString::OdString(std::wstring_view source) : m_text(make(source)) {}

OdString::OdString(OdChar character, int length) : m_text(emptyText())
{
    if (length <= 0)
        return;
    OdChar* buffer = getBuffer(length);
    std::wmemset(buffer, character, static_cast<std::size_t>(length));
    releaseBuffer(length);
}

OdString::OdString(const char* source, OdCodePageId codePage)
    : OdString(source, source ? static_cast<int>(std::strlen(source)) : 0, codePage)
{
}

OdString::OdString(const char* source, int length, OdCodePageId codePage) : m_text(emptyText())
{
    if (source && length > 0)
        *this = OdCharMapper::codepageToUnicode({source, static_cast<std::size_t>(length)}, codePage);
}

OdString::OdString(const OdAnsiString& source) : OdString(source.c_str(), source.getLength(), source.getCodepage()) {}

OdString& OdString::operator=(const OdChar* source)
{
    return *this = OdString(source);
}

OdString& OdString::operator=(const char* source)
{
    return *this = OdString(source);
}

OdString& OdString::operator=(OdChar character)
{
    return *this = OdString(&character, 1);
}

OdChar* OdString::allocate(std::size_t capacity)
{
    if (capacity > kMaxLength)
        odThrow(eOutOfMemory);
    void* memory = std::malloc(sizeof(Header) + (capacity + 1) * sizeof(OdChar));
    if (!memory)
        odThrow(eOutOfMemory);
    new (memory) Header{{1}, 0, static_cast<int>(capacity), 0};
    OdChar* text = reinterpret_cast<OdChar*>(static_cast<Header*>(memory) + 1);
    text[0] = 0;
    return text;
}

OdChar* OdString::make(std::wstring_view source)
{
    if (source.empty())
        return emptyText();
    OdChar* text = allocate(source.size());
    std::wmemcpy(text, source.data(), source.size());
    text[source.size()] = 0;
    (reinterpret_cast<Header*>(text) - 1)->length = static_cast<int>(source.size());
    return text;
}

void OdString::destroy(OdChar* text) noexcept
{
    std::free(reinterpret_cast<Header*>(text) - 1);
}

// Makes the text this string's own, with room for so many characters.
void OdString::own(std::size_t capacity)
{
    const Header* present = header();
    const std::size_t length = static_cast<std::size_t>(present->length);
    const bool alone = present->references.load(std::memory_order_acquire) == 1;
    if (alone && capacity <= static_cast<std::size_t>(present->capacity))
        return;
    OdString owned;
    owned.m_text = allocate(std::max(capacity, length));
    std::wmemcpy(owned.m_text, m_text, length + 1);
    owned.header()->length = static_cast<int>(length);
    swap(owned);
}

void OdString::setLength(std::size_t length)
{
    header()->length = static_cast<int>(length);
    m_text[length] = 0;
}

void OdString::empty()
{
    *this = OdString();
}

OdChar* OdString::getBuffer(int minLength)
{
    own(static_cast<std::size_t>(std::max({minLength, getLength(), 1})));
    return m_text;
}

OdChar* OdString::getBufferSetLength(int length)
{
    const int present = getLength();
    OdChar* buffer = getBuffer(length);
    if (length > present)
        std::wmemset(buffer + present, 0, static_cast<std::size_t>(length - present));
    setLength(static_cast<std::size_t>(std::max(length, 0)));
    return buffer;
}

void OdString::releaseBuffer(int newLength)
{
    if (header()->references.load(std::memory_order_relaxed) < 0)
        return;
    const std::size_t capacity = static_cast<std::size_t>(header()->capacity);
    const std::size_t length = newLength < 0 ? wcsnlen(m_text, capacity) : static_cast<std::size_t>(newLength);
    setLength(std::min(length, capacity));
    if (getLength() == 0)
        empty();
}

void OdString::freeExtra()
{
    if (header()->capacity > getLength())
        *this = OdString(view());
}

OdString& OdString::append(std::wstring_view text)
{
    if (text.empty())
        return *this;
    const std::size_t present = static_cast<std::size_t>(getLength());
    const std::size_t needed = present + text.size();
    const OdString kept(*this); // the text appended may be a part of this one
    const bool fits = needed <= static_cast<std::size_t>(header()->capacity) &&
                      header()->references.load(std::memory_order_acquire) == 2;
    if (!fits)
    {
        OdString grown;
        grown.m_text = allocate(std::max(needed, std::min(present + present / 2, kMaxLength)));
        std::wmemcpy(grown.m_text, m_text, present);
        swap(grown);
    }
    std::wmemmove(m_text + present, text.data(), text.size());
    setLength(needed);
    return *this;
}

OdString& OdString::operator+=(const OdChar* text)
{
    return append(viewOf(text));
}

namespace
{

OdString join(std::wstring_view first, std::wstring_view second)
{
    OdString joined;
    const int length = static_cast<int>(first.size() + second.size());
    if (length == 0)
        return joined;
    OdChar* buffer = joined.getBuffer(length);
    std::copy(second.begin(), second.end(), std::copy(first.begin(), first.end(), buffer));
    joined.releaseBuffer(length);
    return joined;
}

} // namespace

OdString operator+(const OdString& first, const OdString& second)
{
    return first.isEmpty() ? second : second.isEmpty() ? first : join(first.view(), second.view());
}

OdString operator+(const OdString& first, const OdChar* second)
{
    return join(first.view(), viewOf(second));
}

OdString operator+(const OdChar* first, const OdString& second)
{
    return join(viewOf(first), second.view());
}

OdString operator+(const OdString& first, OdChar second)
{
    return join(first.view(), {&second, 1});
}

OdString operator+(OdChar first, const OdString& second)
{
    return join({&first, 1}, second.view());
}

OdString operator+(const OdString& first, const char* second)
{
    return first + OdString(second);
}

OdString operator+(const char* first, const OdString& second)
{
    return OdString(first) + second;
}
