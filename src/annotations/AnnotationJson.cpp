// One row of a table for each key, in the order in which they are read.
#include "annotations/AnnotationJson.h"

#include <algorithm>
#include <array>
#include <exception>

#include "DbBlockReference.h"
#include "DbBlockTableRecord.h"
#include "OdError.h"
#include "OdaDefs.h"
#include "RxSystemServices.h"
#include "annotations/AnnotationErrors.h"

namespace Annotation
{

namespace
{

// ---- Values
// ----------------------------------------------------------------------------------------------------------

/// What kind a value should have been; the message that says so takes the key.
struct WrongKind
{
    EMessage eMessage;
};

void ReadValue(const JsonValue& value, double& number)
{
    if (!value.IsNumber())
        throw WrongKind{eMessageKeyNoNumber};
    number = value.GetDouble();
}

void ReadValue(const JsonValue& value, OdInt32& integer)
{
    if (!value.IsInt())
        throw WrongKind{eMessageKeyNoInteger};
    integer = value.GetInt();
}

void ReadValue(const JsonValue& value, bool& flag)
{
    if (value.IsObject() || value.IsArray())
        throw WrongKind{eMessageKeyNoBoolean};
    flag = value.IsTrue();
}

bool IsText(const JsonValue& value)
{
    return value.IsNull() || value.IsString();
}

OdString TextOf(const JsonValue& value)
{
    return value.IsNull() ? OdString() : TextOfJson(value);
}

void ReadValue(const JsonValue& value, OdString& text)
{
    if (!IsText(value))
        throw WrongKind{eMessageKeyNoString};
    text = TextOf(value);
}

// ---- Colours
// ---------------------------------------------------------------------------------------------------------

int HexDigit(OdChar character)
{
    if (character >= L'0' && character <= L'9')
        return character - L'0';
    if (character >= L'a' && character <= L'f')
        return character - L'a' + 10;
    if (character >= L'A' && character <= L'F')
        return character - L'A' + 10;
    return -1;
}

/// The number that the two characters begin with.
OdUInt8 HexByte(std::wstring_view characters)
{
    int iValue = 0;
    for (const OdChar character : characters)
    {
        const int iDigit = HexDigit(character);
        if (iDigit < 0)
            break;
        iValue = iValue * 16 + iDigit;
    }
    return static_cast<OdUInt8>(iValue);
}

/// The components behind the first character: alpha, red, green, blue.
OdUInt8 Component(std::wstring_view text, std::size_t uiIndex)
{
    const std::size_t uiStart = 1 + 2 * uiIndex;
    return uiStart < text.size() ? HexByte(text.substr(uiStart, 2)) : OdUInt8(0);
}

// ---- Keys
// ------------------------------------------------------------------------------------------------------------

struct KeyRow
{
    std::wstring_view key; ///< of a literal, which ends with a 0
    void (*read)(const JsonValue& value, AnnotationProperties& properties);
    bool bIsOptional = false; ///< may be missing or null
};

template<auto Field>
void Read(const JsonValue& value, AnnotationProperties& properties)
{
    ReadValue(value, properties.*Field);
}

template<double OdGePoint3d::*Coordinate>
void ReadPosition(const JsonValue& value, AnnotationProperties& properties)
{
    ReadValue(value, properties.position.*Coordinate);
}

template<double OdGeVector3d::*Coordinate>
void ReadNormal(const JsonValue& value, AnnotationProperties& properties)
{
    ReadValue(value, properties.normal.*Coordinate);
}

template<auto Set, auto Color, auto Transparency>
void ReadColor(const JsonValue& value, AnnotationProperties& properties)
{
    if (!IsText(value))
        throw WrongKind{eMessageKeyNoString};
    properties.*Set = ParseArgbColor(value, properties.*Color, properties.*Transparency);
}

using Properties = AnnotationProperties;

constexpr KeyRow kKeys[] = {
    {L"X", &ReadPosition<&OdGePoint3d::x>, true},
    {L"Y", &ReadPosition<&OdGePoint3d::y>, true},
    {L"Z", &ReadPosition<&OdGePoint3d::z>, true},
    {L"Height", &Read<&Properties::height>},
    {L"Width", &Read<&Properties::width>},
    {L"Padding", &Read<&Properties::padding>},
    {L"Angle", &Read<&Properties::angle>},
    {L"Nx", &ReadNormal<&OdGeVector3d::x>},
    {L"Ny", &ReadNormal<&OdGeVector3d::y>},
    {L"Nz", &ReadNormal<&OdGeVector3d::z>},
    {L"Id", &Read<&Properties::id>},
    {L"DocumentVersionId", &Read<&Properties::documentVersionId>},
    {L"Text", &Read<&Properties::text>},
    {L"HorizontalAlignment", &Read<&Properties::horizontalAlignment>},
    {L"VerticalAlignment", &Read<&Properties::verticalAlignment>},
    {L"OriginalImagePath", &Read<&Properties::originalImagePath>},
    {L"EffectiveImageFileName", &Read<&Properties::effectiveImageFileName>},
    {L"Uniform", &Read<&Properties::uniform>},
    {L"Handle", &Read<&Properties::handle>},
    {L"TextColor", &ReadColor<&Properties::textColorSet, &Properties::textColor, &Properties::textTransparency>},
    {L"BackgroundColor",
     &ReadColor<&Properties::backgroundColorSet, &Properties::backgroundColor, &Properties::backgroundTransparency>},
    {L"BorderColor",
     &ReadColor<&Properties::borderColorSet, &Properties::borderColor, &Properties::borderTransparency>},
    {L"BorderShape", &Read<&Properties::borderShape>},
    {L"BorderThickness", &Read<&Properties::borderThickness>},
    {L"CornerRadius", &Read<&Properties::cornerRadius>},
    {L"FitToText", &Read<&Properties::fitToText>},
    {L"Font", &Read<&Properties::font>},
    {L"LineSpacingFactor", &Read<&Properties::lineSpacingFactor>},
    {L"FontSize", &Read<&Properties::fontSize>},
};

using Values = std::array<const JsonValue*, std::size(kKeys)>;

/// The value of each row's key, null where it is missing; of members with the same key the first. The members of most
/// objects come in the order of the rows, or nearly so.
Values FindValues(const JsonValue& object)
{
    Values values{};
    std::size_t uiExpected = 0;
    for (const auto& member : object.GetObject())
    {
        const std::wstring_view key(member.name.GetString(), member.name.GetStringLength());
        const auto isKey = [key](const KeyRow& row) { return row.key == key; };
        const auto* pRow = std::find_if(kKeys + uiExpected, std::end(kKeys), isKey);
        if (pRow == std::end(kKeys))
            pRow = std::find_if(std::begin(kKeys), std::end(kKeys), isKey);
        if (pRow == std::end(kKeys))
            continue;
        const auto uiRow = static_cast<std::size_t>(pRow - kKeys);
        if (!values[uiRow])
            values[uiRow] = &member.value;
        uiExpected = uiRow + 1;
    }
    return values;
}

void ReadKey(const JsonValue* pValue, const KeyRow& row, AnnotationProperties& properties)
{
    if (row.bIsOptional && (!pValue || pValue->IsNull()))
        return;
    if (!pValue)
        RefuseKey(eMessageKeyMissing, row.key.data());
    try
    {
        row.read(*pValue, properties);
    }
    catch (const WrongKind& wrong)
    {
        RefuseKey(wrong.eMessage, row.key.data());
    }
}

/// Reads one of several objects, and says which one it was that could not be read.
AnnotationProperties ReadNumbered(const JsonValue& object, std::size_t uiIndex)
{
    AnnotationProperties properties;
    try
    {
        ReadAnnotationFromJson(object, properties);
    }
    catch (const OdError& error)
    {
        RefuseAnnotation(uiIndex, error.description());
    }
    return properties;
}

} // namespace

bool ParseArgbColor(const JsonValue& value, OdCmColor& color, OdCmTransparency& transparency)
{
    if (!IsText(value))
        throw OdError(eInvalidInput);
    const OdString strText = TextOf(value);
    if (strText.isEmpty())
        return false;
    const std::wstring_view text = strText.view();
    transparency.setAlpha(Component(text, 0));
    color.setRGB(Component(text, 1), Component(text, 2), Component(text, 3));
    return true;
}

void ReadAnnotationFromJson(const JsonValue& object, AnnotationProperties& properties)
{
    if (!object.IsObject())
        throw OdError(eInvalidInput, odSystemServices()->formatMessage(eMessageNoObject));
    const Values values = FindValues(object);
    for (std::size_t i = 0; i < values.size(); ++i)
        ReadKey(values[i], kKeys[i], properties);
}

// A text that is no JSON is refused for that, whatever is wrong with the records before the fault.
std::vector<AnnotationProperties> ReadAnnotationsFromJson(const OdString& strJson)
{
    std::vector<AnnotationProperties> annotations;
    std::exception_ptr pRefusal;
    const auto take = [&](const JsonValue& element)
    {
        try
        {
            if (!pRefusal)
                annotations.push_back(ReadNumbered(element, annotations.size()));
        }
        catch (const OdError&)
        {
            pRefusal = std::current_exception();
        }
    };
    if (!ReadJsonElements(strJson, take))
        throw OdError(L"Invalid Data");
    if (pRefusal)
        std::rethrow_exception(pRefusal);
    return annotations;
}

// ---- Results
// ---------------------------------------------------------------------------------------------------------

static void WriteNumber(JsonWriter& writer, const OdChar* pszKey, double fValue)
{
    writer.Key(pszKey);
    writer.Double(fValue);
}

static void WritePoint(JsonWriter& writer, const OdChar* pszKey, const OdGePoint3d& point)
{
    writer.Key(pszKey);
    WriteJsonPoint(point, writer);
}

void WriteAnnotationResult(const AnnotationProperties& properties, const OdDbObjectId& idReference, JsonWriter& writer)
{
    const OdDbBlockReferencePtr pReference = idReference.safeOpenObject(OdDb::kForRead);
    const OdDbBlockTableRecordPtr pDefinition = pReference->blockTableRecord().safeOpenObject(OdDb::kForRead);
    const OdString strHandle = idReference.getHandle().ascii();
    const OdGeScale3d scale = pReference->scaleFactors();

    writer.StartObject();
    writer.Key(L"Handle");
    writer.String(strHandle.c_str(), static_cast<rapidjson::SizeType>(strHandle.getLength()));
    WriteNumber(writer, L"Angle", pReference->rotation() / OdaPI * 180.0);
    WriteNumber(writer, L"FontSize", properties.fontSize);
    WritePoint(writer, L"Position", pReference->position());
    WritePoint(writer, L"Size", OdGePoint3d(scale.sx * properties.width, scale.sy * properties.height, 0.0));
    writer.EndObject();
}

} // namespace Annotation
