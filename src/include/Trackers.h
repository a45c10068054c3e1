// What follows the pointer while a point is asked for, and what it shows.
#pragma once

#include <vector>

#include "Ed/EdInputTracker.h"
#include "Ge/GePoint3dArray.h"
#include "Gi/GiDrawable.h"
#include "Gs/Gs.h"
#include "QuendZolExport.h"

class OdDbDatabase;

/** A CTracker is what a tracker of the module shows: lines in the colour of the foreground, which hosts draw like any
    drawable. It belongs to no drawing. It is registered under OdRxObject and must not be cast through another parent.
 */
class QUEND_ZOL_EXPORT CTracker : public OdGiDrawable
{
public:
    ODRX_DECLARE_MEMBERS(CTracker);

    /** Lines, each a row of points joined by straight lines, in place of those before. */
    void SetLines(const std::vector<OdGePoint3dArray>& lines) { m_lines = lines; }
    const std::vector<OdGePoint3dArray>& GetLines() const { return m_lines; }

    bool isPersistent() const override { return false; }
    OdDbStub* id() const override { return nullptr; }

protected:
    OdUInt32 subSetAttributes(OdGiDrawableTraits* traits) const override;
    bool subWorldDraw(OdGiWorldDraw* worldDraw) const override;

private:
    std::vector<OdGePoint3dArray> m_lines;
};
using CTrackerPtr = OdSmartPtr<CTracker>;

/** A CPointTracker follows a point that is picked and starts from a base point. It adds one drawable to each view.
   Until the first setValue it shows nothing. The model, which may be null, is told of each change. */
class QUEND_ZOL_EXPORT CPointTracker : public OdEdPointDefTracker
{
public:
    int addDrawables(OdGsView* view) override;
    void removeDrawables(OdGsView* view) override;
    void setValue(const OdGePoint3d& value) override;
    OdGePoint3d basePoint() const override { return m_base; }
    void setBasePoint(const OdGePoint3d& point) override { m_base = point; }

    /** What it shows at present. */
    const CTracker& GetDrawable() const { return *m_pDrawable; }

protected:
    CPointTracker(const OdGePoint3d& base, OdGsModel* pModel);

    /** The lines for a point that the user points at. */
    virtual std::vector<OdGePoint3dArray> LinesTo(const OdGePoint3d& point) const = 0;

private:
    OdGePoint3d m_base;
    OdSmartPtr<OdGsModel> m_pModel;
    CTrackerPtr m_pDrawable;
};

/** A line from the base point. */
class QUEND_ZOL_EXPORT CRubberBandTracker : public CPointTracker
{
protected:
    CRubberBandTracker(const OdGePoint3d& base, OdGsModel* pModel) : CPointTracker(base, pModel) {}
    std::vector<OdGePoint3dArray> LinesTo(const OdGePoint3d& point) const override;
};

/** A rectangle with the base point in a corner, along the axes of the world and at the height of the base point. */
class QUEND_ZOL_EXPORT CRectFrameTracker : public CPointTracker
{
protected:
    CRectFrameTracker(const OdGePoint3d& base, OdGsModel* pModel) : CPointTracker(base, pModel) {}
    std::vector<OdGePoint3dArray> LinesTo(const OdGePoint3d& point) const override;
};

/** Follows a point and tells a tracker of numbers how far it is from the base point. Shows the line that is measured,
    and in plan also how the point lies above it. */
class QUEND_ZOL_EXPORT CPointToDistanceTracker : public CPointTracker
{
public:
    /** The distance from the base point; with OdEd::kGdsNoZCoord among the options only its part in the plane of the
        drawing's user coordinate system (UCSXDIR and UCSYDIR, in a sheet PUCSXDIR and PUCSYDIR). */
    double GetDistanceByOptions(const OdGePoint3d& point) const;

    void setValue(const OdGePoint3d& value) override;

protected:
    CPointToDistanceTracker(const OdGePoint3d& base, OdEdRealTracker* pTracker, int iOptions, OdDbDatabase* pDb);
    std::vector<OdGePoint3dArray> LinesTo(const OdGePoint3d& point) const override;

private:
    OdGePoint3d MeasuredEnd(const OdGePoint3d& point) const;

    OdEdRealTrackerPtr m_pTracker;
    int m_iOptions;
    OdDbDatabase* m_pDb;
};
using CPointToDistanceTrackerPtr = OdSmartPtr<CPointToDistanceTracker>;

/** Follows a point and tells a tracker of numbers the direction to it from the base point: radians counter-clockwise
    from east, seen from above, from 0 up to a full turn; 0 straight above. Shows the line to the point, and east. */
class QUEND_ZOL_EXPORT CPointToOrientationTracker : public CPointTracker
{
public:
    void setValue(const OdGePoint3d& value) override;

protected:
    CPointToOrientationTracker(const OdGePoint3d& base, OdEdRealTracker* pTracker);
    std::vector<OdGePoint3dArray> LinesTo(const OdGePoint3d& point) const override;

private:
    OdEdRealTrackerPtr m_pTracker;
};
