// Converts between code pages and Unicode.
#include "OdCharMapper.h"

#include "rx/CodePages.h"
#include "rx/Utf8.h"

using odcodepages::Table;

namespace
{

bool isAllAscii(std::string_view bytes)
{
    for (const char byte : bytes)
        if (static_cast<unsigned char>(byte) >= 0x80)
            return false;
    return true;
}

// Takes one character of a code page; a byte that is none stands for itself.
wchar_t takeFromTable(const Table& table, std::string_view bytes, std::size_t& index)
{
    const unsigned char first = static_cast<unsigned char>(bytes[index++]);
    if (const char16_t single = table.character(first); single != Table::kNone)
        return single;
    if (index < bytes.size())
        if (const char16_t pair = table.character(first, static_cast<unsigned char>(bytes[index]));
            pair != Table::kNone)
        {
            ++index;
            return pair;
        }
    return odutf8::kByteBase + first;
}

template<class Take>
void decodeBytes(std::string_view bytes, OdCodePageId id, Take take)
{
    if (const Table* table = odcodepages::table(id))
        for (std::size_t i = 0; i < bytes.size();)
            take(takeFromTable(*table, bytes, i));
    else if (id == CP_ASCII)
        for (const char byte : bytes)
        {
            const unsigned char value = static_cast<unsigned char>(byte);
            take(value < 0x80 ? value : odutf8::kByteBase + value);
        }
    else
    {
        const char* position = bytes.data();
        for (const char* const end = position + bytes.size(); position != end;)
            take(odutf8::takeCharacter(position, end));
    }
}

bool isUtf8(OdCodePageId id)
{
    const odcodepages::Description* description = odcodepages::find(id);
    return !description || (!description->systemName && id != CP_ASCII);
}

void appendHex4(std::string& buffer, unsigned value)
{
    for (int shift = 12; shift >= 0; shift -= 4)
        buffer += "0123456789ABCDEF"[(value >> shift) & 15];
}

void appendEscape(std::string& buffer, wchar_t character)
{
    if (character >= 0x10000 && character <= 0x10FFFF)
    {
        const unsigned offset = static_cast<unsigned>(character) - 0x10000;
        appendEscape(buffer, static_cast<wchar_t>(0xD800 + (offset >> 10)));
        appendEscape(buffer, static_cast<wchar_t>(0xDC00 + (offset & 0x3FF)));
        return;
    }
    buffer += "\\U+";
    appendHex4(buffer, character >= 0 && character < 0x10000 ? static_cast<unsigned>(character) : odutf8::kReplacement);
}

void encodeCharacter(wchar_t character, const Table* table, std::string& bytes)
{
    const int encoded = table ? table->bytes(character) : -1;
    if (character >= 0 && character < 0x80)
        bytes += static_cast<char>(character);
    else if (odutf8::isKeptByte(character))
        bytes += static_cast<char>(character - odutf8::kByteBase);
    else if (encoded < 0)
        appendEscape(bytes, character);
    else
    {
        if (encoded > 0xFF)
            bytes += static_cast<char>(encoded >> 8);
        bytes += static_cast<char>(encoded & 0xFF);
    }
}

} // namespace

OdResult OdCharMapper::getCodepageByDesc(const OdString& description, OdCodePageId& id)
{
    const odcodepages::Description* found = odcodepages::find(odStringToUtf8(description));
    if (!found)
        return eInvalidInput;
    id = found->id;
    return eOk;
}

OdResult OdCharMapper::getCodepageDesc(OdCodePageId id, OdString& description)
{
    const odcodepages::Description* found = odcodepages::find(id);
    if (!found)
        return eInvalidInput;
    description = found->name;
    return eOk;
}

bool OdCharMapper::isLeadByte(OdUInt8 byte, OdCodePageId id)
{
    const Table* table = odcodepages::table(id);
    return table && table->isLead(byte);
}

void OdCharMapper::codepageToUnicode(std::string_view bytes, OdCodePageId id, std::wstring& text)
{
    decodeBytes(bytes, id, [&text](wchar_t character) { text += character; });
}

OdString OdCharMapper::codepageToUnicode(std::string_view bytes, OdCodePageId id)
{
    if (isUtf8(id))
        return odUtf8ToString(bytes);
    std::wstring text;
    text.reserve(bytes.size());
    codepageToUnicode(bytes, id, text);
    return OdString(text);
}

void OdCharMapper::codepageToUtf8(std::string_view bytes, OdCodePageId id, std::string& utf8)
{
    if (isUtf8(id) || isAllAscii(bytes))
        utf8.append(bytes);
    else
        decodeBytes(bytes, id, [&utf8](wchar_t character) { odutf8::appendCharacter(utf8, character); });
}

void OdCharMapper::unicodeToCodepage(std::wstring_view text, OdCodePageId id, std::string& bytes)
{
    if (isUtf8(id))
    {
        odAppendUtf8(bytes, text);
        return;
    }
    const Table* table = odcodepages::table(id);
    for (std::size_t i = 0; i < text.size();)
        encodeCharacter(odutf8::takeCharacter(text, i), table, bytes);
}

void OdCharMapper::utf8ToCodepage(std::string_view utf8, OdCodePageId id, std::string& bytes)
{
    if (isUtf8(id) || isAllAscii(utf8))
    {
        bytes.append(utf8);
        return;
    }
    const Table* table = odcodepages::table(id);
    const char* position = utf8.data();
    for (const char* const end = position + utf8.size(); position != end;)
        encodeCharacter(odutf8::takeCharacter(position, end), table, bytes);
}

bool OdCharMapper::hasCharacter(OdChar character, OdCodePageId id)
{
    if (character >= 0 && character < 0x80)
        return true;
    if (isUtf8(id))
        return character >= 0 && character <= 0x10FFFF;
    const Table* table = odcodepages::table(id);
    return table && table->bytes(character) >= 0;
}

void OdCharMapper::encodeEscapes(std::wstring_view text, std::string& encoded)
{
    for (std::size_t i = 0; i < text.size();)
        encodeCharacter(odutf8::takeCharacter(text, i), nullptr, encoded);
}
