// Objects by name.
#pragma once

#include "RxIterator.h"

namespace OdRx
{
/** The orders that a dictionary is walked in. */
enum DictIterType : int
{
    kDictCollated = 0, ///< by id, that is, as the entries were added
    kDictSorted = 1    ///< by name
};
} // namespace OdRx

/** Walks over the entries of a dictionary. */
class OdRxDictionaryIterator : public OdRxIterator
{
public:
    ODRX_DECLARE_MEMBERS(OdRxDictionaryIterator);

    /** The name, the id of the entry that it stands on; empty and OdRxDictionary::kInvalidId behind the last. */
    virtual OdString getKey() const = 0;
    virtual OdUInt32 id() const = 0;
};
using OdRxDictionaryIteratorPtr = OdSmartPtr<OdRxDictionaryIterator>;

/** An OdRxDictionary keeps objects under names, and holds a reference to each. Every entry also has an id, a number
   that it keeps as long as it is there. Names are compared as the dictionary was made: with or without regard to case.

    The plain kind (odrxCreateRxDictionary) may be used by one thread at a time. Each operation on the synchronised kind
    (odrxCreateSyncRxDictionary) is whole, whatever other threads do with it meanwhile.

    Iterators go through the entries as they were when the iterator was made: entries that are removed meanwhile are
    passed over, entries that are added meanwhile are not met, entries whose object is replaced are met with the new
    object. */
class OdRxDictionary : public OdRxObject
{
public:
    ODRX_DECLARE_MEMBERS(OdRxDictionary);

    static constexpr OdUInt32 kInvalidId = 0xFFFFFFFF;

    /** Makes room for so many entries. */
    virtual void reserve(OdUInt32 numEntries) = 0;

    /** The object of an entry, null when there is none. */
    virtual OdRxObjectPtr getAt(const OdString& key) const = 0;
    virtual OdRxObjectPtr getAt(OdUInt32 id) const = 0;

    /** Puts the object, which may be null, under the name, in place of the one there. Returns that one, null when there
        was none, and sets id when asked for. Throws OdError (eEmptyName) for an empty name. */
    virtual OdRxObjectPtr putAt(const OdString& key, OdRxObject* object, OdUInt32* id = nullptr) = 0;
    /** Puts the object into an entry that is there. Returns the one before. Throws OdError (eKeyNotFound). */
    virtual OdRxObjectPtr putAt(OdUInt32 id, OdRxObject* object) = 0;

    /** Gives an entry another name. Returns false, with nothing changed, when the entry is not there, the new name is
        empty or another entry has it. */
    virtual bool resetKey(const OdString& oldKey, const OdString& newKey) = 0;
    virtual bool resetKey(OdUInt32 id, const OdString& newKey) = 0;

    /** Removes an entry. Returns its object, null when there was none. */
    virtual OdRxObjectPtr remove(const OdString& key) = 0;
    virtual OdRxObjectPtr remove(OdUInt32 id) = 0;

    virtual bool has(const OdString& key) const = 0;
    virtual bool has(OdUInt32 id) const = 0;

    virtual OdUInt32 idAt(const OdString& key) const = 0;
    /** The name of an entry, empty when it is not there. */
    virtual OdString keyAt(OdUInt32 id) const = 0;

    virtual OdUInt32 numEntries() const = 0;

    /** An iterator on the first entry: in the order of being added, or of names (sorted as they are
        compared). */
    virtual OdRxDictionaryIteratorPtr newIterator(OdRx::DictIterType type = OdRx::kDictCollated) const = 0;

    virtual bool isCaseSensitive() const = 0;
};
using OdRxDictionaryPtr = OdSmartPtr<OdRxDictionary>;

/** A new, empty dictionary. */
OdRxDictionaryPtr odrxCreateRxDictionary(bool caseSensitive = false);
OdRxDictionaryPtr odrxCreateSyncRxDictionary(bool caseSensitive = false);
