// Reading rows of groups: stepping, looking up, comparing, replacing references.
#include "Groups.h"

#include <new>

#include "GroupIndex.h"
#include "SymbolNames.h"

namespace oddb
{

namespace
{

constexpr GroupType kTypes[] = {GroupType::Text,    GroupType::Text,    GroupType::Real,    GroupType::Real,
                                GroupType::Real,    GroupType::Integer, GroupType::Integer, GroupType::Integer,
                                GroupType::Integer, GroupType::Boolean, GroupType::Id,      GroupType::Name,
                                GroupType::Binary};

struct Length
{
    std::size_t value;
    std::size_t bytes;
};

Length readLength(const std::uint8_t* at)
{
    Length length{0, 0};
    for (int shift = 0;; shift += 7)
    {
        const std::uint8_t byte = at[length.bytes++];
        length.value |= static_cast<std::size_t>(byte & 0x7F) << shift;
        if (byte < 0x80)
            return length;
    }
}

bool opensApplicationData(const GroupView& group)
{
    return group.code() == 102 && group.text().starts_with('{');
}

bool closesApplicationData(const GroupView& group)
{
    return group.code() == 102 && group.text() == "}";
}

// The empty atom stands for the groups in front of all markers, so no marker matches it.
inline bool beginsSectionOf(const GroupView& group, Atom subclass)
{
    if (subclass.empty())
        return false;
    return group.storage() == Storage::Atom ? group.atom() == subclass : group.text() == subclass.text();
}

// Steps through the groups outside of application data.
template<class Visit>
void visitOutsideOfApplicationData(GroupSpan groups, Visit visit)
{
    bool inside = false;
    for (const GroupView& group : groups)
    {
        if (inside)
            inside = !closesApplicationData(group);
        else if (opensApplicationData(group))
            inside = true;
        else if (visit(group))
            return;
    }
}

} // namespace

GroupType GroupView::type() const
{
    return kTypes[static_cast<int>(storage())];
}

std::size_t GroupView::measurePayload() const
{
    const Length length = readLength(payload());
    return length.bytes + length.value;
}

std::string_view GroupView::bytes() const
{
    const Length length = readLength(payload());
    return {reinterpret_cast<const char*>(payload() + length.bytes), length.value};
}

std::string_view GroupView::text() const
{
    switch (storage())
    {
    case Storage::Atom:
        return atom().text();
    case Storage::String:
        return bytes();
    case Storage::Name:
        return symbolName(stub());
    default:
        return {};
    }
}

std::string_view GroupView::binary() const
{
    return storage() == Storage::Binary ? bytes() : std::string_view();
}

Atom GroupView::atom() const
{
    return storage() == Storage::Atom ? Atom(load<std::uint16_t>()) : Atom();
}

double GroupView::real() const
{
    switch (storage())
    {
    case Storage::Double:
        return load<double>();
    case Storage::Float:
        return load<float>();
    default:
        return static_cast<double>(integer());
    }
}

std::int64_t GroupView::integer() const
{
    switch (storage())
    {
    case Storage::Int8:
        return load<std::int8_t>();
    case Storage::Int16:
        return load<std::int16_t>();
    case Storage::Int32:
        return load<std::int32_t>();
    case Storage::Int64:
        return load<std::int64_t>();
    case Storage::Bool:
        return load<std::uint8_t>();
    case Storage::Double:
    case Storage::Float:
    {
        const double value = real();
        return value > -9.2e18 && value < 9.2e18 ? static_cast<std::int64_t>(value) : 0;
    }
    default:
        return 0;
    }
}

OdDbStub* GroupView::stub() const
{
    const Storage kind = storage();
    return kind == Storage::Id || kind == Storage::Name ? load<OdDbStub*>() : nullptr;
}

/// Room for items of that size, null for none.
static GroupsData* allocate(std::size_t size)
{
    if (size == 0)
        return nullptr;
    auto* data = static_cast<GroupsData*>(std::malloc(sizeof(GroupsData) + size));
    if (!data || size > UINT32_MAX)
    {
        std::free(data);
        throw std::bad_alloc();
    }
    data->references = 1;
    data->size = static_cast<std::uint32_t>(size);
    return data;
}

Groups Groups::fromItems(const std::uint8_t* items, std::size_t size)
{
    GroupsData* data = allocate(size);
    if (data)
        std::memcpy(data->bytes(), items, size);
    return Groups(data);
}

std::size_t Groups::count() const
{
    return static_cast<std::size_t>(std::distance(begin(), end()));
}

std::optional<GroupView> Groups::find(Atom subclass, int code, int occurrence) const
{
    PartWalk part(subclass);
    for (const GroupView& group : *this)
        if (const int present = group.code(); part.owns(group, present) && present == code && occurrence-- == 0)
            return group;
    return std::nullopt;
}

std::optional<GroupView> GroupSpan::findAny(int code) const
{
    std::optional<GroupView> found;
    visitOutsideOfApplicationData(*this,
                                  [&](const GroupView& group)
                                  {
                                      if (group.code() == code)
                                          found = group;
                                      return found.has_value();
                                  });
    return found;
}

bool PartWalk::ownsBetweenParts(const GroupView& group, int code)
{
    const bool isMarker = code != 102;
    if (m_isInApplicationData || (!isMarker && opensApplicationData(group)))
    {
        m_isInApplicationData = !closesApplicationData(group);
        return false;
    }
    if (!isMarker)
        return m_isInPart;
    m_isInPart = beginsSectionOf(group, m_marker);
    return false;
}

std::optional<GroupView> GroupIndex::findFarther(int code)
{
    while (m_next != m_end && m_count < kMost)
    {
        const GroupView group(m_next);
        const int present = group.code();
        m_next = group.next();
        if (!m_part.owns(group, present))
            continue;
        m_codes[m_count] = static_cast<std::int16_t>(present);
        m_items[m_count++] = group.item();
        if (present == code)
            return group;
    }
    PartWalk part = m_part;
    for (GroupView group(m_next); group.item() != m_end; group = GroupView(group.next()))
        if (const int present = group.code(); part.owns(group, present) && present == code)
            return group;
    return std::nullopt;
}

bool Groups::hasSection(Atom subclass) const
{
    for (const GroupView& group : *this)
        if (group.beginsSection() && beginsSectionOf(group, subclass))
            return true;
    return false;
}

Groups Groups::spliced(const GroupView& first, const GroupView& last, const GroupsBuilder& replacement) const
{
    return spliced(first.item(), last.item(), replacement);
}

Groups Groups::spliced(const std::uint8_t* first, const std::uint8_t* last, const GroupsBuilder& replacement) const
{
    const std::uint8_t* const start = begin()->item();
    const auto before = static_cast<std::size_t>(first - start);
    const auto behind = static_cast<std::size_t>(end()->item() - last);
    GroupsData* data = allocate(before + replacement.size() + behind);
    if (!data)
        return {};
    std::uint8_t* at = data->bytes();
    for (const auto& [items, size] :
         {std::pair(start, before), std::pair(replacement.begin(), replacement.size()), std::pair(last, behind)})
    {
        if (size > 0)
            std::memcpy(at, items, size);
        at += size;
    }
    return Groups(data);
}

Groups Groups::translated(const std::function<OdDbStub*(int, OdDbStub*, GroupType)>& translate) const
{
    Groups copy;
    for (const GroupView& group : *this)
    {
        OdDbStub* stub = group.stub();
        OdDbStub* replacement = stub ? translate(group.code(), stub, group.type()) : nullptr;
        if (stub == replacement)
            continue;
        if (!copy)
            copy = fromItems(m_data->bytes(), m_data->size);
        const std::ptrdiff_t place = group.item() + 2 - m_data->bytes();
        std::memcpy(copy.m_data->bytes() + place, &replacement, sizeof replacement);
    }
    return copy ? copy : *this;
}

bool Groups::operator==(const Groups& other) const
{
    if (m_data == other.m_data)
        return true;
    return byteSize() == other.byteSize() && std::memcmp(m_data->bytes(), other.m_data->bytes(), byteSize()) == 0;
}

std::size_t Groups::hash() const
{
    return m_data ? std::hash<std::string_view>()({reinterpret_cast<const char*>(m_data->bytes()), m_data->size}) : 0;
}

} // namespace oddb
