// What the readers share when they look at options and prompts.
#pragma once

#include "Ed/EdUserIO.h"

/** Options are bits that may be negative as a number. */
inline bool HasOption(int options, unsigned uiOption)
{
    return (static_cast<unsigned>(options) & uiOption) != 0;
}

inline int WithOption(int options, unsigned uiOption)
{
    return static_cast<int>(static_cast<unsigned>(options) | uiOption);
}

inline int WithoutOption(int options, unsigned uiOption)
{
    return static_cast<int>(static_cast<unsigned>(options) & ~uiOption);
}

inline OdString PromptOr(const OdString& strPrompt, const OdChar* pszDefault)
{
    return strPrompt.isEmpty() ? OdString(pszDefault) : strPrompt;
}

/** Throws OdEdKeyword when the answer stands for one of the keywords. */
void ThrowIfKeyword(const OdString& strAnswer, const OdString& strKeywords);
