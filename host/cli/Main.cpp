// The program `zolcad`.
#include <malloc.h>

#include "cli/CommandLine.h"

namespace
{

// Memory that long requests and large drawings give back stays with the process and is used again, for pages that the
// system hands out anew cost more than what is written to them.
void keepMemory()
{
#ifdef __GLIBC__
    constexpr int kAll = 1 << 30;
    mallopt(M_MMAP_THRESHOLD, kAll);
    mallopt(M_TRIM_THRESHOLD, kAll);
#endif
}

} // namespace

int main(int argc, char** argv)
{
    keepMemory();
    return cli::runCommandLine(argc, argv);
}
