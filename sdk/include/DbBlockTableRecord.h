// Block definitions: lists of entities that can be drawn in many places, and the spaces of the model and the layouts.
#pragma once

#include <memory>

#include "DbObjectIterator.h"
#include "DbSymbolTable.h"
#include "Ge/GePoint3d.h"

class OdDbBlockBegin;
class OdDbBlockEnd;
class OdDbEntity;

namespace oddb
{
class BlockCore;
struct BlockContents;
} // namespace oddb

/** An OdDbBlockTableRecord owns entities and keeps them in the order in which they are drawn, unless a table beside it
    (SORTENTSTABLE) gives them another one; drawn itself, it draws them all. Setting operations throw
    OdError(eNotOpenForWrite) and change nothing then.

    Erasing a block erases its entities with it, and bringing it back brings those back that went with it; each of them
    is told of. An entity that is open for write elsewhere ends the erasing with OdError(eWasOpenForWrite).
    The blocks of layouts are erased with their layouts only: erase() returns eCannotBeErasedByCaller. References to an
    erased block stay, and draw nothing. */
class OdDbBlockTableRecord : public OdDbSymbolTableRecord
{
public:
    ODDB_DECLARE_MEMBERS(OdDbBlockTableRecord);

    ~OdDbBlockTableRecord() override;

    void setName(const OdString& name) override;

    /** Makes an entity resident at the end of the block. Returns its id; the entity is open for write until its smart
        pointers are released. Throws OdError: eNotOpenForWrite, eNullObjectPointer, eNotInDatabase when the block is
       not resident, eAlreadyInDb; nothing is changed then. */
    OdDbObjectId appendOdDbEntity(OdDbEntity* entity);

    /** Goes over the entities in the order in which they are drawn. */
    OdDbObjectIteratorPtr newIterator(bool atBeginning = true, bool skipDeleted = true) const;

    /** Sets ids to the block references that draw this block, those that are erased, or whose block is, left out. With
        directOnly false, also those that draw it through references in other blocks. forceValidity has no effect: the
        ids are always those of the present. Asking again without a change in between costs a copy of the array's
        pointer. Returns eOk. */
    OdResult getBlockReferenceIds(OdDbObjectIdArray& ids, bool directOnly = true, bool forceValidity = false) const;

    /** The BLOCK and ENDBLK that frame the entities in files, null while the block is not resident. */
    OdDbObjectId getBlockBeginId() const;
    OdDbObjectId getBlockEndId() const;

    /** Open the same. Return null when there is none. Throw what OdDbObjectId::safeOpenObject throws. */
    OdSmartPtr<OdDbBlockBegin> openBlockBegin(OdDb::OpenMode openMode = OdDb::kForRead) const;
    OdSmartPtr<OdDbBlockEnd> openBlockEnd(OdDb::OpenMode openMode = OdDb::kForRead) const;

    /** The point of the block that comes to lie on the position of a block reference. Setting it throws
        OdError(eNotInDatabase) for a block that is not resident. */
    OdGePoint3d origin() const;
    void setOrigin(const OdGePoint3d& origin);

    OdString comments() const;

    /** True for a block with a name that the database gave, which begins with "*". */
    bool isAnonymous() const;

    /** True for a block whose entities come from another drawing, and the file of that drawing. */
    bool isFromExternalReference() const;
    bool isFromOverlayReference() const;
    OdString pathName() const;

    /** True for the block of the model or of a paper layout, and that layout, null for other blocks. */
    bool isLayout() const;
    OdDbObjectId getLayoutId() const;
    void setLayoutId(OdDbObjectId layoutId);

    /** True when one of the entities is an attribute definition. */
    bool hasAttributeDefinitions() const;

    /** Whether references to the block may be broken up, and have to be scaled by one factor. */
    bool explodable() const;
    void setExplodable(bool explodable);

protected:
    OdDbBlockTableRecord();

    OdResult subErase(bool erasing) override;
    bool subWorldDraw(OdGiWorldDraw* worldDraw) const override;

private:
    friend class oddb::BlockCore;
    std::unique_ptr<oddb::BlockContents> m_contents;
};
using OdDbBlockTableRecordPtr = OdSmartPtr<OdDbBlockTableRecord>;
