// The JSON types of the session: documents of wide characters, one UTF-16 unit in each, and a writer that takes the
// SDK's texts and produces bytes.
#pragma once

#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

namespace session
{

using WideEncoding = rapidjson::UTF16<wchar_t>;
using WideDocument = rapidjson::GenericDocument<WideEncoding>;
using WideValue = WideDocument::ValueType;

// Takes wchar_t texts of whole characters.
using JsonWriter = rapidjson::Writer<rapidjson::StringBuffer, rapidjson::UTF32<wchar_t>, rapidjson::UTF8<>>;

} // namespace session
