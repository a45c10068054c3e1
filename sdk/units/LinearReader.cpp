// Reads lengths.
#include <cmath>

#include "units/Linear.h"
#include "units/Scanner.h"

namespace odunits
{

namespace
{

constexpr double kInchesPerFoot = 12.0;

class LengthReader
{
public:
    explicit LengthReader(const OdString& text) : m_scanner(text) {}

    double read()
    {
        const bool isNegative = m_scanner.skip('-');
        if (!isNegative)
            m_scanner.skip('+');
        const double value = readMagnitude();
        m_scanner.requireEnd();
        if (!std::isfinite(value))
            refuse();
        return isNegative ? -value : value;
    }

private:
    double readMagnitude()
    {
        const std::size_t start = m_scanner.place();
        const std::optional<double> number = m_scanner.number();
        if (!number || !m_scanner.skip('\''))
        {
            m_scanner.goTo(start);
            return readInches();
        }
        m_scanner.skipBlanks();
        const bool hasInches = m_scanner.skip('-') || !m_scanner.atEnd();
        m_scanner.skipBlanks();
        return *number * kInchesPerFoot + (hasInches ? readInches() : 0.0);
    }

    double readInches()
    {
        const double value = readMixed();
        m_scanner.skip('"');
        return value;
    }

    double readMixed()
    {
        const std::size_t start = m_scanner.place();
        const std::optional<double> integer = m_scanner.integer();
        if (integer && m_scanner.ahead() == '/')
            return *integer / readDenominator();
        if (integer && (m_scanner.skip('-') || m_scanner.skipBlanks()))
            return *integer + readFraction();
        m_scanner.goTo(start);
        const std::optional<double> number = m_scanner.number();
        if (!number)
            refuse();
        return *number;
    }

    double readFraction()
    {
        const std::optional<double> numerator = m_scanner.integer();
        if (!numerator)
            refuse();
        return *numerator / readDenominator();
    }

    double readDenominator()
    {
        if (!m_scanner.skip('/'))
            refuse();
        const std::optional<double> denominator = m_scanner.integer();
        if (!denominator || *denominator == 0.0)
            refuse();
        return *denominator;
    }

    Scanner m_scanner;
};

} // namespace

double readLength(const OdString& text)
{
    return LengthReader(text).read();
}

} // namespace odunits
