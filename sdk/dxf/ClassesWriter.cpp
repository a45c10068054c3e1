// CLASSES as they are written: those that the file had, and those of applications whose objects are in the drawing.
// ClassesSection.cpp draws them.
#include "Writing.h"

#include "DbEntity.h"

#include <algorithm>
#include <map>
#include <unordered_map>

namespace dxf
{
namespace
{

// How many objects of one name the drawing has, and their class when it is no proxy.
struct Use
{
    std::int64_t count = 0;
    const OdRxClass* runtimeClass = nullptr;
};
using Uses = std::map<std::string, Use, std::less<>>;

// The objects of one class have their name from one place.
Uses countUses(Writing& writing)
{
    Uses uses;
    std::unordered_map<const char*, Use*> known;
    writing.database.stubs.visit(
        [&](const OdDbStub& stub)
        {
            if (stub.isErased())
                return;
            const std::string_view name = writing.objects.nameOf(*stub.object);
            Use*& use = known[name.data()];
            if (use == nullptr)
                use = &uses[std::string(name)];
            use->runtimeClass = stub.object->isA();
            ++use->count;
        });
    return uses;
}

void writeClass(Writing& writing, const oddb::FileClass& fileClass, std::int64_t count)
{
    GroupPrinter& groups = writing.groups;
    groups.text(0, "CLASS");
    groups.text(1, fileClass.dxfName);
    groups.text(2, fileClass.className);
    groups.text(3, fileClass.application);
    groups.integer(90, fileClass.proxyFlags);
    if (writing.version >= OdDb::vAC18)
        groups.integer(91, count);
    groups.integer(280, fileClass.wasProxy);
    groups.integer(281, fileClass.isEntity);
}

// Classes of the SDK's own that readers expect to be told of. All others they know.
struct OptionalClass
{
    const char* dxfName;
    const char* className;
    const char* application;
    int proxyFlags;
    bool isEntity;
};

constexpr OptionalClass kOptionalClasses[] = {
    {"IMAGE", "AcDbRasterImage", "ISM", 127, true},
    {"IMAGEDEF", "AcDbRasterImageDef", "ISM", 0, false},
    {"IMAGEDEF_REACTOR", "AcDbRasterImageDefReactor", "ISM", 1, false},
    {"RASTERVARIABLES", "AcDbRasterVariables", "ISM", 0, false},
    {"SPATIAL_FILTER", "AcDbSpatialFilter", "ObjectDBX Classes", 0, false},
};

const OptionalClass* findOptional(const std::string& name)
{
    const auto found = std::find_if(std::begin(kOptionalClasses), std::end(kOptionalClasses),
                                    [&](const OptionalClass& row) { return row.dxfName == name; });
    return found == std::end(kOptionalClasses) ? nullptr : found;
}

// The classes of applications file themselves.
bool isOfApplication(const Use& use)
{
    return !use.runtimeClass->appName().isEmpty();
}

oddb::FileClass describe(const OptionalClass& row)
{
    oddb::FileClass fileClass;
    fileClass.dxfName = row.dxfName;
    fileClass.className = row.className;
    fileClass.application = row.application;
    fileClass.proxyFlags = row.proxyFlags;
    fileClass.isEntity = row.isEntity;
    return fileClass;
}

oddb::FileClass describe(const std::string& name, const OdRxClass& runtimeClass)
{
    oddb::FileClass fileClass;
    fileClass.dxfName = name;
    fileClass.className = odStringToUtf8(runtimeClass.name());
    fileClass.application = odStringToUtf8(runtimeClass.appName());
    fileClass.proxyFlags = static_cast<int>(runtimeClass.proxyFlags());
    fileClass.isEntity = runtimeClass.isDerivedFrom(OdDbEntity::desc());
    return fileClass;
}

} // namespace

void writeClassesSection(Writing& writing)
{
    const Uses uses = countUses(writing);
    for (const auto& fileClass : writing.database.fileClasses)
    {
        const auto use = uses.find(fileClass->dxfName);
        writeClass(writing, *fileClass, use != uses.end() ? use->second.count : 0);
    }
    for (const auto& [name, use] : uses)
    {
        if (writing.database.fileClass(name) != nullptr)
            continue;
        if (isOfApplication(use))
            writeClass(writing, describe(name, *use.runtimeClass), use.count);
        else if (const OptionalClass* optional = findOptional(name))
            writeClass(writing, describe(*optional), use.count);
    }
}

} // namespace dxf
