// Reads keyword lists and matches answers with them.
#include "userio/KeywordList.h"

#include <algorithm>

namespace
{

std::vector<OdString> SplitWords(const OdString& strText)
{
    std::vector<OdString> words;
    OdString strRest = strText;
    while (!strRest.trimLeft(L" ").isEmpty())
    {
        words.push_back(strRest.spanExcluding(L" "));
        strRest = strRest.mid(words.back().getLength());
    }
    return words;
}

bool IsCapital(OdChar character)
{
    return odToLower(character) != character;
}

OdString CapitalsOf(const OdString& strWord)
{
    OdString strCapitals;
    for (const OdChar character : strWord.view())
        if (IsCapital(character))
            strCapitals += character;
    return strCapitals;
}

int LengthUpToLastCapital(const OdString& strWord)
{
    int iLength = strWord.getLength();
    while (iLength > 0 && !IsCapital(strWord[iLength - 1]))
        --iLength;
    return iLength;
}

bool IsAbbreviation(const OdString& strAnswer, const OdString& strWord)
{
    const int iRequired = LengthUpToLastCapital(strWord);
    if (iRequired == 0)
        return false;
    const bool bHoldsCapitals = strAnswer.getLength() >= iRequired && strAnswer.getLength() <= strWord.getLength();
    return strAnswer.iCompare(CapitalsOf(strWord)) == 0 ||
           (bHoldsCapitals && strAnswer.iCompare(strWord.left(strAnswer.getLength())) == 0);
}

} // namespace

CKeywordList::CKeywordList(const OdString& strKeywords)
{
    const std::vector<OdString> words = SplitWords(strKeywords);
    const auto divider = std::find(words.begin(), words.end(), L"_");
    const auto numGlobals = static_cast<std::size_t>(divider - words.begin());
    for (std::size_t i = 0; i < numGlobals; ++i)
    {
        const std::size_t iLocal = numGlobals + 1 + i;
        m_keywords.push_back({words[i], iLocal < words.size() ? words[iLocal] : words[i]});
    }
}

int CKeywordList::Find(const OdString& strAnswer) const
{
    const auto FindBy = [&](auto matches)
    {
        const auto found = std::find_if(m_keywords.begin(), m_keywords.end(),
                                        [&](const Keyword& keyword)
                                        { return matches(keyword.strGlobal) || matches(keyword.strLocal); });
        return found == m_keywords.end() ? -1 : static_cast<int>(found - m_keywords.begin());
    };
    if (strAnswer.isEmpty())
        return -1;
    const int iWhole = FindBy([&](const OdString& strWord) { return strAnswer.iCompare(strWord) == 0; });
    return iWhole >= 0 ? iWhole : FindBy([&](const OdString& strWord) { return IsAbbreviation(strAnswer, strWord); });
}
