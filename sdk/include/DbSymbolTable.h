// Tables of named records: layers, linetypes, styles, blocks and the like.
#pragma once

#include <memory>

#include "DbObject.h"

namespace oddb
{
class SymbolTableCore;
class SymbolRecords;
enum class SymbolTable : unsigned char;
} // namespace oddb

/** An OdDbSymbolTableRecord is one record of a symbol table and is known by its name. */
class OdDbSymbolTableRecord : public OdDbObject
{
public:
    ODDB_DECLARE_MEMBERS(OdDbSymbolTableRecord);

    OdString getName() const;

    /** Changes the name. References to the record follow, as they are kept by record. Throws OdError: eNotOpenForWrite,
        eInvalidSymbolTableName for an empty name, eDuplicateRecordName when another record of its table, erased ones
        not counted, has the name without regard to case; nothing is changed then. */
    virtual void setName(const OdString& name);

    /** True for a record that came with an external reference, and whether that was found. */
    bool isDependent() const;
    bool isResolved() const;

    bool keepsGroups() const override { return true; }

protected:
    OdDbSymbolTableRecord() = default;

    /** Refuses to bring a record back whose name another record has by now: eDuplicateRecordName. Refuses to erase the
        records that every drawing needs: eCannotBeErasedByCaller. */
    OdResult subErase(bool erasing) override;
};
using OdDbSymbolTableRecordPtr = OdSmartPtr<OdDbSymbolTableRecord>;

/** An OdDbSymbolTableIterator goes over the records of a table in their order. It holds none of them open. Records
   added while it runs are reached; erasing does not disturb it. */
class OdDbSymbolTableIterator : public OdRxObject
{
public:
    ODRX_DECLARE_MEMBERS(OdDbSymbolTableIterator);

    /** Goes to the first record, or to the last one; erased ones are passed over with skipErased. */
    virtual void start(bool atBeginning = true, bool skipErased = true) = 0;

    /** True when there is no current record. */
    virtual bool done() const = 0;

    /** The current record, null when there is none. */
    virtual OdDbObjectId getRecordId() const = 0;

    /** Opens the current record. Returns null when there is none. Throws what OdDbObjectId::safeOpenObject throws. */
    virtual OdDbSymbolTableRecordPtr getRecord(OdDb::OpenMode openMode = OdDb::kForRead,
                                               bool openErased = false) const = 0;

    /** Goes one record on, or back. */
    virtual void step(bool forward = true, bool skipErased = true) = 0;

    /** Goes to that record. Returns false, and stays, when the table does not have it. */
    virtual bool seek(const OdDbObjectId& recordId) = 0;
};
using OdDbSymbolTableIteratorPtr = OdSmartPtr<OdDbSymbolTableIterator>;

/** An OdDbSymbolTable holds the records of one kind. Names are compared without regard to case, independent of the
   user's language; finding a record takes the same time for any number of them. */
class OdDbSymbolTable : public OdDbObject
{
public:
    ODDB_DECLARE_MEMBERS(OdDbSymbolTable);

    ~OdDbSymbolTable() override;

    /** The record of the name, null when there is none. With getErased, an erased record when no other one has the
        name. */
    virtual OdDbObjectId getAt(const OdString& name, bool getErased = false) const;

    /** Opens the record of the name. Returns null when there is none. Throws what OdDbObjectId::safeOpenObject throws.
     */
    OdDbSymbolTableRecordPtr getAt(const OdString& name, OdDb::OpenMode openMode, bool getErased = false) const;

    /** True when there is such a record and it is not erased. */
    bool has(const OdString& name) const;
    bool has(const OdDbObjectId& recordId) const;

    /** Makes a record resident at the end of the table. Returns its id. Throws OdError: eNotOpenForWrite,
        eNullObjectPointer, eNotInDatabase when the table is not resident, eAlreadyInDb, eNotThatKindOfClass for a
       record of another kind, eInvalidSymbolTableName for a record without name, eDuplicateRecordName; nothing is
       changed then. */
    virtual OdDbObjectId add(OdDbSymbolTableRecord* record);

    /** Goes over the records. */
    OdDbSymbolTableIteratorPtr newIterator(bool atBeginning = true, bool skipErased = true) const;

    bool keepsGroups() const override { return true; }

protected:
    explicit OdDbSymbolTable(oddb::SymbolTable kind);

    OdResult subErase(bool erasing) override;

private:
    friend class oddb::SymbolTableCore;
    std::unique_ptr<oddb::SymbolRecords> m_records;
};
using OdDbSymbolTablePtr = OdSmartPtr<OdDbSymbolTable>;
