// Objects by name: the dictionaries of a drawing.
#pragma once

#include <memory>

#include "DbObject.h"
#include "RxDictionary.h"

namespace oddb
{
class DictionaryCore;
class DictionaryEntries;
} // namespace oddb

namespace OdDb
{
/** What becomes of an object whose name is taken where it is copied to. */
enum DuplicateRecordCloning : int
{
    kDrcNotApplicable = 0,
    kDrcIgnore = 1,         ///< the object there stays and stands for the copy
    kDrcReplace = 2,        ///< the copy takes its place
    kDrcXrefMangleName = 3, ///< the copy gets a name that says which drawing it comes from
    kDrcMangleName = 4,     ///< the copy gets a name that is free
    kDrcUnmangleName = 5
};
} // namespace OdDb

/** An OdDbDictionaryIterator goes over the entries that a dictionary had when the iterator was made; what is added or
    removed meanwhile does not disturb it. Entries whose object is erased are passed over unless it is told otherwise.
    One thread at a time may use it. */
class OdDbDictionaryIterator : public OdRxDictionaryIterator
{
public:
    ODRX_DECLARE_MEMBERS(OdDbDictionaryIterator);

    /** The name of the current entry, empty behind the last. */
    virtual OdString name() const = 0;
    OdString getKey() const override { return name(); }

    /** The object of the current entry, null behind the last. */
    virtual OdDbObjectId objectId() const = 0;

    /** Opens the object of the current entry. Returns null behind the last, and when it cannot be opened; an erased
        object is opened only with openErased. */
    virtual OdDbObjectPtr getObject(OdDb::OpenMode openMode = OdDb::kForRead, bool openErased = false) const = 0;

    /** Goes to the entry of that object. Returns false, and stays, when there is none. */
    virtual bool setPosition(OdDbObjectId objectId) = 0;

    /** Goes back to the first entry, and from now on meets entries of erased objects too, or passes them over. */
    virtual void start(bool skipErased = true) = 0;
};
using OdDbDictionaryIteratorPtr = OdSmartPtr<OdDbDictionaryIterator>;

/** An OdDbDictionary keeps objects of a drawing under names and owns them. Names are compared without regard to case,
    independent of the user's language; each is there once. Adding, finding and removing an entry take the same time
    for any number of entries.

    An entry whose object is erased stays, so that it is there again when the object is brought back, but does not keep
    its name from being given to another object; it is not saved.

    While the journal puts recorded states back (OdDbDatabase::isUndoing) every operation that would change the
    dictionary does nothing. While a file is read, setAt for an object that has an entry already renames it. */
class OdDbDictionary : public OdDbObject
{
public:
    ODDB_DECLARE_MEMBERS(OdDbDictionary);

    ~OdDbDictionary() override;

    /** The object under the name, null when there is none; status, when given, is set to eOk or eKeyNotFound.
        The object of an entry that is erased is returned only when status is given, which is then eWasErased. */
    OdDbObjectId getAt(const OdString& name, OdResult* status = nullptr) const;

    /** Opens the object under the name. Returns null when there is none or it is erased. Throws what
        OdDbObjectId::safeOpenObject throws. */
    OdDbObjectPtr getAt(const OdString& name, OdDb::OpenMode openMode) const;

    /** The name of the object's entry, empty when it has none. */
    OdString nameAt(const OdDbObjectId& objectId) const;

    /** True when there is an entry, and its object is not erased. */
    bool has(const OdString& name) const;
    bool has(const OdDbObjectId& objectId) const;

    /** The number of entries whose object is not erased. */
    OdUInt32 numEntries() const;

    /** Puts the object under the name. An object that is not resident becomes resident; the dictionary becomes its
       owner and persistent reactor. An object that has an entry already is renamed. An entry of the name with another
        object gives way: that object is erased when the dictionary is its owner and it is not erased yet.
        Returns the object's id. Throws OdError: eNotOpenForWrite, eInvalidKey for an empty name, eNullObjectPointer,
        eNotInDatabase when the dictionary is not resident, eWrongDatabase; nothing is changed then. */
    OdDbObjectId setAt(const OdString& name, OdDbObject* object);

    /** Gives an entry another name. Returns false, with nothing changed, when there is no entry of the old name, the
       new one is empty, or another object that is not erased has it. Throws OdError eNotOpenForWrite. */
    bool setName(const OdString& oldName, const OdString& newName);

    /** Takes the entry out of the dictionary; the object is not erased. Returns the object's id, null when there was no
        entry. Throws OdError eNotOpenForWrite. */
    OdDbObjectId remove(const OdString& name);

    /** Takes the object's entry out. Throws OdError eNotOpenForWrite, and eKeyNotFound when it has none. */
    void remove(const OdDbObjectId& objectId);

    /** True when the entries keep their objects from being purged. */
    bool isTreatElementsAsHard() const;
    void setTreatElementsAsHard(bool hard);

    /** What becomes of entries whose name is taken where they are copied to. */
    OdDb::DuplicateRecordCloning mergeStyle() const;
    void setMergeStyle(OdDb::DuplicateRecordCloning style);

    /** An iterator on the first entry that is not erased: in the order of the file with new entries behind, or with
        OdRx::kDictSorted in the order of names without regard to case. */
    OdDbDictionaryIteratorPtr newIterator(OdRx::DictIterType type = OdRx::kDictCollated) const;

    OdResult dwgInFields(OdDbDwgFiler* filer) override;
    void dwgOutFields(OdDbDwgFiler* filer) const override;
    OdResult dxfInFields(OdDbDxfFiler* filer) override;
    void dxfOutFields(OdDbDxfFiler* filer) const override;

    bool keepsGroups() const override { return true; }

protected:
    OdDbDictionary();

private:
    friend class oddb::DictionaryCore;
    std::unique_ptr<oddb::DictionaryEntries> m_entries;
};
using OdDbDictionaryPtr = OdSmartPtr<OdDbDictionary>;

/** An OdDbDictionaryWithDefault has one object that stands for every name that has no entry. */
class OdDbDictionaryWithDefault : public OdDbDictionary
{
public:
    ODDB_DECLARE_MEMBERS(OdDbDictionaryWithDefault);

    /** The object that stands for names without entry, null when there is none. */
    OdDbObjectId defaultId() const;
    void setDefaultId(OdDbObjectId id);

protected:
    OdDbDictionaryWithDefault();
};
using OdDbDictionaryWithDefaultPtr = OdSmartPtr<OdDbDictionaryWithDefault>;
