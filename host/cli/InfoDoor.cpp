// zolcad info: what a drawing holds, for people.
#include <cstdio>
#include <map>
#include <optional>
#include <string>

#include "DbBlockTable.h"
#include "DbBlockTableRecord.h"
#include "DbDictionary.h"
#include "DbEntity.h"
#include "DbLayerTable.h"
#include "DbLayerTableRecord.h"
#include "DbProxyEntity.h"
#include "DbProxyObject.h"
#include "cli/CommandLine.h"
#include "cli/Doors.h"
#include "cli/Drawings.h"
#include "commands/FileVersions.h"
#include "session/Session.h"

namespace cli
{

namespace
{

using Counts = std::map<std::string, std::size_t>;

void printCounts(const char* title, const Counts& counts)
{
    std::size_t sum = 0;
    for (const auto& [name, count] : counts)
        sum += count;
    std::printf("%s: %zu\n", title, sum);
    for (const auto& [name, count] : counts)
        std::printf("  %8zu  %s\n", count, name.c_str());
}

std::string typeOf(const OdDbObjectId& id)
{
    if (id.objectClass() == nullptr)
        return "(missing)";
    if (!id.objectClass()->isDerivedFrom(OdDbProxyEntity::desc()))
        return odStringToUtf8(id.objectClass()->dxfName());
    const OdDbProxyEntityPtr proxy = OdDbProxyEntity::cast(id.openObject());
    return odStringToUtf8(proxy->originalDxfName()) + " (kept as it is)";
}

// Entities by type, those of all blocks together.
Counts countEntities(OdDbDatabase& database)
{
    Counts counts;
    const OdDbBlockTablePtr blocks = OdDbBlockTable::cast(database.getBlockTableId().safeOpenObject());
    for (OdDbSymbolTableIteratorPtr walk = blocks->newIterator(); !walk->done(); walk->step())
    {
        const OdDbBlockTableRecordPtr block = OdDbBlockTableRecord::cast(walk->getRecordId().openObject());
        if (block.isNull())
            continue;
        for (OdDbObjectIteratorPtr entities = block->newIterator(); !entities->done(); entities->step())
            ++counts[typeOf(entities->objectId())];
    }
    return counts;
}

void printLayers(OdDbDatabase& database)
{
    const OdDbLayerTablePtr layers = OdDbLayerTable::cast(database.getLayerTableId().safeOpenObject());
    std::vector<std::string> lines;
    for (OdDbSymbolTableIteratorPtr walk = layers->newIterator(); !walk->done(); walk->step())
    {
        const OdDbLayerTableRecordPtr layer = OdDbLayerTableRecord::cast(walk->getRecordId().openObject());
        if (!layer.isNull())
            lines.push_back(odStringToUtf8(layer->getName()) + (layer->isOff() ? " (off)" : "") +
                            (layer->isFrozen() ? " (frozen)" : ""));
    }
    std::printf("Layers: %zu\n", lines.size());
    for (const std::string& line : lines)
        std::printf("  %s\n", line.c_str());
}

// The objects of unknown classes that lie in the drawing's dictionaries, by the dictionary.
void countProxies(const OdDbObjectId& dictionaryId, const std::string& path, int depth, Counts& counts)
{
    constexpr int kDeepest = 32; // dictionaries of a damaged drawing may hold each other
    const OdDbDictionaryPtr dictionary = OdDbDictionary::cast(dictionaryId.openObject());
    if (dictionary.isNull() || depth > kDeepest)
        return;
    for (OdDbDictionaryIteratorPtr walk = dictionary->newIterator(); !walk->done(); walk->next())
    {
        OdRxClass* const entryClass = walk->objectId().objectClass();
        if (entryClass == nullptr)
            continue;
        if (entryClass->isDerivedFrom(OdDbDictionary::desc()))
            countProxies(walk->objectId(), path + '/' + odStringToUtf8(walk->name()), depth + 1, counts);
        else if (entryClass->isDerivedFrom(OdDbProxyObject::desc()))
        {
            const OdDbProxyObjectPtr proxy = OdDbProxyObject::cast(walk->objectId().openObject());
            ++counts[odStringToUtf8(proxy->originalDxfName()) + " in " + path];
        }
    }
}

void printProxies(OdDbDatabase& database)
{
    Counts counts;
    countProxies(database.getNamedObjectsDictionaryId(), "", 0, counts);
    printCounts("Objects of unknown classes, kept as they are", counts);
}

// The names as a command answers them, which is what every other part of the program goes by.
void printLabels(session::OpenDrawing& drawing)
{
    session::Session session(drawing);
    const session::Response& all = session.respond(R"({"command":"BSYSTEMLABELGETALLNAMES"})");
    if (all.failure)
    {
        std::printf("Labels: cannot be listed: %s\n", odStringToUtf8(all.failure->text).c_str());
        return;
    }
    const OdString names =
        all.result.isNull() || all.result->next().isNull() ? OdString(L"[]") : all.result->next()->getString();
    rapidjson::Document list;
    list.Parse(odStringToUtf8(names).c_str());
    std::printf("Labels: %u\n", list.IsArray() ? list.Size() : 0);
    for (rapidjson::SizeType i = 0; list.IsArray() && i < list.Size(); ++i)
        std::printf("  %s\n", list[i].IsString() ? list[i].GetString() : "");
}

void printVersion(OdDbDatabase& database, const std::string& file)
{
    const OdDb::DwgVersion version = database.originalFileVersion();
    std::printf("%s\n", file.c_str());
    std::printf("Version: %s, %s\n", odStringToUtf8(hostcommands::describeVersion(version)).c_str(),
                database.originalFileType() == OdDb::kDxb ? "binary" : "text");
    if (hostcommands::isTooOldForLabels(version))
        std::printf("  This version has no place for labels: the drawing will be saved as R2018 (AC1032).\n");
}

void printRecovery(OdDbDatabase& database)
{
    const OdArray<OdString>& report = database.recoveryReport();
    std::printf("Mended while reading: %u\n", static_cast<unsigned>(report.size()));
    for (const OdString& line : report)
        std::printf("  %s\n", odStringToUtf8(line).c_str());
}

} // namespace

int describeDrawing(const std::string& drawingFile, session::Plugin plugin)
{
    const session::HostServices services(plugin);
    std::optional<session::OpenDrawing> drawing;
    openDrawing(drawing, drawingFile);
    OdDbDatabase& database = drawing->database();
    printVersion(database, drawingFile);
    printCounts("Entities", countEntities(database));
    printLayers(database);
    if (plugin == session::Plugin::kLoaded)
        printLabels(*drawing);
    else
        std::printf("Labels: not looked for without the plug-in\n");
    printProxies(database);
    printRecovery(database);
    return kSuccess;
}

} // namespace cli
