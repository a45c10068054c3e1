// Small drawings as text.
#include "DrawingText.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

namespace support
{
namespace
{

std::string point(int code, double x, double y)
{
    return group(code, std::to_string(x)) + group(code + 10, std::to_string(y)) + group(code + 20, "0.0");
}

// ---- R2000 and later ------------------------------------------------------------------------------------------------

constexpr std::string_view kModelBlock = "1F";
constexpr std::string_view kPaperBlock = "1B";
constexpr std::string_view kPartBlock = "40";

// 0 name 5 handle 330 owner
std::string head(std::string_view name, std::string_view handle, std::string_view owner)
{
    return group(0, name) + group(name == "DIMSTYLE" ? 105 : 5, handle) + group(330, owner);
}

std::string record(std::string_view table, std::string_view handle, std::string_view owner, std::string_view marker,
                   std::string_view name, std::string_view data = {})
{
    return head(table, handle, owner) + group(100, "AcDbSymbolTableRecord") + group(100, marker) + group(2, name) +
           std::string(data);
}

std::string table(std::string_view name, std::string_view handle, std::string_view records, std::string_view data = {})
{
    return group(0, "TABLE") + group(2, name) + group(5, handle) + groups("330 0|100 AcDbSymbolTable|70 9") +
           std::string(data) + std::string(records) + group(0, "ENDTAB");
}

std::string linetype(std::string_view handle, std::string_view name)
{
    return record("LTYPE", handle, "5", "AcDbLinetypeTableRecord", name, groups("70 0|3 |72 65|73 0|40 0.0"));
}

std::string layer(std::string_view handle, std::string_view name, std::string_view data = {})
{
    return record("LAYER", handle, "2", "AcDbLayerTableRecord", name,
                  groups("70 0|62 7|6 Continuous") + std::string(data));
}

std::string tables()
{
    const std::string noFlags = group(70, "0");
    return table(
               "VPORT", "8",
               record("VPORT", "29", "8", "AcDbViewportTableRecord", "*Active", noFlags + groups("40 297.0|41 1.5"))) +
           table("LTYPE", "5", linetype("14", "ByBlock") + linetype("15", "ByLayer") + linetype("16", "Continuous")) +
           table("LAYER", "2", layer("10", "0") + layer("30", "W\\U+00E4nde", groups("1001 TEST|1000 on a layer"))) +
           table("STYLE", "3",
                 record("STYLE", "11", "3", "AcDbTextStyleTableRecord", "Standard",
                        noFlags + groups("40 0.0|3 txt|4 "))) +
           table("VIEW", "6", "") + table("UCS", "7", "") +
           table("APPID", "9",
                 record("APPID", "12", "9", "AcDbRegAppTableRecord", "ACAD", noFlags) +
                     record("APPID", "13", "9", "AcDbRegAppTableRecord", "TEST", noFlags)) +
           table("DIMSTYLE", "A",
                 record("DIMSTYLE", "27", "A", "AcDbDimStyleTableRecord", "Standard", noFlags + groups("5 |340 11")),
                 groups("100 AcDbDimStyleTable|71 1|340 27")) +
           table(
               "BLOCK_RECORD", "1",
               record("BLOCK_RECORD", kModelBlock, "1", "AcDbBlockTableRecord", "*Model_Space", group(340, "22")) +
                   record("BLOCK_RECORD", kPaperBlock, "1", "AcDbBlockTableRecord", "*Paper_Space", group(340, "1E")) +
                   record("BLOCK_RECORD", kPartBlock, "1", "AcDbBlockTableRecord", "Part",
                          groups("340 0|102 {BLKREFS|331 53|102 }")));
}

std::string entity(std::string_view name, std::string_view handle, std::string_view owner, std::string_view marker,
                   std::string_view data, std::string_view layerName = "0")
{
    return head(name, handle, owner) + group(100, "AcDbEntity") + group(8, layerName) + group(100, marker) +
           std::string(data);
}

std::string block(std::string_view handle, std::string_view owner, std::string_view name, std::string_view entities)
{
    return entity("BLOCK", handle, owner, "AcDbBlockBegin",
                  group(2, name) + group(70, "0") + point(10, 0, 0) + group(3, name) + group(1, "")) +
           std::string(entities) + entity("ENDBLK", std::string(handle) + "1", owner, "AcDbBlockEnd", "");
}

std::string line(std::string_view handle, std::string_view owner)
{
    return entity("LINE", handle, owner, "AcDbLine", point(10, 1, 2) + point(11, 3.5, -4));
}

std::string blocks()
{
    return block("20", kModelBlock, "*Model_Space", "") + block("21", kPaperBlock, "*Paper_Space", "") +
           block("41", kPartBlock, "Part", line("42", kPartBlock));
}

// A line with everything that any object may have.
std::string fullLine()
{
    return groups("0 LINE|5 50|102 {FOREIGN|40 1.5|102 }|102 {ACAD_REACTORS|330 C|330 60|102 }|102 "
                  "{ACAD_XDICTIONARY|360 61|102 }") +
           group(330, kModelBlock) + groups("100 AcDbEntity|8 W\\U+00E4nde|62 1|100 AcDbLine") + point(10, 0, 0) +
           point(11, 10, 0) + groups("1001 TEST|1000 text|1002 {|1040 2.5|1070 7|1071 70000|1005 10") +
           point(1010, 1, 2) + groups("1004 00FF10|1002 }");
}

std::string entities()
{
    return fullLine() +
           entity("TEXT", "51", kModelBlock, "AcDbText",
                  point(10, 1, 1) + groups("40 2.5|1 ^J a^ b \\U+D83D\\U+DE00 |100 AcDbText")) +
           entity("INSERT", "53", kModelBlock, "AcDbBlockReference", groups("66 1|2 Part") + point(10, 5, 5)) +
           entity("ATTRIB", "54", "53", "AcDbText",
                  point(10, 5, 5) + groups("40 1.0|1 value|100 AcDbAttribute|2 TAG|70 0")) +
           entity("SEQEND", "55", "53", "AcDbEntity", "") +
           entity("POLYLINE", "56", kModelBlock, "AcDb2dPolyline", group(66, "1") + point(10, 0, 0)) +
           entity("VERTEX", "57", "56", "AcDbVertex", group(100, "AcDb2dVertex") + point(10, 1, 1)) +
           entity("VERTEX", "58", "56", "AcDbVertex", group(100, "AcDb2dVertex") + point(10, 2, 1)) +
           entity("SEQEND", "59", "56", "AcDbEntity", "") +
           entity("FANTASY", "5A", kModelBlock, "AcDbFantasy", groups("90 -5|310 0102|290 1")) +
           entity("LINE", "5B", kPaperBlock, "AcDbLine", point(10, 0, 0) + point(11, 1, 1));
}

std::string dictionary(std::string_view handle, std::string_view owner,
                       const std::vector<std::pair<std::string_view, std::string_view>>& entries)
{
    std::string text = head("DICTIONARY", handle, owner) + groups("100 AcDbDictionary|281 1");
    for (const auto& [name, object] : entries)
        text += group(3, name) + group(350, object);
    return text;
}

std::string layout(std::string_view handle, std::string_view name, std::string_view blockHandle)
{
    return head("LAYOUT", handle, "1A") + groups("100 AcDbPlotSettings|1 |100 AcDbLayout") + group(1, name) +
           groups("70 1|71 0") + group(330, blockHandle);
}

std::string objects()
{
    return dictionary("C", "0", {{"ACAD_GROUP", "D"}, {"ACAD_LAYOUT", "1A"}, {"FANTASIES", "60"}}) +
           dictionary("D", "C", {}) + dictionary("1A", "C", {{"Model", "22"}, {"Layout1", "1E"}}) +
           layout("22", "Model", kModelBlock) + layout("1E", "Layout1", kPaperBlock) +
           dictionary("60", "C", {{"ONE", "62"}, {"GONE", "7777"}}) + dictionary("61", "50", {{"DATA", "63"}}) +
           head("FANTASYOBJECT", "62", "60") + groups("100 AcDbFantasyObject|1 kept|340 50") +
           head("XRECORD", "63", "61") + groups("100 AcDbXrecord|280 1|1 data|102 {ANY|330 50|102 }|160 12345678901");
}

} // namespace

std::string groups(std::string_view text)
{
    std::string all;
    while (!text.empty())
    {
        const std::string_view item = text.substr(0, text.find('|'));
        all += group(std::atoi(item.data()), item.substr(item.find(' ') + 1));
        text.remove_prefix(std::min(item.size() + 1, text.size()));
    }
    return all;
}

std::string drawing(std::string_view version)
{
    const std::string classes = groups("0 CLASS|1 FANTASYOBJECT|2 AcDbFantasyObject|3 Fantasy|90 0|280 1|281 0");
    return headerSection(version) + section("CLASSES", classes) + section("TABLES", tables()) +
           section("BLOCKS", blocks()) + section("ENTITIES", entities()) + section("OBJECTS", objects()) +
           section("STRANGE", groups("0 THING|1 kept|40 1.25")) + endOfFile();
}

// ---- R12 ------------------------------------------------------------------------------------------------------------

std::string oldLine(std::string_view handle, double x, double y)
{
    return group(0, "LINE") + (handle.empty() ? "" : group(5, handle)) + group(8, "0") + point(10, x, y) +
           point(11, x + 1, y);
}

std::string oldDrawing()
{
    const std::string layers = groups("0 TABLE|2 LAYER|70 1|0 LAYER|2 WALL|70 0|62 3|6 CONTINUOUS|0 ENDTAB");
    const std::string blockOfLine = groups("0 BLOCK|8 0|2 PART|70 2") + point(10, 0, 0) + group(3, "PART") +
                                    oldLine("", 0, 0) + groups("0 ENDBLK|8 0");
    const std::string reference = groups("0 INSERT|8 WALL|66 1|2 PART") + point(10, 3, 4) + groups("0 ATTRIB|8 0") +
                                  point(10, 3, 4) + groups("40 1.0|1 value|2 TAG|70 0|0 SEQEND|8 0");
    const std::string polyline = groups("0 POLYLINE|8 WALL|66 1") + point(10, 0, 0) + groups("0 VERTEX|8 WALL") +
                                 point(10, 0, 0) + groups("0 VERTEX|8 WALL") + point(10, 9, 9) +
                                 groups("0 SEQEND|8 WALL");
    const std::string text = groups("0 TEXT|8 0|67 1") + point(10, 0, 0) + groups("40 2.5|1 old text");
    return headerSection("AC1009") + section("TABLES", layers) + section("BLOCKS", blockOfLine) +
           section("ENTITIES", oldLine("", 1, 1) + reference + polyline + text) + endOfFile();
}

} // namespace support
