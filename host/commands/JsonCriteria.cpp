// Reads what is to be selected from JSON.
#include "commands/JsonCriteria.h"

#include <cmath>
#include <string>
#include <utility>

#include <rapidjson/document.h>
#include <rapidjson/error/en.h>

#include "OdError.h"
#include "commands/HandleList.h"

namespace hostcommands
{

namespace
{

using Value = rapidjson::Value;

constexpr unsigned kParseFlags = rapidjson::kParseIterativeFlag | rapidjson::kParseValidateEncodingFlag;

struct Reading
{
    OdDbDatabase& database;
    OdString member;
    JsonCriteria found;

    [[noreturn]] void refuse(const OdChar* form) const
    {
        throw OdError(eInvalidInput, L"\"" + member + L"\" is " + form);
    }
};

OdString textOf(const Value& value)
{
    return odUtf8ToString({value.GetString(), value.GetStringLength()});
}

std::vector<OdString> readNames(const Value& value, const Reading& reading)
{
    constexpr const OdChar* kForm = L"an array of texts";
    if (!value.IsArray())
        reading.refuse(kForm);
    std::vector<OdString> names;
    for (const Value& name : value.GetArray())
    {
        if (!name.IsString())
            reading.refuse(kForm);
        names.push_back(textOf(name));
    }
    return names;
}

OdString readPattern(const Value& value, const Reading& reading)
{
    if (!value.IsString())
        reading.refuse(L"a text");
    return textOf(value);
}

OdGePoint3d readCorner(const Value& value, const Reading& reading)
{
    constexpr const OdChar* kForm = L"an array of two corners, which are arrays of two or three numbers";
    if (!value.IsArray() || value.Size() < 2 || value.Size() > 3)
        reading.refuse(kForm);
    OdGePoint3d corner;
    for (rapidjson::SizeType i = 0; i < value.Size(); ++i)
    {
        if (!value[i].IsNumber() || !std::isfinite(value[i].GetDouble()))
            reading.refuse(kForm);
        corner[i] = value[i].GetDouble();
    }
    return corner;
}

void readHandles(const Value& value, Reading& reading)
{
    reading.found.objects.emplace();
    for (const OdString& handle : readNames(value, reading))
        reading.found.objects->insert(objectOfHandle(reading.database, handle));
}

void readTypes(const Value& value, Reading& reading)
{
    reading.found.criteria.types = readNames(value, reading);
}

void readLayers(const Value& value, Reading& reading)
{
    reading.found.criteria.layers = readNames(value, reading);
}

void readText(const Value& value, Reading& reading)
{
    reading.found.criteria.text = readPattern(value, reading);
}

void readBlock(const Value& value, Reading& reading)
{
    reading.found.criteria.block = readPattern(value, reading);
}

void readWindow(const Value& value, Reading& reading)
{
    if (!value.IsArray() || value.Size() != 2)
        reading.refuse(L"an array of two corners");
    reading.found.window = {readCorner(value[0], reading), readCorner(value[1], reading)};
}

struct MemberRow
{
    std::string_view name;
    void (*read)(const Value& value, Reading& reading);
};

constexpr MemberRow kMembers[] = {{"Handles", readHandles}, {"Types", readTypes}, {"Layers", readLayers},
                                  {"Text", readText},       {"Block", readBlock}, {"Window", readWindow}};

void readMember(const Value& name, const Value& value, Reading& reading)
{
    reading.member = textOf(name);
    const std::string_view wanted(name.GetString(), name.GetStringLength());
    for (const MemberRow& row : kMembers)
        if (row.name == wanted)
            return row.read(value, reading);
    reading.refuse(L"none of Handles, Types, Layers, Text, Block, Window");
}

} // namespace

JsonCriteria readJsonCriteria(const OdString& json, OdDbDatabase& database)
{
    const std::string text = odStringToUtf8(json);
    rapidjson::Document document;
    document.Parse<kParseFlags>(text.data(), text.size());
    if (document.HasParseError())
        throw OdError(eInvalidInput,
                      L"no JSON: " + OdString(rapidjson::GetParseError_En(document.GetParseError())) +
                          OdString().format(L" At character %u", static_cast<unsigned>(document.GetErrorOffset() + 1)));
    if (!document.IsObject())
        throw OdError(eInvalidInput, OdString(L"what to select is a JSON object"));
    Reading reading{database, {}, {}};
    for (const auto& member : std::as_const(document).GetObject())
        readMember(member.name, member.value, reading);
    return reading.found;
}

} // namespace hostcommands
