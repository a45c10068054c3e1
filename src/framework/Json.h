// The one way to JSON: documents of wide characters, and texts going in and out of them.
#pragma once

#include <functional>

#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include "Ge/GePoint3d.h"
#include "OdString.h"

using JsonEncoding = rapidjson::UTF16<wchar_t>;
using JsonAllocator = rapidjson::MemoryPoolAllocator<>;
using JsonValue = rapidjson::GenericValue<JsonEncoding, JsonAllocator>;
using JsonDocument = rapidjson::GenericDocument<JsonEncoding, JsonAllocator>;
using JsonBuffer = rapidjson::GenericStringBuffer<JsonEncoding>;
using JsonWriter = rapidjson::Writer<JsonBuffer, JsonEncoding, JsonEncoding>;

/** The text of a JSON string. A character that was written as an escaped pair of surrogates is the same as one that was
    written as itself. */
OdString TextOfJson(const JsonValue& value);

/** A JSON string that keeps a copy of the text. */
JsonValue JsonOfText(const OdString& strText, JsonAllocator& allocator);

/** The value written as text, without blanks between its parts. */
OdString WriteJson(const JsonValue& value);

/** What has been written to the buffer. */
OdString TextOfBuffer(const JsonBuffer& buffer);

/** A CJsonText is a JSON text that came from outside, parsed. */
class CJsonText
{
public:
    /** Parses the text without the blanks and quotes around it. Throws OdError with the message 926, whose number is
       its code too, for what is no JSON. */
    explicit CJsonText(const OdString& strText);

    /** What the text says; it lives as long as this object. */
    const JsonValue& Root() const { return m_document; }

private:
    std::wstring m_text; ///< the document's strings lie in it
    JsonDocument m_document;
};

/** Parses a text as CJsonText does, and hands over the root when it is an object, or each element when it is an array,
    as soon as it is read: long arrays need no more memory than their longest element. Returns false when the root is
    neither, with nothing handed over. Throws as CJsonText; what was read before the fault has been handed over then. */
bool ReadJsonElements(const OdString& strText, const std::function<void(const JsonValue&)>& take);

/** A point, {"X": 1.0, "Y": 2.0, "Z": 0.0}. A member that is missing, null or no number leaves its coordinate as it is;
    so does a value that is no object. */
OdGePoint3d ReadJsonPoint(const JsonValue& value, const OdGePoint3d& defaultPoint);

/** A coordinate that is no finite number is written as null. */
JsonValue WriteJsonPoint(const OdGePoint3d& point, JsonAllocator& allocator);
void WriteJsonPoint(const OdGePoint3d& point, JsonWriter& writer);

/** The member of an object, null when it is missing or is the JSON null. */
const JsonValue* FindMember(const JsonValue& object, const OdChar* pszName);
