// ENTITIES: what stands in the model and in the paper layout that was shown last.
#include "BlockContents.h"
#include "Tables.h"

namespace dxf
{

void readEntitiesSection(Reading& reading)
{
    makeSpaces(reading);
    BlockContents contents(reading);
    reading.goToFirstRecord();
    while (reading.inSection())
        contents.readIntoItsBlock();
    contents.end();
}

} // namespace dxf
