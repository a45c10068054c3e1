// Going over a text that a person typed, part by part.
#pragma once

#include <optional>
#include <string>

#include "OdString.h"

namespace odunits
{

/** A Scanner stands at a place in a text and goes forward over what it is asked for. Characters that no length, angle
   or colour has count as characters that nothing fits. */
class Scanner
{
public:
    /** Leaves out blanks at both ends. */
    explicit Scanner(const OdString& text);

    bool atEnd() const { return m_at == m_text.size(); }
    /** The character ahead, in lower case; 0 at the end. */
    char ahead() const { return atEnd() ? '\0' : m_text[m_at]; }

    /** Goes over the character if it is ahead; letters are given in lower case. */
    bool skip(char character);
    /** Goes over any number of blanks. Returns true when there were some. */
    bool skipBlanks();

    /** Goes over digits with at most one point and, when there is one, an exponent behind them; no sign. Nothing when
        there is no number ahead. Throws OdError (eInvalidInput) for one beyond what a double holds. */
    std::optional<double> number();
    /** Goes over digits only. Throws as number(). */
    std::optional<double> integer();

    /** A place to come back to. */
    std::size_t place() const { return m_at; }
    void goTo(std::size_t place) { m_at = place; }

    /** Throws OdError (eInvalidInput) unless all was gone over. */
    void requireEnd() const;

private:
    std::size_t endOfDigits(std::size_t from) const;
    double take(std::size_t end);

    std::string m_text;
    std::size_t m_at = 0;
};

/** Throws OdError (eInvalidInput). */
[[noreturn]] void refuse();

} // namespace odunits
