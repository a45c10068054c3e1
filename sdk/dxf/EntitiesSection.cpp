// ENTITIES: what stands in the model and in the paper layout that was shown last.
#include "RecordsAhead.h"
#include "Tables.h"

namespace dxf
{

void readEntitiesSection(Reading& reading)
{
    makeSpaces(reading);
    BlockContents contents(reading);
    reading.goToFirstRecord();
    RecordsAhead ahead(reading);
    while (reading.inSection())
        if (!ahead.placePart(contents))
            contents.readIntoItsBlock();
    contents.end();
}

} // namespace dxf
