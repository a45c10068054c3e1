// Builds a result chain: names and values, one behind the other.
#pragma once

#include "DbObjectId.h"
#include "DbSSet.h"
#include "Ge/GeExtents3d.h"
#include "OdString.h"
#include "ResBuf.h"

namespace hostcommands
{

class Results
{
public:
    void add(const OdChar* name, const OdString& text);
    void add(const OdChar* name, bool flag);
    void add(const OdChar* name, const OdDbObjectIdArray& ids);
    void add(const OdChar* name, const OdDbSelectionSetPtr& set);
    void add(const OdChar* name, const OdGeExtents3d& extents);

    // The first element; null when nothing was added.
    const OdResBufPtr& chain() const { return m_first; }

private:
    void append(const OdResBufPtr& element);

    OdResBufPtr m_first;
    OdResBuf* m_last = nullptr; ///< of the chain that m_first holds
};

} // namespace hostcommands
