// Builds the tables of code pages from what the system knows of them, once for each that is used.
#include "rx/CodePages.h"

#include <iconv.h>

#include <array>
#include <cctype>
#include <memory>
#include <mutex>

namespace odcodepages
{
namespace
{

constexpr Description kDescriptions[] = {
    {CP_ASCII, "ascii", nullptr, false},
    {CP_8859_1, "iso8859-1", "ISO-8859-1", false},
    {CP_8859_2, "iso8859-2", "ISO-8859-2", false},
    {CP_8859_3, "iso8859-3", "ISO-8859-3", false},
    {CP_8859_4, "iso8859-4", "ISO-8859-4", false},
    {CP_8859_5, "iso8859-5", "ISO-8859-5", false},
    {CP_8859_6, "iso8859-6", "ISO-8859-6", false},
    {CP_8859_7, "iso8859-7", "ISO-8859-7", false},
    {CP_8859_8, "iso8859-8", "ISO-8859-8", false},
    {CP_8859_9, "iso8859-9", "ISO-8859-9", false},
    {CP_DOS437, "dos437", "IBM437", false},
    {CP_DOS850, "dos850", "IBM850", false},
    {CP_DOS852, "dos852", "IBM852", false},
    {CP_DOS855, "dos855", "IBM855", false},
    {CP_DOS857, "dos857", "IBM857", false},
    {CP_DOS860, "dos860", "IBM860", false},
    {CP_DOS861, "dos861", "IBM861", false},
    {CP_DOS863, "dos863", "IBM863", false},
    {CP_DOS864, "dos864", "IBM864", false},
    {CP_DOS865, "dos865", "IBM865", false},
    {CP_DOS869, "dos869", "IBM869", false},
    {CP_DOS932, "dos932", "CP932", true},
    {CP_MACINTOSH, "mac-roman", "MACINTOSH", false},
    {CP_BIG5, "big5", "BIG5", true},
    {CP_KSC5601, "ksc5601", "CP949", true},
    {CP_JOHAB, "johab", "JOHAB", true},
    {CP_DOS866, "dos866", "CP866", false},
    {CP_ANSI_1250, "ANSI_1250", "CP1250", false},
    {CP_ANSI_1251, "ANSI_1251", "CP1251", false},
    {CP_ANSI_1252, "ANSI_1252", "CP1252", false},
    {CP_GB2312, "gb2312", "GBK", true},
    {CP_ANSI_1253, "ANSI_1253", "CP1253", false},
    {CP_ANSI_1254, "ANSI_1254", "CP1254", false},
    {CP_ANSI_1255, "ANSI_1255", "CP1255", false},
    {CP_ANSI_1256, "ANSI_1256", "CP1256", false},
    {CP_ANSI_1257, "ANSI_1257", "CP1257", false},
    {CP_ANSI_874, "ANSI_874", "CP874", false},
    {CP_ANSI_932, "ANSI_932", "CP932", true},
    {CP_ANSI_936, "ANSI_936", "CP936", true},
    {CP_ANSI_949, "ANSI_949", "CP949", true},
    {CP_ANSI_950, "ANSI_950", "CP950", true},
    {CP_ANSI_1361, "ANSI_1361", "JOHAB", true},
    {CP_ANSI_1200, "ANSI_1200", nullptr, false},
    {CP_ANSI_1258, "ANSI_1258", "CP1258", false},
    {CP_UTF_8, "UTF-8", nullptr, false},
};

bool equalsNoCase(std::string_view first, std::string_view second)
{
    return first.size() == second.size() &&
           std::equal(first.begin(), first.end(), second.begin(),
                      [](unsigned char a, unsigned char b) { return std::tolower(a) == std::tolower(b); });
}

class Converter
{
public:
    Converter(const char* to, const char* from) : m_handle(iconv_open(to, from)) {}
    ~Converter()
    {
        if (isOpen())
            iconv_close(m_handle);
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;
    bool isOpen() const { return m_handle != reinterpret_cast<iconv_t>(-1); }
    iconv_t handle() const { return m_handle; }

private:
    iconv_t m_handle;
};

// Converts as a whole and from the initial state; returns the number of bytes written, 0 when that is not possible.
std::size_t convert(void* converter, const char* source, std::size_t sourceSize, char* target, std::size_t targetSize)
{
    char* in = const_cast<char*>(source);
    char* out = target;
    std::size_t left = targetSize;
    iconv(converter, nullptr, nullptr, nullptr, nullptr);
    const bool converted = iconv(converter, &in, &sourceSize, &out, &left) == 0 && sourceSize == 0;
    // Sets that combine characters hold the last one back until they are told that no more comes.
    const bool flushed = converted && iconv(converter, nullptr, nullptr, &out, &left) == 0;
    return flushed ? targetSize - left : 0;
}

char16_t toCharacter(void* converter, const char* bytes, std::size_t count)
{
    char16_t characters[4];
    const std::size_t written =
        convert(converter, bytes, count, reinterpret_cast<char*>(characters), sizeof characters);
    return written == sizeof(char16_t) ? characters[0] : Table::kNone;
}

// The bytes that the system prefers for a character which has several.
int toBytes(void* converter, char16_t character)
{
    unsigned char bytes[8];
    const std::size_t written = convert(converter, reinterpret_cast<const char*>(&character), sizeof character,
                                        reinterpret_cast<char*>(bytes), sizeof bytes);
    return written == 1 ? bytes[0] : written == 2 ? bytes[0] * 256 + bytes[1] : -1;
}

} // namespace

const Description* find(OdCodePageId id)
{
    for (const Description& description : kDescriptions)
        if (description.id == id)
            return &description;
    return nullptr;
}

const Description* find(std::string_view name)
{
    for (const Description& description : kDescriptions)
        if (equalsNoCase(description.name, name))
            return &description;
    return nullptr;
}

Table::Table(const Description& description)
{
    for (int byte = 0; byte < 256; ++byte)
        m_single[byte] = byte < 0x80 ? static_cast<char16_t>(byte) : kNone;
    const Converter forward("UTF-16LE", description.systemName);
    const Converter backward(description.systemName, "UTF-16LE");
    if (!forward.isOpen() || !backward.isOpen())
        return;
    readSingles(forward.handle());
    if (description.hasPairs)
        readPairs(forward.handle());
    for (int byte = 0x80; byte < 256; ++byte)
        add(m_single[byte], byte, backward.handle());
    for (std::size_t pair = 0; pair < m_pairs.size(); ++pair)
        add(m_pairs[pair], static_cast<int>(pair), backward.handle());
}

void Table::readSingles(void* converter)
{
    for (int byte = 0x80; byte < 256; ++byte)
    {
        const char source = static_cast<char>(byte);
        m_single[byte] = toCharacter(converter, &source, 1);
    }
}

void Table::readPairs(void* converter)
{
    m_pairs.assign(0x10000, kNone);
    for (int first = 0x81; first < 0xFF; ++first)
    {
        if (m_single[first] != kNone)
            continue;
        for (int second = 0x30; second < 0xFF; ++second)
        {
            const char source[] = {static_cast<char>(first), static_cast<char>(second)};
            const char16_t character = toCharacter(converter, source, 2);
            m_pairs[static_cast<std::size_t>(first) * 256 + static_cast<std::size_t>(second)] = character;
            m_lead[first] = m_lead[first] || character != kNone;
        }
    }
}

void Table::add(char16_t character, int bytes, void* backConverter)
{
    if (character == kNone || character < 0x80)
        return;
    const auto [entry, isNew] = m_bytes.emplace(character, static_cast<std::uint16_t>(bytes));
    if (!isNew && toBytes(backConverter, character) == bytes)
        entry->second = static_cast<std::uint16_t>(bytes);
}

const Table* table(OdCodePageId id)
{
    static std::array<std::unique_ptr<Table>, CP_CNT> tables;
    static std::array<std::once_flag, CP_CNT> made;
    const Description* description = find(id);
    if (!description || !description->systemName)
        return nullptr;
    std::call_once(made[id], [&] { tables[id] = std::make_unique<Table>(*description); });
    return tables[id].get();
}
} // namespace odcodepages
