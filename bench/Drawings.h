// What benchmarks of the SDK share: drawings of any number of lines.
#pragma once

#include "DbBlockTableRecord.h"
#include "DbDatabase.h"
#include "DbHostAppServices.h"
#include "DbLine.h"
#include "ResBuf.h"
#include "RxInit.h"
#include "RxObjectImpl.h"

#include <cstdint>
#include <vector>

namespace bench
{

/// Starts the SDK for as long as the program runs. Calls after the first do nothing.
inline void startOnce()
{
    [[maybe_unused]] static const bool isStarted = (odInitialize(), true);
}

/// A drawing with count lines in model space and no history.
class LineDrawing
{
public:
    explicit LineDrawing(std::int64_t count)
    {
        startOnce();
        static OdDbHostAppServices services;
        m_database = services.createDatabase();
        m_database->newRegApp(L"BENCH");
        m_lines.reserve(static_cast<std::size_t>(count));
        const OdDbBlockTableRecordPtr space = m_database->getModelSpaceId().safeOpenObject(OdDb::kForWrite);
        for (std::int64_t i = 0; i < count; ++i)
        {
            const OdDbLinePtr line = OdDbLine::createObject();
            const double x = static_cast<double>(i % 1000) * 1.25;
            const double y = static_cast<double>(i) * 0.001;
            line->setStartPoint(OdGePoint3d(x, y, 0));
            line->setEndPoint(OdGePoint3d(x + 9, y + 4, 0));
            m_lines.push_back(space->appendOdDbEntity(line));
        }
        m_database->clearUndo();
    }

    OdDbDatabase& database() const { return *m_database; }
    const std::vector<OdDbObjectId>& lines() const { return m_lines; }

private:
    OdDbDatabasePtr m_database;
    std::vector<OdDbObjectId> m_lines;
};

/// Extended data with one whole number and one text.
inline OdResBufPtr xdataOf(OdInt32 number, const OdChar* text)
{
    OdResBufPtr chain = OdResBuf::newRb(OdResBuf::kDxfRegAppName, L"BENCH");
    chain->setNext(OdResBuf::newRb(OdResBuf::kDxfXdInteger32, number))
        ->setNext(OdResBuf::newRb(OdResBuf::kDxfXdAsciiString, text));
    return chain;
}

} // namespace bench
