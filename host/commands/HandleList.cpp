// Reads handles that a user typed.
#include "commands/HandleList.h"

#include <string_view>

#include "DbDatabase.h"
#include "DbDictionary.h"
#include "DbEntity.h"
#include "OdError.h"

namespace hostcommands
{

namespace
{

constexpr std::wstring_view kDividers = L" \t,;";

bool maySelect(const OdDbObject& object)
{
    if (object.isKindOf(OdDbEntity::desc()))
        return true;
    const OdDbObjectPtr owner = object.ownerId().openObject();
    return !owner.isNull() && owner->isKindOf(OdDbDictionary::desc()) && !object.isKindOf(OdDbDictionary::desc());
}

} // namespace

OdDbObjectId objectOfHandle(OdDbDatabase& database, const OdString& handle)
{
    OdDbHandle parsed;
    if (!OdDbHandle::parse(handle.view(), parsed))
        throw OdError(eInvalidInput, L"\"" + handle + L"\" is no handle");
    const OdDbObjectId id = database.getOdDbObjectId(parsed);
    const OdDbObjectPtr object = id.openObject();
    if (object.isNull() || !maySelect(*object))
        throw OdError(eInvalidInput, L"nothing that can be selected has the handle \"" + handle + L"\"");
    return id;
}

OdDbObjectIdArray objectsOfHandles(OdDbDatabase& database, const OdString& list)
{
    OdDbObjectIdArray ids;
    std::wstring_view rest = list.view();
    while (!rest.empty())
    {
        const std::size_t end = std::min(rest.find_first_of(kDividers), rest.size());
        if (end > 0)
            ids.append(objectOfHandle(database, OdString(std::wstring(rest.substr(0, end)))));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return ids;
}

} // namespace hostcommands
