// Sections of a drawing file that the database has no use for (previews, data of applications, whatever later versions
// add) are kept as they are, with the place where they stood.
#pragma once

#include "db/DatabaseImpl.h"

#include <string>
#include <vector>

namespace dxf
{

struct KeptSection
{
    std::string name;
    std::string behind;  ///< the section in front of it, empty for the first of the file
    oddb::Groups groups; ///< everything behind its name
};

/// All kept sections of a drawing.
using KeptSections = std::vector<KeptSection>;

inline KeptSections& keptSections(oddb::DatabaseImpl& database)
{
    return database.attachment<KeptSections>("dxf.sections");
}

} // namespace dxf
