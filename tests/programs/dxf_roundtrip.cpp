// Reads a drawing and writes it again: for measuring, and for looking at what a file becomes.
//
//   dxf_roundtrip IN OUT [ascii|binary] [VERSION]       VERSION as files name it: AC1015 ... AC1032, by default IN's
//   own
#include "DbDatabase.h"
#include "OdError.h"
#include "RxInit.h"
#include "dxf/FileVersions.h"

#include <cstdio>
#include <string_view>

namespace
{

void convert(int argc, char** argv)
{
    const OdDbDatabasePtr database = OdDbDatabase::createObject();
    database->readFile(odUtf8ToString(argv[1]));
    for (const OdString& line : database->recoveryReport())
        std::fprintf(stderr, "%s\n", odStringToUtf8(line).c_str());
    const bool binary = argc > 3 && std::string_view(argv[3]) == "binary";
    const OdDb::DwgVersion version = argc > 4 ? dxf::versionOf(argv[4]) : database->originalFileVersion();
    database->writeFile(odUtf8ToString(argv[2]), binary ? OdDb::kDxb : OdDb::kDxf, version);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 3)
        return std::fprintf(stderr, "usage: dxf_roundtrip IN OUT [ascii|binary] [VERSION]\n"), 2;
    odInitialize();
    try
    {
        convert(argc, argv);
    }
    catch (const OdError& error)
    {
        std::fprintf(stderr, "%s\n", odStringToUtf8(error.description()).c_str());
        return 1;
    }
    odUninitialize();
    return 0;
}
