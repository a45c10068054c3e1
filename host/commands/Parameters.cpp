// Reads named values out of a parameter chain.
#include "commands/Parameters.h"

#include <cstdint>

#include "OdError.h"

namespace hostcommands
{

namespace
{

const OdChar* const kAroundNames = L" \t\n\"'";

bool isName(const OdResBuf* element)
{
    return element->restype() == OdResBuf::kRtString;
}

OdString trimmed(OdString name)
{
    return name.trimLeft(kAroundNames).trimRight(kAroundNames);
}

OdString nameOf(const OdResBuf* element)
{
    return trimmed(element->getString());
}

// The next name's element, from the element behind a name on.
const OdResBuf* skipValue(const OdString& name, const OdResBuf* element)
{
    if (element != nullptr && isName(element))
        return namesObjectList(name) ? element : element->next().get();
    while (element != nullptr && !isName(element))
        element = element->next();
    return element;
}

[[noreturn]] void refuseKind(const OdChar* name)
{
    throw OdError(eInvalidResBuf, OdString(L"the value of the parameter ") + name + L" is of another kind");
}

} // namespace

bool namesObjectList(const OdString& name)
{
    constexpr std::wstring_view kEnd = L"ARRAY";
    const std::wstring_view text = name.view();
    return text.size() >= kEnd.size() && odEqualsNoCase(text.substr(text.size() - kEnd.size()), kEnd);
}

Parameters::Found Parameters::find(const OdChar* name) const
{
    for (const OdResBuf* element = m_chain; element != nullptr;)
    {
        if (!isName(element))
        {
            element = element->next();
            continue;
        }
        const OdString present = nameOf(element);
        const OdResBuf* const value = element->next();
        if (present.iCompare(name) == 0)
            return {true, value};
        element = skipValue(present, value);
    }
    return {};
}

const OdResBuf* Parameters::findOfType(const OdChar* name, int type) const
{
    const Found found = find(name);
    if (!found.isThere)
        return nullptr;
    if (found.value == nullptr || found.value->restype() != type)
        refuseKind(name);
    return found.value;
}

bool Parameters::has(const OdChar* name) const
{
    return find(name).isThere;
}

std::optional<OdString> Parameters::string(const OdChar* name) const
{
    const OdResBuf* const value = findOfType(name, OdResBuf::kRtString);
    if (value == nullptr)
        return std::nullopt;
    return value->getString();
}

OdString Parameters::name(const OdChar* name) const
{
    return trimmed(string(name).value_or(OdString()));
}

OdDbObjectIdArray Parameters::objectIds(const OdChar* name) const
{
    OdDbObjectIdArray ids;
    const OdResBuf* value = find(name).value;
    if (value != nullptr && value->restype() != OdResBuf::kRtObjectId && !isName(value))
        refuseKind(name);
    for (; value != nullptr && value->restype() == OdResBuf::kRtObjectId; value = value->next())
        ids.append(value->getObjectId());
    return ids;
}

OdDbSelectionSetPtr Parameters::selectionSet(const OdChar* name) const
{
    const OdResBuf* const value = findOfType(name, OdResBuf::kRtPickSet);
    return value == nullptr ? OdDbSelectionSetPtr() : OdDbSelectionSet::cast(value->getPickSet());
}

std::optional<int> Parameters::integer(const OdChar* name) const
{
    const OdResBuf* const value = findOfType(name, OdResBuf::kRtInt32);
    if (value == nullptr)
        return std::nullopt;
    return value->getInt32();
}

std::optional<bool> Parameters::flag(const OdChar* name) const
{
    const OdResBuf* const value = findOfType(name, OdResBuf::kRtBool);
    if (value == nullptr)
        return std::nullopt;
    return value->getBool();
}

OdRxObject* Parameters::object(const OdChar* name) const
{
    const OdResBuf* const value = findOfType(name, OdResBuf::kRtInt64);
    return value == nullptr ? nullptr : reinterpret_cast<OdRxObject*>(static_cast<std::intptr_t>(value->getInt64()));
}

std::optional<OdGePoint3d> Parameters::point(const OdChar* name) const
{
    const OdResBuf* const value = findOfType(name, OdResBuf::kRtPoint3d);
    if (value == nullptr)
        return std::nullopt;
    if (const OdResBuf* const behind = value->next(); behind != nullptr && !isName(behind))
        refuseKind(name); // extents are two points
    return value->getPoint3d();
}

OdGeVector3d Parameters::vector(const OdChar* name) const
{
    return point(name).value_or(OdGePoint3d()).asVector();
}

std::optional<OdGeExtents3d> Parameters::extents(const OdChar* name) const
{
    const OdResBuf* const least = findOfType(name, OdResBuf::kRtPoint3d);
    if (least == nullptr)
        return std::nullopt;
    const OdResBuf* const greatest = least->next();
    if (greatest == nullptr || greatest->restype() != OdResBuf::kRtPoint3d)
        refuseKind(name);
    return OdGeExtents3d(least->getPoint3d(), greatest->getPoint3d());
}

} // namespace hostcommands
