// Moves texts between JSON values and OdString.
#include "framework/Json.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

#include <rapidjson/error/en.h>

#include "OdError.h"
#include "RxSystemServices.h"
#include "module/ground/Messages.h"
#include "module/ground/Text.h"

static bool IsHighSurrogate(OdChar character)
{
    return character >= 0xD800 && character <= 0xDBFF;
}

static bool IsLowSurrogate(OdChar character)
{
    return character >= 0xDC00 && character <= 0xDFFF;
}

static OdChar JoinSurrogates(OdChar high, OdChar low)
{
    return static_cast<OdChar>(0x10000 + ((high - 0xD800) << 10) + (low - 0xDC00));
}

// The reader turns an escaped pair into two units, although one character holds it here.
OdString TextOfJson(const JsonValue& value)
{
    const std::wstring_view units(value.GetString(), value.GetStringLength());
    if (std::none_of(units.begin(), units.end(), &IsHighSurrogate))
        return OdString(units);
    std::wstring text;
    text.reserve(units.size());
    for (std::size_t i = 0; i < units.size(); ++i)
    {
        const bool bPair = IsHighSurrogate(units[i]) && i + 1 < units.size() && IsLowSurrogate(units[i + 1]);
        text += bPair ? JoinSurrogates(units[i], units[i + 1]) : units[i];
        i += bPair;
    }
    return OdString(text);
}

JsonValue JsonOfText(const OdString& strText, JsonAllocator& allocator)
{
    return JsonValue(strText.c_str(), static_cast<rapidjson::SizeType>(strText.getLength()), allocator);
}

OdString WriteJson(const JsonValue& value)
{
    JsonBuffer buffer;
    JsonWriter writer(buffer);
    value.Accept(writer);
    return TextOfBuffer(buffer);
}

OdString TextOfBuffer(const JsonBuffer& buffer)
{
    return OdString(buffer.GetString(), static_cast<int>(buffer.GetSize() / sizeof(wchar_t)));
}

const JsonValue* FindMember(const JsonValue& object, const OdChar* pszName)
{
    const auto found = object.FindMember(pszName);
    return found == object.MemberEnd() || found->value.IsNull() ? nullptr : &found->value;
}

// ---- Texts from outside
// ----------------------------------------------------------------------------------------------

[[noreturn]] static void ThrowNoJson(std::size_t uiPlace, rapidjson::ParseErrorCode eFault)
{
    OdString strPlace;
    strPlace.format(L"%llu", static_cast<unsigned long long>(uiPlace));
    const OdString strFault(rapidjson::GetParseError_En(eFault));
    throw OdError(static_cast<OdResult>(eMessageNoJson),
                  odSystemServices()->formatMessage(eMessageNoJson, strPlace.c_str(), strFault.c_str()));
}

// The reader refuses the first half of an escaped pair without the second, but not the second without the first.
static void RequirePairs(std::wstring_view text)
{
    const auto IsAt = [&](std::size_t uiAt, std::wstring_view characters)
    { return uiAt < text.size() && characters.find(text[uiAt]) != std::wstring_view::npos; };
    constexpr std::size_t kUnit = 6;
    for (std::size_t uiAt = text.find(L'\\'); uiAt < text.size(); uiAt = text.find(L'\\', uiAt))
    {
        const bool bUnit = IsAt(uiAt + 1, L"u");
        const bool bHalf = bUnit && IsAt(uiAt + 2, L"dD");
        if (bHalf && IsAt(uiAt + 3, L"cdefCDEF"))
            ThrowNoJson(uiAt, rapidjson::kParseErrorStringUnicodeSurrogateInvalid);
        uiAt += bHalf && IsAt(uiAt + 3, L"89abAB") ? 2 * kUnit : bUnit ? kUnit : 2;
    }
}

static OdString JsonFromOutside(const OdString& strText)
{
    OdString strTrimmed = Trimmed(strText);
    RequirePairs(strTrimmed.view());
    return strTrimmed;
}

static void RequireParsed(const rapidjson::ParseResult& outcome)
{
    if (outcome.IsError())
        ThrowNoJson(outcome.Offset(), outcome.Code());
}

// Iteratively, for a text may nest deeper than the stack reaches.
CJsonText::CJsonText(const OdString& strText) : m_text(JsonFromOutside(strText).view())
{
    m_document.ParseInsitu<rapidjson::kParseIterativeFlag>(m_text.data());
    RequireParsed(m_document);
}

namespace
{

/// Takes the parser's events: what belongs to an element goes to a document, which is handed over at its end.
class CElementHandler
{
public:
    using Ch = OdChar;

    explicit CElementHandler(const std::function<void(const JsonValue&)>& take) : m_take(take) {}

    bool HasElements() const { return m_bElements; }

    // clang-format off
    bool Null() { return Scalar([](JsonDocument& to) { to.Null(); }); }
    bool Bool(bool bValue) { return Scalar([=](JsonDocument& to) { to.Bool(bValue); }); }
    bool Int(int iValue) { return Scalar([=](JsonDocument& to) { to.Int(iValue); }); }
    bool Uint(unsigned uiValue) { return Scalar([=](JsonDocument& to) { to.Uint(uiValue); }); }
    bool Int64(std::int64_t iValue) { return Scalar([=](JsonDocument& to) { to.Int64(iValue); }); }
    bool Uint64(std::uint64_t uiValue) { return Scalar([=](JsonDocument& to) { to.Uint64(uiValue); }); }
    bool Double(double fValue) { return Scalar([=](JsonDocument& to) { to.Double(fValue); }); }
    bool RawNumber(const Ch*, rapidjson::SizeType, bool) { return false; } // numbers come as such
    bool String(const Ch* pText, rapidjson::SizeType uiLength, bool bCopy)
    {
        return Scalar([=](JsonDocument& to) { to.String(pText, uiLength, bCopy); });
    }
    // clang-format on

    bool StartObject()
    {
        m_bElements = m_bElements || m_uiDepth == 0;
        ++m_uiDepth;
        return m_element.StartObject();
    }
    bool Key(const Ch* pText, rapidjson::SizeType uiLength, bool bCopy)
    {
        return m_element.Key(pText, uiLength, bCopy);
    }
    bool EndObject(rapidjson::SizeType uiCount)
    {
        --m_uiDepth;
        m_element.EndObject(uiCount);
        return EndValue();
    }
    bool StartArray()
    {
        if (m_uiDepth++ > 0)
            return m_element.StartArray();
        m_uiElementDepth = 1;
        m_bElements = true;
        return true;
    }
    bool EndArray(rapidjson::SizeType uiCount)
    {
        if (--m_uiDepth < m_uiElementDepth)
            return true;
        m_element.EndArray(uiCount);
        return EndValue();
    }

private:
    template<class Event>
    bool Scalar(Event event)
    {
        if (!m_bElements)
            return true;
        event(m_element);
        return EndValue();
    }

    bool EndValue()
    {
        if (m_uiDepth > m_uiElementDepth)
            return true;
        auto alreadyThere = [](const JsonDocument&) { return true; };
        m_element.Populate(alreadyThere);
        m_take(m_element);
        m_element.SetNull();
        m_allocator.Clear();
        return true;
    }

    static constexpr std::size_t kReusedMemory = std::size_t{16} * 1024;
    static constexpr std::size_t kStackMemory = std::size_t{4} * 1024;

    const std::function<void(const JsonValue&)>& m_take;
    std::vector<char> m_memory = std::vector<char>(kReusedMemory);
    JsonAllocator m_allocator{m_memory.data(), m_memory.size()};
    JsonDocument m_element{&m_allocator, kStackMemory};
    std::size_t m_uiDepth = 0;
    std::size_t m_uiElementDepth = 0; ///< how many values an element lies in
    bool m_bElements = false;
};

} // namespace

bool ReadJsonElements(const OdString& strText, const std::function<void(const JsonValue&)>& take)
{
    const OdString strJson = JsonFromOutside(strText);
    rapidjson::GenericStringStream<JsonEncoding> stream(strJson.c_str());
    rapidjson::GenericReader<JsonEncoding, JsonEncoding> reader;
    CElementHandler handler(take);
    RequireParsed(reader.Parse<rapidjson::kParseIterativeFlag>(stream, handler));
    return handler.HasElements();
}

// ---- Points
// ----------------------------------------------------------------------------------------------------------

static void ReadCoordinate(const JsonValue& point, const OdChar* pszName, double& coordinate)
{
    const JsonValue* pMember = FindMember(point, pszName);
    if (pMember && pMember->IsNumber())
        coordinate = pMember->GetDouble();
}

OdGePoint3d ReadJsonPoint(const JsonValue& value, const OdGePoint3d& defaultPoint)
{
    OdGePoint3d point = defaultPoint;
    if (!value.IsObject())
        return point;
    ReadCoordinate(value, L"X", point.x);
    ReadCoordinate(value, L"Y", point.y);
    ReadCoordinate(value, L"Z", point.z);
    return point;
}

static JsonValue CoordinateAsJson(double coordinate)
{
    return std::isfinite(coordinate) ? JsonValue(coordinate) : JsonValue();
}

JsonValue WriteJsonPoint(const OdGePoint3d& point, JsonAllocator& allocator)
{
    JsonValue value(rapidjson::kObjectType);
    value.AddMember(L"X", CoordinateAsJson(point.x), allocator);
    value.AddMember(L"Y", CoordinateAsJson(point.y), allocator);
    value.AddMember(L"Z", CoordinateAsJson(point.z), allocator);
    return value;
}

void WriteJsonPoint(const OdGePoint3d& point, JsonWriter& writer)
{
    writer.StartObject();
    for (const auto& [pszName, coordinate] :
         {std::pair(L"X", point.x), std::pair(L"Y", point.y), std::pair(L"Z", point.z)})
    {
        writer.Key(pszName, 1);
        std::isfinite(coordinate) ? writer.Double(coordinate) : writer.Null();
    }
    writer.EndObject();
}
