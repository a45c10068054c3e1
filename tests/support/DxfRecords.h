// Says what a save lost: the records of two drawing files, compared by handle and value. It has a reader of its own, so
// that a fault of the SDK's reader cannot hide itself.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace support
{

/// A group with its value in a form in which equal values are equal texts.
using DxfGroup = std::pair<int, std::string>;

/// A record: everything from one group 0 to the next.
using DxfRecord = std::vector<DxfGroup>;

/// The records of the tables, blocks, entities and objects of a file by "kind handle"; records without a handle are
/// named by what they hold. The frame of sections and tables is left out.
using DxfRecords = std::map<std::string, DxfRecord>;

/// Takes a file apart. Throws std::runtime_error when it is no DXF.
DxfRecords dxfRecords(std::string_view file);

/// All groups of a file in order, values as they stand there.
std::vector<DxfGroup> dxfGroups(std::string_view file);

/// The value of a header variable's first group, empty when there is none.
std::string dxfHeaderValue(std::string_view file, std::string_view variable);

struct DxfDifference
{
    std::vector<std::string> lost;    ///< names of records that are gone
    std::vector<std::string> changed; ///< name and groups that are gone
    std::vector<std::string> added;

    bool nothingLost() const { return lost.empty() && changed.empty(); }
    /// A few of the differences in words.
    std::string summary() const;
};

/// Compares two files. The order of groups, and the derived list of block references of a block, do not count.
DxfDifference compareDxf(std::string_view before, std::string_view after);

/// The bytes of a file; throws std::runtime_error when it cannot be read.
std::string readWholeFile(const std::string& path);
void writeWholeFile(const std::string& path, std::string_view bytes);

} // namespace support
