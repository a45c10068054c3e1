// Keyword lists as callers write them, and finding the keyword that an answer stands for.
//
//   list    = globals [ "_" locals ]
//   globals = word { blank word }     locals likewise, the same number in the same order
#pragma once

#include <vector>

#include "OdString.h"

/** One keyword: its name, the same in every language, and the word that the user sees. */
struct Keyword
{
    OdString strGlobal;
    OdString strLocal;
};

/** A CKeywordList is a list of keywords that was written as a text. It is a plain value. */
class CKeywordList
{
public:
    explicit CKeywordList(const OdString& strKeywords);

    int Count() const { return static_cast<int>(m_keywords.size()); }
    const Keyword& operator[](int iIndex) const { return m_keywords[static_cast<std::size_t>(iIndex)]; }
    bool Has(int iIndex) const { return iIndex >= 0 && iIndex < Count(); }

    /** The index of the keyword that the answer stands for, -1 when it stands for none: first whole words count, then
        abbreviations, the earlier keyword each time. */
    int Find(const OdString& strAnswer) const;

private:
    std::vector<Keyword> m_keywords;
};
