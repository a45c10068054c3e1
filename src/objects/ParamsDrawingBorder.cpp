// Reads and writes the JSON form of drawing borders.
#include "objects/ParamsDrawingBorder.h"

#include "RxSystemServices.h"
#include "module/ground/Messages.h"

namespace
{

constexpr const OdChar* kColumnLinesValid = L"ColumnLinesValid";
constexpr const OdChar* kColumns = L"Columns";
constexpr const OdChar* kLines = L"Lines";
constexpr const OdChar* kAreaValid = L"AreaValid";
constexpr const OdChar* kAreaFirst = L"AreaFirst";
constexpr const OdChar* kAreaSecond = L"AreaSecond";

[[noreturn]] void ThrowMessage(EMessage eMessage, const OdChar* pszArgument = L"")
{
    throw OdError(static_cast<OdResult>(eMessage), odSystemServices()->formatMessage(eMessage, pszArgument));
}

void Require(bool bHolds, const OdChar* pszLacking)
{
    if (!bHolds)
        ThrowMessage(eMessageJsonLacks, pszLacking);
}

OdStringArray ReadStrings(const JsonValue& root, const OdChar* pszName)
{
    const JsonValue* pArray = FindMember(root, pszName);
    Require(pArray && pArray->IsArray(), pszName);
    OdStringArray strings;
    for (const JsonValue& element : pArray->GetArray())
    {
        Require(element.IsString(), pszName);
        strings.append(TextOfJson(element));
    }
    return strings;
}

bool ReadFlag(const JsonValue* pFlag, const OdChar* pszName)
{
    Require(pFlag && pFlag->IsBool(), pszName);
    return pFlag->GetBool();
}

// Returns whether the corner is there.
bool ReadCorner(const JsonValue& root, const OdChar* pszName, OdGePoint3d& corner)
{
    const JsonValue* pCorner = FindMember(root, pszName);
    if (!pCorner)
        return false;
    Require(pCorner->IsObject(), pszName);
    corner = ReadJsonPoint(*pCorner, OdGePoint3d());
    return true;
}

JsonValue StringsAsJson(const OdStringArray& strings, JsonAllocator& allocator)
{
    JsonValue array(rapidjson::kArrayType);
    array.Reserve(strings.size(), allocator);
    for (const OdString& strElement : strings)
        array.PushBack(JsonOfText(strElement, allocator), allocator);
    return array;
}

} // namespace

CParamsDrawingBorder::CParamsDrawingBorder(const CDrawingBorderData& border)
    : m_bColumnLinesValid(border.AreColumnLinesValid()), m_bAreaValid(border.AreCornersValid()),
      m_areaFirst(border.GetCorners().first), m_areaSecond(border.GetCorners().second)
{
    border.GetColumnLineIds(m_columns, m_lines);
}

// ---- Reading
// ---------------------------------------------------------------------------------------------------------

CParamsDrawingBorder CParamsDrawingBorder::Read(const OdString& strJson)
{
    const CJsonText json(strJson);
    const JsonValue& root = json.Root();
    if (!root.IsObject())
        ThrowMessage(eMessageJsonNoObject);
    CParamsDrawingBorder params;
    params.m_columns = ReadStrings(root, kColumns);
    params.m_lines = ReadStrings(root, kLines);
    params.m_bColumnLinesValid = ReadFlag(FindMember(root, kColumnLinesValid), kColumnLinesValid);
    if (params.m_bColumnLinesValid)
    {
        Require(!params.m_columns.isEmpty(), L"ColumnStringArray entries");
        Require(!params.m_lines.isEmpty(), L"LinesStringArray entries");
    }
    params.ReadArea(root);
    return params;
}

void CParamsDrawingBorder::ReadArea(const JsonValue& root)
{
    const JsonValue* pValid = FindMember(root, kAreaValid);
    m_bAreaValid = pValid && ReadFlag(pValid, kAreaValid);
    m_bHasFirst = ReadCorner(root, kAreaFirst, m_areaFirst);
    m_bHasSecond = ReadCorner(root, kAreaSecond, m_areaSecond);
}

void CParamsDrawingBorder::RequireArea() const
{
    Require(m_bAreaValid, kAreaValid);
    Require(m_bHasFirst, kAreaFirst);
    Require(m_bHasSecond, kAreaSecond);
}

// ---- Writing
// ---------------------------------------------------------------------------------------------------------

OdString CParamsDrawingBorder::Write() const
{
    JsonDocument document(rapidjson::kObjectType);
    JsonAllocator& allocator = document.GetAllocator();
    const auto Add = [&](const OdChar* pszName, JsonValue&& member)
    { document.AddMember(rapidjson::StringRef(pszName), member, allocator); };
    Add(kColumnLinesValid, JsonValue(m_bColumnLinesValid));
    Add(kColumns, StringsAsJson(m_columns, allocator));
    Add(kLines, StringsAsJson(m_lines, allocator));
    Add(kAreaValid, JsonValue(m_bAreaValid));
    Add(kAreaFirst, WriteJsonPoint(m_areaFirst, allocator));
    Add(kAreaSecond, WriteJsonPoint(m_areaSecond, allocator));
    return WriteJson(document);
}
