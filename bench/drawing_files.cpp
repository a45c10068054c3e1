// How fast drawing files are read and written: bytes of the file per second, for the text form and the binary one.
#include "Drawings.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <unistd.h>

namespace
{

constexpr std::int64_t kLines = 100'000;

/// A file of its own that goes with the benchmark.
class TemporaryFile
{
public:
    TemporaryFile()
        : m_path(std::filesystem::temp_directory_path() / ("zolcad-bench-" + std::to_string(::getpid()) + ".dxf"))
    {
    }
    ~TemporaryFile() { std::filesystem::remove(m_path); }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    OdString name() const { return OdString(m_path.c_str()); }
    std::int64_t size() const { return static_cast<std::int64_t>(std::filesystem::file_size(m_path)); }

private:
    std::filesystem::path m_path;
};

void write(benchmark::State& state, OdDb::SaveType form)
{
    const bench::LineDrawing drawing(kLines);
    const TemporaryFile file;
    for (auto _ : state)
        drawing.database().writeFile(file.name(), form);
    state.SetBytesProcessed(state.iterations() * file.size());
    state.SetItemsProcessed(state.iterations() * kLines);
}

// The end of the drawing that was read counts as well.
void read(benchmark::State& state, OdDb::SaveType form)
{
    const bench::LineDrawing drawing(kLines);
    const TemporaryFile file;
    drawing.database().writeFile(file.name(), form);
    OdDbHostAppServices services;
    for (auto _ : state)
        services.createDatabase(false)->readFile(file.name());
    state.SetBytesProcessed(state.iterations() * file.size());
    state.SetItemsProcessed(state.iterations() * kLines);
}

BENCHMARK_CAPTURE(write, ascii, OdDb::kDxf)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(write, binary, OdDb::kDxb)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(read, ascii, OdDb::kDxf)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(read, binary, OdDb::kDxb)->Unit(benchmark::kMillisecond);

} // namespace
