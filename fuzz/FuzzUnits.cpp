// Feeds the reading of lengths, angles and colours with anything. What can be read can be written in every form, and
// what was written is read back as the same text.
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string_view>

#include "DbDatabase.h"
#include "OdError.h"
#include "ResBuf.h"
#include "RxInit.h"
#include "UnitsFormatter.h"

namespace
{

void require(bool holds)
{
    if (!holds)
        std::abort();
}

OdDbDatabase& drawing()
{
    static const OdDbDatabasePtr database = []
    {
        odInitialize();
        OdDbDatabasePtr made = OdDbDatabase::createObject();
        made->initialize();
        made->disableUndoRecording(true);
        return made;
    }();
    return *database.get();
}

template<class Read>
auto tryTo(Read read) -> std::optional<decltype(read())>
{
    try
    {
        return read();
    }
    catch (const OdError& error)
    {
        require(error.code() == eInvalidInput);
        return std::nullopt;
    }
}

void checkLength(OdUnitsFormatter& formatter, const OdString& text, int precision, int zeros)
{
    const std::optional<double> value = tryTo([&] { return formatter.unformatLinear(text); });
    if (!value)
        return;
    require(std::isfinite(*value));
    // Beyond this a foot more or less is less than the last digit.
    if (std::abs(*value) > 1e15)
        return;
    for (int form = OdUnitsFormatter::kScientific; form <= OdUnitsFormatter::kFractional; ++form)
    {
        const auto units = static_cast<OdUnitsFormatter::LUnits>(form);
        const OdString written = formatter.formatLinear(*value, units, precision, zeros);
        const double read = formatter.unformatLinear(written);
        require(std::abs(read - *value) <= std::abs(*value) + 1.0);
        require(formatter.formatLinear(read, units, precision, zeros) == written);
    }
}

void checkAngle(OdUnitsFormatter& formatter, const OdString& text, int precision, int zeros)
{
    const std::optional<double> value = tryTo([&] { return formatter.unformatAngle(text); });
    if (!value)
        return;
    require(std::isfinite(*value));
    if (std::abs(*value) > 1e3)
        return;
    for (int form = OdUnitsFormatter::kDecimalDegrees; form <= OdUnitsFormatter::kSurveyor; ++form)
    {
        drawing().setSysVar(L"AUNITS", OdResBuf::newRb(70, static_cast<OdInt16>(form)));
        const auto units = static_cast<OdUnitsFormatter::AUnits>(form);
        const OdString written = formatter.formatAngle(*value, units, precision, zeros);
        require(formatter.formatAngle(formatter.unformatAngle(written), units, precision, zeros) == written);
    }
}

void checkColor(OdUnitsFormatter& formatter, const OdString& text)
{
    const auto color = tryTo([&] { return formatter.unformatCmColor(text); });
    if (!color)
        return;
    const OdString written = formatter.formatCmColor(**color);
    require((*formatter.unformatCmColor(written)).color() == (*color)->color());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 2)
        return 0;
    OdUnitsFormatter& formatter = drawing().formatter();
    drawing().setSysVar(L"AUNITS", OdResBuf::newRb(70, static_cast<OdInt16>(data[0] >> 4)));
    drawing().setSysVar(L"UNITMODE", OdResBuf::newRb(70, static_cast<OdInt16>(data[1] >> 7)));
    const int precision = data[0] & 15;
    const int zeros = data[1] & 15;
    const OdString text = odUtf8ToString(std::string_view(reinterpret_cast<const char*>(data) + 2, size - 2));
    checkLength(formatter, text, precision, zeros);
    checkAngle(formatter, text, precision, zeros);
    checkColor(formatter, text);
    return 0;
}
