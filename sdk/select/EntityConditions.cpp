// Compares entities with what a chain says of them.
#include "select/EntityConditions.h"

#include <algorithm>

#include "DbEntity.h"
#include "DbProxyEntity.h"
#include "OdError.h"
#include "ResBuf.h"

namespace picking
{

namespace
{

constexpr int kType = 0;
constexpr int kLayer = 8;

std::vector<OdString> namesIn(const OdString& list)
{
    std::vector<OdString> names;
    for (int begin = 0; begin <= list.getLength();)
    {
        const int comma = list.find(L',', begin);
        const int end = comma < 0 ? list.getLength() : comma;
        names.push_back(list.mid(begin, end - begin));
        begin = end + 1;
    }
    return names;
}

OdString typeOf(const OdDbEntity& entity)
{
    const OdDbProxyEntityPtr proxy = OdDbProxyEntity::cast(&entity);
    return proxy.isNull() ? entity.isA()->dxfName() : proxy->originalDxfName();
}

} // namespace

EntityConditions::EntityConditions(const OdRxObject* filter)
{
    if (filter == nullptr)
        return;
    const OdResBufPtr chain = OdResBuf::cast(filter);
    if (chain.isNull())
        throw OdError(eNotThatKindOfClass, OdString(L"a selection is narrowed down with a chain of values"));
    for (const OdResBuf* element = chain; element != nullptr; element = element->next())
    {
        const int code = element->restype();
        if (code != kType && code != kLayer)
            throw OdError(eInvalidResBuf, OdString().format(L"entities cannot be selected by the group %d", code));
        m_conditions.push_back({code, namesIn(element->getString())});
    }
}

bool EntityConditions::admit(const OdDbEntity& entity) const
{
    const auto isFulfilled = [&entity](const Condition& condition)
    {
        const OdString name = condition.code == kType ? typeOf(entity) : entity.layer();
        return std::any_of(condition.names.begin(), condition.names.end(),
                           [&name](const OdString& other) { return name.iCompare(other) == 0; });
    };
    return std::all_of(m_conditions.begin(), m_conditions.end(), isFulfilled);
}

} // namespace picking
