// The data of one object as the row of DXF groups it was read from: compact, in order, nothing left out.
//
//   Groups   = pointer to { uint32 references, uint32 size, item... }      immutable, shared, one allocation
//   item     = head payload
//   head     = uint16: bits 0..10 group code + 8, bits 11..15 storage
//   payload  = by storage:
//     Atom    uint16 index of an interned text       String  varuint length, UTF-8 bytes as in the file
//     Double  8 bytes                                Float   4 bytes, for doubles that lose nothing by it
//     Zero    none, the double +0.0                  Int8/16/32/64  1, 2, 4, 8 bytes
//     Bool    1 byte                                 Id      8 bytes OdDbStub*, a reference written as a handle
//     Name    8 bytes OdDbStub*, a reference to a table record written as the record's name
//     Binary  varuint length, bytes
//   varuint  = 7 bits per byte, lowest first, high bit set on all bytes but the last
//
// A point is two or three doubles with codes 10, 20, 30 apart. Groups of application data (102 "{NAME" ... 102 "}")
// are in the row like all others; looking up a group passes them over.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <iterator>
#include <optional>
#include <string_view>
#include <utility>

#include "Atoms.h"

class OdDbStub;

namespace oddb
{

struct GroupsData
{
    std::uint32_t references;
    std::uint32_t size;
    // the items follow
    const std::uint8_t* bytes() const { return reinterpret_cast<const std::uint8_t*>(this + 1); }
    std::uint8_t* bytes() { return reinterpret_cast<std::uint8_t*>(this + 1); }
};

/// What a group holds, whatever room it takes.
enum class GroupType : std::uint8_t
{
    Text,
    Real,
    Integer,
    Boolean,
    Id,
    Name,
    Binary
};

enum class Storage : std::uint8_t
{
    Atom,
    String,
    Double,
    Float,
    Zero,
    Int8,
    Int16,
    Int32,
    Int64,
    Bool,
    Id,
    Name,
    Binary
};

/// One group inside a row; valid as long as the row is.
class GroupView
{
public:
    GroupView() = default;
    explicit GroupView(const std::uint8_t* item) : m_item(item) {}

    int code() const { return (head() & 0x7FF) - 8; }
    Storage storage() const { return static_cast<Storage>(head() >> 11); }
    GroupType type() const;

    /// The text of a Text group, and of a Name group the name of its record. Empty for other types.
    std::string_view text() const;
    /// The number of a Real or Integer group; 0 for other types.
    double real() const;
    /// The number of an Integer or Boolean group, a Real one cut to its whole part; 0 for other types.
    std::int64_t integer() const;
    bool boolean() const { return integer() != 0; }
    /// The reference of an Id or Name group; null for other types.
    OdDbStub* stub() const;
    /// The bytes of a Binary group; empty for other types.
    std::string_view binary() const;
    /// The atom of an Atom group; the empty atom for other groups.
    Atom atom() const;
    /// True for a Text group with this text.
    bool is(std::string_view text) const { return type() == GroupType::Text && this->text() == text; }
    /// True for a subclass marker (100) or the head of an embedded object (101), which begin a part of the row.
    bool beginsSection() const { return code() == 100 || code() == 101; }

    const std::uint8_t* item() const { return m_item; }
    const std::uint8_t* next() const { return payload() + payloadSize(); }

private:
    std::uint16_t head() const
    {
        std::uint16_t value;
        std::memcpy(&value, m_item, sizeof value);
        return value;
    }
    const std::uint8_t* payload() const { return m_item + 2; }
    std::size_t payloadSize() const
    {
        // Static, or every group that is passed over would first write the table to the stack.
        static constexpr std::uint8_t kMeasured = 0xFF;
        static constexpr std::uint8_t kSizes[] = {2, kMeasured, 8, 4, 0, 1, 2, 4, 8, 1, 8, 8, kMeasured};
        const std::uint8_t size = kSizes[static_cast<int>(storage())];
        return size != kMeasured ? size : measurePayload();
    }
    std::size_t measurePayload() const;
    template<class T>
    T load() const
    {
        T value;
        std::memcpy(&value, payload(), sizeof value);
        return value;
    }
    std::string_view bytes() const;

    const std::uint8_t* m_item = nullptr;
};

class GroupIterator
{
public:
    using iterator_category = std::forward_iterator_tag;
    using value_type = GroupView;
    using difference_type = std::ptrdiff_t;
    using pointer = const GroupView*;
    using reference = const GroupView&;

    GroupIterator() = default;
    explicit GroupIterator(const std::uint8_t* item) : m_view(item) {}
    const GroupView& operator*() const { return m_view; }
    const GroupView* operator->() const { return &m_view; }
    GroupIterator& operator++()
    {
        m_view = GroupView(m_view.next());
        return *this;
    }
    GroupIterator operator++(int)
    {
        GroupIterator before = *this;
        ++*this;
        return before;
    }
    bool operator==(const GroupIterator& other) const { return m_view.item() == other.m_view.item(); }

private:
    GroupView m_view;
};

/// A row of groups that somebody else holds meanwhile. Looking at a row this way touches nothing of it, so several
/// threads may do it at once.
class GroupSpan
{
public:
    GroupSpan() = default;
    GroupSpan(const std::uint8_t* begin, const std::uint8_t* end) : m_begin(begin), m_end(end) {}
    GroupSpan(const GroupsData* data)
        : m_begin(data != nullptr ? data->bytes() : nullptr), m_end(data != nullptr ? m_begin + data->size : nullptr)
    {
    }

    GroupIterator begin() const { return GroupIterator(m_begin); }
    GroupIterator end() const { return GroupIterator(m_end); }

    /// The first group with this code in any part, application data passed over.
    std::optional<GroupView> findAny(int code) const;

private:
    const std::uint8_t* m_begin = nullptr;
    const std::uint8_t* m_end = nullptr;
};

class GroupsBuilder;

/// A shared, immutable row of groups. Copying shares; nothing changes the row itself.
class Groups
{
public:
    Groups() = default;
    Groups(const Groups& other) : m_data(retain(other.m_data)) {}
    Groups(Groups&& other) noexcept : m_data(std::exchange(other.m_data, nullptr)) {}
    Groups& operator=(Groups other) noexcept
    {
        std::swap(m_data, other.m_data);
        return *this;
    }
    ~Groups() { drop(m_data); }

    /// Takes over one reference, or shares a row that stays with its holder.
    static Groups adopt(GroupsData* data) { return Groups(data); }
    static Groups share(GroupsData* data) { return Groups(retain(data)); }
    /// Hands the reference to the caller.
    GroupsData* detach() { return std::exchange(m_data, nullptr); }
    GroupsData* data() const { return m_data; }

    /// A row made of items that are valid as they stand.
    static Groups fromItems(const std::uint8_t* items, std::size_t size);

    operator GroupSpan() const { return m_data; }

    bool empty() const { return m_data == nullptr; }
    explicit operator bool() const { return m_data != nullptr; }
    std::size_t byteSize() const { return m_data ? m_data->size : 0; }
    std::size_t count() const;
    GroupIterator begin() const { return GroupIterator(m_data ? m_data->bytes() : nullptr); }
    GroupIterator end() const { return GroupIterator(m_data ? m_data->bytes() + m_data->size : nullptr); }

    /// The group with this code in the parts of the row that the marker begins, skipping occurrence earlier ones and
    /// all application data. The empty atom stands for the groups in front of the first marker.
    std::optional<GroupView> find(Atom subclass, int code, int occurrence = 0) const;
    /// The first group with this code in any part, application data passed over.
    std::optional<GroupView> findAny(int code) const { return GroupSpan(m_data).findAny(code); }
    /// True when the row has a part with this marker.
    bool hasSection(Atom subclass) const;

    /// A copy in which the items [first, last) are replaced.
    Groups spliced(const GroupView& first, const GroupView& last, const GroupsBuilder& replacement) const;
    Groups spliced(const std::uint8_t* first, const std::uint8_t* last, const GroupsBuilder& replacement) const;

    /// Calls visit(code, stub, type) for every reference that is not null, application data included.
    template<class Visit>
    void visitStubs(Visit visit) const
    {
        for (const GroupView& group : *this)
            if (OdDbStub* stub = group.stub())
                visit(group.code(), stub, group.type());
    }

    /// A copy in which every reference is replaced by what translate(code, stub, type) gives, null included.
    /// Shares this row when nothing changes.
    Groups translated(const std::function<OdDbStub*(int, OdDbStub*, GroupType)>& translate) const;

    /// Equal when both have the same groups in the same order.
    bool operator==(const Groups& other) const;
    std::size_t hash() const;

private:
    explicit Groups(GroupsData* data) : m_data(data) {}
    static GroupsData* retain(GroupsData* data)
    {
        if (data)
            ++data->references;
        return data;
    }
    static void drop(GroupsData* data)
    {
        if (data && --data->references == 0)
            std::free(data);
    }

    GroupsData* m_data = nullptr;
};

/// Makes rows of groups. It keeps its buffer from one row to the next, so that appending a group allocates nothing.
class GroupsBuilder
{
public:
    GroupsBuilder() = default;
    GroupsBuilder(const GroupsBuilder&) = delete;
    GroupsBuilder& operator=(const GroupsBuilder&) = delete;
    ~GroupsBuilder();

    void clear() { m_size = 0; }
    bool empty() const { return m_size == 0; }
    std::size_t size() const { return m_size; }

    /// Cuts back to a size() that was taken between two groups.
    void truncate(std::size_t size) { m_size = size; }

    GroupsBuilder& atom(int code, Atom value);
    /// A text; subclass markers (100, 101) and heads of application data (102) become atoms by themselves.
    GroupsBuilder& text(int code, std::string_view value);
    GroupsBuilder& real(int code, double value);
    GroupsBuilder& integer(int code, std::int64_t value);
    GroupsBuilder& boolean(int code, bool value);
    GroupsBuilder& id(int code, OdDbStub* stub);
    GroupsBuilder& name(int code, OdDbStub* record);
    GroupsBuilder& binary(int code, std::string_view value);
    /// Two or three doubles with the codes code, code + 10, code + 20.
    GroupsBuilder& point(int code, double x, double y);
    GroupsBuilder& point(int code, double x, double y, double z);

    GroupsBuilder& append(const GroupView& group) { return appendItems(group.item(), group.next()); }
    GroupsBuilder& append(const Groups& groups);
    GroupsBuilder& appendItems(const std::uint8_t* first, const std::uint8_t* last);

    /// The row made so far; the builder keeps its groups. An empty builder gives the empty row.
    Groups build() const { return m_size ? Groups::fromItems(m_buffer, m_size) : Groups(); }
    /// The row made so far; the builder is empty afterwards.
    Groups finish()
    {
        Groups made = build();
        clear();
        return made;
    }

    const std::uint8_t* begin() const { return m_buffer; }
    const std::uint8_t* end() const { return m_buffer + m_size; }
    /// The row made so far, valid until the builder is used again.
    GroupSpan view() const { return {begin(), end()}; }

private:
    std::uint8_t* grow(std::size_t size)
    {
        if (m_capacity - m_size < size)
            makeRoom(size);
        return m_buffer + std::exchange(m_size, m_size + size);
    }
    void makeRoom(std::size_t size);
    std::uint8_t* head(int code, Storage storage, std::size_t payload);
    GroupsBuilder& bytes(int code, Storage storage, std::string_view value);

    static constexpr std::size_t kOwnRoom = 96; // for the few groups of most edits

    std::uint8_t m_own[kOwnRoom];
    std::uint8_t* m_buffer = m_own; ///< or memory from the heap
    std::size_t m_size = 0;
    std::size_t m_capacity = kOwnRoom;
};

} // namespace oddb
