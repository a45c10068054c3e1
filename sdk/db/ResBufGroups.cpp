// Chains of result buffers to groups and back.
#include "ResBufGroups.h"

#include <optional>

#include "DatabaseImpl.h"
#include "Ge/GePoint3d.h"
#include "GroupCodes.h"
#include "OdError.h"

namespace oddb
{

namespace
{

void appendPoint(GroupsBuilder& builder, const OdResBuf& element)
{
    const OdGePoint3d point = element.getPoint3d();
    builder.point(element.restype(), point.x, point.y, point.z);
}

void appendBinary(GroupsBuilder& builder, const OdResBuf& element)
{
    const OdBinaryData data = element.getBinaryChunk();
    builder.binary(element.restype(), {reinterpret_cast<const char*>(data.asArrayPtr()), data.size()});
}

// The value in the form that get asks for; none when the element holds another one.
template<class Get>
auto valueIn(Get get) -> std::optional<decltype(get())>
{
    try
    {
        return get();
    }
    catch (const OdError&)
    {
        return std::nullopt;
    }
}

OdDbHandle handleOf(const OdResBuf& element)
{
    if (const auto handle = valueIn([&] { return element.getHandle(); }))
        return *handle;
    OdDbHandle handle;
    if (!OdDbHandle::parse(element.getString().view(), handle))
        throw OdError(eInvalidResBuf);
    return handle;
}

// A reference is given as an id, as a handle or as the text of a handle.
void appendReference(GroupsBuilder& builder, const OdResBuf& element, OdDbDatabase* database)
{
    if (const auto id = valueIn([&] { return element.getObjectId(); }))
    {
        builder.id(element.restype(), stubOf(*id));
        return;
    }
    const OdDbHandle handle = handleOf(element);
    if (!database)
        throw OdError(eNoDatabase);
    builder.id(element.restype(), stubOf(database->getOdDbObjectId(handle, true)));
}

void appendLayer(GroupsBuilder& builder, const OdResBuf& element, OdDbDatabase* database)
{
    const std::string name = odStringToUtf8(ChainAccess::text(element));
    OdDbStub* layer = database ? findSymbol(*database, SymbolTable::Layer, name) : nullptr;
    if (layer && symbolName(layer) == name)
        builder.name(element.restype(), layer);
    else
        builder.text(element.restype(), name);
}

// XData names objects by handle.
void setReference(OdResBuf& element, OdDbStub* stub)
{
    if (element.restype() >= 1000)
        element.setHandle(OdDbObjectId(stub).getHandle());
    else
        element.setObjectId(stub);
}

OdResBufPtr toElement(const GroupView& group)
{
    OdResBufPtr element = OdResBuf::newRb(group.code());
    switch (group.type())
    {
    case GroupType::Text:
    case GroupType::Name:
        element->setString(odUtf8ToString(group.text()));
        break;
    case GroupType::Real:
        element->setDouble(group.real());
        break;
    case GroupType::Integer:
        element->setInt64(group.integer());
        break;
    case GroupType::Boolean:
        element->setBool(group.boolean());
        break;
    case GroupType::Id:
        setReference(*element, group.stub());
        break;
    case GroupType::Binary:
    {
        OdBinaryData data;
        const std::string_view bytes = group.binary();
        data.resize(static_cast<OdUInt32>(bytes.size()));
        std::copy(bytes.begin(), bytes.end(), data.asArrayPtr());
        element->setBinaryChunk(data);
        break;
    }
    }
    return element;
}

OdResBufPtr toPoint(int code, const double (&coordinates)[3])
{
    OdResBufPtr element = OdResBuf::newRb(code);
    element->setPoint3d(OdGePoint3d(coordinates[0], coordinates[1], coordinates[2]));
    return element;
}

// Takes the coordinates that follow the first one of a point; returns where it stopped.
GroupIterator readPoint(GroupIterator at, GroupIterator end, double (&coordinates)[3])
{
    const int code = at->code();
    for (int i = 0; i < 3 && at != end && at->code() == code + 10 * i; ++i, ++at)
        coordinates[i] = at->real();
    return at;
}

} // namespace

void appendElement(GroupsBuilder& builder, const OdResBuf& element, OdDbDatabase* database)
{
    const int code = element.restype();
    switch (groupValue(code))
    {
    case GroupValue::Text:
        return code == 1003 ? appendLayer(builder, element, database)
                            : void(builder.text(code, odStringToUtf8(ChainAccess::text(element))));
    case GroupValue::Point:
        return appendPoint(builder, element);
    case GroupValue::Real:
        builder.real(code, element.getDouble());
        return;
    case GroupValue::Int16:
        builder.integer(code, element.getInt16());
        return;
    case GroupValue::Int32:
        builder.integer(code, element.getInt32());
        return;
    case GroupValue::Int64:
        builder.integer(code, element.getInt64());
        return;
    case GroupValue::Boolean:
        builder.boolean(code, element.getBool());
        return;
    case GroupValue::Handle:
        return appendReference(builder, element, database);
    case GroupValue::Binary:
        return appendBinary(builder, element);
    case GroupValue::None:
        throw OdError(eInvalidResBuf);
    }
}

void ChainWriter::append(const OdResBufPtr& element)
{
    if (m_last.isNull())
        m_first = element;
    else
        m_last->setNext(element);
    m_last = element;
}

void ChainWriter::append(const Groups& groups)
{
    for (GroupIterator at = groups.begin(); at != groups.end();)
    {
        if (groupValue(at->code()) != GroupValue::Point || at->type() != GroupType::Real)
        {
            append(toElement(*at++));
            continue;
        }
        const int code = at->code();
        double coordinates[3] = {};
        at = readPoint(at, groups.end(), coordinates);
        append(toPoint(code, coordinates));
    }
}

OdResBufPtr toChain(const Groups& groups)
{
    ChainWriter writer;
    writer.append(groups);
    return writer.chain();
}

} // namespace oddb

// Ids know their database; of a handle only a database knows the id.
OdDbObjectId OdResBuf::getObjectId(OdDbDatabase* database) const
{
    const OdDbHandle* handle = database ? std::get_if<OdDbHandle>(&m_value) : nullptr;
    return handle ? database->getOdDbObjectId(*handle) : value<OdDbObjectId>();
}
