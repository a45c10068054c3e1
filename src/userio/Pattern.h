// Regular expressions that cannot take a program down.
#pragma once

#include <memory>
#include <regex>
#include <string>

#include "OdString.h"

/** What is wrong with a pattern: it is malformed, or searching with it takes too much. what() names the pattern. */
class CPatternError : public std::regex_error
{
public:
    CPatternError(std::regex_constants::error_type eCode, const OdString& strPattern, const std::string& strFault);

    const char* what() const noexcept override { return m_strText.c_str(); }

private:
    std::string m_strText;
};

/** A CPattern is a compiled regular expression (ECMAScript, case matters). Searching with it is bounded in time and
    depth, as is its length. It does not change and may be used by several threads. */
class CPattern
{
public:
    /** Throws CPatternError for a text that is no regular expression or is too long for one. */
    explicit CPattern(const OdString& strPattern);

    /** True when a part of the text fits. Throws CPatternError when it takes too much to tell. */
    bool IsIn(const OdString& strText) const;

private:
    OdString m_strPattern;
    std::wregex m_regex;
};

/** The pattern that a text stands for, compiled when it was not used lately. Throws as CPattern. One thread uses it. */
std::shared_ptr<const CPattern> FindPattern(const OdString& strPattern);
