// What only some objects have: an extension dictionary, persistent reactors, XData, the name of an unknown class. An
// object without any of them has no extras at all.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "Groups.h"
#include "ReactorSet.h"

class OdDbStub;

namespace oddb
{

/// The XData of one application: its record and the groups behind its name.
struct XDataEntry
{
    OdDbStub* application = nullptr;
    Groups values;
};

/// The XData of one object by application, in the order in which the applications came.
class XDataList
{
public:
    bool empty() const { return !m_first.application; }
    std::size_t size() const { return empty() ? 0 : 1 + (m_more ? m_more->size() : 0); }
    const XDataEntry& operator[](std::size_t index) const { return index == 0 ? m_first : (*m_more)[index - 1]; }

    const XDataEntry* find(const OdDbStub* application) const;
    /// Replaces the values of the application; it keeps its place.
    void put(OdDbStub* application, Groups values);
    void remove(const OdDbStub* application);
    /// Puts an application at a place among the others.
    void insert(std::size_t index, OdDbStub* application, Groups values);
    /// The place of the application among the others, size() when it is not there.
    std::size_t place(const OdDbStub* application) const;

private:
    XDataEntry m_first; // most objects have one application
    std::unique_ptr<std::vector<XDataEntry>> m_more;
};

struct ObjectExtras
{
    OdDbStub* extensionDictionary = nullptr;
    ReactorSet reactors;
    XDataList xdata;
    Atom proxyName; ///< of a proxy: the name that files have for its object

    bool empty() const { return !extensionDictionary && reactors.empty() && xdata.empty() && proxyName.empty(); }
};

} // namespace oddb
