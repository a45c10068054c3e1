// Makes drawing files known to the database layer, which reads and writes them without knowing their format.
#include "DrawingReader.h"
#include "DrawingWriter.h"

#include "db/DatabaseImpl.h"
#include "rx/Layers.h"

namespace dxf
{
namespace
{

void readFile(OdDbDatabase& database, const OdString& fileName)
{
    readDrawing(database, odStringToUtf8(fileName));
    database.setFilename(fileName);
}

void writeFile(OdDbDatabase& database, const OdString& fileName, OdDb::SaveType fileType, OdDb::DwgVersion version)
{
    const FileForm form = fileType == OdDb::kDxb ? FileForm::Binary : FileForm::Ascii;
    writeDrawing(database, odStringToUtf8(fileName), form, version);
    database.setFilename(fileName);
}

void start()
{
    oddb::fileFormat() = {readFile, writeFile};
}

void end()
{
    oddb::fileFormat() = {};
}

const odlayers::Registration kLayer(odlayers::kFiles, &start, &end);

} // namespace
} // namespace dxf
