// Writes a database into a drawing file.
#pragma once

#include "DwgVersion.h"
#include "TagPrinter.h"

#include <string>

class OdDbDatabase;

namespace dxf
{

/// Writes the drawing, whole or not at all: on failure the file is what it was before. Versions older than R2000 become
/// the newest one. Throws OdError (eFileNotFound, eCantOpenFile, eFileAccessErr, eFileWriteError) naming the file and
/// the reason.
void writeDrawing(OdDbDatabase& database, const std::string& path, FileForm form, OdDb::DwgVersion version);

} // namespace dxf
