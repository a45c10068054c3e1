// What it costs to take changes back. Each run changes every line of a drawing in two ways (its end point, its extended
// data); the time is that of undo, redo or abort alone. The growth shows behind the rows named BigO: N is linear.
#include "Drawings.h"

#include <benchmark/benchmark.h>

namespace
{

constexpr std::int64_t kFewest = 100'000;
constexpr std::int64_t kMost = 800'000;

void changeAll(const bench::LineDrawing& drawing)
{
    const OdResBufPtr data = bench::xdataOf(1, L"changed");
    for (const OdDbObjectId& id : drawing.lines())
    {
        const OdDbLinePtr line = id.safeOpenObject(OdDb::kForWrite);
        line->setEndPoint(line->endPoint() + OdGeVector3d(1, 1, 0));
        line->setXData(data);
    }
}

void finish(benchmark::State& state)
{
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.SetComplexityN(state.range(0));
}

// The time of the changes themselves, to set the others against.
void change(benchmark::State& state)
{
    const bench::LineDrawing drawing(state.range(0));
    for (auto _ : state)
    {
        drawing.database().startUndoRecord();
        changeAll(drawing);
    }
    finish(state);
}

void undo(benchmark::State& state)
{
    const bench::LineDrawing drawing(state.range(0));
    for (auto _ : state)
    {
        state.PauseTiming();
        drawing.database().startUndoRecord();
        changeAll(drawing);
        state.ResumeTiming();
        drawing.database().undo();
    }
    finish(state);
}

void redo(benchmark::State& state)
{
    const bench::LineDrawing drawing(state.range(0));
    drawing.database().startUndoRecord();
    changeAll(drawing);
    for (auto _ : state)
    {
        state.PauseTiming();
        drawing.database().undo();
        state.ResumeTiming();
        drawing.database().redo();
    }
    finish(state);
}

void abortTransaction(benchmark::State& state)
{
    const bench::LineDrawing drawing(state.range(0));
    for (auto _ : state)
    {
        state.PauseTiming();
        drawing.database().startTransaction();
        changeAll(drawing);
        state.ResumeTiming();
        drawing.database().abortTransaction();
    }
    finish(state);
}

void sizes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->RangeMultiplier(2)->Range(kFewest, kMost)->Unit(benchmark::kMillisecond)->Iterations(5);
    benchmark->Complexity(benchmark::oN);
}

BENCHMARK(change)->Apply(sizes);
BENCHMARK(undo)->Apply(sizes);
BENCHMARK(redo)->Apply(sizes);
BENCHMARK(abortTransaction)->Apply(sizes);

} // namespace
