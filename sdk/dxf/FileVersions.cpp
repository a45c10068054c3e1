// Names of versions.
#include "FileVersions.h"

namespace dxf
{
namespace
{

struct VersionName
{
    std::string_view name;
    OdDb::DwgVersion version;
};

constexpr VersionName kVersions[] = {
    {"AC1001", OdDb::vAC09}, {"AC1002", OdDb::vAC09}, {"AC1003", OdDb::vAC09}, {"AC1004", OdDb::vAC09},
    {"AC1006", OdDb::vAC10}, {"AC1009", OdDb::vAC12}, {"AC1010", OdDb::vAC12}, {"AC1011", OdDb::vAC12},
    {"AC1012", OdDb::vAC13}, {"AC1013", OdDb::vAC13}, {"AC1014", OdDb::vAC14}, {"AC1015", OdDb::vAC15},
    {"AC1018", OdDb::vAC18}, {"AC1021", OdDb::vAC21}, {"AC1024", OdDb::vAC24}, {"AC1027", OdDb::vAC27},
    {"AC1032", OdDb::vAC32},
};

} // namespace

OdDb::DwgVersion versionOf(std::string_view name)
{
    for (const VersionName& known : kVersions)
        if (known.name == name)
            return known.version;
    return OdDb::kDHL_Unknown;
}

std::string_view versionName(OdDb::DwgVersion version)
{
    for (const VersionName& known : kVersions)
        if (known.version == version && version >= OdDb::vAC15)
            return known.name;
    return "AC1032";
}

OdDb::DwgVersion writtenVersion(OdDb::DwgVersion version)
{
    return version < OdDb::vAC15 || version > OdDb::vAC32 ? OdDb::vAC32 : version;
}

} // namespace dxf
