// The versions of drawing files by the names that people and files call them.
#include "commands/FileVersions.h"

#include "OdError.h"

namespace hostcommands
{

namespace
{

struct VersionRow
{
    OdDb::DwgVersion version;
    const OdChar* name;
    const OdChar* fileMark;
};

const VersionRow kVersions[] = {
    {OdDb::vAC09, L"R9", L"AC1004"},    {OdDb::vAC10, L"R10", L"AC1006"},   {OdDb::vAC12, L"R12", L"AC1009"},
    {OdDb::vAC13, L"R13", L"AC1012"},   {OdDb::vAC14, L"R14", L"AC1014"},   {OdDb::vAC15, L"R2000", L"AC1015"},
    {OdDb::vAC18, L"R2004", L"AC1018"}, {OdDb::vAC21, L"R2007", L"AC1021"}, {OdDb::vAC24, L"R2010", L"AC1024"},
    {OdDb::vAC27, L"R2013", L"AC1027"}, {OdDb::vAC32, L"R2018", L"AC1032"},
};

bool isNameOf(const OdString& name, const VersionRow& row)
{
    return name.iCompare(row.name) == 0 || name.iCompare(row.name + 1) == 0 || name.iCompare(row.fileMark) == 0;
}

OdString listNames()
{
    OdString names;
    for (const VersionRow& row : kVersions)
        if (!isTooOldForLabels(row.version))
            names += (names.isEmpty() ? OdString() : OdString(L", ")) + row.name;
    return names;
}

} // namespace

OdDb::DwgVersion versionFromName(const OdString& name)
{
    for (const VersionRow& row : kVersions)
        if (isNameOf(name, row))
            return row.version;
    throw OdError(eInvalidInput, L"VERSION is one of " + listNames() + L", not \"" + name + L"\"");
}

OdString describeVersion(OdDb::DwgVersion version)
{
    for (const VersionRow& row : kVersions)
        if (row.version == version)
            return OdString(row.name) + L" (" + row.fileMark + L")";
    return L"unknown";
}

bool isTooOldForLabels(OdDb::DwgVersion version)
{
    return version < OdDb::vAC15;
}

OdDb::DwgVersion versionToWrite(OdDb::DwgVersion version)
{
    return isTooOldForLabels(version) || version > OdDb::vAC32 ? OdDb::vAC32 : version;
}

} // namespace hostcommands
