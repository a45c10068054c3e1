// Copies objects with all they own, within a drawing or into another one, and turns the references of the copies from
// originals to copies when all are made.
#pragma once

#include <vector>

#include "DbDictionary.h"
#include "DbIdMapping.h"
#include "DbObject.h"
#include "db/Groups.h"

class OdDbBlockTableRecord;
class OdDbEntity;

namespace oddb
{

class ObjectCopier
{
public:
    explicit ObjectCopier(OdDbIdMapping& mapping) : m_mapping(mapping) {}

    /// Copies the object and what it owns, and gives the copy to the owner. Returns the copy, open for write; the one
    /// that is there when the object was copied before.
    OdDbObjectPtr copy(const OdDbObject& source, OdDbObject* owner, bool isPrimary);

    /// Copies an object into the other drawing, to where it is in its own: entities of any paper layout into the
    /// first one, those of blocks into the model. A vertex or attribute brings its owner.
    void copyPrimary(const OdDbObject& source);

    /// Throws OdError eNotApplicable for what a drawing has by itself: tables, spaces, layouts, the root dictionary,
    /// BLOCK and ENDBLK.
    static void requireCopyable(const OdDbObject& source);

    /// Copies what the copies made so far cannot be without: objects they point to hard, records they name.
    void copyNeeded();

    /// Makes the copies refer to copies; references to what was not copied stay within the drawing and are dropped
    /// in another one.
    void translate();

private:
    bool intoOtherDrawing() const { return m_mapping.origDb() != m_mapping.destDb(); }
    OdDbObjectId valueOf(const OdDbObjectId& key) const;
    void assign(const OdDbObject& source, const OdDbObjectId& value, bool isCloned, bool isPrimary);

    void place(OdDbObject& copy, OdDbObject* owner, const OdDbObject& source);
    void placeInDictionary(OdDbObject& copy, OdDbDictionary& dictionary, const OdDbObject& source);
    void readFields(OdDbObject& copy, const OdDbObject& source);
    void copyCommon(OdDbObject& copy, const OdDbObject& source);
    void copyOwned(const OdDbObject& source, OdDbObject& copy);
    void copyBlock(const OdDbBlockTableRecord& source, OdDbBlockTableRecord& copy);
    void copyFrame(const OdDbObjectId& source, const OdDbObjectId& copy);
    void copyOwnBlock(const OdDbObject& source);
    void copyImageReactor(const OdDbObject& source, OdDbObject& copy);
    Groups groupsOf(const OdDbObject& source) const;

    std::vector<OdDbStub*> neededBy(const OdDbObject& source) const;
    void need(const OdDbObjectId& id);
    OdDbObjectPtr neededOwner(const OdDbObjectId& ownerId);
    bool standsInTarget(const OdDbObject& source, OdDbObject& owner);

    void translateGroups(OdDbObject& copy) const;
    void translateFields(OdDbObject& copy) const;
    void translateCommon(OdDbObject& copy, const OdDbObject& source) const;
    OdDbStub* translated(OdDbStub* stub) const;

    OdDbIdMapping& m_mapping;
    std::vector<OdDbObjectId> m_toFollow; ///< originals whose references were not looked at yet
};

} // namespace oddb
