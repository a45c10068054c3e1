// Prints a record; RecordReader.cpp draws it.
#include "ObjectPrinter.h"

#include "DbDatabase.h"
#include "db/GroupsDxfFiler.h"
#include "db/ObjectCore.h"
#include "db/Proxies.h"
#include "db/SymbolNames.h"

namespace dxf
{
namespace
{

using oddb::ObjectCore;

constexpr int kNameCode = 0;
constexpr int kTableNameCode = 2;
constexpr int kHandleCode = 5;
constexpr int kDimStyleHandleCode = 105;
constexpr int kApplicationGroupCode = 102;
constexpr int kOwnerCode = 330;
constexpr int kDictionaryCode = 360;
constexpr int kXDataApplicationCode = 1001;

} // namespace

// ---- Classes
// ---------------------------------------------------------------------------------------------------------

const ObjectKind& ObjectPrinter::kindOf(const OdDbObject& object)
{
    if (m_lastKind == nullptr || m_lastKind->runtimeClass != object.isA())
        m_lastKind = &m_kinds.of(object);
    return *m_lastKind;
}

std::string_view ObjectPrinter::nameOf(const OdDbObject& object)
{
    const ObjectKind& kind = kindOf(object);
    return kind.isProxy ? oddb::proxyDxfName(object) : std::string_view(kind.name);
}

// ---- Records
// ---------------------------------------------------------------------------------------------------------

void ObjectPrinter::print(const OdDbStub& stub)
{
    printAs(stub, nameOf(*stub.object));
}

void ObjectPrinter::printAs(const OdDbStub& stub, std::string_view name)
{
    printHead(stub, name);
    printData(*stub.object);
    printXData(*stub.object);
}

void ObjectPrinter::printHead(const OdDbStub& stub, std::string_view name)
{
    m_groups.text(kNameCode, name);
    printCommon(stub, name == "DIMSTYLE" ? kDimStyleHandleCode : kHandleCode);
}

void ObjectPrinter::printCommon(const OdDbStub& stub, int handleCode)
{
    const OdDbObject& object = *stub.object;
    m_groups.handle(handleCode, stub.handle);
    if (ObjectCore::extras(object) != nullptr)
    {
        printReactors(object);
        printExtensionDictionary(object);
    }
    const OdDbStub* const owner = ObjectCore::owner(object);
    m_groups.handle(kOwnerCode, owner != nullptr ? owner->handle : 0);
}

// In front of the handle of a table stands what the records of it are.
void ObjectPrinter::printTableHead(const OdDbStub& table, std::string_view recordName)
{
    m_groups.text(kNameCode, "TABLE");
    m_groups.text(kTableNameCode, recordName);
    printCommon(table, kHandleCode);
}

void ObjectPrinter::printReactors(const OdDbObject& object)
{
    bool isOpen = false;
    ObjectCore::extras(object)->reactors.visit(
        [&](const OdDbStub* reactor)
        {
            // a reference to nothing is what the file had; an erased object is gone
            if (reactor->object != nullptr && reactor->isErased())
                return;
            if (!isOpen)
                m_groups.text(kApplicationGroupCode, "{ACAD_REACTORS");
            isOpen = true;
            m_groups.handle(kOwnerCode, reactor->handle);
        });
    if (isOpen)
        m_groups.text(kApplicationGroupCode, "}");
}

void ObjectPrinter::printExtensionDictionary(const OdDbObject& object)
{
    const OdDbStub* const dictionary = ObjectCore::extensionDictionary(object);
    if (dictionary == nullptr || (dictionary->object != nullptr && dictionary->isErased()))
        return;
    m_groups.text(kApplicationGroupCode, "{ACAD_XDICTIONARY");
    m_groups.handle(kDictionaryCode, dictionary->handle);
    m_groups.text(kApplicationGroupCode, "}");
}

void ObjectPrinter::printData(const OdDbObject& object)
{
    const ObjectKind& kind = kindOf(object);
    if (kind.isFiled)
        return printFiled(object);
    m_groups.groupsOf(kind.cls, ObjectCore::groupsData(object));
}

void ObjectPrinter::printFiled(const OdDbObject& object)
{
    const OdDbObjectPtr open = object.objectId().safeOpenObject(OdDb::kForRead);
    const auto filer = oddb::GroupsDxfFiler::create(&m_database, OdDbFiler::kFileFiler, m_version);
    open->dxfOutFields(filer);
    m_groups.groups(filer->written());
    // nobody knows what an object does while it files itself
    m_groups.forgetNames();
    m_lastXData = {};
}

void ObjectPrinter::printXData(const OdDbObject& object)
{
    const oddb::ObjectExtras* const extras = ObjectCore::extras(object);
    for (std::size_t i = 0; extras != nullptr && i < extras->xdata.size(); ++i)
        printXDataEntry(extras->xdata[i]);
}

void ObjectPrinter::printXDataEntry(const oddb::XDataEntry& entry)
{
    if (entry.application == m_lastXData.application && entry.values.data() == m_lastXData.values)
        return m_groups.tags().again(m_lastXData.text);
    const std::uint64_t place = m_groups.tags().place();
    m_groups.text(kXDataApplicationCode, oddb::symbolName(entry.application));
    m_groups.groups(entry.values);
    if (const std::string_view printed = m_groups.tags().since(place); !printed.empty())
        m_lastXData = {entry.application, entry.values.data(), std::string(printed)};
}

} // namespace dxf
