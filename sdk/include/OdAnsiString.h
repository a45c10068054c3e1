// Text as bytes of one character set, for what lies outside of the SDK.
#pragma once

#include <string>

#include "OdString.h"

/** An OdAnsiString is a text of bytes together with the character set that they are in. It is a plain value. */
class OdAnsiString
{
public:
    static const OdAnsiString kEmpty;

    OdAnsiString() = default;
    OdAnsiString(const char* source, OdCodePageId codePage = CP_UTF_8);
    OdAnsiString(const char* source, int length, OdCodePageId codePage = CP_UTF_8);
    OdAnsiString(std::string source, OdCodePageId codePage = CP_UTF_8);
    /** The text in a character set; characters that it does not have are written as \U+XXXX. */
    OdAnsiString(const OdString& source, OdCodePageId codePage = CP_UTF_8);
    OdAnsiString(const OdChar* source, OdCodePageId codePage = CP_UTF_8);

    OdCodePageId getCodepage() const { return m_codePage; }
    int getLength() const { return static_cast<int>(m_bytes.size()); }
    bool isEmpty() const { return m_bytes.empty(); }
    void empty() { m_bytes.clear(); }
    const char* c_str() const { return m_bytes.c_str(); }
    operator const char*() const { return m_bytes.c_str(); }
    const std::string& bytes() const { return m_bytes; }

    OdAnsiString& operator+=(const OdAnsiString& other);
    bool operator==(const OdAnsiString& other) const { return m_bytes == other.m_bytes; }
    bool operator==(const char* other) const { return m_bytes == (other ? other : ""); }

private:
    std::string m_bytes;
    OdCodePageId m_codePage = CP_UTF_8;
};
