// Reads angles.
#include <cmath>

#include "units/Angles.h"
#include "units/Scanner.h"

namespace odunits
{

namespace
{

constexpr double kRadiansPerDegree = kPi / 180.0;
constexpr double kRadiansPerGradian = kPi / 200.0;

double radiansPer(OdUnitsFormatter::AUnits units)
{
    if (units == OdUnitsFormatter::kGradians)
        return kRadiansPerGradian;
    return units == OdUnitsFormatter::kRadians ? 1.0 : kRadiansPerDegree;
}

class AngleReader
{
public:
    AngleReader(const OdString& text, OdUnitsFormatter::AUnits plainNumbers)
        : m_scanner(text), m_plainNumbers(plainNumbers)
    {
    }

    double read()
    {
        const std::optional<double> bearing = readBearing();
        const double value = bearing ? *bearing : readSigned();
        m_scanner.requireEnd();
        if (!std::isfinite(value))
            refuse();
        return value;
    }

private:
    std::optional<double> readBearing()
    {
        if (m_scanner.skip('e'))
            return 0.0;
        if (m_scanner.skip('w'))
            return kPi;
        const bool isNorth = m_scanner.skip('n');
        if (!isNorth && !m_scanner.skip('s'))
            return std::nullopt;
        const double pole = isNorth ? kPi / 2.0 : kPi * 1.5;
        return m_scanner.atEnd() ? pole : readFromPole(pole, isNorth);
    }

    double readFromPole(double pole, bool isNorth)
    {
        m_scanner.skipBlanks();
        const double degrees = readDegrees(requireNumber());
        m_scanner.skipBlanks();
        const bool isEast = m_scanner.skip('e');
        if ((!isEast && !m_scanner.skip('w')) || degrees > 90.0)
            refuse();
        const double angle = degrees * kRadiansPerDegree;
        const double result = isEast == isNorth ? pole - angle : pole + angle;
        return result >= 2.0 * kPi ? 0.0 : result;
    }

    double readSigned()
    {
        const bool isNegative = m_scanner.skip('-');
        if (!isNegative)
            m_scanner.skip('+');
        const double value = readMagnitude();
        return isNegative ? -value : value;
    }

    double readMagnitude()
    {
        const double number = requireNumber();
        if (m_scanner.skip('g'))
            return number * kRadiansPerGradian;
        if (m_scanner.skip('r'))
            return number;
        if (m_scanner.ahead() == 'd')
            return readDegrees(number) * kRadiansPerDegree;
        return number * radiansPer(m_plainNumbers);
    }

    // What may follow the number of degrees.
    double readDegrees(double degrees)
    {
        if (!m_scanner.skip('d'))
            return degrees;
        const std::optional<double> minutes = readSixtieths(degrees, '\'');
        const std::optional<double> seconds = minutes ? readSixtieths(*minutes, '"') : std::nullopt;
        return degrees + minutes.value_or(0.0) / 60.0 + seconds.value_or(0.0) / 3600.0;
    }

    std::optional<double> readSixtieths(double before, char mark)
    {
        const std::optional<double> value = m_scanner.number();
        if (value && (!m_scanner.skip(mark) || *value >= 60.0 || before != std::floor(before)))
            refuse();
        return value;
    }

    double requireNumber()
    {
        const std::optional<double> number = m_scanner.number();
        if (!number)
            refuse();
        return *number;
    }

    Scanner m_scanner;
    OdUnitsFormatter::AUnits m_plainNumbers;
};

} // namespace

double readAngle(const OdString& text, OdUnitsFormatter::AUnits plainNumbers)
{
    return AngleReader(text, plainNumbers).read();
}

} // namespace odunits
