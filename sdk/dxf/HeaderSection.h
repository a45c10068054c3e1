// The settings of a drawing as the reader and the writer of files see them.
#pragma once

#include "OdCodePage.h"
#include "db/DatabaseImpl.h"

namespace dxf
{

/// The code page that a drawing's settings name for files before R2007.
OdCodePageId codePageOf(oddb::DatabaseImpl& database);

} // namespace dxf
