// Feeds the text conversions with anything. Whatever the bytes are, nothing may be lost on the way to text and back,
// and what has been decoded once stays as it is.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "OdCharMapper.h"
#include "OdString.h"

namespace
{

void require(bool holds)
{
    if (!holds)
        std::abort();
}

void checkUtf8(std::string_view bytes)
{
    const OdString text = odUtf8ToString(bytes);
    require(odStringToUtf8(text) == bytes);
    std::wstring appended;
    odAppendWide(appended, bytes);
    require(text.view() == appended);
}

void checkCodePage(std::string_view bytes, OdCodePageId id)
{
    const OdString text = OdCharMapper::codepageToUnicode(bytes, id);
    std::string back;
    OdCharMapper::unicodeToCodepage(text.view(), id, back);
    bool hasPairs = false;
    for (int byte = 0; byte < 256; ++byte)
        hasPairs = hasPairs || OdCharMapper::isLeadByte(static_cast<OdUInt8>(byte), id);
    // Sets with pairs have several pairs for some characters.
    require(hasPairs || back == bytes);
    std::string utf8;
    OdCharMapper::codepageToUtf8(bytes, id, utf8);
    require(!text.isAscii() || utf8 == odStringToUtf8(text));
}

void checkEscapes(std::string_view bytes)
{
    std::string decoded;
    OdCharMapper::decodeEscapes(bytes, decoded);
    require(decoded == bytes || OdCharMapper::hasEscapes(bytes));
    std::string again;
    OdCharMapper::decodeEscapes(decoded, again);
    require(again == decoded);
    std::string encoded;
    OdCharMapper::encodeEscapes(odUtf8ToString(decoded).view(), encoded);
    std::string back;
    OdCharMapper::decodeEscapes(encoded, back);
    require(back == decoded);
}

void checkText(std::string_view bytes)
{
    const OdString text = odUtf8ToString(bytes);
    OdString upper(text);
    upper.makeUpper();
    OdString folded(text);
    for (int i = 0; i < folded.getLength(); ++i)
        folded.setAt(i, odCaseFold(text[i]));
    require(folded.iCompare(text) == 0 && upper.getLength() == text.getLength());
    OdString trimmed(text);
    trimmed.trimLeft(L" \t\n\"'").trimRight(L" \t\n\"'");
    require(trimmed.isEmpty() || text.find(trimmed) >= 0);
    OdString replaced(text);
    const int count = replaced.replace(L"\\", L"\\\\");
    require(replaced.getLength() == text.getLength() + count);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    const std::string_view bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
    checkUtf8(bytes);
    checkCodePage(bytes, static_cast<OdCodePageId>(data[0] % CP_CNT));
    checkEscapes(bytes);
    checkText(bytes);
    return 0;
}
