// The marks that the plug-in leaves on objects of a drawing.
//
//   XData of the application terraSHAPING, version 3
//     1001  "terraSHAPING"
//     1071  version
//     1071  object flags                    0x0001 ignore on characteristic search, 0x0002 created object,
//                                           0x1000 custom label, 0x2000 table
//     1071  extended characteristic flags   0x0100 roughness value
//     1000  linked object, a handle         from version 2
//     1000  GUID                            from version 2
//     1000  name                            from version 3
#pragma once

#include "DbObjectId.h"
#include "OdaCommon.h"
#include "QuendZolExport.h"
#include "ResBuf.h"

class OdDbObject;

/** Bits of the second flag word of CZolExtendedData. */
enum EZolExtendedCharacteristicFlags : OdUInt32
{
    eZolExtendedCharacteristicNone = 0,
    eZolExtendedCharacteristicRoughnessValue = 0x0100
};

/** A CZolExtendedData is a copy in memory of the marks of one object: it is read from the object, changed, and saved
   again. Nothing of the drawing changes before that. Records of versions 1 and 2 are read with the fields that they
   lack empty and saved as version 3. Use it on the thread of its drawing. */
class QUEND_ZOL_EXPORT CZolExtendedData : public OdRxObject
{
public:
    ODRX_DECLARE_MEMBERS(CZolExtendedData);

    /** True when the object has marks of the application; false for the null id and an object that cannot be opened. */
    static bool ObjectHasData(const OdDbObjectId& id, bool bOpenErased);

    /** The record of an object. Without marks: a new, empty record for bCreate, else null. Throws
       OdError_InvalidArgument 398 "id" for the null id; OdError_InvalidValue, function "CZolExtendedData::Get": 20
       "pObject", 20 "pResult", and 68 "pResult" for marks that cannot be read, such as those of a version above 3. */
    static OdSmartPtr<CZolExtendedData> Get(const OdDbObjectId& id, bool bCreate, bool bOpenErased);

    /** The object that the record was read from or made for. */
    virtual OdDbObjectId DataReadFromObject() const;

    /** Empties flags and texts. */
    virtual void Reset();

    /** As SaveTo, RemoveFrom, with the record's own object. */
    virtual void Save();

    /** Writes the record to an object, erased or not, when a setter has changed it; the application is registered in
       the drawing when it is missing. Throws OdError_InvalidArgument 398 "id" for the null id; OdError_InvalidValue 20
        "pObject" when the object cannot be opened for write, 20 "pResBuf"; OdError eXdataSizeExceeded when the object
        would hold more than 16 KB of extended data. The object is unchanged on failure. */
    virtual void SaveTo(const OdDbObjectId& id);
    virtual void Remove();

    /** Takes the marks off an object. Throws OdError_InvalidValue 20 "pObject" when it cannot be opened for write. */
    virtual void RemoveFrom(const OdDbObjectId& id);

    /** A custom label is ignored whatever SetIgnoreOnCharacteristicSearch says. */
    virtual bool IgnoreOnCharacteristicSearch() const;
    virtual void SetIgnoreOnCharacteristicSearch(bool bValue);
    virtual bool IsCreatedObject() const;
    virtual void SetIsCreatedObject(bool bValue);
    virtual bool IsCustomLabel() const;
    virtual void SetIsCustomLabel(bool bValue);
    virtual bool IsTable() const;
    virtual void SetIsTable(bool bValue);

    /** The linked object in the drawing of the record's object; null when there is none or the drawing has no such
        handle. */
    virtual OdDbObjectId GetLinkedObject() const;
    /** Throws OdError_InvalidArgument 398 "value" for an id that is not valid. */
    virtual void SetLinkedObject(const OdDbObjectId& value);
    virtual OdString GetGuid() const;
    virtual void SetGuid(const OdString& value);
    virtual OdString GetName() const;
    virtual void SetName(const OdString& value);
    virtual EZolExtendedCharacteristicFlags GetExtendedCharacteristicFlags() const;
    virtual void SetExtendedCharacteristicFlags(EZolExtendedCharacteristicFlags eValue);
    virtual void SetIsRoughnessValue(bool bValue);

    /** The version that is written. */
    static const OdUInt32 m_uiCurrentVersion;

protected:
    /** Reads the marks of an object. Returns false when there are none or they cannot be read; fields may then be
        changed. */
    virtual bool Initialize(const OdDbObject* pObject);

    /** The record as a chain of extended data. */
    virtual OdResBufPtr GetResultBuffer() const;

private:
    bool ReadFrom(const OdResBuf* pData);
    bool HasFlag(OdUInt32 uiFlag) const { return (m_uiFlags & uiFlag) != 0; }
    void SetFlag(OdUInt32 uiFlag, bool bValue);
    template<class Value>
    void Change(Value& field, const Value& value);

    bool m_bHasData = false;
    bool m_bModified = false;
    OdResBufPtr m_pWritten; ///< what was written last, until a field changes
    OdDbObjectId m_idObject;
    OdUInt32 m_uiFlags = 0;
    EZolExtendedCharacteristicFlags m_eExtendedCharacteristicFlags = eZolExtendedCharacteristicNone;
    OdString m_strLinkedObject;
    OdString m_strGuid;
    OdString m_strName;
};
using CZolExtendedDataPtr = OdSmartPtr<CZolExtendedData>;
