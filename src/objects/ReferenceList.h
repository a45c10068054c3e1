// The ids that a label refers to: a list in order in which each id is found at once.
#pragma once

#include <cstdint>
#include <vector>

#include "DbObjectId.h"

/** A CReferenceList is a list of ids. Appending, finding and removing take the same time for any number of them;
   removing keeps the order of the rest. The list itself does not mind an id that is there twice or is null. */
class CReferenceList
{
public:
    void Append(const OdDbObjectId& id);
    bool Has(const OdDbObjectId& id) const { return Find(id) >= 0; }
    /** Removes the first one that is the same. Returns false when there is none. */
    bool RemoveFirst(const OdDbObjectId& id);
    void Clear();
    OdUInt32 Count() const { return m_uiCount; }
    OdDbObjectIdArray Ids() const;

    /** Calls use(id) for each in order. */
    template<class Use>
    void ForEach(Use use) const
    {
        for (const OdDbObjectId& id : m_entries)
            if (id != Removed())
                use(id);
    }

private:
    static OdDbObjectId Removed();
    std::int64_t Find(const OdDbObjectId& id) const;
    std::size_t SlotOf(const OdDbObjectId& id) const;
    bool IsFull() const { return (m_entries.size() + 1) * 4 > m_slots.size() * 3; }
    void Rebuild();
    void Index(std::uint32_t uiEntry);

    std::vector<OdDbObjectId> m_entries; ///< with gaps where ids were removed
    std::vector<std::uint32_t> m_slots;  ///< places in m_entries plus 1, by hash; empty as long as the list is short
    OdUInt32 m_uiCount = 0;
};
