// Reads a drawing file into a database.
#pragma once

#include <string>
#include <string_view>

class OdDbDatabase;

namespace dxf
{

/// Reads the file at the path, ASCII or binary, of any version up to R2018. What is wrong in it is mended and reported
/// in the database, one line for each fault. Throws OdError (eFileNotFound, eCantOpenFile, eFileAccessErr, eBadDxfFile)
/// naming the file, the place and the fault when nothing can be read from it.
void readDrawing(OdDbDatabase& database, const std::string& path);

/// As above, from memory; the name stands for the file in messages.
void readDrawing(OdDbDatabase& database, const std::string& name, std::string_view file);

} // namespace dxf
