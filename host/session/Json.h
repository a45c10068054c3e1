// The JSON types of the session: documents of wide characters, one UTF-16 unit in each, and a writer that takes the
// SDK's texts and produces bytes.
#pragma once

#include <algorithm>
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

// Takes wchar_t texts of whole characters. Those that are printed ASCII, as nearly all are, are put down without
// turning each character into bytes for itself.
class JsonWriter : public rapidjson::Writer<rapidjson::StringBuffer, rapidjson::UTF32<wchar_t>, rapidjson::UTF8<>>
{
public:
    using Base = rapidjson::Writer<rapidjson::StringBuffer, rapidjson::UTF32<wchar_t>, rapidjson::UTF8<>>;
    using Base::Base;

    bool String(const wchar_t* characters, rapidjson::SizeType length)
    {
        return printed(std::wstring_view(characters, length)) || Base::String(characters, length);
    }
    bool Key(const wchar_t* characters, rapidjson::SizeType length) { return String(characters, length); }
    bool Key(const wchar_t* name) { return Key(name, static_cast<rapidjson::SizeType>(std::wcslen(name))); }

    // Puts a text of printed ASCII down; false, and nothing is done, for others.
    bool printed(std::wstring_view text)
    {
        const auto isPrinted = [](wchar_t c) { return c >= L' ' && c < 0x80; };
        return std::all_of(text.begin(), text.end(), isPrinted) && put(text);
    }
    // The same for a text that is known to be printed ASCII.
    void printed(std::string_view text) { put(text); }
    // Puts a string down that is in its form already: in UTF-8, with quotes and escapes.
    void escaped(std::string_view string)
    {
        Prefix(rapidjson::kStringType);
        std::copy(string.begin(), string.end(), os_->Push(string.size()));
        EndValue(true);
    }

private:
    template<class View>
    bool put(View text)
    {
        Prefix(rapidjson::kStringType);
        char* const begin = os_->Push(2 * text.size() + 2);
        char* at = begin;
        *at++ = '"';
        for (const auto character : text)
        {
            if (character == '"' || character == '\\')
                *at++ = '\\';
            *at++ = static_cast<char>(character);
        }
        *at++ = '"';
        os_->Pop(static_cast<std::size_t>(begin + 2 * text.size() + 2 - at));
        return EndValue(true);
    }
};

} // namespace session
