// Selections: picked here, everything else by the host.
#include <optional>

#include "CommandHandler.h"
#include "DbDatabase.h"
#include "Ed/EdBaseIO.h"
#include "ModuleErrors.h"
#include "RxSystemServices.h"
#include "UserIO.h"
#include "module/ground/Messages.h"
#include "userio/Options.h"
#include "userio/PointQuestion.h"
#include "userio/SelectionRequests.h"

OdSelectionSetPtr CUserIO::pickfirst()
{
    return CSelectionRequests(m_pHandler, L"CUserIO::pickfirst").Get();
}

void CUserIO::setPickfirst(OdSelectionSet* selection)
{
    CSelectionRequests(m_pHandler, L"CUserIO::setPickfirst").Replace(OdDbSelectionSetPtr(selection), true);
}

namespace
{

bool HasMembers(const OdSelectionSetPtr& pSet)
{
    return pSet && pSet->numEntities() > 0;
}

} // namespace

/// One round of pointing: a point, and where there is nothing the box from it to a second one.
class CUserIO::PickQuestion
{
public:
    PickQuestion(CUserIO& io, OdDbDatabase& db, const OdString& strPrompt, const OdString& strKeywords,
                 OdGePoint3dArray& points)
        : m_io(io), m_db(db), m_strPrompt(strPrompt), m_strKeywords(strKeywords), m_points(points)
    {
        m_points.clear();
    }

    /** Returns what was picked, null when a keyword was typed instead or nothing at all. Throws OdEdEmptyInput for the
        latter when the options say so. */
    OdDbSelectionSetPtr Ask(int& iOptions)
    {
        try
        {
            return Pick(iOptions);
        }
        catch (const OdEdKeyword& keyword)
        {
            m_iMode = keyword.keywordIndex();
        }
        catch (const OdEdEmptyInput&)
        {
            if (HasOption(iOptions, OdEd::kInpThrowEmpty))
                throw;
        }
        return OdDbSelectionSetPtr();
    }

    /** The position of the keyword, nothing when none was typed. */
    const std::optional<int>& Mode() const { return m_iMode; }

private:
    OdDbSelectionSetPtr Pick(int& iOptions)
    {
        m_points.append(FirstPoint(iOptions));
        const OdDbVisualSelection::SubentSelectionMode eParts = PartsAskedFor(iOptions);
        OdDbSelectionSetPtr pPicked = SelectBy(OdDbVisualSelection::kPoint, eParts);
        if (HasMembers(pPicked) || HasOption(iOptions, OdEd::kSelSingleEntity))
            return pPicked;
        m_points.append(SecondPoint());
        return SelectBy(OdDbVisualSelection::kBox, eParts);
    }

    OdGePoint3d FirstPoint(int& iOptions)
    {
        if (HasOption(iOptions, OdEd::kSelPickLastPoint))
        {
            iOptions = WithoutOption(iOptions, OdEd::kSelPickLastPoint);
            return m_io.getLASTPOINT();
        }
        constexpr unsigned uiOptions =
            OdEd::kInpThrowEmpty | OdEd::kInpThrowOther | OdEd::kInpNonEmpty | OdEd::kGptNoLimCheck;
        return m_io.getPoint(m_strPrompt, static_cast<int>(uiOptions), nullptr, m_strKeywords);
    }

    OdGePoint3d SecondPoint()
    {
        constexpr int iOptions = OdEd::kGptRectFrame | OdEd::kInpNonEmpty | OdEd::kGptNoLimCheck;
        PointQuestion question(m_io, m_strPrompt, iOptions, m_strKeywords);
        question.ThrowEmpty();
        return question.Ask();
    }

    /** Whether parts of entities are asked for, by the key that is held now: at the first point. */
    OdDbVisualSelection::SubentSelectionMode PartsAskedFor(int iOptions)
    {
        const bool bParts =
            HasOption(iOptions, OdEd::kSelAllowSubents) && (m_io.getKeyState() & OdEdBaseIO::kControlIsDown) != 0;
        return bParts ? OdDbVisualSelection::kEnableSubents : OdDbVisualSelection::kDisableSubents;
    }

    OdDbSelectionSetPtr SelectBy(OdDbVisualSelection::Mode eMode, OdDbVisualSelection::SubentSelectionMode eParts)
    {
        return OdDbSelectionSet::select(m_db.activeViewportId(), static_cast<int>(m_points.size()),
                                        m_points.asArrayPtr(), eMode, eParts);
    }

    CUserIO& m_io;
    OdDbDatabase& m_db;
    OdString m_strPrompt;
    OdString m_strKeywords;
    OdGePoint3dArray& m_points;
    std::optional<int> m_iMode;
};

OdSelectionSetPtr CUserIO::select(const OdString& prompt, int options, const OdSelectionSet* defaultValue,
                                  const OdString& keywords, OdSSetTracker* tracker, OdGePoint3dArray* points)
{
    constexpr const OdChar* pszOperation = L"CUserIO::select";
    CSelectionRequests requests(m_pHandler, pszOperation, tracker);
    if (!Database())
        throw OdError_InvalidValue(eNoDatabase, L"pDb", pszOperation);
    OdDbSelectionSetPtr pResult = OdDbSelectionSet::createObject(Database());
    if (!defaultValue && !HasOption(options, OdEd::kSelIgnorePickfirst))
        if (const OdSelectionSetPtr pPickFirst = pickfirst(); HasMembers(pPickFirst))
            return requests.Merge(pPickFirst, pResult, WithoutOption(options, OdEd::kSelRemove));
    if (defaultValue)
    {
        const int iAdding =
            WithoutOption(options, OdEd::kSelPickLastPoint | OdEd::kSelSingleEntity | OdEd::kSelSinglePass);
        pResult = requests.Merge(OdDbSelectionSetPtr(const_cast<OdSelectionSet*>(defaultValue)), pResult,
                                 WithOption(iAdding, OdEd::kSelIgnorePickfirst));
    }

    const OdString strKeywords =
        keywords.isEmpty() ? odSystemServices()->formatMessage(eMessageSelectKeywords) : keywords;
    OdGePoint3dArray ownPoints;
    PickQuestion question(*this, *Database(), PromptOr(prompt, L"Select objects:"), strKeywords,
                          points ? *points : ownPoints);
    const OdDbSelectionSetPtr pPicked = question.Ask(options);
    if (HasMembers(pPicked))
        pResult = requests.Merge(pPicked, pResult, options);
    else if (question.Mode() && CSelectionRequests::HasMode(*question.Mode()))
        pResult = requests.Select(*question.Mode(), options);
    return requests.Update(pResult, HasOption(options, OdEd::kSelLeaveHighlighted));
}
