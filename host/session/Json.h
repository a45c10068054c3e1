// The JSON types of the session: documents of wide characters, one UTF-16 unit in each, and a writer that takes the
// SDK's texts and produces bytes.
#pragma once

#include <cwchar>
#include <string_view>

#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

namespace session
{

using WideEncoding = rapidjson::UTF16<wchar_t>;
using WideDocument = rapidjson::GenericDocument<WideEncoding>;
using WideValue = WideDocument::ValueType;

// Takes wchar_t texts of whole characters. Those that are printed ASCII, as nearly all are, are put down many
// characters at a time.
class JsonWriter : public rapidjson::Writer<rapidjson::StringBuffer, rapidjson::UTF32<wchar_t>, rapidjson::UTF8<>>
{
public:
    using Base = rapidjson::Writer<rapidjson::StringBuffer, rapidjson::UTF32<wchar_t>, rapidjson::UTF8<>>;
    using Base::Base;

    // Puts down a text, as a name or as a value. Half characters, which stand for bytes that are no text, become
    // escapes of JSON.
    void text(std::wstring_view text);
    // The same for a text of the program's own: printed ASCII without quotation marks and backslashes.
    void plain(std::string_view text);

    bool Key(const wchar_t* name)
    {
        text(std::wstring_view(name));
        return true;
    }

private:
    bool putPrinted(std::wstring_view text);
};

} // namespace session
