// Prints objects of a database as the records of a drawing file.
#pragma once

#include "GroupPrinter.h"
#include "ObjectKinds.h"
#include "db/ObjectExtras.h"

#include <string>

class OdDbStub;

namespace dxf
{

/// Prints one object after the other. What was erased is left out: objects, and the listeners and extension
/// dictionaries that objects have.
class ObjectPrinter
{
public:
    ObjectPrinter(GroupPrinter& groups, ObjectKinds& kinds, OdDbDatabase& database, OdDb::DwgVersion version)
        : m_groups(groups), m_kinds(kinds), m_database(database), m_version(version)
    {
    }
    /// A printer that prints the same into other groups.
    ObjectPrinter(GroupPrinter& groups, const ObjectPrinter& like)
        : ObjectPrinter(groups, like.m_kinds, like.m_database, like.m_version)
    {
    }

    /// Prints the object, with its own name in files or with another.
    void print(const OdDbStub& stub);
    void printAs(const OdDbStub& stub, std::string_view name);

    /// Prints the head of a table for records of this name: everything but the data of the table.
    void printTableHead(const OdDbStub& table, std::string_view recordName);
    /// Prints the extended data of an object.
    void printXData(const OdDbObject& object);

    GroupPrinter& groups() { return m_groups; }

    /// Returns the name of the object in files.
    std::string_view nameOf(const OdDbObject& object);

private:
    /// Extended data as it was printed last: many objects share the same.
    struct PrintedXData
    {
        const OdDbStub* application = nullptr;
        const oddb::GroupsData* values = nullptr;
        std::string text;
    };

    void printHead(const OdDbStub& stub, std::string_view name);
    void printCommon(const OdDbStub& stub, int handleCode);
    void printData(const OdDbObject& object);
    void printXDataEntry(const oddb::XDataEntry& entry);
    const ObjectKind& kindOf(const OdDbObject& object);
    void printReactors(const OdDbObject& object);
    void printExtensionDictionary(const OdDbObject& object);
    void printFiled(const OdDbObject& object);

    GroupPrinter& m_groups;
    ObjectKinds& m_kinds;
    OdDbDatabase& m_database;
    OdDb::DwgVersion m_version;
    const ObjectKind* m_lastKind = nullptr;
    PrintedXData m_lastXData;
};

} // namespace dxf
