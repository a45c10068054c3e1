// Builds a result chain.
#include "commands/Results.h"

namespace hostcommands
{

void Results::append(const OdResBufPtr& element)
{
    if (m_first.isNull())
        m_first = element;
    else
        m_last->setNext(element);
    m_last = element.get();
}

void Results::add(const OdChar* name, const OdString& text)
{
    append(OdResBuf::newRb(OdResBuf::kRtString, name));
    append(OdResBuf::newRb(OdResBuf::kRtString, text));
}

void Results::add(const OdChar* name, bool flag)
{
    append(OdResBuf::newRb(OdResBuf::kRtString, name));
    append(OdResBuf::newRb(OdResBuf::kRtBool, flag));
}

void Results::add(const OdChar* name, const OdDbObjectIdArray& ids)
{
    append(OdResBuf::newRb(OdResBuf::kRtString, name));
    for (const OdDbObjectId& id : ids)
        append(OdResBuf::newRb(OdResBuf::kRtObjectId, id));
}

void Results::add(const OdChar* name, const OdGeExtents3d& extents)
{
    append(OdResBuf::newRb(OdResBuf::kRtString, name));
    append(OdResBuf::newRb(OdResBuf::kRtPoint3d, extents.minPoint()));
    append(OdResBuf::newRb(OdResBuf::kRtPoint3d, extents.maxPoint()));
}

void Results::add(const OdChar* name, const OdDbSelectionSetPtr& set)
{
    append(OdResBuf::newRb(OdResBuf::kRtString, name));
    const OdResBufPtr element = OdResBuf::newRb(OdResBuf::kRtPickSet);
    element->setPickSet(set);
    append(element);
}

} // namespace hostcommands
