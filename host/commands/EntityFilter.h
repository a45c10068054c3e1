// Tells which entities a search asks for: by their DXF names, their layer and what is written in them.
#pragma once

#include <memory>
#include <unordered_map>
#include <vector>

#include "DbObjectId.h"
#include "OdString.h"
namespace re2
{
class RE2;
}
class OdDbEntity;

namespace hostcommands
{

// What an entity must have; what is empty admits everything. Names are compared without regard to case; patterns are
// regular expressions that match any part.
struct EntityCriteria
{
    std::vector<OdString> types; // DXF names, one of which it must have
    std::vector<OdString> layers;
    OdString text;
    OdString block; // the name of the block that a reference draws
};

class EntityFilter
{
public:
    // Throws OdError(eInvalidInput), which names the pattern, for a pattern that is malformed or too large.
    explicit EntityFilter(const EntityCriteria& criteria);
    ~EntityFilter();

    bool admits(const OdDbObjectId& id) const;

private:
    bool admitsType(const OdDbObjectId& id) const;
    bool isAmongTypes(const OdString& dxfName) const;
    bool admitsText(const OdDbEntity& entity) const;
    bool admitsBlock(const OdDbEntity& entity) const;

    std::vector<OdString> m_types;
    std::vector<OdString> m_layers;
    std::unique_ptr<re2::RE2> m_text;
    std::unique_ptr<re2::RE2> m_block;
    mutable std::unordered_map<OdRxClass*, bool> m_admittedClasses;
};

// The names in a list with commas in between.
std::vector<OdString> splitAtCommas(const OdString& list);

} // namespace hostcommands
