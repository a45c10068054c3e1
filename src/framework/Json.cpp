// Moves texts between JSON values and OdString.
#include "framework/Json.h"

#include <algorithm>
#include <cmath>

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

// Iteratively, for a text may nest deeper than the stack reaches.
CJsonText::CJsonText(const OdString& strText) : m_text(Trimmed(strText).view())
{
    RequirePairs(m_text);
    m_document.ParseInsitu<rapidjson::kParseIterativeFlag>(m_text.data());
    if (m_document.HasParseError())
        ThrowNoJson(m_document.GetErrorOffset(), m_document.GetParseError());
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
