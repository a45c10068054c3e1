// The formatter of a drawing: follows its settings, and is handed out as a protocol extension too.
#include "DbBaseDatabase.h"
#include "DbDatabase.h"
#include "ResBuf.h"
#include "RxClass.h"
#include "StaticRxObject.h"
#include "db/DatabaseImpl.h"
#include "rx/Layers.h"
#include "units/Angles.h"
#include "units/Colors.h"
#include "units/Digits.h"
#include "units/Linear.h"

ODRX_NO_CONS_DEFINE_MEMBERS(OdDbBaseDatabasePE, OdRxObject)

namespace
{

class DatabaseFormatter : public OdUnitsFormatter
{
public:
    void follow(const OdDbDatabase& database) { m_database = &database; }

    OdString formatLinear(double value) const override
    {
        return formatLinear(value, lengthUnits(), m_database->getLUPREC(), setting(L"DIMZIN"));
    }
    OdString formatLinear(double value, LUnits units, int precision, int zeros) const override
    {
        return odunits::writeLength(value, {units, precision, zeros, asTyped()});
    }
    double unformatLinear(const OdString& text) const override { return odunits::readLength(text); }

    OdString formatAngle(double value) const override
    {
        // The two zeros that an angle may have, where lengths have four.
        const int zeros = (setting(L"DIMAZIN") & 3) << 2;
        return formatAngle(value, angleUnits(), m_database->getAUPREC(), zeros);
    }
    OdString formatAngle(double value, AUnits units, int precision, int zeros) const override
    {
        return odunits::writeAngle(value, {units, precision, zeros, asTyped()});
    }
    double unformatAngle(const OdString& text) const override { return odunits::readAngle(text, angleUnits()); }

    OdString formatCmColor(const OdCmColorBase& value) const override { return odunits::writeColor(value); }
    OdCmColorBasePtr unformatCmColor(const OdString& text) const override
    {
        return new OdCmColor(odunits::readColor(text));
    }

private:
    int setting(const OdChar* name) const
    {
        const OdResBufPtr value = m_database->getSysVar(name);
        return value ? value->getInt32() : 0;
    }
    bool asTyped() const { return setting(L"UNITMODE") == 1; }

    LUnits lengthUnits() const
    {
        const int units = m_database->getLUNITS();
        return units >= kScientific && units <= kFractional ? static_cast<LUnits>(units) : kDecimal;
    }
    AUnits angleUnits() const
    {
        const int units = m_database->getAUNITS();
        return units >= kDecimalDegrees && units <= kSurveyor ? static_cast<AUnits>(units) : kDecimalDegrees;
    }

    const OdDbDatabase* m_database = nullptr;
};

class DrawingExtension : public OdDbBaseDatabasePE
{
public:
    OdUnitsFormatter* baseFormatter(OdRxObject* database) const override
    {
        const OdDbDatabasePtr drawing = OdDbDatabase::cast(database);
        return drawing ? &drawing->formatter() : nullptr;
    }
};

OdStaticRxObject<DrawingExtension> g_extension;

void start()
{
    OdDbBaseDatabasePE::rxInit();
    OdDbDatabase::desc()->addX(OdDbBaseDatabasePE::desc(), &g_extension);
}

void end()
{
    OdDbDatabase::desc()->delX(OdDbBaseDatabasePE::desc());
    OdDbBaseDatabasePE::rxUninit();
}

const odlayers::Registration kLayer(odlayers::kUnits, &start, &end);

} // namespace

OdUnitsFormatter& OdDbDatabase::formatter() const
{
    auto& formatter = m_impl->attachment<DatabaseFormatter>("units");
    formatter.follow(*this);
    return formatter;
}
