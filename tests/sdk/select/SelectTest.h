// What the tests of selecting share: a drawing from short lines, and selections in it as lists of handles.
#pragma once

#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "DbDatabase.h"
#include "DbSSet.h"
#include "RxInit.h"
#include "support/DrawingText.h"
#include "support/TemporaryFolder.h"

namespace selecttest
{

class SdkEnvironment
{
public:
    SdkEnvironment() { odInitialize(); }
};

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
    std::string text = support::group(0, type) + support::group(5, handle) + support::group(100, "AcDbEntity") +
                       support::group(8, layer);
    while (!line.empty())
    {
        const int code = std::stoi(word(' '));
        text += support::group(code, word('|'));
    }
    return text;
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
};

inline std::string layer(const char* name, int flags, int color)
{
    return support::group(0, "LAYER") + support::group(2, name) + support::group(70, std::to_string(flags)) +
           support::group(62, std::to_string(color)) + support::group(6, "CONTINUOUS");
}

inline std::string drawingOf(const Content& content)
{
    using support::group;
    std::string viewport = group(0, "VPORT") + group(5, "C0") + group(100, "AcDbSymbolTableRecord") +
                           group(100, "AcDbViewportTableRecord") + group(2, "*ACTIVE");
    std::string_view view = content.view;
    while (!view.empty())
    {
        const std::string_view item = view.substr(0, view.find('|'));
        viewport += group(std::atoi(item.data()), item.substr(item.find(' ') + 1));
        view.remove_prefix(std::min(item.size() + 1, view.size()));
    }
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
        blocks += group(0, "BLOCK") + group(5, nextHandle()) + group(8, "0") + group(2, block.name) + group(70, "0") +
                  group(10, "0.0") + group(20, "0.0") + group(30, "0.0") + records(block.entities);
        blocks += group(0, "ENDBLK") + group(5, nextHandle()) + group(8, "0");
    }
    return support::section("HEADER",
                            group(9, "$ACADVER") + group(1, "AC1015") + group(9, "$HANDSEED") + group(5, "9000")) +
           support::section("TABLES", group(0, "TABLE") + group(2, "VPORT") + viewport + group(0, "ENDTAB") +
                                          group(0, "TABLE") + group(2, "LAYER") + layer("OFF", 0, -7) +
                                          layer("FROZEN", 1, 7) + layer("LOCKED", 4, 7) + group(0, "ENDTAB")) +
           support::section("BLOCKS", blocks) + support::section("ENTITIES", records(content.entities)) +
           support::endOfFile();
}

/// A drawing in memory.
class Drawing
{
public:
    explicit Drawing(const Content& content)
    {
        static const SdkEnvironment environment;
        std::ofstream(m_folder.path("drawing.dxf")) << drawingOf(content);
        m_database = OdDbDatabase::createObject();
        m_database->readFile(odUtf8ToString(m_folder.path("drawing.dxf")));
    }

    OdDbDatabase& database() { return *m_database; }
    OdDbObjectId id(const char* handle) const
    {
        OdDbHandle parsed;
        EXPECT_TRUE(OdDbHandle::parse(odUtf8ToString(handle).view(), parsed));
        return m_database->getOdDbObjectId(parsed);
    }

    /// "A1 A2": the handles of what is selected, in order.
    std::string select(OdDbVisualSelection::Mode mode, const std::vector<OdGePoint3d>& points,
                       const OdRxObject* filter = nullptr) const
    {
        const OdDbSelectionSetPtr set =
            OdDbSelectionSet::select(m_database->activeViewportId(), static_cast<int>(points.size()), points.data(),
                                     mode, OdDbVisualSelection::kDisableSubents, filter);
        std::string handles;
        const OdDbObjectIdArray ids = set->objectIdArray();
        for (const OdDbObjectId& id : ids)
            handles += (handles.empty() ? "" : " ") + odStringToUtf8(id.getHandle().ascii());
        return handles;
    }

private:
    support::TemporaryFolder m_folder;
    OdDbDatabasePtr m_database;
};

inline OdGePoint3d at(double x, double y)
{
    return {x, y, 0.0};
}

} // namespace selecttest
