// Reads named values out of a parameter chain: a name, its value's elements, the next name. Values are told from names
// by their kind and place: what stands behind a name is its value, whatever it says; a name that ends in "ARRAY" has
// object ids only, perhaps none.
#pragma once

#include <optional>

#include "DbObjectId.h"
#include "DbSSet.h"
#include "Ge/GeExtents3d.h"
#include "Ge/GeVector3d.h"
#include "OdString.h"
#include "ResBuf.h"

namespace hostcommands
{

// True for the name of a list of objects.
bool namesObjectList(const OdString& name);

class Parameters
{
public:
    // chain may be null: a run without parameters. It must outlive the parameters.
    explicit Parameters(const OdResBuf* chain) : m_chain(chain) {}

    // Each gives the value of a name, which is compared without regard to case and with blanks and quotes around it cut
    // off, or what says that there is none. Throws OdError(eInvalidResBuf), with a text that names the parameter, for a
    // value of another kind.
    std::optional<OdString> string(const OdChar* name) const;
    OdString name(const OdChar* name) const; // a string that names something: without blanks and quotes around it
    OdDbObjectIdArray objectIds(const OdChar* name) const;
    OdDbSelectionSetPtr selectionSet(const OdChar* name) const;
    OdGeVector3d vector(const OdChar* name) const;
    std::optional<OdGePoint3d> point(const OdChar* name) const;
    std::optional<OdGeExtents3d> extents(const OdChar* name) const; // the corners are taken as they are
    std::optional<int> integer(const OdChar* name) const;
    std::optional<bool> flag(const OdChar* name) const;
    // An object that another part of the program hands over; null when there is none.
    OdRxObject* object(const OdChar* name) const;

    bool has(const OdChar* name) const;

private:
    struct Found
    {
        bool isThere = false;
        const OdResBuf* value = nullptr; // null for a name without a value
    };

    Found find(const OdChar* name) const;
    const OdResBuf* findOfType(const OdChar* name, int type) const;

    const OdResBuf* m_chain;
};

} // namespace hostcommands
