// The settings of a drawing: the variables of the header section, in the order of the file.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "DatabaseImpl.h"
#include "DxfClassTable.h"

namespace oddb
{

/// What is known of one variable. A point has the codes code, code + 10 (and code + 20).
struct HeaderRow
{
    const char* name; ///< without the "$" that files put in front
    int code;
    DxfKind kind;
    double number;          ///< default of numbers and of each coordinate
    const char* text;       ///< default of texts; of a point: its coordinates, when they differ
    OdDb::DwgVersion since; ///< the first file version that has the variable
};

/// All variables that are known, in the order in which files have them.
std::span<const HeaderRow> headerRows();

/// The row of the variable, null when it is not known.
const HeaderRow* findHeaderRow(std::string_view name);

struct HeaderVariable
{
    std::string name; ///< without "$"
    Groups values;    ///< one group, or the coordinates of a point
};

/// The variables of one drawing. Unknown ones are kept like all others.
class HeaderVariables
{
public:
    /// Those of the drawing.
    static HeaderVariables& of(DatabaseImpl& database);

    const std::vector<HeaderVariable>& all() const { return m_all; }

    /// The values of the variable, or its default when the drawing does not have it; empty for an unknown one.
    Groups find(std::string_view name) const;

    /// Sets the values without a word to the journal: for readers. A new variable goes behind the others.
    void put(std::string_view name, Groups values);
    void remove(std::string_view name);

    /// Sets the values as a change of the drawing that can be undone.
    void change(DatabaseImpl& database, std::string_view name, Groups values);

    /// Adds each known variable that is missing with its default.
    void addDefaults();

private:
    std::vector<HeaderVariable> m_all;
    std::unordered_map<std::string, std::size_t> m_places;
};

/// The default values of a variable.
Groups defaultValues(const HeaderRow& row);

} // namespace oddb
