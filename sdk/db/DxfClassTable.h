// What is known of the groups of each class, declared once: it drives reading, writing, defaults and editing.
#pragma once

#include <cstdint>
#include <iterator>
#include <span>
#include <string_view>
#include <vector>

#include "DwgVersion.h"
#include "Groups.h"
#include "SymbolNames.h"

class OdDbObject;

namespace oddb
{

/// What the group of a row holds. Points take the codes code, code + 10 (and code + 20).
enum class DxfKind : std::uint8_t
{
    Text,
    Real,
    Angle, ///< a real in degrees
    Point2d,
    Point3d,
    Integer,
    Boolean,
    Id,   ///< a handle of an object; the code tells what the reference means
    Name, ///< the name of a record of the row's table
    Binary
};

/// One group that a class knows.
struct DxfRow
{
    int code;
    const char* name; ///< in the field's words, for messages and documentation
    DxfKind kind;
    double number = 0.0;   ///< default of numbers and of each coordinate
    const char* text = ""; ///< default of texts and names
    SymbolTable table = SymbolTable::None;
    OdDb::DwgVersion since = OdDb::vAC12; ///< the first file version that has the group
    bool repeats = false;                 ///< occurs any number of times
};

/// The groups behind one subclass marker, in the order in which they are written.
struct DxfSubclass
{
    std::string_view marker;
    std::span<const DxfRow> rows;

    /// The row of the code, null when the class does not know it. Codes of second and third coordinates give the
    /// row of their point.
    const DxfRow* row(int code) const
    {
        const std::uint8_t usual = usualRows[static_cast<unsigned int>(code) % std::size(usualRows)];
        return usual != 0 && rows[usual - 1u].code == code ? &rows[usual - 1u] : findRow(code);
    }
    Atom atom() const;
    /// Fills the fields below, so that row() has to look for few.
    void index() const;
    const DxfRow* findRow(int code) const;

    mutable Atom knownAtom{};             ///< of the marker, from the first question on
    mutable std::uint8_t usualRows[64]{}; ///< by the last bits of the code: a row that may have it, counted from 1
};

/// One class of objects as files know it.
struct DxfClass
{
    const char* dxfName;                            ///< the name behind group 0
    const char* className;                          ///< the name of its runtime class, which creates its objects
    std::span<const DxfSubclass* const> subclasses; ///< in the order in which they are written
    bool isEntity;

    const DxfSubclass* subclass(std::string_view marker) const;
    /// The place of a marker among the subclasses, -1 when the class has none such.
    int position(std::string_view marker) const;
};

/// Enters classes under their DXF names; the span must stay alive. A name entered before is replaced. Afterwards the
/// classes may be looked at by several threads.
void registerDxfClasses(std::span<const DxfClass> classes);

/// The class with this DXF name or runtime class name; null when there is none.
const DxfClass* findDxfClass(std::string_view dxfName);
const DxfClass* findDxfClassOfRuntimeClass(std::string_view className);
/// The class of the object, or the one that its class is derived from; null when there is none.
const DxfClass* dxfClassOf(const OdDbObject& object);

// ---- Reading and editing by rows ---------------------------------------------------------------------------------

/// The value of the row's group, or the row's default when the group is missing.
double readReal(const Groups& groups, Atom subclass, const DxfRow& row, int occurrence = 0);
std::int64_t readInteger(const Groups& groups, Atom subclass, const DxfRow& row, int occurrence = 0);
std::string_view readText(const Groups& groups, Atom subclass, const DxfRow& row, int occurrence = 0);
/// The reference, null when the group is missing. A name that is kept as text is looked up in its table.
OdDbStub* readStub(const OdDbDatabase* database, const Groups& groups, Atom subclass, const DxfRow& row);
struct Coordinates
{
    double x, y, z;
};
Coordinates readPoint(const Groups& groups, Atom subclass, const DxfRow& row, int occurrence = 0);
// The same of a group that has been looked for already.
double readReal(const std::optional<GroupView>& group, const DxfRow& row);
std::int64_t readInteger(const std::optional<GroupView>& group, const DxfRow& row);
std::string_view readText(const std::optional<GroupView>& group, const DxfRow& row);
OdDbStub* readStub(const OdDbDatabase* database, const std::optional<GroupView>& group, const DxfRow& row);
Coordinates readPoint(const Groups& groups, const std::optional<GroupView>& first, const DxfRow& row);

/// A copy of the groups in which the group of the row has the value. A missing group is put where the class has it; a
/// missing subclass marker is put where the class has that. Of groups that occur several times the first is meant, and
/// all of them when the row repeats.
Groups withReal(const Groups& groups, const DxfClass& cls, const DxfSubclass& subclass, int code, double value);
Groups withInteger(const Groups& groups, const DxfClass& cls, const DxfSubclass& subclass, int code,
                   std::int64_t value);
Groups withText(const Groups& groups, const DxfClass& cls, const DxfSubclass& subclass, int code,
                std::string_view value);
Groups withId(const Groups& groups, const DxfClass& cls, const DxfSubclass& subclass, int code, OdDbStub* value);
Groups withName(const Groups& groups, const DxfClass& cls, const DxfSubclass& subclass, int code, OdDbStub* record);
Groups withPoint(const Groups& groups, const DxfClass& cls, const DxfSubclass& subclass, int code, Coordinates value);
/// The groups of a point's row.
GroupsBuilder& appendPoint(GroupsBuilder& groups, const DxfSubclass& subclass, int code, Coordinates value);
/// As these for any ready-made groups: those of the builder take the place of the groups of the row.
Groups withGroups(const Groups& groups, const DxfClass& cls, const DxfSubclass& subclass, int code,
                  const GroupsBuilder& replacement);
/// A copy without the groups of the row.
Groups without(const Groups& groups, const DxfClass& cls, const DxfSubclass& subclass, int code);

} // namespace oddb
