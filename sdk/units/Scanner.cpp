// Reads numbers independent of the language of the system.
#include "units/Scanner.h"

#include <charconv>

#include "OdError.h"

namespace odunits
{

namespace
{

constexpr char kStranger = '\1';
constexpr OdChar kDegreeSign = 0xB0;

char plain(OdChar character)
{
    if (character == kDegreeSign)
        return 'd';
    if (character >= L'A' && character <= L'Z')
        return static_cast<char>(character - L'A' + 'a');
    return character >= L' ' && character <= L'~' ? static_cast<char>(character) : kStranger;
}

bool isDigit(char character)
{
    return character >= '0' && character <= '9';
}

} // namespace

void refuse()
{
    throw OdError(eInvalidInput);
}

Scanner::Scanner(const OdString& text)
{
    OdString trimmed = text;
    trimmed.trimLeft(L" \t").trimRight(L" \t");
    for (const OdChar character : trimmed.view())
        m_text += plain(character);
}

bool Scanner::skip(char character)
{
    if (ahead() != character || atEnd())
        return false;
    ++m_at;
    return true;
}

bool Scanner::skipBlanks()
{
    const std::size_t before = m_at;
    while (skip(' '))
    {
    }
    return m_at != before;
}

std::size_t Scanner::endOfDigits(std::size_t from) const
{
    while (from < m_text.size() && isDigit(m_text[from]))
        ++from;
    return from;
}

double Scanner::take(std::size_t end)
{
    double value = 0.0;
    const auto [read, failure] = std::from_chars(m_text.data() + m_at, m_text.data() + end, value);
    if (failure != std::errc() || read != m_text.data() + end)
        refuse();
    m_at = end;
    return value;
}

std::optional<double> Scanner::integer()
{
    const std::size_t end = endOfDigits(m_at);
    return end == m_at ? std::nullopt : std::optional<double>(take(end));
}

std::optional<double> Scanner::number()
{
    std::size_t end = endOfDigits(m_at);
    std::size_t digits = end - m_at;
    if (end < m_text.size() && m_text[end] == '.')
    {
        const std::size_t afterPoint = endOfDigits(end + 1);
        digits += afterPoint - end - 1;
        end = afterPoint;
    }
    if (digits == 0)
        return std::nullopt;
    if (end < m_text.size() && m_text[end] == 'e')
    {
        const bool hasSign = end + 1 < m_text.size() && (m_text[end + 1] == '+' || m_text[end + 1] == '-');
        const std::size_t exponent = end + 1 + hasSign;
        const std::size_t afterExponent = endOfDigits(exponent);
        end = afterExponent > exponent ? afterExponent : end;
    }
    return take(end);
}

void Scanner::requireEnd() const
{
    if (!atEnd())
        refuse();
}

} // namespace odunits
