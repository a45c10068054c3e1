// The vertices or attributes that an entity owns, in order, and the SEQEND behind them. Only additions change the list:
// an element that is erased, or whose making is undone, stays in it and is passed over. A copy in memory, which is in
// no database, has loose elements; they become resident with it.
#pragma once

#include <utility>
#include <vector>

#include "DbEntity.h"
#include "DbObjectIterator.h"
#include "db/Stub.h"

namespace oddb
{

class SubentityList
{
public:
    const std::vector<OdDbStub*>& elements() const { return m_elements; }
    /// Null until the end was read or made.
    OdDbStub* sequenceEnd() const { return m_sequenceEnd; }

    /// Adds an element that is resident and owned by the list's entity; for readers.
    void append(OdDbStub* element) { m_elements.push_back(element); }
    void putSequenceEnd(OdDbStub* sequenceEnd) { m_sequenceEnd = sequenceEnd; }
    void clear()
    {
        m_elements.clear();
        m_loose.clear();
        m_sequenceEnd = nullptr;
    }

    const std::vector<OdDbEntityPtr>& loose() const { return m_loose; }
    void appendLoose(OdDbEntityPtr element) { m_loose.push_back(std::move(element)); }
    std::vector<OdDbEntityPtr> takeLoose() { return std::exchange(m_loose, {}); }

    /// True when an element is left that is not erased.
    bool hasElements() const;

    /// True when one of the elements is open for write, so that they cannot be changed together.
    bool isBusy() const;

    /// Erases the elements with their owner, or brings back those that were erased with it. Returns eWasOpenForWrite,
    /// with nothing changed, when one of them is open for write.
    OdResult eraseElements(bool erasing) const;

private:
    std::vector<OdDbStub*> m_elements;
    std::vector<OdDbEntityPtr> m_loose;
    OdDbStub* m_sequenceEnd = nullptr;
};

/// Makes the element resident under its owner and adds it, with a SEQEND for the first one. Throws OdError
/// eNotInDatabase, eAlreadyInDb.
OdDbObjectId appendSubentity(OdDbEntity& owner, SubentityList& list, OdDbEntity* element);

/// Gives the copy of an entity copies of its elements, in place of those it has.
void copySubentities(const OdDbEntity& source, OdDbEntity& copy);

/// Makes the loose elements of an entity resident with it.
void attachSubentities(OdDbEntity& owner, SubentityList& list);

/// Writes the elements that are not erased and the SEQEND as owned objects, so that copies get copies of them; reads
/// them into an emptied list.
///   count (32 bits), element (hard owner)..., SEQEND (hard owner)
void writeSubentities(OdDbDwgFiler& filer, const SubentityList* list);
void readSubentities(OdDbDwgFiler& filer, OdDbEntity& owner);

/// Goes over the elements that are not erased.
OdDbObjectIteratorPtr newIterator(const SubentityList& list);

/// Opens each element that is not erased and hands it on.
template<class Visit>
void visitSubentities(const SubentityList& list, Visit visit, OdDb::OpenMode mode = OdDb::kForRead)
{
    for (OdDbStub* stub : list.elements())
    {
        const OdDbEntityPtr element = OdDbEntity::cast(OdDbObjectId(stub).openObject(mode));
        if (!element.isNull())
            visit(*element);
    }
    for (const OdDbEntityPtr& element : list.loose())
        visit(*element);
}

} // namespace oddb
