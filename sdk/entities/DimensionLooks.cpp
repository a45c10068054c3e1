// Implements the looks of dimensions.
#include "entities/DimensionLooks.h"

#include "DbBlockTableRecord.h"
#include "DbDatabase.h"
#include "DbDimStyleTableRecord.h"
#include "db/ObjectCore.h"
#include "entities/BlockContents.h"

namespace dimensionlooks
{

namespace
{

enum Code
{
    kScale = 40,
    kArrowSize = 41,
    kLineColor = 176,
    kLeaderArrow = 341
};

struct Settings
{
    double scale = 1.0;
    double arrowSize = 2.5;
    int lineColor = 0;
    OdDbStub* leaderArrow = nullptr;

    void take(int code, double number, OdDbStub* stub)
    {
        switch (code)
        {
        case kScale:
            scale = number;
            break;
        case kArrowSize:
            arrowSize = number;
            break;
        case kLineColor:
            lineColor = static_cast<int>(number);
            break;
        case kLeaderArrow:
            leaderArrow = stub;
            break;
        default:
            break;
        }
    }
};

void takeStyle(Settings& settings, OdDbStub* style)
{
    const OdDbDimStyleTableRecordPtr record = OdDbDimStyleTableRecord::cast(OdDbObjectId(style).openObject());
    if (record.isNull())
        return;
    for (const oddb::GroupView& group : oddb::ObjectCore::groups(*record))
        settings.take(group.code(), group.real(), group.stub());
}

void takeOverrides(Settings& settings, const OdDbEntity& object)
{
    if (!oddb::ObjectCore::extras(object))
        return;
    bool isInside = false;
    int code = 0;
    for (OdResBufPtr element = object.xData(L"ACAD"); !element.isNull(); element = element->next())
    {
        const int kind = element->restype();
        if (kind == 1000)
            isInside = element->getString() == L"DSTYLE";
        else if (!isInside || kind == 1002)
            continue;
        else if (code == 0)
            code = kind == 1070 ? element->getInt16() : 0;
        else
        {
            const double number = kind == 1040 ? element->getDouble() : kind == 1070 ? element->getInt16() : 0.0;
            OdDbStub* stub = nullptr;
            if (kind == 1005 && object.database())
                stub = object.database()->getOdDbObjectId(element->getHandle());
            settings.take(code, number, stub);
            code = 0;
        }
    }
}

/// A block that nothing is drawn in stands for the filled triangle too.
bool hasEntities(OdDbStub* block)
{
    bool any = false;
    return drawing::visitBlock(block, [&any](const OdDbEntity&) { return !(any = true); }) && any;
}

} // namespace

Looks looksOf(const OdDbEntity& object, OdDbStub* style)
{
    Settings settings;
    takeStyle(settings, style);
    takeOverrides(settings, object);
    Looks looks;
    looks.arrowSize = settings.arrowSize * (settings.scale > 0.0 ? settings.scale : 1.0);
    looks.leaderArrow = settings.leaderArrow && hasEntities(settings.leaderArrow) ? settings.leaderArrow : nullptr;
    looks.lineColor =
        settings.lineColor > 0 && settings.lineColor < 256 ? static_cast<OdUInt16>(settings.lineColor) : 0;
    return looks;
}

} // namespace dimensionlooks
