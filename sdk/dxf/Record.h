// One record of a drawing file, taken apart: what every object has (handle, owner, listeners, extension dictionary,
// extended data) and the groups of its class.
#pragma once

#include "FaultLog.h"
#include "db/Groups.h"

#include <cstdint>
#include <string>
#include <vector>

class OdDbStub;

namespace dxf
{

/// Extended data of one application.
struct RecordXData
{
    OdDbStub* application = nullptr;
    oddb::Groups values;
};

/// What stands between one group 0 and the next. A record is filled over and over again, so that reading one allocates
/// nothing but what the object keeps.
struct Record
{
    std::string name; ///< behind group 0
    Place place;
    std::uint64_t handle = 0; ///< 0 when the record has none, or none that makes sense
    bool hasOwner = false;
    OdDbStub* owner = nullptr;
    std::vector<OdDbStub*> reactors;
    OdDbStub* extensionDictionary = nullptr;
    std::vector<RecordXData> xdata;
    oddb::GroupsBuilder groups;
    bool hasMarkers = false; ///< the groups have subclass markers

    void clear();

    /// The first group of this code, none when the record has no such group. The view ends with the next change.
    bool find(int code, oddb::GroupView& group) const;
    /// Its text or number, with what to take when there is no such group.
    std::string_view text(int code, std::string_view otherwise = {}) const;
    std::int64_t integer(int code, std::int64_t otherwise = 0) const;
};

} // namespace dxf
