// Asking for one point.
#pragma once

#include <optional>

#include "UserIO.h"

/** A PointQuestion asks for one point as CUserIO::getPoint says. What it refers to outlives it. */
class CUserIO::PointQuestion
{
public:
    PointQuestion(CUserIO& io, const OdString& strPrompt, int iOptions, const OdString& strKeywords);

    void SetDefault(const OdGePoint3d* pDefault) { m_pDefault = pDefault; }
    /** Null for the one that the options ask for, if any. */
    void SetTracker(OdEdPointTracker* pTracker) { m_pTracker = pTracker; }
    /** Makes an empty answer throw OdEdEmptyInput, whatever the options say. */
    void ThrowEmpty() { m_bThrowEmpty = true; }

    OdGePoint3d Ask();

private:
    std::optional<OdGePoint3d> AskOnce();
    std::optional<OdGePoint3d> Answer();
    std::optional<OdGePoint3d> ReadTyped();
    std::optional<OdGePoint3d> ReadNothing();
    OdGePoint3d ReadCoordinates() const;
    bool IsWithinLimits(const OdGePoint3d& point) const;
    void Refuse();

    CUserIO& m_io;
    OdString m_strPrompt;
    int m_iOptions;
    OdString m_strKeywords;
    const OdGePoint3d* m_pDefault = nullptr;
    OdEdPointTrackerPtr m_pTracker;
    bool m_bThrowEmpty;
    OdString m_strTyped; ///< instead of picking a point
};
