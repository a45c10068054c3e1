// The one way to JSON: documents of wide characters, and texts going in and out of them.
#pragma once

#include <rapidjson/document.h>

#include "OdString.h"

using JsonEncoding = rapidjson::UTF16<wchar_t>;
using JsonAllocator = rapidjson::MemoryPoolAllocator<>;
using JsonValue = rapidjson::GenericValue<JsonEncoding, JsonAllocator>;
using JsonDocument = rapidjson::GenericDocument<JsonEncoding, JsonAllocator>;

/** The text of a JSON string. A character that was written as an escaped pair of surrogates is the same as one that was
    written as itself. */
OdString TextOfJson(const JsonValue& value);

/** A JSON string that keeps a copy of the text. */
JsonValue JsonOfText(const OdString& strText, JsonAllocator& allocator);

/** The value written as text, without blanks between its parts. */
OdString WriteJson(const JsonValue& value);

/** The member of an object, null when it is missing or is the JSON null. */
const JsonValue* FindMember(const JsonValue& object, const OdChar* pszName);
