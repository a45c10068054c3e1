// Runs a fuzzer's entry point over the files of the folders named on the command line: the tests' way to keep what
// the fuzzers once found.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace
{
void replayFile(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
    std::printf("%s\n", path.c_str());
    std::fflush(stdout);
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}
} // namespace

int main(int argc, char** argv)
{
    int replayed = 0;
    for (int i = 1; i < argc; ++i)
    {
        if (!std::filesystem::is_directory(argv[i]))
            continue;
        for (const auto& entry : std::filesystem::directory_iterator(argv[i]))
            replayFile(entry.path()), ++replayed;
    }
    std::printf("%d inputs replayed\n", replayed);
    return 0;
}
