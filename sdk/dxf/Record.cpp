// Looks up groups of a record.
#include "Record.h"

namespace dxf
{

void Record::clear()
{
    handle = 0;
    hasOwner = false;
    owner = nullptr;
    reactors.clear();
    extensionDictionary = nullptr;
    xdata.clear();
    groups.clear();
    hasMarkers = false;
}

bool Record::find(int code, oddb::GroupView& group) const
{
    for (const std::uint8_t* item = groups.begin(); item != groups.end(); item = group.next())
    {
        group = oddb::GroupView(item);
        if (group.code() == code)
            return true;
    }
    return false;
}

std::string_view Record::text(int code, std::string_view otherwise) const
{
    oddb::GroupView group;
    return find(code, group) ? group.text() : otherwise;
}

std::int64_t Record::integer(int code, std::int64_t otherwise) const
{
    oddb::GroupView group;
    return find(code, group) ? group.integer() : otherwise;
}

} // namespace dxf
