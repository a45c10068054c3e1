// Keeps the overrules of each class with its record.
#include "RxOverrule.h"

#include <algorithm>

ODRX_NO_CONS_DEFINE_MEMBERS(OdRxOverrule, OdRxObject)

bool OdRxOverrule::s_bIsOverruling = false;

namespace
{

int g_numOverrules = 0;

} // namespace

OdResult OdRxOverrule::addOverrule(OdRxClass* overruledClass, OdRxOverrule* overrule, bool addAtLast)
{
    if (!overruledClass || !overrule)
        return eNullPtr;
    std::vector<OdRxOverrule*>& overrules = overruledClass->m_overrules;
    if (std::find(overrules.begin(), overrules.end(), overrule) != overrules.end())
        return eDuplicateKey;
    overrules.insert(addAtLast ? overrules.end() : overrules.begin(), overrule);
    ++g_numOverrules;
    return eOk;
}

OdResult OdRxOverrule::removeOverrule(OdRxClass* overruledClass, OdRxOverrule* overrule)
{
    if (!overruledClass || !overrule)
        return eNullPtr;
    std::vector<OdRxOverrule*>& overrules = overruledClass->m_overrules;
    const auto found = std::find(overrules.begin(), overrules.end(), overrule);
    if (found == overrules.end())
        return eKeyNotFound;
    overrules.erase(found);
    --g_numOverrules;
    return eOk;
}

bool OdRxOverrule::hasOverrule(const OdRxObject* subject)
{
    return OdRxOverruleInternals::first(subject, desc()) != nullptr;
}

bool OdRxOverrule::isApplicable(const OdRxObject*) const
{
    return true;
}

OdRxOverrule* OdRxOverruleInternals::first(const OdRxObject* subject, const OdRxClass* kind)
{
    return next(subject, kind, nullptr);
}

OdRxOverrule* OdRxOverruleInternals::next(const OdRxObject* subject, const OdRxClass* kind, const OdRxOverrule* current)
{
    if (!subject || !hasAny())
        return nullptr;
    bool isBehind = current == nullptr;
    for (const OdRxClass* level = subject->isA(); level; level = level->myParent())
        for (OdRxOverrule* overrule : level->m_overrules)
        {
            if (isBehind && overrule->isKindOf(kind) && overrule->isApplicable(subject))
                return overrule;
            isBehind = isBehind || overrule == current;
        }
    return nullptr;
}

bool OdRxOverruleInternals::hasAny()
{
    return g_numOverrules > 0;
}
