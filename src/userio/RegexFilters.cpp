// Looks at entities one by one.
#include "userio/RegexFilters.h"

#include <algorithm>
#include <optional>

#include "DbBlockReference.h"
#include "DbBlockTableRecord.h"
#include "DbMText.h"
#include "DbText.h"
#include "RxObjectImpl.h"

ODRX_CONS_DEFINE_MEMBERS(CBlockNameRegexFilter, OdEdSSetTracker, RXIMPL_CONSTR)
ODRX_CONS_DEFINE_MEMBERS(CTextRegexFilter, OdEdSSetTracker, RXIMPL_CONSTR)

// ---- Names of blocks
// -------------------------------------------------------------------------------------------------

void CBlockNameRegexFilter::AddPatterns(const OdStringArray& patterns)
{
    std::vector<CPattern> compiled = m_patterns;
    for (const OdString& strPattern : patterns)
        if (!strPattern.isEmpty())
            compiled.emplace_back(strPattern);
    m_patterns = std::move(compiled);
    m_verdicts.clear();
}

bool CBlockNameRegexFilter::FitsOne(const OdString& strName) const
{
    return std::any_of(m_patterns.begin(), m_patterns.end(),
                       [&](const CPattern& pattern) { return pattern.IsIn(strName); });
}

bool CBlockNameRegexFilter::append(OdDbObjectId entityId, const OdDbSelectionMethod*)
{
    const OdDbObjectPtr pEntity = entityId.openObject();
    const OdDbBlockReferencePtr pReference = OdDbBlockReference::cast(pEntity.get());
    if (!pReference || m_patterns.empty())
        return false;
    const OdDbObjectId blockId = pReference->blockTableRecord();
    const OdDbBlockTableRecordPtr pBlock = blockId.openObject();
    if (!pBlock)
        return false;
    const OdString strName = pBlock->getName();
    const auto found = m_verdicts.find(blockId);
    if (found != m_verdicts.end() && found->second.strName == strName)
        return found->second.bFits;
    const bool bFits = FitsOne(strName);
    m_verdicts[blockId] = {strName, bFits};
    return bFits;
}

// ---- Texts
// -----------------------------------------------------------------------------------------------------------

static std::optional<OdString> TextOf(const OdDbObject* pEntity)
{
    if (const OdDbTextPtr pText = OdDbText::cast(pEntity))
        return pText->textString();
    if (const OdDbMTextPtr pText = OdDbMText::cast(pEntity))
        return pText->text();
    return std::nullopt;
}

bool CTextRegexFilter::append(OdDbObjectId entityId, const OdDbSelectionMethod*)
{
    const OdDbObjectPtr pEntity = entityId.openObject();
    const std::optional<OdString> strText = TextOf(pEntity.get());
    if (!strText)
        return false;
    for (const OdString& strPattern : m_patterns)
        if (FindPattern(strPattern)->IsIn(*strText))
            return true;
    return false;
}
