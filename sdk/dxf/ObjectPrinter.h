// Prints objects of a database as the records of a drawing file.
#pragma once

#include "GroupPrinter.h"
#include "db/ObjectExtras.h"

#include <string>
#include <unordered_map>

class OdDbObject;
class OdDbStub;
class OdRxClass;

namespace dxf
{

/// Prints one object after the other. What was erased is left out: objects, and the listeners and extension
/// dictionaries that objects have.
class ObjectPrinter
{
public:
    ObjectPrinter(GroupPrinter& groups, OdDbDatabase& database, OdDb::DwgVersion version)
        : m_groups(groups), m_database(database), m_version(version)
    {
    }

    /// Prints the object, with its own name in files or with another.
    void print(const OdDbStub& stub);
    void printAs(const OdDbStub& stub, std::string_view name);

    /// Prints the head of a table for records of this name: everything but the data of the table.
    void printTableHead(const OdDbStub& table, std::string_view recordName);
    /// Prints the extended data of an object.
    void printXData(const OdDbObject& object);

    /// Returns the name of the object in files.
    std::string_view nameOf(const OdDbObject& object);

private:
    /// What the objects of one class have in common.
    struct Kind
    {
        const OdRxClass* runtimeClass = nullptr;
        const oddb::DxfClass* cls = nullptr;
        std::string name;
        bool isProxy = false; // each proxy has a name of its own
        bool isFiled = false; // it files itself, or its groups do not say everything
    };

    /// Extended data as it was printed last: many objects share the same.
    struct PrintedXData
    {
        const OdDbStub* application = nullptr;
        oddb::Groups values;
        std::string text;
    };

    void printHead(const OdDbStub& stub, std::string_view name);
    void printCommon(const OdDbStub& stub, int handleCode);
    void printData(const OdDbObject& object);
    void printXDataEntry(const oddb::XDataEntry& entry);
    const Kind& kindOf(const OdDbObject& object);
    void printReactors(const OdDbObject& object);
    void printExtensionDictionary(const OdDbObject& object);
    void printFiled(const OdDbObject& object);

    GroupPrinter& m_groups;
    OdDbDatabase& m_database;
    OdDb::DwgVersion m_version;
    std::unordered_map<const OdRxClass*, Kind> m_kinds;
    const Kind* m_lastKind = nullptr;
    PrintedXData m_lastXData;
};

} // namespace dxf
