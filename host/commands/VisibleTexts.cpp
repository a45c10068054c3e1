// What is written in a single entity.
#include "commands/VisibleTexts.h"

#include "DbAttribute.h"
#include "DbBlockReference.h"
#include "DbDimension.h"
#include "DbMText.h"
#include "DbObjectIterator.h"
#include "DbText.h"
#include "commands/textparser/DimensionText.h"
#include "commands/textparser/SeenText.h"

namespace hostcommands
{

namespace
{

using Read = void (*)(const OdDbEntity& entity, std::vector<OdString>& texts);

void readText(const OdDbEntity& entity, std::vector<OdString>& texts)
{
    texts.push_back(textparser::seenTextOf(entity).characters);
}

void readMText(const OdDbEntity& entity, std::vector<OdString>& texts)
{
    texts.push_back(static_cast<const OdDbMText&>(entity).text());
}

void readDimension(const OdDbEntity& entity, std::vector<OdString>& texts)
{
    texts.push_back(textparser::dimensionText(static_cast<const OdDbDimension&>(entity)));
}

void readAttributes(const OdDbEntity& entity, std::vector<OdString>& texts)
{
    const auto& reference = static_cast<const OdDbBlockReference&>(entity);
    for (OdDbObjectIteratorPtr attributes = reference.attributeIterator(); !attributes->done(); attributes->step())
        if (const OdDbEntityPtr attribute = attributes->entity(); !attribute.isNull())
            readText(*attribute, texts);
}

struct ReadRow
{
    OdRxClass* (*entityClass)();
    Read read;
};

const ReadRow kReaders[] = {
    {&OdDbText::desc, readText},
    {&OdDbMText::desc, readMText},
    {&OdDbDimension::desc, readDimension},
    {&OdDbBlockReference::desc, readAttributes},
};

} // namespace

std::vector<OdString> visibleTextsOf(const OdDbEntity& entity)
{
    std::vector<OdString> texts;
    for (const ReadRow& row : kReaders)
    {
        if (!entity.isKindOf(row.entityClass()))
            continue;
        row.read(entity, texts);
        break;
    }
    return texts;
}

} // namespace hostcommands
