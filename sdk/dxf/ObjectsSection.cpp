// OBJECTS: dictionaries and everything that is no entity. The first object is the named-objects dictionary.
#include "Reading.h"

namespace dxf
{

void readObjectsSection(Reading& reading)
{
    reading.goToFirstRecord();
    while (reading.inSection())
    {
        reading.records.read(reading.record);
        OdDbStub* const object = reading.objects.loadObject(reading.record, nullptr);
        const bool isRoot = reading.record.name == "DICTIONARY" && reading.record.owner == nullptr;
        if (isRoot && reading.database.namedObjects == nullptr)
            reading.database.namedObjects = object;
    }
}

} // namespace dxf
