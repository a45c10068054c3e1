// What the everyday operations of the database cost one by one, and that none of them gets slower as the drawing grows:
// items_per_second is to be the same for every size.
#include "Drawings.h"

#include "DbDictionary.h"
#include "DbIdMapping.h"
#include "DbPolyline.h"
#include "DbXrecord.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <random>
#include <string>

namespace
{

constexpr std::int64_t kFewest = 10'000;
constexpr std::int64_t kMost = 640'000;

void finish(benchmark::State& state)
{
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

template<class Random>
std::vector<OdDbObjectId> shuffled(std::vector<OdDbObjectId> ids, Random random)
{
    std::shuffle(ids.begin(), ids.end(), random);
    return ids;
}

// ---- Identity and opening ------------------------------------------------------------------------------------------

void findByHandle(benchmark::State& state)
{
    const bench::LineDrawing drawing(state.range(0));
    std::vector<OdDbHandle> handles;
    for (const OdDbObjectId& id : shuffled(drawing.lines(), std::mt19937(5)))
        handles.push_back(id.getHandle());
    for (auto _ : state)
        for (const OdDbHandle& handle : handles)
            benchmark::DoNotOptimize(drawing.database().getOdDbObjectId(handle));
    finish(state);
}

void open(benchmark::State& state, OdDb::OpenMode mode)
{
    const bench::LineDrawing drawing(state.range(0));
    for (auto _ : state)
        for (const OdDbObjectId& id : drawing.lines())
            benchmark::DoNotOptimize(id.safeOpenObject(mode).get());
    finish(state);
}

// ---- Extended data -------------------------------------------------------------------------------------------------

// number(i) decides whether all objects get the same values.
template<class Number>
void setXData(benchmark::State& state, Number number)
{
    const bench::LineDrawing drawing(state.range(0));
    for (auto _ : state)
    {
        drawing.database().startUndoRecord();
        OdInt32 i = 0;
        for (const OdDbObjectId& id : drawing.lines())
            id.safeOpenObject(OdDb::kForWrite)->setXData(bench::xdataOf(number(i++), L"text"));
        state.PauseTiming();
        drawing.database().undo();
        drawing.database().clearUndo();
        state.ResumeTiming();
    }
    finish(state);
}

void setEqualXData(benchmark::State& state)
{
    setXData(state, [](OdInt32) { return 1; });
}

void setDifferentXData(benchmark::State& state)
{
    setXData(state, [](OdInt32 i) { return i; });
}

// ---- Dictionaries --------------------------------------------------------------------------------------------------

std::vector<OdString> randomNames(std::int64_t count)
{
    std::mt19937_64 random(9);
    std::vector<OdString> names;
    for (std::int64_t i = 0; i < count; ++i)
    {
        char name[17];
        std::snprintf(name, sizeof name, "%016llX", static_cast<unsigned long long>(random()));
        names.emplace_back(name);
    }
    return names;
}

// A drawing with an empty dictionary, or a full one.
struct Names
{
    explicit Names(std::int64_t count) : drawing(0), names(randomNames(count)) {}

    OdDbDictionaryPtr add()
    {
        const OdDbDictionaryPtr root = drawing.database().getNamedObjectsDictionaryId().safeOpenObject(OdDb::kForWrite);
        OdDbDictionaryPtr dictionary = OdDbDictionary::createObject();
        root->setAt(L"BENCH", dictionary);
        return dictionary;
    }
    void fill(OdDbDictionary& dictionary)
    {
        for (const OdString& name : names)
            dictionary.setAt(name, OdDbXrecord::createObject());
    }

    bench::LineDrawing drawing;
    std::vector<OdString> names;
};

void insertIntoDictionary(benchmark::State& state)
{
    Names names(state.range(0));
    for (auto _ : state)
    {
        state.PauseTiming();
        names.drawing.database().startUndoRecord();
        const OdDbDictionaryPtr dictionary = names.add();
        state.ResumeTiming();
        names.fill(*dictionary);
    }
    finish(state);
}

void findInDictionary(benchmark::State& state)
{
    Names names(state.range(0));
    const OdDbDictionaryPtr dictionary = names.add();
    names.fill(*dictionary);
    for (auto _ : state)
        for (const OdString& name : names.names)
            benchmark::DoNotOptimize(dictionary->getAt(name));
    finish(state);
}

void walkSortedDictionary(benchmark::State& state)
{
    Names names(state.range(0));
    const OdDbDictionaryPtr dictionary = names.add();
    names.fill(*dictionary);
    for (auto _ : state)
    {
        // a name more, so that the order has to be found anew
        state.PauseTiming();
        dictionary->setAt(L"one more", OdDbXrecord::createObject());
        state.ResumeTiming();
        for (OdDbDictionaryIteratorPtr entries = dictionary->newIterator(OdRx::kDictSorted); !entries->done();
             entries->next())
            benchmark::DoNotOptimize(entries->objectId());
    }
    finish(state);
}

// One entry after the other is erased, as labels are deleted.
void eraseEntries(benchmark::State& state)
{
    Names names(state.range(0));
    for (auto _ : state)
    {
        state.PauseTiming();
        names.drawing.database().startUndoRecord();
        const OdDbDictionaryPtr dictionary = names.add();
        names.fill(*dictionary);
        std::vector<OdDbObjectId> ids;
        for (const OdString& name : names.names)
            ids.push_back(dictionary->getAt(name));
        state.ResumeTiming();
        for (const OdDbObjectId& id : ids)
            id.safeOpenObject(OdDb::kForWrite)->erase();
    }
    finish(state);
}

// ---- Entities ------------------------------------------------------------------------------------------------------

void copyEntities(benchmark::State& state)
{
    const bench::LineDrawing drawing(state.range(0));
    OdDbObjectIdArray ids;
    for (const OdDbObjectId& id : drawing.lines())
        ids.append(id);
    for (auto _ : state)
    {
        drawing.database().startUndoRecord();
        const OdDbIdMappingPtr mapping = OdDbIdMapping::createObject();
        drawing.database().deepCloneObjects(ids, OdDbObjectId(), *mapping);
        state.PauseTiming();
        drawing.database().undo();
        drawing.database().clearUndo();
        state.ResumeTiming();
    }
    finish(state);
}

void appendVertices(benchmark::State& state)
{
    bench::startOnce();
    for (auto _ : state)
    {
        const OdDbPolylinePtr polyline = OdDbPolyline::createObject();
        for (std::int64_t i = 0; i < state.range(0); ++i)
            polyline->addVertexAt(static_cast<unsigned int>(i), OdGePoint2d(static_cast<double>(i), 0.1));
    }
    finish(state);
}

void sizes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->RangeMultiplier(8)->Range(kFewest, kMost)->Unit(benchmark::kMillisecond)->MinTime(0.2);
}

BENCHMARK(findByHandle)->Apply(sizes);
BENCHMARK_CAPTURE(open, forRead, OdDb::kForRead)->Apply(sizes);
BENCHMARK_CAPTURE(open, forWrite, OdDb::kForWrite)->Apply(sizes);
BENCHMARK(setEqualXData)->Apply(sizes);
BENCHMARK(setDifferentXData)->Apply(sizes);
BENCHMARK(insertIntoDictionary)->Apply(sizes);
BENCHMARK(findInDictionary)->Apply(sizes);
BENCHMARK(walkSortedDictionary)->Apply(sizes);
BENCHMARK(eraseEntries)->Apply(sizes);
BENCHMARK(copyEntities)->Apply(sizes);
BENCHMARK(appendVertices)->RangeMultiplier(4)->Range(1'000, 64'000)->Unit(benchmark::kMillisecond);

} // namespace
