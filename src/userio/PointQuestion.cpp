// Asks until there is a point that can be used.
#include "userio/PointQuestion.h"

#include "DbDatabase.h"
#include "Ed/EdBaseIO.h"
#include "Ge/GeTol.h"
#include "OdError.h"
#include "userio/Options.h"

CUserIO::PointQuestion::PointQuestion(CUserIO& io, const OdString& strPrompt, int iOptions, const OdString& strKeywords)
    : m_io(io), m_strPrompt(PromptOr(strPrompt, L"Enter a point:")), m_iOptions(iOptions), m_strKeywords(strKeywords),
      m_bThrowEmpty(HasOption(iOptions, OdEd::kInpThrowEmpty))
{
}

OdGePoint3d CUserIO::PointQuestion::Ask()
{
    if (!m_pTracker && HasOption(m_iOptions, OdEd::kGptRectFrame))
        m_pTracker = m_io.createRectFrame(m_io.getLASTPOINT());
    else if (!m_pTracker && HasOption(m_iOptions, OdEd::kGptRubberBand))
        m_pTracker = m_io.createRubberBand(m_io.getLASTPOINT());
    std::optional<OdGePoint3d> point;
    while (!point)
        point = AskOnce();
    m_io.setLASTPOINT(*point);
    return *point;
}

std::optional<OdGePoint3d> CUserIO::PointQuestion::AskOnce()
{
    try
    {
        const std::optional<OdGePoint3d> point = Answer();
        if (!point || IsWithinLimits(*point))
            return point;
        m_io.putError(L"Point is outside limits!");
    }
    catch (const OdError& error)
    {
        if (error.code() != eInvalidInput)
            throw;
        if (HasOption(m_iOptions, OdEd::kInpThrowOther))
            throw OdEdOtherInput(m_strTyped);
        Refuse();
    }
    return std::nullopt;
}

std::optional<OdGePoint3d> CUserIO::PointQuestion::Answer()
{
    m_strTyped.empty();
    try
    {
        return m_io.CurrentIO().getPoint(m_strPrompt, m_iOptions, m_pTracker.get());
    }
    catch (const OdEdOtherInput& typed)
    {
        m_strTyped = typed.string();
    }
    return ReadTyped();
}

std::optional<OdGePoint3d> CUserIO::PointQuestion::ReadTyped()
{
    if (m_strTyped.isEmpty())
        return ReadNothing();
    ThrowIfKeyword(m_strTyped, m_strKeywords);
    return ReadCoordinates();
}

std::optional<OdGePoint3d> CUserIO::PointQuestion::ReadNothing()
{
    if (m_bThrowEmpty)
        throw OdEdEmptyInput();
    if (m_pDefault)
        return *m_pDefault;
    Refuse();
    return std::nullopt;
}

OdGePoint3d CUserIO::PointQuestion::ReadCoordinates() const
{
    if (m_strTyped.find(L',') <= 0)
        throw OdEdOtherInput(m_strTyped);
    OdString strRest = m_strTyped;
    OdGePoint3d point;
    int iCount = 0;
    for (; iCount < 3 && !strRest.isEmpty(); ++iCount)
        point[iCount] = m_io.baseFormatter().unformatLinear(GetNextStringToken(strRest, L","));
    if (iCount < 2)
        throw OdEdOtherInput(m_strTyped);
    return point;
}

// The height does not matter.
bool CUserIO::PointQuestion::IsWithinLimits(const OdGePoint3d& point) const
{
    const OdDbDatabase* pDb = m_io.Database();
    if (HasOption(m_iOptions, OdEd::kGptNoLimCheck) || !pDb || !pDb->getLIMCHECK())
        return true;
    const double dTolerance = OdGeContext::gTol.equalPoint();
    const OdGePoint2d least = pDb->getLIMMIN();
    const OdGePoint2d greatest = pDb->getLIMMAX();
    return least.x <= point.x + dTolerance && least.y <= point.y + dTolerance && point.x - dTolerance <= greatest.x &&
           point.y - dTolerance <= greatest.y;
}

void CUserIO::PointQuestion::Refuse()
{
    m_io.putError(m_strKeywords.isEmpty() ? L"Invalid point!" : L"Requires valid point or optional keyword!");
}
