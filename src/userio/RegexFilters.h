// Filters that let only such entities into a selection as have a name or text that fits a regular expression.
//
// Patterns are those of ECMAScript; case matters, and a pattern fits when it fits a part ("^" and "$" make it the
// whole). Without any pattern nothing fits. Errors of patterns are CPatternError, a std::regex_error that names the
// pattern: for one that is malformed and for one that takes too long or goes too deep on a text.
#pragma once

#include <unordered_map>
#include <vector>

#include "Ed/EdInputTracker.h"
#include "StringArray.h"
#include "userio/Pattern.h"

/** A CBlockNameRegexFilter admits references to blocks whose name fits one of its patterns. */
class CBlockNameRegexFilter : public OdEdSSetTracker
{
public:
    ODRX_DECLARE_MEMBERS(CBlockNameRegexFilter);

    /** Compiles patterns and puts them behind those there; empty ones are passed over. Throws CPatternError, with
        nothing changed. */
    void AddPatterns(const OdStringArray& patterns);

    /** Throws CPatternError, and OdError_NotThatKindOfClass for a reference to something that is no block. */
    bool append(OdDbObjectId entityId, const OdDbSelectionMethod* selectionMethod) override;

private:
    /// What was found out about a block, as long as it has that name.
    struct Verdict
    {
        OdString strName;
        bool bFits = false;
    };

    bool FitsOne(const OdString& strName) const;

    std::vector<CPattern> m_patterns;
    std::unordered_map<OdDbStub*, Verdict> m_verdicts;
};
using CBlockNameRegexFilterPtr = OdSmartPtr<CBlockNameRegexFilter>;

/** A CTextRegexFilter admits texts of one line and of several lines whose content (without format codes) fits one of
    its patterns. It keeps patterns as texts: one that is malformed is an error when the first text is looked at. */
class CTextRegexFilter : public OdEdSSetTracker
{
public:
    ODRX_DECLARE_MEMBERS(CTextRegexFilter);

    /** In place of those there. */
    void SetPatterns(const OdStringArray& patterns) { m_patterns = patterns; }

    /** Throws CPatternError. */
    bool append(OdDbObjectId entityId, const OdDbSelectionMethod* selectionMethod) override;

private:
    OdStringArray m_patterns;
};
using CTextRegexFilterPtr = OdSmartPtr<CTextRegexFilter>;
