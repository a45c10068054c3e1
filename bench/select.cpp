// Selecting in a large drawing: 1,000,000 entities (ZOLCAD_BENCH_ENTITIES says otherwise), lines, circles, texts,
// polylines and block references spread evenly, written to a file and opened from there. A window and a crossing around
// about a hundred entities stand beside testing every entity, the making of the index beside the opening of the file.
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <random>
#include <string>

#include <unistd.h>

#include <benchmark/benchmark.h>

#include "DbBlockReference.h"
#include "DbBlockTable.h"
#include "DbBlockTableRecord.h"
#include "DbCircle.h"
#include "DbDatabase.h"
#include "DbLine.h"
#include "DbPolyline.h"
#include "DbSSet.h"
#include "DbText.h"
#include "RxInit.h"
#include "select/DrawingIndex.h"
#include "select/HitTester.h"

namespace
{

using Visual = OdDbVisualSelection;

std::size_t entityCount()
{
    const char* const wanted = std::getenv("ZOLCAD_BENCH_ENTITIES");
    return wanted == nullptr ? 1'000'000 : std::strtoul(wanted, nullptr, 10);
}

constexpr double kSpacing = 18.0; // of one entity from the next, on average

double side()
{
    return kSpacing * std::sqrt(static_cast<double>(entityCount()));
}

// Twenty in a row make a run: 8 lines, 4 circles, 5 texts, 2 polylines, 1 block reference.
OdDbEntityPtr makeEntity(std::size_t index, double x, double y, const OdDbObjectId& block)
{
    const std::size_t kind = index % 20;
    if (kind < 8)
    {
        const OdDbLinePtr line = OdDbLine::createObject();
        line->setStartPoint({x, y, 0});
        line->setEndPoint({x + 9, y + 4, 0});
        return line;
    }
    if (kind < 12)
    {
        const OdDbCirclePtr circle = OdDbCircle::createObject();
        circle->setCenter({x, y, 0});
        circle->setRadius(2.0 + static_cast<double>(index % 7));
        return circle;
    }
    if (kind < 17)
    {
        const OdDbTextPtr text = OdDbText::createObject();
        text->setPosition({x, y, 0});
        text->setHeight(2.5);
        text->setTextString(OdString().format(L"E%u", static_cast<unsigned>(index)));
        return text;
    }
    if (kind < 19)
    {
        const OdDbPolylinePtr polyline = OdDbPolyline::createObject();
        const OdGePoint2d corners[] = {{x, y}, {x + 7, y}, {x + 7, y + 5}, {x, y + 5}};
        for (unsigned i = 0; i < 4; ++i)
            polyline->addVertexAt(i, corners[i]);
        polyline->setClosed(true);
        return polyline;
    }
    const OdDbBlockReferencePtr reference = OdDbBlockReference::createObject();
    reference->setBlockTableRecord(block);
    reference->setPosition({x, y, 0});
    return reference;
}

OdDbObjectId makeBlock(OdDbDatabase& database)
{
    const OdDbBlockTablePtr blocks = OdDbBlockTable::cast(database.getBlockTableId().safeOpenObject(OdDb::kForWrite));
    const OdDbBlockTableRecordPtr block = OdDbBlockTableRecord::createObject();
    block->setName(L"PART");
    const OdDbObjectId id = blocks->add(block);
    const OdDbCirclePtr circle = OdDbCircle::createObject();
    circle->setDatabaseDefaults(&database);
    circle->setRadius(4);
    block->appendOdDbEntity(circle);
    return id;
}

void writeDrawing(const OdString& file)
{
    const OdDbDatabasePtr database = OdDbDatabase::createObject();
    database->initialize();
    database->disableUndoRecording(true);
    const OdDbObjectId block = makeBlock(*database);
    const OdDbBlockTableRecordPtr space =
        OdDbBlockTableRecord::cast(database->getModelSpaceId().safeOpenObject(OdDb::kForWrite));
    std::mt19937 dice(22);
    std::uniform_real_distribution<double> place(0, side());
    for (std::size_t i = 0; i < entityCount(); ++i)
    {
        const double x = place(dice);
        const double y = place(dice);
        const OdDbEntityPtr entity = makeEntity(i, x, y, block);
        entity->setDatabaseDefaults(database);
        space->appendOdDbEntity(entity);
    }
    database->writeFile(file, OdDb::kDxf, OdDb::vAC32);
}

// The drawing in a file, and open.
class Drawing
{
public:
    static Drawing& get()
    {
        static Drawing drawing;
        return drawing;
    }

    OdDbDatabasePtr open() const
    {
        OdDbDatabasePtr database = OdDbDatabase::createObject();
        database->readFile(m_file);
        return database;
    }

    OdDbDatabase& opened()
    {
        if (m_opened.isNull())
            m_opened = open();
        return *m_opened;
    }

private:
    Drawing()
    {
        odInitialize();
        const std::filesystem::path path =
            std::filesystem::temp_directory_path() / ("zolcad-bench-" + std::to_string(::getpid()) + ".dxf");
        m_path = path.string();
        m_file = odUtf8ToString(m_path);
        writeDrawing(m_file);
    }
    ~Drawing()
    {
        m_opened.release();
        std::filesystem::remove(m_path);
    }

    std::string m_path;
    OdString m_file;
    OdDbDatabasePtr m_opened;
};

// Two corners around about a hundred entities, somewhere.
class Places
{
public:
    void next(OdGePoint3d (&corners)[2])
    {
        const double x = m_place(m_dice);
        const double y = m_place(m_dice);
        corners[0] = {x, y, 0};
        corners[1] = {x + kSize, y + kSize, 0};
    }

private:
    static constexpr double kSize = kSpacing * 10.3;
    std::mt19937 m_dice{5};
    std::uniform_real_distribution<double> m_place{0.0, side() - kSize};
};

void openFile(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(Drawing::get().open());
}

void makeIndex(benchmark::State& state)
{
    OdDbDatabase& database = Drawing::get().opened();
    for (auto _ : state)
    {
        picking::SpatialIndex index(*static_cast<OdDbStub*>(database.getModelSpaceId()), picking::ViewPlane());
        index.bringUpToDate();
    }
}

void select(benchmark::State& state, Visual::Mode mode)
{
    OdDbDatabase& database = Drawing::get().opened();
    const OdDbObjectId viewport = database.activeViewportId();
    OdGePoint3d corners[2];
    Places places;
    places.next(corners);
    OdDbSelectionSet::select(viewport, 2, corners, mode); // makes the index
    std::size_t found = 0;
    for (auto _ : state)
    {
        places.next(corners);
        found += OdDbSelectionSet::select(viewport, 2, corners, mode)->numEntities();
    }
    state.counters["entities"] = benchmark::Counter(static_cast<double>(found), benchmark::Counter::kAvgIterations);
}

void testEveryEntity(benchmark::State& state)
{
    OdDbDatabase& database = Drawing::get().opened();
    OdGePoint3d corners[2];
    Places places;
    std::size_t found = 0;
    for (auto _ : state)
    {
        places.next(corners);
        const auto shape = picking::Shape::rectangle({corners[0].x, corners[0].y}, {corners[1].x, corners[1].y});
        picking::LayerStates layers;
        OdStaticRxObject<picking::HitTester> tester(picking::Question::kTouches, shape, picking::ViewPlane(), layers);
        const OdDbBlockTableRecordPtr space = OdDbBlockTableRecord::cast(database.getModelSpaceId().safeOpenObject());
        for (OdDbObjectIteratorPtr walk = space->newIterator(); !walk->done(); walk->step())
            found += tester.test(*walk->entity()).touches ? 1 : 0;
    }
    state.counters["entities"] = benchmark::Counter(static_cast<double>(found), benchmark::Counter::kAvgIterations);
}

BENCHMARK(openFile)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(makeIndex)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK_CAPTURE(select, window, Visual::kWindow)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(select, crossing, Visual::kCrossing)->Unit(benchmark::kMicrosecond);
BENCHMARK(testEveryEntity)->Unit(benchmark::kMillisecond)->Iterations(3);

} // namespace
