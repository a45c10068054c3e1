// The chain of values that a selection may be narrowed down with: each element's type is the code of a group, its value
// what the entity must have there.
#pragma once

#include <vector>

#include "OdString.h"

class OdDbEntity;
class OdRxObject;

namespace picking
{

class EntityConditions
{
public:
    /// filter is null or an OdResBuf: elements of code 0 are names of types as files have them, of code 8 names of
    /// layers, each perhaps several with commas in between. Throws OdError: eNotThatKindOfClass for an object of
    /// another class, eInvalidResBuf for another code or a value that is no string.
    explicit EntityConditions(const OdRxObject* filter);

    /// True for an entity that has what every element of the chain says.
    bool admit(const OdDbEntity& entity) const;

private:
    struct Condition
    {
        int code;
        std::vector<OdString> names;
    };
    std::vector<Condition> m_conditions;
};

} // namespace picking
