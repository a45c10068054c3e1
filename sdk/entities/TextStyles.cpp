// Implements the reading of text styles. Drawings have few styles and many texts, so that the last ones are kept,
// beside the groups that they were read from: as these never change, other groups mean another style.
#include "entities/TextStyles.h"

#include <array>

#include "DbTextStyleTableRecord.h"
#include "db/ObjectCore.h"
#include "gi/fonts/Font.h"

namespace textstyles
{

namespace
{

OdGiTextStyle read(const OdDbTextStyleTableRecord& record)
{
    OdString typeface;
    bool bold = false;
    bool italic = false;
    int charset = 0;
    int pitch = 0;
    record.font(typeface, bold, italic, charset, pitch);
    OdGiTextStyle style;
    style.setFileName(record.fileName());
    style.setBigFontFileName(record.bigFontFileName());
    // A typeface that is no more than the file's name says less than the file.
    const bool ofFile = odEqualsNoCase(typeface, record.fileName().left(typeface.getLength()));
    style.setFont(ofFile ? OdString() : typeface, bold, italic);
    style.setXScale(record.xScale());
    style.setObliquingAngle(record.obliquingAngle());
    style.setVertical(record.isVertical());
    return style;
}

struct Kept
{
    OdDbStub* stub = nullptr;
    oddb::Groups groups;
    std::vector<oddb::Groups> xdata;
    OdGiTextStyle style;
};

std::vector<oddb::Groups> xdataOf(const OdDbObject& object)
{
    std::vector<oddb::Groups> values;
    if (const oddb::ObjectExtras* extras = oddb::ObjectCore::extras(object))
    {
        for (std::size_t i = 0; i < extras->xdata.size(); ++i)
            values.push_back(extras->xdata[i].values);
    }
    return values;
}

bool isCurrent(const Kept& kept, const OdDbObject& record)
{
    if (kept.groups.data() != oddb::ObjectCore::groupsData(record))
        return false;
    const oddb::ObjectExtras* extras = oddb::ObjectCore::extras(record);
    const std::size_t count = extras ? extras->xdata.size() : 0;
    if (count != kept.xdata.size())
        return false;
    for (std::size_t i = 0; i < count; ++i)
    {
        if (extras->xdata[i].values.data() != kept.xdata[i].data())
            return false;
    }
    return true;
}

} // namespace

OdGiTextStyle styleOf(OdDbObjectId id)
{
    thread_local std::array<Kept, 8> keptStyles;
    thread_local std::size_t next = 0;
    const OdDbObjectPtr object = id.openObject(OdDb::kForRead);
    const OdDbTextStyleTableRecordPtr record = OdDbTextStyleTableRecord::cast(object);
    if (record.isNull())
        return OdGiTextStyle();
    OdDbStub* stub = id;
    for (const Kept& kept : keptStyles)
    {
        if (kept.stub == stub && isCurrent(kept, *record))
            return kept.style;
    }
    Kept& place = keptStyles[next++ % keptStyles.size()];
    place = Kept{stub, oddb::ObjectCore::groups(*record), xdataOf(*record), read(*record)};
    fonts::Font::of(place.style); // found once for all that have the style
    return place.style;
}

} // namespace textstyles
