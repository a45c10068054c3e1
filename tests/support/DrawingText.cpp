// Small drawings as text.
#include "DrawingText.h"

#include <vector>

namespace support
{
namespace
{

std::string point(int code, double x, double y)
{
    return group(code, std::to_string(x)) + group(code + 10, std::to_string(y)) + group(code + 20, "0.0");
}

// ---- R2000 and later
// ---------------------------------------------------------------------------------------------------

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
    return group(0, "TABLE") + group(2, name) + group(5, handle) + group(330, "0") + group(100, "AcDbSymbolTable") +
           group(70, "9") + std::string(data) + std::string(records) + group(0, "ENDTAB");
}

std::string linetype(std::string_view handle, std::string_view name)
{
    return record("LTYPE", handle, "5", "AcDbLinetypeTableRecord", name,
                  group(70, "0") + group(3, "") + group(72, "65") + group(73, "0") + group(40, "0.0"));
}

std::string layer(std::string_view handle, std::string_view name, std::string_view data = {})
{
    return record("LAYER", handle, "2", "AcDbLayerTableRecord", name,
                  group(70, "0") + group(62, "7") + group(6, "Continuous") + std::string(data));
}

std::string tables()
{
    const std::string noFlags = group(70, "0");
    return table("VPORT", "8",
                 record("VPORT", "29", "8", "AcDbViewportTableRecord", "*Active",
                        noFlags + group(40, "297.0") + group(41, "1.5"))) +
           table("LTYPE", "5", linetype("14", "ByBlock") + linetype("15", "ByLayer") + linetype("16", "Continuous")) +
           table("LAYER", "2",
                 layer("10", "0") + layer("30", "W\\U+00E4nde", group(1001, "TEST") + group(1000, "on a layer"))) +
           table("STYLE", "3",
                 record("STYLE", "11", "3", "AcDbTextStyleTableRecord", "Standard",
                        noFlags + group(40, "0.0") + group(3, "txt") + group(4, ""))) +
           table("VIEW", "6", "") + table("UCS", "7", "") +
           table("APPID", "9",
                 record("APPID", "12", "9", "AcDbRegAppTableRecord", "ACAD", noFlags) +
                     record("APPID", "13", "9", "AcDbRegAppTableRecord", "TEST", noFlags)) +
           table("DIMSTYLE", "A",
                 record("DIMSTYLE", "27", "A", "AcDbDimStyleTableRecord", "Standard",
                        noFlags + group(5, "") + group(340, "11")),
                 group(100, "AcDbDimStyleTable") + group(71, "1") + group(340, "27")) +
           table(
               "BLOCK_RECORD", "1",
               record("BLOCK_RECORD", kModelBlock, "1", "AcDbBlockTableRecord", "*Model_Space", group(340, "22")) +
                   record("BLOCK_RECORD", kPaperBlock, "1", "AcDbBlockTableRecord", "*Paper_Space", group(340, "1E")) +
                   record("BLOCK_RECORD", kPartBlock, "1", "AcDbBlockTableRecord", "Part",
                          group(340, "0") + group(102, "{BLKREFS") + group(331, "53") + group(102, "}")));
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
    return group(0, "LINE") + group(5, "50") + group(102, "{FOREIGN") + group(40, "1.5") + group(102, "}") +
           group(102, "{ACAD_REACTORS") + group(330, "C") + group(330, "60") + group(102, "}") +
           group(102, "{ACAD_XDICTIONARY") + group(360, "61") + group(102, "}") + group(330, kModelBlock) +
           group(100, "AcDbEntity") + group(8, "W\\U+00E4nde") + group(62, "1") + group(100, "AcDbLine") +
           point(10, 0, 0) + point(11, 10, 0) + group(1001, "TEST") + group(1000, "text") + group(1002, "{") +
           group(1040, "2.5") + group(1070, "7") + group(1071, "70000") + group(1005, "10") + point(1010, 1, 2) +
           group(1004, "00FF10") + group(1002, "}");
}

std::string entities()
{
    return fullLine() +
           entity("TEXT", "51", kModelBlock, "AcDbText",
                  point(10, 1, 1) + group(40, "2.5") + group(1, "^J a^ b \\U+D83D\\U+DE00 ") + group(100, "AcDbText")) +
           entity("INSERT", "53", kModelBlock, "AcDbBlockReference",
                  group(66, "1") + group(2, "Part") + point(10, 5, 5)) +
           entity("ATTRIB", "54", "53", "AcDbText",
                  point(10, 5, 5) + group(40, "1.0") + group(1, "value") + group(100, "AcDbAttribute") +
                      group(2, "TAG") + group(70, "0")) +
           entity("SEQEND", "55", "53", "AcDbEntity", "") +
           entity("POLYLINE", "56", kModelBlock, "AcDb2dPolyline", group(66, "1") + point(10, 0, 0)) +
           entity("VERTEX", "57", "56", "AcDbVertex", group(100, "AcDb2dVertex") + point(10, 1, 1)) +
           entity("VERTEX", "58", "56", "AcDbVertex", group(100, "AcDb2dVertex") + point(10, 2, 1)) +
           entity("SEQEND", "59", "56", "AcDbEntity", "") +
           entity("FANTASY", "5A", kModelBlock, "AcDbFantasy", group(90, "-5") + group(310, "0102") + group(290, "1")) +
           entity("LINE", "5B", kPaperBlock, "AcDbLine", point(10, 0, 0) + point(11, 1, 1));
}

std::string dictionary(std::string_view handle, std::string_view owner,
                       const std::vector<std::pair<std::string_view, std::string_view>>& entries)
{
    std::string text = head("DICTIONARY", handle, owner) + group(100, "AcDbDictionary") + group(281, "1");
    for (const auto& [name, object] : entries)
        text += group(3, name) + group(350, object);
    return text;
}

std::string layout(std::string_view handle, std::string_view name, std::string_view blockHandle)
{
    return head("LAYOUT", handle, "1A") + group(100, "AcDbPlotSettings") + group(1, "") + group(100, "AcDbLayout") +
           group(1, name) + group(70, "1") + group(71, "0") + group(330, blockHandle);
}

std::string objects()
{
    return dictionary("C", "0", {{"ACAD_GROUP", "D"}, {"ACAD_LAYOUT", "1A"}, {"FANTASIES", "60"}}) +
           dictionary("D", "C", {}) + dictionary("1A", "C", {{"Model", "22"}, {"Layout1", "1E"}}) +
           layout("22", "Model", kModelBlock) + layout("1E", "Layout1", kPaperBlock) +
           dictionary("60", "C", {{"ONE", "62"}, {"GONE", "7777"}}) + dictionary("61", "50", {{"DATA", "63"}}) +
           head("FANTASYOBJECT", "62", "60") + group(100, "AcDbFantasyObject") + group(1, "kept") + group(340, "50") +
           head("XRECORD", "63", "61") + group(100, "AcDbXrecord") + group(280, "1") + group(1, "data") +
           group(102, "{ANY") + group(330, "50") + group(102, "}") + group(160, "12345678901");
}

} // namespace

std::string drawing(std::string_view version)
{
    const std::string classes = group(0, "CLASS") + group(1, "FANTASYOBJECT") + group(2, "AcDbFantasyObject") +
                                group(3, "Fantasy") + group(90, "0") + group(280, "1") + group(281, "0");
    return headerSection(version) + section("CLASSES", classes) + section("TABLES", tables()) +
           section("BLOCKS", blocks()) + section("ENTITIES", entities()) + section("OBJECTS", objects()) +
           section("STRANGE", group(0, "THING") + group(1, "kept") + group(40, "1.25")) + endOfFile();
}

// ---- R12
// ---------------------------------------------------------------------------------------------------------------

std::string oldLine(std::string_view handle, double x, double y)
{
    return group(0, "LINE") + (handle.empty() ? "" : group(5, handle)) + group(8, "0") + point(10, x, y) +
           point(11, x + 1, y);
}

std::string oldDrawing()
{
    const std::string layers = group(0, "TABLE") + group(2, "LAYER") + group(70, "1") + group(0, "LAYER") +
                               group(2, "WALL") + group(70, "0") + group(62, "3") + group(6, "CONTINUOUS") +
                               group(0, "ENDTAB");
    const std::string blockOfLine = group(0, "BLOCK") + group(8, "0") + group(2, "PART") + group(70, "2") +
                                    point(10, 0, 0) + group(3, "PART") + oldLine("", 0, 0) + group(0, "ENDBLK") +
                                    group(8, "0");
    const std::string reference = group(0, "INSERT") + group(8, "WALL") + group(66, "1") + group(2, "PART") +
                                  point(10, 3, 4) + group(0, "ATTRIB") + group(8, "0") + point(10, 3, 4) +
                                  group(40, "1.0") + group(1, "value") + group(2, "TAG") + group(70, "0") +
                                  group(0, "SEQEND") + group(8, "0");
    const std::string polyline = group(0, "POLYLINE") + group(8, "WALL") + group(66, "1") + point(10, 0, 0) +
                                 group(0, "VERTEX") + group(8, "WALL") + point(10, 0, 0) + group(0, "VERTEX") +
                                 group(8, "WALL") + point(10, 9, 9) + group(0, "SEQEND") + group(8, "WALL");
    const std::string text =
        group(0, "TEXT") + group(8, "0") + group(67, "1") + point(10, 0, 0) + group(40, "2.5") + group(1, "old text");
    return headerSection("AC1009") + section("TABLES", layers) + section("BLOCKS", blockOfLine) +
           section("ENTITIES", oldLine("", 1, 1) + reference + polyline + text) + endOfFile();
}

} // namespace support
