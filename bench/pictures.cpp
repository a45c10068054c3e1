// What pictures cost beside opening the drawing, in one process: 100,000 and 10,000 entities of the usual mix, made by
// bench/drawing.py. Counted as they are waited for, and in the processor time of all threads.
#include <cstdlib>
#include <filesystem>
#include <string>

#include <benchmark/benchmark.h>

#include "DbBlockTableRecord.h"
#include "DbDatabase.h"
#include "DbEntity.h"
#include "RxInit.h"
#include "render/Picture.h"

namespace
{

namespace fs = std::filesystem;

/// The drawing with that many entities; made once.
std::string drawingWith(std::int64_t entities)
{
    const fs::path file = fs::temp_directory_path() / ("zolcad-pictures-" + std::to_string(entities) + ".dxf");
    if (!fs::exists(file))
    {
        const std::string command =
            "\"" ZOLCAD_BENCH_FOLDER "/drawing.py\" " + std::to_string(entities) + " \"" + file.string() + "\"";
        if (std::system(command.c_str()) != 0)
            std::abort();
    }
    return file.string();
}

OdDbDatabasePtr open(const std::string& file)
{
    static const bool isStarted = (odInitialize(), true);
    static_cast<void>(isStarted);
    OdDbDatabasePtr database = OdDbDatabase::createObject();
    database->readFile(odUtf8ToString(file));
    return database;
}

void openDrawing(benchmark::State& state)
{
    const std::string file = drawingWith(state.range(0));
    for ([[maybe_unused]] const auto round : state)
        benchmark::DoNotOptimize(open(file));
}

void paint(benchmark::State& state, const char* name, render::Format format)
{
    const OdDbDatabasePtr database = open(drawingWith(state.range(0)));
    render::PictureOrder order;
    order.file = (fs::temp_directory_path() / name).string();
    order.format = format;
    for ([[maybe_unused]] const auto round : state)
        render::paintPicture(*database, order);
    fs::remove(order.file);
}

void paintPng(benchmark::State& state)
{
    paint(state, "zolcad-picture.png", render::Format::kPng);
}

void paintSvg(benchmark::State& state)
{
    paint(state, "zolcad-picture.svg", render::Format::kSvg);
}

void paintPdf(benchmark::State& state)
{
    paint(state, "zolcad-picture.pdf", render::Format::kPdf);
}

void findExtents(benchmark::State& state)
{
    const OdDbDatabasePtr database = open(drawingWith(state.range(0)));
    for ([[maybe_unused]] const auto round : state)
    {
        const OdDbBlockTableRecordPtr model = database->getModelSpaceId().safeOpenObject();
        OdGeExtents3d all;
        for (const OdDbObjectIteratorPtr at = model->newIterator(); !at->done(); at->step())
        {
            OdGeExtents3d extents;
            if (at->entity()->getGeomExtents(extents) == eOk)
                all.addExt(extents);
        }
        benchmark::DoNotOptimize(all);
    }
}

BENCHMARK(openDrawing)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->UseRealTime();
BENCHMARK(findExtents)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->UseRealTime();
BENCHMARK(paintPng)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->UseRealTime();
BENCHMARK(paintSvg)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->UseRealTime();
BENCHMARK(paintPdf)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->UseRealTime();

} // namespace
