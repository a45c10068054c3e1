// The text of a dimension that has no block definition to show it.
#include "commands/textparser/DimensionText.h"

#include "DbDimension.h"
#include "DbMText.h"
#include "OdaDefs.h"
#include "RxObjectImpl.h"

namespace textparser
{

namespace
{

const OdChar* const kMeasurementMark = L"<>";

struct Notation
{
    OdRxClass* (*dimensionClass)();
    const wchar_t* before;
    double factor;
    const wchar_t* behind;
};

// The last row serves for every other dimension.
const Notation kNotations[] = {
    {&OdDb2LineAngularDimension::desc, L"", 180.0 / OdaPI, L"\u00B0"},
    {&OdDb3PointAngularDimension::desc, L"", 180.0 / OdaPI, L"\u00B0"},
    {&OdDbRadialDimension::desc, L"R", 1.0, L""},
    {&OdDbRadialDimensionLarge::desc, L"R", 1.0, L""},
    {&OdDbDiametricDimension::desc, L"\u2205", 1.0, L""},
    {&OdDbDimension::desc, L"", 1.0, L""},
};

const Notation& notationOf(const OdDbDimension& dimension)
{
    for (const Notation& row : kNotations)
        if (dimension.isKindOf(row.dimensionClass()))
            return row;
    return kNotations[std::size(kNotations) - 1];
}

OdString measurementText(const OdDbDimension& dimension)
{
    if (dimension.measurement() < 0.0)
        return OdString();
    const Notation& notation = notationOf(dimension);
    OdString number;
    number.format(L"%.4f", dimension.measurement() * notation.factor);
    number.trimRight(L'0').trimRight(L'.');
    return OdString(notation.before) + number + notation.behind;
}

OdString withoutFormatCodes(const OdString& contents)
{
    const OdDbMTextPtr text = OdDbMText::createObject();
    text->setContents(contents);
    return text->text();
}

} // namespace

OdString dimensionText(const OdDbDimension& dimension)
{
    OdString text = dimension.dimensionText();
    if (text.isEmpty())
        return measurementText(dimension);
    if (text.find(kMeasurementMark) >= 0)
        text.replace(kMeasurementMark, measurementText(dimension).c_str());
    return withoutFormatCodes(text);
}

} // namespace textparser
