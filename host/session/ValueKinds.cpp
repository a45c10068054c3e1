// The values that travel between JSON and chains.
#include "session/ValueKinds.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>

#include "DbDatabase.h"
#include "DbSSet.h"
#include "Ge/GePoint3d.h"
#include "commands/Parameters.h"
#include "session/WideText.h"

namespace session
{

namespace
{

constexpr int kDeepestChain = 64;

std::string quoted(std::wstring_view units)
{
    return '"' + odStringToUtf8(joinSurrogates(units.data(), units.size())) + '"';
}

std::wstring_view viewOf(const WideValue& text)
{
    return {text.GetString(), text.GetStringLength()};
}

// Appends elements to a chain and knows its last one.
class ChainBuilder
{
public:
    void append(const OdResBufPtr& element)
    {
        if (m_first.isNull())
            m_first = element;
        else
            m_last->setNext(element);
        m_last = element;
    }

    const OdResBufPtr& first() const { return m_first; }

private:
    OdResBufPtr m_first;
    OdResBufPtr m_last;
};

// ---- From JSON
// -------------------------------------------------------------------------------------------------------

struct Source
{
    std::wstring_view name; // of the parameter
    OdDbDatabase& database;
    ChainBuilder chain;

    [[noreturn]] void refuse(const std::string& fault) const
    {
        throw RequestError("parameter " + quoted(name) + ": " + fault);
    }
};

OdDbObjectId readObject(const WideValue& value, Source& source)
{
    if (!value.IsString())
        source.refuse("a handle is a string of hexadecimal digits");
    OdDbHandle handle;
    if (!OdDbHandle::parse(viewOf(value), handle))
        source.refuse(quoted(viewOf(value)) + " is no handle");
    if (handle.isNull())
        return OdDbObjectId::kNull;
    const OdDbObjectId id = source.database.getOdDbObjectId(handle);
    if (!id.isValid())
        source.refuse("the drawing has no object with the handle " + quoted(viewOf(value)));
    return id;
}

OdGePoint3d readPoint(const WideValue& value, Source& source)
{
    const bool isPoint = value.IsArray() && value.Size() == 3 &&
                         std::all_of(value.Begin(), value.End(), [](const WideValue& part) { return part.IsNumber(); });
    if (!isPoint)
        source.refuse("a point is an array of three numbers");
    return OdGePoint3d(value[0].GetDouble(), value[1].GetDouble(), value[2].GetDouble());
}

void requireArray(const WideValue& value, const Source& source)
{
    if (!value.IsArray())
        source.refuse("a list of objects is an array of handles");
}

void readString(const WideValue& value, Source& source)
{
    source.chain.append(
        OdResBuf::newRb(OdResBuf::kRtString, joinSurrogates(value.GetString(), value.GetStringLength())));
}

void readBool(const WideValue& value, Source& source)
{
    source.chain.append(OdResBuf::newRb(OdResBuf::kRtBool, value.GetBool()));
}

void readInteger(const WideValue& value, Source& source)
{
    source.chain.append(OdResBuf::newRb(OdResBuf::kRtInt32, OdInt32(value.GetInt())));
}

void readObjectId(const WideValue& value, Source& source)
{
    source.chain.append(OdResBuf::newRb(OdResBuf::kRtObjectId, readObject(value, source)));
}

void readObjectIds(const WideValue& value, Source& source)
{
    requireArray(value, source);
    for (const WideValue& handle : value.GetArray())
        readObjectId(handle, source);
}

void readPointValue(const WideValue& value, Source& source)
{
    source.chain.append(OdResBuf::newRb(OdResBuf::kRtPoint3d, readPoint(value, source)));
}

void readExtents(const WideValue& value, Source& source)
{
    if (!value.IsArray() || value.Size() != 2)
        source.refuse("extents are an array of two points");
    readPointValue(value[0], source);
    readPointValue(value[1], source);
}

void readSelectionSet(const WideValue& value, Source& source)
{
    requireArray(value, source);
    const OdDbSelectionSetPtr set = OdDbSelectionSet::createObject(&source.database);
    for (const WideValue& handle : value.GetArray())
    {
        const OdDbObjectId id = readObject(handle, source);
        if (id.isNull())
            source.refuse("the null id is no member of a selection set");
        set->append(id);
    }
    const OdResBufPtr element = OdResBuf::newRb(OdResBuf::kRtPickSet);
    element->setPickSet(set);
    source.chain.append(element);
}

void readNullObject(const WideValue& value, Source& source)
{
    if (!value.IsNull())
        source.refuse("the only object that a request can give is null");
    source.chain.append(OdResBuf::newRb(OdResBuf::kRtInt64, OdInt64(0)));
}

// ---- To JSON
// ---------------------------------------------------------------------------------------------------------

struct Sink
{
    JsonWriter& writer;
    int depth = 0;
};

void writeChainAt(Sink& sink, const OdResBuf* chain);

bool isOfType(const OdResBuf* element, int type)
{
    return element != nullptr && element->restype() == type;
}

int countOfType(const OdResBuf* element, int type)
{
    int count = 0;
    for (; isOfType(element, type); element = element->next())
        ++count;
    return count;
}

void writeHandle(JsonWriter& writer, const OdDbObjectId& id)
{
    writer.plain(id.getHandle().text());
}

void writePointOf(JsonWriter& writer, const OdResBuf* element)
{
    const OdGePoint3d point = element->getPoint3d();
    writer.StartArray();
    for (const double coordinate : {point.x, point.y, point.z})
    {
        if (std::isfinite(coordinate))
            writer.Double(coordinate);
        else
            writer.Null(); // JSON has no such number
    }
    writer.EndArray();
}

void writeString(Sink& sink, const OdResBuf* element, int)
{
    sink.writer.text(element->getString().view());
}

void writeBool(Sink& sink, const OdResBuf* element, int)
{
    sink.writer.Bool(element->getBool());
}

void writeInteger(Sink& sink, const OdResBuf* element, int)
{
    sink.writer.Int(element->getInt32());
}

void writeObjectId(Sink& sink, const OdResBuf* element, int)
{
    writeHandle(sink.writer, element->getObjectId());
}

void writeObjectIds(Sink& sink, const OdResBuf* element, int count)
{
    sink.writer.StartArray();
    for (; count > 0; --count, element = element->next())
        writeHandle(sink.writer, element->getObjectId());
    sink.writer.EndArray();
}

void writePoint(Sink& sink, const OdResBuf* element, int)
{
    writePointOf(sink.writer, element);
}

void writeExtents(Sink& sink, const OdResBuf* element, int)
{
    sink.writer.StartArray();
    writePointOf(sink.writer, element);
    writePointOf(sink.writer, element->next());
    sink.writer.EndArray();
}

void writeSelectionSet(Sink& sink, const OdResBuf* element, int)
{
    sink.writer.StartArray();
    const OdDbSelectionSetPtr set = OdDbSelectionSet::cast(element->getPickSet());
    if (!set.isNull())
        for (const OdDbObjectId& id : set->objectIdArray())
            writeHandle(sink.writer, id);
    sink.writer.EndArray();
}

void writeNullObject(Sink& sink, const OdResBuf*, int)
{
    sink.writer.Null();
}

void writePointer(Sink& sink, const OdResBuf*, int)
{
    sink.writer.Bool(true);
}

void writeNested(Sink& sink, const OdResBuf* element, int)
{
    if (sink.depth >= kDeepestChain)
    {
        sink.writer.Null();
        return;
    }
    ++sink.depth;
    writeChainAt(sink, element->getResBuf());
    --sink.depth;
}

void writeType(Sink& sink, const OdResBuf* element, int)
{
    sink.writer.Int(element->restype());
}

// ---- How many elements a value takes where it stands in a chain, 0 where it does not
// ---------------------------------

template<int type>
int countOne(const OdResBuf* element)
{
    return isOfType(element, type) ? 1 : 0;
}

int countSeveralIds(const OdResBuf* element)
{
    const int count = countOfType(element, OdResBuf::kRtObjectId);
    return count > 1 ? count : 0;
}

int countExtents(const OdResBuf* element)
{
    return countOfType(element, OdResBuf::kRtPoint3d) == 2 ? 2 : 0;
}

int countNullPointer(const OdResBuf* element)
{
    return isOfType(element, OdResBuf::kRtInt64) && element->getInt64() == 0 ? 1 : 0;
}

int countAny(const OdResBuf*)
{
    return 1;
}

// ---- The table
// -------------------------------------------------------------------------------------------------------

struct ValueKind
{
    const wchar_t* form;                              // the member that holds the value; null: the value stands alone
    bool (WideValue::*isPlain)() const;               // tells a value that stands alone
    void (*read)(const WideValue& value, Source& to); // null: not in requests
    int (*count)(const OdResBuf* element);            // asked from the first row on
    void (*write)(Sink& to, const OdResBuf* element, int count);
};

const ValueKind kObjectIdsKind = {L"objectIds", nullptr, readObjectIds, countSeveralIds, writeObjectIds};

const ValueKind kValueKinds[] = {
    {nullptr, &WideValue::IsString, readString, countOne<OdResBuf::kRtString>, writeString},
    {nullptr, &WideValue::IsBool, readBool, countOne<OdResBuf::kRtBool>, writeBool},
    {nullptr, &WideValue::IsInt, readInteger, countOne<OdResBuf::kRtInt32>, writeInteger},
    kObjectIdsKind,
    {L"objectId", nullptr, readObjectId, countOne<OdResBuf::kRtObjectId>, writeObjectId},
    {L"extents", nullptr, readExtents, countExtents, writeExtents},
    {L"point", nullptr, readPointValue, countOne<OdResBuf::kRtPoint3d>, writePoint},
    {L"selectionSet", nullptr, readSelectionSet, countOne<OdResBuf::kRtPickSet>, writeSelectionSet},
    {L"object", nullptr, readNullObject, countNullPointer, writeNullObject},
    {L"pointer", nullptr, nullptr, countOne<OdResBuf::kRtInt64>, writePointer},
    {L"chain", nullptr, nullptr, countOne<OdResBuf::kRtResBuf>, writeNested},
    {L"type", nullptr, nullptr, countAny, writeType},
};

const ValueKind* findKindOfPlain(const WideValue& value)
{
    for (const ValueKind& kind : kValueKinds)
        if (kind.isPlain != nullptr && (value.*kind.isPlain)())
            return &kind;
    return nullptr;
}

const ValueKind* findKindOfForm(std::wstring_view form)
{
    for (const ValueKind& kind : kValueKinds)
        if (kind.form != nullptr && kind.read != nullptr && form == std::wstring_view(kind.form))
            return &kind;
    return nullptr;
}

void readValue(const WideValue& value, Source& source)
{
    if (const ValueKind* plain = findKindOfPlain(value))
    {
        plain->read(value, source);
        return;
    }
    if (value.IsNumber())
        source.refuse("a number is an integer of 32 bits");
    if (!value.IsObject() || value.MemberCount() != 1)
        source.refuse("a value of unknown form");
    const auto member = value.MemberBegin();
    const ValueKind* kind = findKindOfForm(viewOf(member->name));
    if (kind == nullptr)
        source.refuse("a value of the unknown form " + quoted(viewOf(member->name)));
    kind->read(member->value, source);
}

const OdResBuf* step(const OdResBuf* element, int count)
{
    for (; count > 0; --count)
        element = element->next();
    return element;
}

// Writes the value that stands at element and returns what is behind it.
const OdResBuf* writeKind(Sink& sink, const ValueKind& kind, const OdResBuf* element, int count)
{
    if (kind.form == nullptr)
        kind.write(sink, element, count);
    else
    {
        sink.writer.StartObject();
        sink.writer.Key(kind.form);
        kind.write(sink, element, count);
        sink.writer.EndObject();
    }
    return step(element, count);
}

struct FoundKind
{
    const ValueKind* kind;
    int count;
};

FoundKind findKindOfElement(const OdResBuf* element)
{
    for (const ValueKind& kind : kValueKinds)
        if (const int count = kind.count(element); count != 0)
            return {&kind, count};
    return {&kValueKinds[std::size(kValueKinds) - 1], 1};
}

bool isValueBehind(const OdResBuf* element)
{
    return element != nullptr && element->restype() != OdResBuf::kRtString;
}

// Writes the value or the values of one name and returns the next name's element.
const OdResBuf* writeValues(Sink& sink, const OdResBuf* element)
{
    if (element == nullptr)
    {
        sink.writer.Null();
        return nullptr;
    }
    const FoundKind first = findKindOfElement(element);
    const bool areSeveral = isValueBehind(step(element, first.count));
    if (!areSeveral)
        return writeKind(sink, *first.kind, element, first.count);
    sink.writer.StartArray();
    element = writeKind(sink, *first.kind, element, first.count);
    while (isValueBehind(element))
    {
        const FoundKind found = findKindOfElement(element);
        element = writeKind(sink, *found.kind, element, found.count);
    }
    sink.writer.EndArray();
    return element;
}

void writeChainAt(Sink& sink, const OdResBuf* chain)
{
    sink.writer.StartObject();
    for (const OdResBuf* element = chain; element != nullptr;)
    {
        if (element->restype() == OdResBuf::kRtNone) // an empty chain
        {
            element = element->next();
            continue;
        }
        const bool hasName = element->restype() == OdResBuf::kRtString;
        const OdString name = hasName ? element->getString() : OdString();
        if (hasName)
            element = element->next();
        sink.writer.text(name.view());
        if (hostcommands::namesObjectList(name))
            element = writeKind(sink, kObjectIdsKind, element, countOfType(element, OdResBuf::kRtObjectId));
        else
            element = writeValues(sink, element);
    }
    sink.writer.EndObject();
}

} // namespace

OdResBufPtr readChain(const WideValue& members, OdDbDatabase& database)
{
    Source source{{}, database, {}};
    for (const auto& member : members.GetObject())
    {
        source.name = viewOf(member.name);
        source.chain.append(OdResBuf::newRb(OdResBuf::kRtString,
                                            joinSurrogates(member.name.GetString(), member.name.GetStringLength())));
        readValue(member.value, source);
    }
    return source.chain.first().isNull() ? OdResBuf::newRb() : source.chain.first();
}

void writeChain(JsonWriter& writer, const OdResBuf* chain)
{
    Sink sink{writer};
    writeChainAt(sink, chain);
}

} // namespace session
