// The state of an object as one run of bytes, as the object itself writes it: what the journal keeps of objects whose
// data is not groups.
#pragma once

#include "DbObject.h"
#include "Groups.h"

namespace oddb
{

/// The bytes that the object writes to an undo filer, shared like a row of groups but not one.
Groups captureImage(const OdDbObject& object);

/// Lets the object read such bytes. Returns what its dwgInFields returns, eDwgObjectImproperlyRead when it throws
/// or leaves bytes unread.
OdResult applyImage(OdDbObject& object, const Groups& image);

} // namespace oddb
