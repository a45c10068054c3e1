// The lines that follow a point, and the numbers that are told of it.
#include <cmath>

#include "DbDatabase.h"
#include "Ed/EdUserIO.h"
#include "ResBuf.h"
#include "Trackers.h"

static OdGePoint3dArray LineOf(std::initializer_list<OdGePoint3d> points)
{
    OdGePoint3dArray line;
    for (const OdGePoint3d& point : points)
        line.append(point);
    return line;
}

// ---- What all have
// ---------------------------------------------------------------------------------------------------

CPointTracker::CPointTracker(const OdGePoint3d& base, OdGsModel* pModel)
    : m_base(base), m_pModel(pModel), m_pDrawable(CTracker::createObject())
{
}

int CPointTracker::addDrawables(OdGsView* view)
{
    if (!view)
        return 0;
    view->add(m_pDrawable.get(), m_pModel.get());
    return 1;
}

void CPointTracker::removeDrawables(OdGsView* view)
{
    if (view)
        view->erase(m_pDrawable.get());
}

void CPointTracker::setValue(const OdGePoint3d& value)
{
    m_pDrawable->SetLines(LinesTo(value));
    if (m_pModel)
        m_pModel->onModified(m_pDrawable.get(), nullptr);
}

std::vector<OdGePoint3dArray> CRubberBandTracker::LinesTo(const OdGePoint3d& point) const
{
    return {LineOf({basePoint(), point})};
}

std::vector<OdGePoint3dArray> CRectFrameTracker::LinesTo(const OdGePoint3d& point) const
{
    const OdGePoint3d base = basePoint();
    return {LineOf({base, {point.x, base.y, base.z}, {point.x, point.y, base.z}, {base.x, point.y, base.z}, base})};
}

// ---- Distance
// --------------------------------------------------------------------------------------------------------

CPointToDistanceTracker::CPointToDistanceTracker(const OdGePoint3d& base, OdEdRealTracker* pTracker, int iOptions,
                                                 OdDbDatabase* pDb)
    : CPointTracker(base, nullptr), m_pTracker(pTracker), m_iOptions(iOptions), m_pDb(pDb)
{
}

static OdGeVector3d AxisOf(const OdDbDatabase& db, const OdChar* pszModel, const OdChar* pszSheet)
{
    return db.getSysVar(db.getTILEMODE() ? pszModel : pszSheet)->getPoint3d().asVector();
}

static OdGeVector3d PlaneNormal(const OdDbDatabase& db)
{
    const OdGeVector3d normal = AxisOf(db, L"UCSXDIR", L"PUCSXDIR").crossProduct(AxisOf(db, L"UCSYDIR", L"PUCSYDIR"));
    return normal.isZeroLength() ? OdGeVector3d::kZAxis : normal.normal();
}

OdGePoint3d CPointToDistanceTracker::MeasuredEnd(const OdGePoint3d& point) const
{
    if (!(m_iOptions & OdEd::kGdsNoZCoord))
        return point;
    const OdGeVector3d normal = PlaneNormal(*m_pDb);
    return point - normal * normal.dotProduct(point - basePoint());
}

double CPointToDistanceTracker::GetDistanceByOptions(const OdGePoint3d& point) const
{
    return basePoint().distanceTo(MeasuredEnd(point));
}

void CPointToDistanceTracker::setValue(const OdGePoint3d& value)
{
    CPointTracker::setValue(value);
    m_pTracker->setValue(GetDistanceByOptions(value));
}

std::vector<OdGePoint3dArray> CPointToDistanceTracker::LinesTo(const OdGePoint3d& point) const
{
    return {LineOf({basePoint(), MeasuredEnd(point), point})};
}

// ---- Direction
// -------------------------------------------------------------------------------------------------------

CPointToOrientationTracker::CPointToOrientationTracker(const OdGePoint3d& base, OdEdRealTracker* pTracker)
    : CPointTracker(base, nullptr), m_pTracker(pTracker)
{
}

void CPointToOrientationTracker::setValue(const OdGePoint3d& value)
{
    CPointTracker::setValue(value);
    constexpr double dFullTurn = 2.0 * 3.14159265358979323846;
    const OdGeVector3d direction = value - basePoint();
    const double dAngle = std::atan2(direction.y, direction.x);
    m_pTracker->setValue(dAngle < 0.0 ? dAngle + dFullTurn : dAngle);
}

std::vector<OdGePoint3dArray> CPointToOrientationTracker::LinesTo(const OdGePoint3d& point) const
{
    const OdGePoint3d east = basePoint() + OdGeVector3d::kXAxis * basePoint().distanceTo(point);
    return {LineOf({east, basePoint(), point})};
}
