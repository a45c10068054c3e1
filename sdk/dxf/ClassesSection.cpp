// CLASSES: what applications have said of their classes.
//
//   0 CLASS
//   1 name in DXF files   2 name of the class   3 application
//   90 proxy flags   91 number of objects (since R2004)   280 was a proxy   281 is an entity
#include "Reading.h"

namespace dxf
{
namespace
{

bool isClass(const Record& record)
{
    return record.name == "CLASS" && !record.text(1).empty();
}

void addClass(Reading& reading)
{
    const Record& record = reading.record;
    auto fileClass = std::make_unique<oddb::FileClass>();
    fileClass->dxfName = record.text(1);
    fileClass->className = record.text(2);
    fileClass->application = record.text(3);
    fileClass->proxyFlags = static_cast<int>(record.integer(90));
    fileClass->instanceCount = static_cast<int>(record.integer(91, -1));
    fileClass->wasProxy = record.integer(280) != 0;
    fileClass->isEntity = record.integer(281) != 0;
    reading.database.fileClasses.push_back(std::move(fileClass));
}

} // namespace

void readClassesSection(Reading& reading)
{
    reading.goToFirstRecord();
    while (reading.inSection())
    {
        reading.records.read(reading.record);
        if (isClass(reading.record))
            addClass(reading);
        else
            reading.noteFault("a record of the classes that is no class is passed over");
    }
}

} // namespace dxf
