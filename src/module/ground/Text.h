// The one way to clean a text that came from outside.
#pragma once

#include "OdString.h"

/** The text without the blanks, tabs, line feeds and quotes (double and single) at both ends. */
inline OdString Trimmed(OdString strText)
{
    static constexpr const OdChar* kTrimmed = L" \t\n\"'";
    strText.trimLeft(kTrimmed);
    strText.trimRight(kTrimmed);
    return strText;
}
