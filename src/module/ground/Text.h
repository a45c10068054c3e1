// The one way to clean a text that came from outside.
#pragma once

#include "OdString.h"

/** The text without the blanks, tabs, line feeds and quotes (double and single) at both ends. */
inline OdString Trimmed(const OdString& strText)
{
    static constexpr const OdChar* kTrimmed = L" \t\n\"'";
    OdString strResult = strText;
    strResult.trimLeft(kTrimmed);
    strResult.trimRight(kTrimmed);
    return strResult;
}
