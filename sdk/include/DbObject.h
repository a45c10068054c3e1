// The base of everything that a drawing holds: entities, dictionaries, tables and their records.
#pragma once

#include <concepts>

#include "DbObjectId.h"
#include "Gi/GiDrawable.h"
#include "OdaCommon.h"
#include "ResBuf.h"
#include "RxObjectImpl.h"

class OdDbDwgFiler;
class OdDbDxfFiler;
class OdDbFiler;
class OdDbIdMapping;
class OdDbIdPair;
class OdDbObjectReactor;
class OdGeExtents3d;
class OdGiDrawableTraits;
class OdGiWorldDraw;

namespace oddb
{
class ObjectCore;
struct GroupsData;
struct ObjectExtras;
} // namespace oddb

/** Members that every class of database objects declares. */
#define ODDB_DECLARE_MEMBERS(ClassName)                                                                                \
    ODRX_DECLARE_MEMBERS(ClassName);                                                                                   \
    OdResult subGetClassID(void* classId) const override

/** Defines the members of a class of database objects. dxfName: its name in drawings, null when it has none of its own.
 */
#define ODDB_DEFINE_MEMBERS(ClassName, ParentClass, DOCREATE, dxfName)                                                 \
    ODRX_DXF_DEFINE_MEMBERS(ClassName, ParentClass, DOCREATE, OdDb::kDHL_CURRENT, OdDb::kMReleaseCurrent, 0, dxfName,  \
                            L"")                                                                                       \
    OdResult ClassName::subGetClassID(void* classId) const                                                             \
    {                                                                                                                  \
        return ParentClass::subGetClassID(classId);                                                                    \
    }

/** An OdDbObject is one object of a drawing. An object that is new belongs to whoever holds its smart pointer and
    may be changed freely; once it is resident, its database owns it and it has to be opened before it is used.
    Objects of one database may be used by one thread only.

    Rules of opening: any number may read at the same time; one may write, also while others have the object open for
    read; releasing the last smart pointer closes the object. */
class OdDbObject : public OdGiDrawable
{
public:
    ODRX_DECLARE_MEMBERS(OdDbObject);

    OdDbObject(const OdDbObject&) = delete;
    OdDbObject& operator=(const OdDbObject&) = delete;
    ~OdDbObject() override;

    void addRef() override;
    void release() override;
    long numRefs() const override;

    // ---- Identity ----------------------------------------------------------------------------------------------

    /** The id, null while the object is not resident. */
    OdDbObjectId objectId() const;

    /** The handle, null while the object is not resident. */
    OdDbHandle objectHandle() const;
    OdDbHandle getDbHandle() const { return objectHandle(); }

    /** The object that owns this one, null when there is none. */
    OdDbObjectId ownerId() const;

    /** Changes the owner. Throws OdError eNotOpenForWrite when the object is not open for write. */
    virtual void setOwnerId(OdDbObjectId ownerId);

    /** The database the object is resident in, null when it is in none. */
    OdDbDatabase* database() const;

    /** True when the object is resident in a database. */
    bool isDBRO() const;

    bool isPersistent() const override { return isDBRO(); }
    OdDbStub* id() const override;

    // ---- Opening -----------------------------------------------------------------------------------------------

    /** Changes an object that is open for read to open for write; each call is matched by one downgradeOpen. An object
        that is not resident stays as it is. Throws OdError eNotOpenForRead when the object is not open. */
    void upgradeOpen();

    /** Takes back one upgradeOpen, or changes an object that was opened for write to open for read. An object that is
        not resident stays as it is. Throws OdError eNotOpenForWrite when the object is not open for write. */
    void downgradeOpen();

    /** Throws OdError eNotOpenForRead unless the object may be read. */
    void assertReadEnabled() const;

    /** Announces a change: throws OdError eNotOpenForWrite unless the object may be changed. With autoUndo the state of
        the object is recorded for undo before the change; with recordModified listeners are told of the change. */
    void assertWriteEnabled(bool autoUndo = true, bool recordModified = true);

    /** Throws OdError eNotOpenForRead unless the object is open in any mode. */
    void assertNotifyEnabled() const;

    bool isReadEnabled() const;
    bool isWriteEnabled() const;
    bool isNotifyEnabled() const;

    /** True from when the object is made resident until it is closed for the first time. */
    bool isNewObject() const;

    /** True when the object was changed since it was opened. */
    bool isModified() const;

    /** True when XData was set since the object was opened. */
    bool isModifiedXData() const;

    // ---- Erasing -----------------------------------------------------------------------------------------------

    /** Erases the object or, with eraseIt false, brings it back. The class may refuse through subErase: then its result
        is returned and nothing is changed. Returns eOk, also when there is nothing to do. Throws OdError
        eNotOpenForWrite when the object is not open for write, and whatever subErase throws. */
    OdResult erase(bool eraseIt = true);

    bool isErased() const;
    bool isEraseStatusToggled() const;

    // ---- Persistent reactors -----------------------------------------------------------------------------------

    /** Makes an object of the same database a listener that is saved with this object; one that is a listener already
        stays where it is. Listeners are not told, nor when one goes. Throws OdError eNotOpenForWrite, eNullObjectId. */
    void addPersistentReactor(const OdDbObjectId& objectId);

    /** Withdraws the listener; one that is none is passed over. Throws OdError eNotOpenForWrite. */
    void removePersistentReactor(const OdDbObjectId& objectId);

    /** True when the object is a listener of this one; takes the same time for any number of listeners. */
    bool hasPersistentReactor(const OdDbObjectId& objectId) const;

    /** All listeners in the order in which they were added. */
    OdDbObjectIdArray getPersistentReactors() const;

    // ---- Transient reactors ------------------------------------------------------------------------------------

    /** Attaches a listener until removeReactor or the end of the database. Throws OdError eNullObjectPointer, and
        eNotInDatabase for an object that is not resident. */
    void addReactor(OdDbObjectReactor* reactor) const;
    void removeReactor(OdDbObjectReactor* reactor) const;

    // ---- Extension dictionary ----------------------------------------------------------------------------------

    /** The dictionary of additional objects that belong to this one, null when there is none. */
    OdDbObjectId extensionDictionary() const;

    /** Creates the extension dictionary; one that is there and not erased stays, one that is erased is brought back.
        Returns its id. Throws OdError eNotOpenForWrite, eNotInDatabase. */
    OdDbObjectId createExtensionDictionary();

    /** Erases the extension dictionary when it is empty. Returns true when it did. */
    bool releaseExtensionDictionary();

    // ---- XData -------------------------------------------------------------------------------------------------

    /** The extended data of one application as a chain that begins with its name (1001), or of all applications when
        the name is empty. Null when there is none. */
    virtual OdResBufPtr xData(const OdString& regappName = OdString()) const;

    /** Sets extended data. The chain may hold several applications, each begun by its name (1001); what each had is
        replaced, other applications keep theirs, and a name with nothing behind it removes that application's data.
        Returns eOk. Throws OdError eNotOpenForWrite, eRegappIdNotFound for an application that is not registered,
        eXdataSizeExceeded when the object would hold more than 16 KB, eInvalidResBuf for a chain that is no
        extended data. On failure nothing is changed. */
    virtual OdResult setXData(const OdResBuf* xdata);

    // ---- Filing ------------------------------------------------------------------------------------------------

    /** Reads and writes the object with what belongs to every object: owner, listeners, extension dictionary, XData. */
    OdResult dwgIn(OdDbDwgFiler* filer);
    void dwgOut(OdDbDwgFiler* filer) const;
    virtual OdResult dxfIn(OdDbDxfFiler* filer);
    virtual void dxfOut(OdDbDxfFiler* filer) const;

    /** Reads and writes the data of the class. An override calls its base first and returns the base's error.
        Returns eOk, or why the data cannot be read; the object is then not to be used. */
    virtual OdResult dwgInFields(OdDbDwgFiler* filer);
    virtual void dwgOutFields(OdDbDwgFiler* filer) const;
    virtual OdResult dxfInFields(OdDbDxfFiler* filer);
    virtual void dxfOutFields(OdDbDxfFiler* filer) const;

    // ---- Copies ------------------------------------------------------------------------------------------------

    /** A new object that is not resident and has the same data. */
    OdRxObjectPtr clone() const override;
    void copyFrom(const OdRxObject* source) override;

    /** Copies the object with all it owns to ownerObject within its database. Returns the copy, null when the class
        makes none. The mapping is extended by each copy made. */
    OdDbObjectPtr deepClone(OdDbIdMapping& mapping, OdDbObject* ownerObject, bool isPrimary = true) const;

    /** As deepClone, into another database. */
    OdDbObjectPtr wblockClone(OdDbIdMapping& mapping, OdDbObject* ownerObject, bool isPrimary = true) const;

    /** Gives a copy to its owner; called once for each primary copy. */
    virtual void appendToOwner(OdDbIdPair& idPair, OdDbObject* ownerObject, OdDbIdMapping& mapping);

    // ---- Geometry ----------------------------------------------------------------------------------------------

    /** Sets extents to the box around the object and returns eOk. An object without shape leaves extents unchanged and
        returns eInvalidExtents. */
    virtual OdResult getGeomExtents(OdGeExtents3d& extents) const;

    // ---- Hearing of other objects ------------------------------------------------------------------------------

    /** Called on a persistent reactor when an object it listens to was changed or erased. */
    virtual void modified(const OdDbObject* object);
    virtual void erased(const OdDbObject* object, bool erasing);

    /** Sets the 16 bytes of the class id. Returns eOk, or eNotApplicable when the class has none. */
    OdResult getClassID(void* classId) const;

    /** True for the classes whose data is kept as groups; only classes of the database itself do so. */
    virtual bool keepsGroups() const { return false; }

protected:
    OdDbObject();

    /** Called before the object is erased (erasing true) or brought back. Any result but eOk refuses. */
    virtual OdResult subErase(bool erasing);

    /** Called after the object was made resident; what it owns becomes resident with it. */
    virtual void subMadeResident() {}

    /** Called after the object was opened. Throwing refuses the opening. */
    virtual OdResult subOpen(OdDb::OpenMode mode);

    /** Called before the object is closed. What it throws is dropped. */
    virtual void subClose();

    virtual OdResult subGetClassID(void* classId) const;
    virtual OdDbObjectPtr subDeepClone(OdDbIdMapping& mapping, OdDbObject* ownerObject, bool isPrimary) const;
    virtual OdDbObjectPtr subWblockClone(OdDbIdMapping& mapping, OdDbObject* ownerObject, bool isPrimary) const;

    OdUInt32 subSetAttributes(OdGiDrawableTraits* traits) const override;
    bool subWorldDraw(OdGiWorldDraw* worldDraw) const override;

private:
    friend class oddb::ObjectCore;
    bool isUndoing() const;

    OdUInt32 m_refs = 1;
    OdUInt32 m_state = 0;
    OdDbStub* m_stub = nullptr;
    OdDbStub* m_owner = nullptr;
    oddb::GroupsData* m_groups = nullptr;
    oddb::ObjectExtras* m_extras = nullptr;
};

/** A new database object counts its references itself, so that releasing the last one closes it. */
template<class T>
requires std::derived_from<T, OdDbObject>
class OdRxObjectImpl<T, T> : public T
{
public:
    /** A new object that is not resident. */
    static OdSmartPtr<T> createObject() { return OdSmartPtr<T>(new OdRxObjectImpl, kOdRxObjAttach); }
};
