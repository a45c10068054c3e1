// The permanent number of an object in a drawing, which survives saving and opening.
#pragma once

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>

#include "OdString.h"
#include "OdaCommon.h"

/** An OdDbHandle is the 64-bit number that names an object within one drawing for good.
    It is a plain value; zero is the null handle, which names nothing. */
class OdDbHandle
{
public:
    constexpr OdDbHandle() = default;
    template<std::integral T>
    constexpr OdDbHandle(T value) : m_value(static_cast<OdUInt64>(value))
    {
    }

    /** The handle that the text gives in hexadecimal digits, blanks around it allowed.
        Text that is no handle (no digits, other characters, a value of more than 64 bits)
        gives the null handle. */
    OdDbHandle(const OdString& text);
    OdDbHandle(const wchar_t* text);
    OdDbHandle(const char* text);

    OdDbHandle& operator=(OdUInt64 value)
    {
        m_value = value;
        return *this;
    }

    /** Reads hexadecimal digits of either case with blanks around them.
        Returns false, with handle unchanged, for anything else or for more than 16 significant digits. */
    static bool parse(std::string_view text, OdDbHandle& handle);
    static bool parse(std::wstring_view text, OdDbHandle& handle);

    /** The handle as upper-case hexadecimal digits without leading zeros; the null handle is "0". */
    OdString ascii() const;

    /** As ascii(), in UTF-8, for file writers. */
    std::string text() const;

    bool isNull() const { return m_value == 0; }
    operator OdUInt64() const { return m_value; }

    bool operator==(const OdDbHandle& other) const { return m_value == other.m_value; }
    bool operator!=(const OdDbHandle& other) const { return m_value != other.m_value; }
    bool operator<(const OdDbHandle& other) const { return m_value < other.m_value; }
    bool operator>(const OdDbHandle& other) const { return m_value > other.m_value; }
    bool operator<=(const OdDbHandle& other) const { return m_value <= other.m_value; }
    bool operator>=(const OdDbHandle& other) const { return m_value >= other.m_value; }

    /** Steps on to the next handle. */
    OdDbHandle& operator++()
    {
        ++m_value;
        return *this;
    }

private:
    OdUInt64 m_value = 0;
};
