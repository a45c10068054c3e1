// Reads what is to be selected from JSON:
//
//   {
//     "Handles": ["2A", "2B"],                 one of these objects
//     "Types":   ["TEXT", "MTEXT"],            one of these DXF names
//     "Layers":  ["OUTLINE"],                  on one of these layers
//     "Text":    "^E\\d+",                     a regular expression for what is written in it
//     "Block":   "^PART",                      a regular expression for the name of the block it draws
//     "Window":  [[0, 0], [100, 100]]          inside of the window between these corners
//   }
//
// An entity must fulfil every member that is there; {} asks for nothing in particular.
#pragma once

#include <array>
#include <optional>
#include <unordered_set>

#include "Ge/GePoint3d.h"
#include "commands/EntityFilter.h"

class OdDbDatabase;

namespace hostcommands
{

struct JsonCriteria
{
    EntityCriteria criteria;
    std::optional<std::unordered_set<OdDbObjectId>> objects;
    std::optional<std::array<OdGePoint3d, 2>> window;
};

// Throws OdError(eInvalidInput), which says what is wrong and where: text that is no JSON, another member, a value of
// another kind, a handle that names nothing.
JsonCriteria readJsonCriteria(const OdString& json, OdDbDatabase& database);

} // namespace hostcommands
