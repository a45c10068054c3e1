// Labels: named tags that users put on groups of entities, kept in the drawing.
//
//   dictionary "ZOL_BSYSTEM_LABELS" in the named-objects dictionary: one entry for each label, under its GUID
//
//   DXF, object "BSYSTEMLABEL"           DWG-style filers
//     100  "CBSystemLabel"                 owner         hard pointer, wblock cloning only
//      70  version, 1                      version, 1    16 bits
//       1  GUID                            GUID          string
//       2  label                           label         string
//      90  number of references            number        32 bits
//     340  reference ...                   references    hard pointers
//
//   JSON
//     {"Handle": "2B1", "Version": 1, "Guid": "…", "Label": "E12", "ReferencedElements": ["2A", "2B"]}
//
// References to entities that are erased are left out of files.
#pragma once

#include <memory>

#include <rapidjson/document.h>

#include "DbDatabase.h"
#include "DbDictionary.h"
#include "DbObject.h"
#include "QuendZolExport.h"

class CReferenceList;
class CZolExtendedData;

/** A CBSystemLabel is a GUID, a text and a list of entities that it refers to, each there once. Every one of these
   entities has the label as a persistent reactor and carries a CZolExtendedData that says custom label and holds GUID
   and text; so do the entities of a block that only this one block reference (or this one dimension) draws, at any
   depth.

    The operations that read require the label to be open for read, those that change it for write, as OdDbObject says.
    Errors that an operation throws itself name "CBSystemLabel::" and the operation as their function; beside them they
   let through those of CZolExtendedData. An error part way through a list leaves the part before it done: who needs all
   or nothing opens a transaction. */
class QUEND_ZOL_EXPORT CBSystemLabel : public OdDbObject
{
public:
    ODDB_DECLARE_MEMBERS(CBSystemLabel);

    using JsonValue = rapidjson::GenericValue<rapidjson::UTF16<wchar_t>>;
    using JsonAllocator = rapidjson::MemoryPoolAllocator<>;

    /** The version that is written; data of a later one are refused. */
    static OdInt16 getVersion() { return m_iLastKnownVersion; }

    /** The dictionary of all labels of a drawing, open for read; created by the first call. Throws
        OdError_InvalidArgument 122 "pDb"; OdError_InvalidValue 20 "pNamedObjectsDictionary", 20 "pDictionary";
        OdError_NotThatKindOfClass when something else lies in its place. */
    static OdDbDictionaryPtr GetDictionary(const OdDbDatabase* pDb);

    /** Makes a new label resident: text and GUID as given (a new GUID for an empty or all-zero one), references as by
        SetReferencedObjectIds. Returns its id. Throws OdError_InvalidArgument 122 "pDb", OdError_InvalidValue 20
        "pDictionary", and what AddReferencedObjectId throws. */
    virtual OdDbObjectId Initialize(const OdDbDatabase* pDb, const OdString& strLabel, const OdDbObjectIdArray& ids,
                                    const OdString& strGuid);

    /** Changes the GUID, trimmed, and the dictionary entry with it; the same GUID in another case changes nothing.
       Throws OdError_InvalidValue 4 "strGuid" for an empty or all-zero GUID, 20 "pDictionary". */
    virtual void SetGuid(const OdString& strGuid);
    virtual OdString GetGuid() const;

    /** Adds a reference at the end, with its marks; one that is there already is passed over. Throws
        OdError_InvalidArgument 21 "id" for the null id, 398 "id" for one that is not valid; OdError_InvalidValue 20
        "pObject" for an object that cannot be opened, such as an erased one; eXdataSizeExceeded when the text does not
       fit the entity's extended data. Nothing is added then. */
    virtual void AddReferencedObjectId(const OdDbObjectId& id);

    /** Removes a reference and its marks, also from an entity that is erased; an id that is not there is passed over.
        Throws OdError_InvalidValue 20 "pObject". */
    virtual void RemoveReferencedObjectId(const OdDbObjectId& id);

    /** Writes the marks on one entity and on those of its own block; an object that is no entity is passed over. Throws
        OdError_InvalidValue 20 "pObject". */
    virtual void SetExtendedData(const OdDbObjectId& id);

    /** Takes the marks off again: the flag always, GUID and text as far as they are those of this label. */
    virtual void RemoveExtendedData(const OdDbObjectId& id);

    /** Clears all references and adds these in order. The same ones are no exception: marks and reactors that were lost
        come back by that, and the call can be undone, whatever it has found to mend. */
    virtual void SetReferencedObjectIds(const OdDbObjectIdArray& ids);
    /** Sets ids to the references in order. */
    virtual void GetReferencedObjectIds(OdDbObjectIdArray& ids) const;
    virtual void ClearReferencedObjectIds();

    /** Changes the text, trimmed. The marks keep the text that they were made with. */
    virtual void SetLabel(const OdString& strLabel);
    virtual OdString GetLabel() const;

    /** Takes over what a JSON object holds; a member that is missing or null leaves its part as it is. Entries of
        "ReferencedElements" are handles, "NONE" or one that the drawing does not have is refused. Throws OdError 398
       when "Handle" is not that of this label, OdError 250 for a later version, OdError_InvalidValue 5 with the name of
       the member for a value of another type ("value" when it is no object), and what SetGuid and
       SetReferencedObjectIds throw. */
    virtual void JsonInFields(const JsonValue& value);

    /** Makes value an object that holds the label; it keeps copies of all texts. */
    virtual void JsonOutFields(JsonValue& value, JsonAllocator& allocator) const;

    OdResult dwgInFields(OdDbDwgFiler* pFiler) override;
    void dwgOutFields(OdDbDwgFiler* pFiler) const override;
    OdResult dxfInFields(OdDbDxfFiler* pFiler) override;
    void dxfOutFields(OdDbDxfFiler* pFiler) const override;

    /** The box around all references that have one. Returns eInvalidExtents, with extents unchanged, when none has. */
    OdResult getGeomExtents(OdGeExtents3d& extents) const override;

    static const OdInt16 m_iLastKnownVersion;
    static const OdString m_strDictionaryName;

protected:
    CBSystemLabel();
    ~CBSystemLabel() override;

    /** Erasing takes the marks off all references, bringing back puts them on again; the list stays. Throws
        OdError_InvalidValue 20 "pObject". */
    OdResult subErase(bool erasing) override;

private:
    using Visit = void (CBSystemLabel::*)(const OdDbObjectId&);
    class BlockWalk;
    class CommonMarks;

    void PutMarks(CZolExtendedData& data) const;
    void Mark(const OdDbObjectId& id);
    void Unmark(const OdDbObjectId& id);
    void VisitMarked(const OdDbObjectId& id, const OdChar* pszFunction, Visit mark, Visit visitEntity);
    void VisitBlock(const OdDbObjectId& idBlock, Visit visitEntity);

    void AddAsReactor(const OdDbObjectPtr& pObject) const;
    void RemoveAsReactor(const OdDbObjectPtr& pObject) const;

    void ReadGuid(OdDbDwgFiler& filer);
    void ReadLabel(OdDbDwgFiler& filer);
    void ReadReferences(OdDbDwgFiler& filer);
    OdDbObjectIdArray ReferencesFor(const OdDbFiler& filer) const;

    void ReadJsonHead(const JsonValue& value) const;
    OdDbObjectIdArray ReadJsonReferences(const JsonValue& elements) const;

    OdString m_strGuid;
    OdString m_strLabel;
    std::unique_ptr<CReferenceList> m_pReferences;
    BlockWalk* m_pWalk = nullptr;                ///< only while marks are written or taken off
    OdSmartPtr<CZolExtendedData> m_pCommonMarks; ///< only while marks are written on many objects
};
using CBSystemLabelPtr = OdSmartPtr<CBSystemLabel>;
