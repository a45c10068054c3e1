// Reading, keeping and giving out extended data.
#include "XData.h"

#include <algorithm>

#include "DatabaseImpl.h"
#include "DbObject.h"
#include "GroupCodes.h"
#include "ObjectState.h"
#include "OdError.h"
#include "ResBufGroups.h"

namespace oddb
{

namespace
{

constexpr std::size_t kApplicationBytes = 10; // its handle and a length

// As a drawing file stores them: a byte for the code, texts with length and code page.
std::size_t groupBytes(const GroupView& group)
{
    switch (group.code())
    {
    case 1002:
        return 2;
    case 1003:
    case 1005:
        return 9;
    case 1004:
        return 2 + group.binary().size();
    case 1070:
        return 3;
    case 1071:
        return 5;
    default:
        return group.type() == GroupType::Real ? 9 : 4 + group.text().size();
    }
}

bool isXDataCode(int code)
{
    return code >= 1000 && code <= 1071 && groupValue(code) != GroupValue::None;
}

OdDbStub* findApplication(const OdResBuf& element, const OdDbDatabase& database)
{
    if (element.restype() != 1001)
        throw OdError(eInvalidResBuf);
    OdDbStub* application = findSymbol(database, SymbolTable::RegApp, odStringToUtf8(ChainAccess::text(element)));
    if (!application)
        throw OdError(eRegappIdNotFound);
    return application;
}

// Reads the values of one application; returns the name of the next one, null at the end of the chain.
const OdResBuf* readValues(const OdResBuf* element, OdDbDatabase& database, GroupsBuilder& values)
{
    for (; element && element->restype() != 1001; element = ChainAccess::next(*element))
    {
        if (!isXDataCode(element->restype()))
            throw OdError(eInvalidResBuf);
        appendElement(values, *element, &database);
    }
    return element;
}

// Texts and whole numbers mean the same whenever they are read; points are compared with a tolerance, and whether there
// is a layer of a name may change.
bool meansTheSameAgain(const OdResBuf& chain)
{
    for (const OdResBuf* element = &chain; element; element = ChainAccess::next(*element))
    {
        const int code = element->restype();
        if (code != 1000 && code != 1001 && code != 1002 && code != 1070 && code != 1071)
            return false;
    }
    return true;
}

bool areSame(const std::vector<XDataEntry>& first, const std::vector<XDataEntry>& second)
{
    return std::equal(first.begin(), first.end(), second.begin(), second.end(),
                      [](const XDataEntry& one, const XDataEntry& other)
                      { return one.application == other.application && one.values.data() == other.values.data(); });
}

bool isSameChain(const OdResBuf* first, const OdResBuf* second)
{
    while (first && second && ChainAccess::hasSameValue(*first, *second))
    {
        first = ChainAccess::next(*first);
        second = ChainAccess::next(*second);
    }
    return !first && !second;
}

} // namespace

std::size_t xdataBytes(const Groups& values)
{
    std::size_t sum = kApplicationBytes;
    for (const GroupView& group : values)
        sum += groupBytes(group);
    return sum;
}

Groups GroupsPool::intern(const GroupsBuilder& values)
{
    if (values.empty())
        return Groups();
    const std::string_view bytes(reinterpret_cast<const char*>(values.begin()), values.size());
    Groups& place = m_recent[std::hash<std::string_view>()(bytes) % m_recent.size()];
    const bool same =
        place.byteSize() == bytes.size() && std::memcmp(place.data()->bytes(), values.begin(), bytes.size()) == 0;
    if (!same)
        place = values.build();
    return place;
}

// The same chain gives the same entries as long as the applications have their names.
bool GroupsPool::isReadAgain(const OdResBuf& chain, const OdDbDatabase& database) const
{
    if (!isSameChain(m_readChain, &chain))
        return false;
    const OdResBuf* element = &chain;
    for (const XDataEntry& entry : m_read)
    {
        while (element->restype() != 1001)
            element = ChainAccess::next(*element);
        if (findApplication(*element, database) != entry.application)
            return false;
        element = ChainAccess::next(*element);
    }
    return true;
}

const std::vector<XDataEntry>& GroupsPool::read(const OdResBuf& chain, OdDbDatabase& database)
{
    if (isReadAgain(chain, database))
        return m_read;
    m_readChain.release();
    m_readBefore.swap(m_read);
    m_read.clear();
    for (const OdResBuf* element = &chain; element;)
    {
        OdDbStub* application = findApplication(*element, database);
        GroupsBuilder& values = builder();
        element = readValues(ChainAccess::next(*element), database, values);
        m_read.push_back({application, intern(values)});
    }
    // what came twice may come a third time
    if (areSame(m_readBefore, m_read) && meansTheSameAgain(chain))
        m_readChain = OdResBuf::cast(chain.clone());
    return m_read;
}

OdResBufPtr makeXDataChain(const XDataList& list, const OdDbStub* application)
{
    ChainWriter writer;
    for (std::size_t i = 0; i < list.size(); ++i)
    {
        if (application && list[i].application != application)
            continue;
        writer.append(OdResBuf::newRb(1001, odUtf8ToString(symbolName(list[i].application))));
        writer.append(list[i].values);
    }
    return writer.chain();
}

namespace
{

// Among the applications that the object has, so that it works for objects outside of a database as well.
OdDbStub* findApplication(const XDataList& list, const OdString& name)
{
    for (std::size_t i = 0; i < list.size(); ++i)
        if (odUtf8ToString(symbolName(list[i].application)).iCompare(name) == 0)
            return list[i].application;
    return nullptr;
}

} // namespace

// ---- Setting -------------------------------------------------------------------------------------------------------

namespace
{

void checkLimit(const XDataList* present, const std::vector<XDataEntry>& entries)
{
    std::size_t sum = 0;
    auto isReplaced = [&](const OdDbStub* application)
    {
        for (const XDataEntry& entry : entries)
            if (entry.application == application)
                return true;
        return false;
    };
    for (std::size_t i = 0; present && i < present->size(); ++i)
        if (!isReplaced((*present)[i].application))
            sum += xdataBytes((*present)[i].values);
    for (const XDataEntry& entry : entries)
        sum += entry.values ? xdataBytes(entry.values) : 0;
    if (sum > kXDataLimit)
        throw OdError(eXdataSizeExceeded);
}

void setXDataOf(OdDbObject& object, const XDataEntry& entry)
{
    const ObjectExtras* extras = ObjectCore::extras(object);
    const XDataEntry* present = extras ? extras->xdata.find(entry.application) : nullptr;
    if (present ? present->values == entry.values && entry.values : !entry.values)
        return;
    Journal& journal = databaseImpl(object)->journal;
    OdDbStub& stub = *ObjectCore::stub(object);
    if (entry.values)
    {
        journal.recordXData(stub, entry.application, present ? std::optional(present->values) : std::nullopt);
        ObjectCore::putXData(object, entry.application, entry.values);
    }
    else
    {
        journal.recordXDataRemoved(stub, entry.application, present->values, extras->xdata.place(entry.application));
        ObjectCore::takeXData(object, entry.application);
    }
    ObjectCore::State::set(object, ObjectCore::State::kModified);
    ObjectCore::State::set(object, ObjectCore::State::kXDataModified);
}

} // namespace

void changeXData(OdDbObject& object, const XDataEntry& entry)
{
    if (ObjectCore::stub(object))
        setXDataOf(object, entry);
    else
        ObjectCore::putXData(object, entry.application, entry.values);
}

} // namespace oddb

OdResult OdDbObject::setXData(const OdResBuf* xdata)
{
    assertWriteEnabled(false, false);
    if (!m_stub)
        throw OdError(eNoDatabase);
    if (!xdata || isUndoing())
        return eOk;
    OdDbDatabase& home = *database();
    const std::vector<oddb::XDataEntry>& entries = home.impl().xdataPool.read(*xdata, home);
    oddb::checkLimit(m_extras ? &m_extras->xdata : nullptr, entries);
    for (const oddb::XDataEntry& entry : entries)
        oddb::setXDataOf(*this, entry);
    return eOk;
}

OdResBufPtr OdDbObject::xData(const OdString& regappName) const
{
    assertReadEnabled();
    if (!m_extras || m_extras->xdata.empty())
        return OdResBufPtr();
    if (regappName.isEmpty())
        return oddb::makeXDataChain(m_extras->xdata, nullptr);
    OdDbStub* application = oddb::findApplication(m_extras->xdata, regappName);
    return application ? oddb::makeXDataChain(m_extras->xdata, application) : OdResBufPtr();
}
