// Names of table records that are kept as text, because a file spells them in another way than the records. They are
// written back as they were read; whoever follows references has to look them up.
#pragma once

#include <functional>
#include <vector>

#include "DxfClassTable.h"
#include "SymbolNames.h"

class OdDbDatabase;
class OdDbObject;

namespace oddb
{

/// The records of the database that the groups name by text, each as often as it is named.
std::vector<OdDbStub*> speltRecords(const OdDbDatabase& database, const DxfClass& cls, const Groups& groups);

/// A copy of the groups in which texts that name a record are references to it, when accept says so of the record.
/// Shares the groups when there is nothing to do.
Groups withReferences(const OdDbDatabase& database, const DxfClass& cls, const Groups& groups,
                      const std::function<bool(const OdDbStub&)>& accept);

/// Called before the record gets another name: everything in the drawing that names it by text refers to it from now
/// on. Changes that are recorded.
void keepNamesOf(OdDbStub& record);

} // namespace oddb
