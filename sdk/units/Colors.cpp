// One table of names reads and writes.
#include "units/Colors.h"

#include "units/Scanner.h"

namespace odunits
{

namespace
{

struct NameRow
{
    OdUInt16 index;
    const OdChar* name;
};

constexpr NameRow kNames[] = {
    {OdCmEntityColor::kACIbyLayer, L"ByLayer"},  {OdCmEntityColor::kACIbyBlock, L"ByBlock"},
    {OdCmEntityColor::kACIRed, L"red"},          {OdCmEntityColor::kACIYellow, L"yellow"},
    {OdCmEntityColor::kACIGreen, L"green"},      {OdCmEntityColor::kACICyan, L"cyan"},
    {OdCmEntityColor::kACIBlue, L"blue"},        {OdCmEntityColor::kACIMagenta, L"magenta"},
    {OdCmEntityColor::kACIforeground, L"white"},
};

double requireInteger(Scanner& scanner, double greatest)
{
    scanner.skipBlanks();
    const std::optional<double> value = scanner.integer();
    if (!value || *value > greatest)
        refuse();
    scanner.skipBlanks();
    return *value;
}

OdUInt8 requirePart(Scanner& scanner)
{
    return static_cast<OdUInt8>(requireInteger(scanner, 255.0));
}

OdCmColor colorOfIndex(OdUInt16 index)
{
    OdCmColor color;
    color.setColorIndex(index);
    return color;
}

OdCmColor readParts(Scanner& scanner)
{
    OdUInt8 parts[3] = {requirePart(scanner)};
    for (int i = 1; i < 3; ++i)
    {
        if (!scanner.skip(','))
            refuse();
        parts[i] = requirePart(scanner);
    }
    scanner.requireEnd();
    return OdCmEntityColor(parts[0], parts[1], parts[2]);
}

} // namespace

OdString writeColor(const OdCmColorBase& color)
{
    if (color.isByColor())
        return OdString().format(L"%d,%d,%d", color.red(), color.green(), color.blue());
    const OdUInt16 index = color.colorIndex();
    if (index > OdCmEntityColor::kACIbyLayer)
        refuse();
    for (const NameRow& row : kNames)
        if (row.index == index)
            return row.name;
    return OdString().format(L"%d", index);
}

OdCmColor readColor(const OdString& text)
{
    OdString trimmed = text;
    trimmed.trimLeft(L" \t").trimRight(L" \t");
    for (const NameRow& row : kNames)
        if (trimmed.iCompare(row.name) == 0)
            return colorOfIndex(row.index);
    Scanner scanner(text);
    const double index = requireInteger(scanner, OdCmEntityColor::kACIbyLayer);
    if (scanner.atEnd())
        return colorOfIndex(static_cast<OdUInt16>(index));
    scanner.goTo(0);
    return readParts(scanner);
}

} // namespace odunits
