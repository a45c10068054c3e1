// The errors with which reading or saving a drawing ends; each names the file and, where there is one, the place.
#pragma once

#include "FaultLog.h"

#include <string>
#include <string_view>

namespace dxf
{

/// Throws OdError for a file that cannot be opened; the code follows from the system's error number.
[[noreturn]] void failToOpen(const std::string& path, int systemError);

/// Throws OdError (eFileWriteError) for a file that cannot be written to its end.
[[noreturn]] void failToWrite(const std::string& path, int systemError);

/// Throws OdError (eBadDxfFile) for a file that is no drawing, or one that nothing can be saved from.
[[noreturn]] void refuse(const std::string& path, std::string_view what);

} // namespace dxf
