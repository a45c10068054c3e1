// What the tests of selecting share: a drawing from short lines, and selections in it as lists of handles.
#pragma once

#include <fstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "DbBlockReference.h"
#include "DbDatabase.h"
#include "DbSSet.h"
#include "DbSpatialFilter.h"
#include "support/DrawingFiles.h"
#include "support/EntityDrawing.h"
#include "support/Sdk.h"
#include "support/TemporaryFolder.h"

namespace selecttest
{

using support::Content;

/// "A1 A2": in order.
inline std::string handlesOf(const OdDbObjectIdArray& ids)
{
    std::string handles;
    for (const OdDbObjectId& id : ids)
        handles += (handles.empty() ? "" : " ") + odStringToUtf8(id.getHandle().ascii());
    return handles;
}

/// A drawing in memory.
class Drawing
{
public:
    explicit Drawing(const Content& content)
    {
        support::startSdk();
        std::ofstream(m_folder.path("drawing.dxf")) << support::drawingOf(content);
        m_database = support::readDrawing(m_folder.path("drawing.dxf"));
    }

    OdDbDatabase& database() { return *m_database; }
    OdDbObjectId id(const char* handle) const
    {
        OdDbHandle parsed;
        EXPECT_TRUE(OdDbHandle::parse(odUtf8ToString(handle).view(), parsed));
        return m_database->getOdDbObjectId(parsed);
    }

    /// Cuts a reference at an outline in the coordinates of the drawing.
    void clip(const char* handle, const OdGePoint2dArray& outline) const
    {
        const OdDbBlockReferencePtr reference = id(handle).safeOpenObject(OdDb::kForWrite);
        const OdDbSpatialFilterPtr filter = OdDbSpatialFilter::createObject();
        filter->setDefinition(outline, OdGeVector3d::kZAxis, 0.0);
        OdDbIndexFilterManager::addFilter(reference, filter);
    }

    /// "A1 A2": the handles of what is selected, in order.
    std::string select(OdDbVisualSelection::Mode mode, const std::vector<OdGePoint3d>& points,
                       const OdRxObject* filter = nullptr) const
    {
        const OdDbSelectionSetPtr set =
            OdDbSelectionSet::select(m_database->activeViewportId(), static_cast<int>(points.size()), points.data(),
                                     mode, OdDbVisualSelection::kDisableSubents, filter);
        return handlesOf(set->objectIdArray());
    }

private:
    support::TemporaryFolder m_folder;
    OdDbDatabasePtr m_database;
};

inline OdGePoint3d at(double x, double y)
{
    return {x, y, 0.0};
}

} // namespace selecttest
