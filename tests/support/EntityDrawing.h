// Drawings of our own from short lines, one for each entity.
#pragma once

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "support/DrawingText.h"

namespace support
{

/// "LINE A1 0|100 AcDbLine|10 1|20 2": type, handle, layer, then groups.
inline std::string record(std::string_view line)
{
    const auto word = [&line](char divider)
    {
        const std::size_t end = line.find(divider);
        const std::string_view found = line.substr(0, end);
        line.remove_prefix(end == std::string_view::npos ? line.size() : end + 1);
        return std::string(found);
    };
    const std::string type = word(' ');
    const std::string handle = word(' ');
    const std::string layer = word('|');
    return group(0, type) + group(5, handle) + group(100, "AcDbEntity") + group(8, layer) + groups(line);
}

inline std::string records(const std::vector<std::string>& lines)
{
    std::string text;
    for (const std::string& line : lines)
        text += record(line);
    return text;
}

struct Block
{
    std::string name;
    std::vector<std::string> entities;
};

struct Content
{
    std::vector<std::string> entities;
    std::vector<Block> blocks = {};
    std::string view = "40 100|16 0|26 0|36 1"; ///< of the active viewport: height, direction
    std::string header = {};                    ///< groups of further settings
};

inline std::string layer(const char* name, int flags, int color)
{
    return group(0, "LAYER") + group(2, name) + group(70, std::to_string(flags)) + group(62, std::to_string(color)) +
           group(6, "CONTINUOUS");
}

inline std::string drawingOf(const Content& content)
{
    const std::string viewport =
        groups("0 VPORT|5 C0|100 AcDbSymbolTableRecord|100 AcDbViewportTableRecord|2 *ACTIVE") + groups(content.view);
    std::string blocks;
    int handle = 0xD0;
    const auto nextHandle = [&handle]
    {
        char text[16];
        std::snprintf(text, sizeof text, "%X", handle++);
        return std::string(text);
    };
    for (const Block& block : content.blocks)
    {
        blocks += group(0, "BLOCK") + group(5, nextHandle()) + group(8, "0") + group(2, block.name) +
                  groups("70 0|10 0.0|20 0.0|30 0.0") + records(block.entities);
        blocks += group(0, "ENDBLK") + group(5, nextHandle()) + group(8, "0");
    }
    return section("HEADER", groups("9 $ACADVER|1 AC1015|9 $HANDSEED|5 9000") + content.header) +
           section("TABLES", groups("0 TABLE|2 VPORT") + viewport + groups("0 ENDTAB|0 TABLE|2 LAYER") +
                                 layer("OFF", 0, -7) + layer("FROZEN", 1, 7) + layer("LOCKED", 4, 6) +
                                 group(0, "ENDTAB")) +
           section("BLOCKS", blocks) + section("ENTITIES", records(content.entities)) + endOfFile();
}

} // namespace support
