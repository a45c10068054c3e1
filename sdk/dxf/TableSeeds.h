// Records of symbol tables are referred to by name before they are read: a layer names its linetype, a dimension style
// a block, extended data an application. So their names and handles are collected first.
#pragma once

#include "TagScanner.h"
#include "TextCoding.h"

#include <string>
#include <vector>

namespace dxf
{

/// Handle and name of a record to come, in the order of the file.
struct RecordSeed
{
    std::string kind;         ///< behind group 0
    std::uint64_t handle = 0; ///< 0 when the file has none
    std::string name;
};

/// A table to come with all that stands between its beginning and that of the next one.
struct TableSeed
{
    std::string table; ///< "LAYER"; empty for what stands in front of all tables
    std::uint64_t handle = 0;
    std::vector<RecordSeed> records;
};

/// Collects the tables of the section that begins at the scanner's place.
std::vector<TableSeed> collectTables(TagScanner& scanner, TextDecoder& decoder);

/// Collects the blocks of the section that begins at the scanner's place.
std::vector<RecordSeed> collectBlocks(TagScanner& scanner, TextDecoder& decoder);

} // namespace dxf
