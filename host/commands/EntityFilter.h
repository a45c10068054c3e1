// Tells which entities a search asks for: by their DXF names, their layer and what is written in them.
#pragma once

#include <memory>
#include <unordered_map>
#include <vector>

#include "DbObjectId.h"
#include "OdString.h"
#include "commands/Parameters.h"

namespace re2
{
class RE2;
}
class OdDbEntity;

namespace hostcommands
{

class EntityFilter
{
public:
    // Takes "TYPE" (DXF names, separated by commas), "LAYER" and "TEXT" (a regular expression that matches any part of
    // the text) from the parameters; what is absent or empty admits everything. Throws OdError(eInvalidInput), which
    // names the pattern, for a pattern that is malformed or too large.
    explicit EntityFilter(const Parameters& parameters);
    ~EntityFilter();

    bool admits(const OdDbObjectId& id) const;

private:
    bool admitsType(const OdDbObjectId& id) const;
    bool isAmongTypes(const OdString& dxfName) const;
    bool admitsText(const OdDbEntity& entity) const;

    std::vector<OdString> m_types;
    OdString m_layer;
    std::unique_ptr<re2::RE2> m_pattern;
    mutable std::unordered_map<OdRxClass*, bool> m_admittedClasses;
};

} // namespace hostcommands
