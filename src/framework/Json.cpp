// Moves texts between JSON values and OdString.
#include "framework/Json.h"

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

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
    rapidjson::GenericStringBuffer<JsonEncoding> buffer;
    rapidjson::Writer<decltype(buffer), JsonEncoding, JsonEncoding> writer(buffer);
    value.Accept(writer);
    return OdString(buffer.GetString(), static_cast<int>(buffer.GetSize() / sizeof(wchar_t)));
}

const JsonValue* FindMember(const JsonValue& object, const OdChar* pszName)
{
    const auto found = object.FindMember(pszName);
    return found == object.MemberEnd() || found->value.IsNull() ? nullptr : &found->value;
}
