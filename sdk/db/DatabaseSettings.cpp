// The settings of a drawing as programs ask for them.
#include "DatabaseImpl.h"
#include "HeaderVariables.h"
#include "OdError.h"
#include "ResBufGroups.h"

namespace
{

constexpr double kRadiansPerDegree = 3.14159265358979323846 / 180.0;

std::string plainName(const OdString& name)
{
    OdString upper = name;
    upper.makeUpper();
    if (!upper.isEmpty() && upper[0] == L'$')
        upper = upper.mid(1);
    return odStringToUtf8(upper);
}

oddb::Groups values(const OdDbDatabase& database, std::string_view name)
{
    return oddb::HeaderVariables::of(database.impl()).find(name);
}

double number(const OdDbDatabase& database, std::string_view name, int index = 0)
{
    for (const oddb::GroupView& group : values(database, name))
        if (index-- == 0)
            return group.type() == oddb::GroupType::Real ? group.real() : static_cast<double>(group.integer());
    return 0.0;
}

OdInt16 integer(const OdDbDatabase& database, std::string_view name)
{
    return static_cast<OdInt16>(number(database, name));
}

} // namespace

OdResBufPtr OdDbDatabase::getSysVar(const OdString& name) const
{
    return oddb::toChain(values(*this, plainName(name)));
}

void OdDbDatabase::setSysVar(const OdString& name, const OdResBuf* value)
{
    const std::string plain = plainName(name);
    const oddb::Groups before = values(*this, plain);
    if (before.empty() || !value || value->restype() != before.begin()->code())
        throw OdError(eInvalidInput);
    oddb::GroupsBuilder builder;
    oddb::appendElement(builder, *value, this);
    oddb::HeaderVariables::of(impl()).change(impl(), plain, builder.finish());
}

double OdDbDatabase::getLTSCALE() const
{
    return number(*this, "LTSCALE");
}

double OdDbDatabase::getANGBASE() const
{
    return number(*this, "ANGBASE") * kRadiansPerDegree;
}

bool OdDbDatabase::getANGDIR() const
{
    return number(*this, "ANGDIR") != 0.0;
}

OdInt16 OdDbDatabase::getLUNITS() const
{
    return integer(*this, "LUNITS");
}

OdInt16 OdDbDatabase::getLUPREC() const
{
    return integer(*this, "LUPREC");
}

OdInt16 OdDbDatabase::getAUNITS() const
{
    return integer(*this, "AUNITS");
}

OdInt16 OdDbDatabase::getAUPREC() const
{
    return integer(*this, "AUPREC");
}

OdInt16 OdDbDatabase::getINSUNITS() const
{
    return integer(*this, "INSUNITS");
}

bool OdDbDatabase::getMEASUREMENT() const
{
    return number(*this, "MEASUREMENT") != 0.0;
}

bool OdDbDatabase::getTILEMODE() const
{
    return number(*this, "TILEMODE") != 0.0;
}

OdGePoint2d OdDbDatabase::getLIMMIN() const
{
    return {number(*this, "LIMMIN", 0), number(*this, "LIMMIN", 1)};
}

OdGePoint2d OdDbDatabase::getLIMMAX() const
{
    return {number(*this, "LIMMAX", 0), number(*this, "LIMMAX", 1)};
}

bool OdDbDatabase::getLIMCHECK() const
{
    return number(*this, "LIMCHECK") != 0.0;
}

OdGePoint3d OdDbDatabase::getEXTMIN() const
{
    return {number(*this, "EXTMIN", 0), number(*this, "EXTMIN", 1), number(*this, "EXTMIN", 2)};
}

OdGePoint3d OdDbDatabase::getEXTMAX() const
{
    return {number(*this, "EXTMAX", 0), number(*this, "EXTMAX", 1), number(*this, "EXTMAX", 2)};
}

OdDbObjectId OdDbDatabase::getCLAYER() const
{
    const oddb::Groups layer = values(*this, "CLAYER");
    return layer.empty() ? nullptr : oddb::findSymbol(*this, oddb::SymbolTable::Layer, layer.begin()->text());
}
