// Reads the marks of an object from its extended data and writes them back.
#include "ZolExtendedData.h"

#include "DbDatabase.h"
#include "DbObject.h"
#include "ModuleErrors.h"
#include "RxObjectImpl.h"
#include "framework/RegisteredApplication.h"

ODRX_CONS_DEFINE_MEMBERS(CZolExtendedData, OdRxObject, RXIMPL_CONSTR)

const OdUInt32 CZolExtendedData::m_uiCurrentVersion = 3;

namespace
{

enum EObjectFlags : OdUInt32
{
    eFlagIgnoreOnCharacteristicSearch = 0x0001,
    eFlagCreatedObject = 0x0002,
    eFlagCustomLabel = 0x1000,
    eFlagTable = 0x2000
};

const OdString& Application()
{
    static const OdString strApplication(kDefaultApplication);
    return strApplication;
}

OdResBufPtr ReadMarks(const OdDbObject& object)
{
    return object.xData(Application());
}

// Goes over the elements of the marks; the first one that is missing or of another type ends the reading.
class MarksReader
{
public:
    explicit MarksReader(const OdResBuf* pData)
    {
        if (pData)
            m_pElement = pData->next();
    }

    bool Read(OdUInt32& uiValue)
    {
        return Take(OdResBuf::kDxfXdInteger32,
                    [&](const OdResBuf& element) { uiValue = static_cast<OdUInt32>(element.getInt32()); });
    }
    bool Read(OdString& strValue)
    {
        return Take(OdResBuf::kDxfXdAsciiString, [&](const OdResBuf& element) { strValue = element.getString(); });
    }

private:
    template<class Use>
    bool Take(int iType, Use use)
    {
        if (!m_pElement || m_pElement->restype() != iType)
            return false;
        use(*m_pElement);
        m_pElement = m_pElement->next();
        return true;
    }

    OdResBufPtr m_pElement;
};

void RequireId(const OdDbObjectId& id, const OdChar* pszFunction)
{
    if (id.isNull())
        throw OdError_InvalidArgument(eInvalidObjectId, L"id", pszFunction);
}

OdDbObjectPtr RequireObject(const OdDbObjectPtr& pObject, const OdChar* pszFunction)
{
    if (!pObject)
        throw OdError_InvalidValue(eNullObjectPointer, L"pObject", pszFunction);
    return pObject;
}

// Nothing for an object that is not there, or has none.
OdResBufPtr MarksOf(const OdDbObjectPtr& pObject)
{
    const OdResBufPtr pData = pObject ? ReadMarks(*pObject) : OdResBufPtr();
    return pData && pData->next() ? pData : OdResBufPtr();
}

} // namespace

// ---- Reading
// ---------------------------------------------------------------------------------------------------------

bool CZolExtendedData::ObjectHasData(const OdDbObjectId& id, bool bOpenErased)
{
    return !MarksOf(id.openObject(OdDb::kForRead, bOpenErased)).isNull();
}

CZolExtendedDataPtr CZolExtendedData::Get(const OdDbObjectId& id, bool bCreate, bool bOpenErased)
{
    constexpr const OdChar* pszFunction = L"CZolExtendedData::Get";
    RequireId(id, pszFunction);
    const OdResBufPtr pData = MarksOf(id.openObject(OdDb::kForRead, bOpenErased));
    if (!pData && !bCreate)
        return CZolExtendedDataPtr();
    CZolExtendedDataPtr pResult = createObject();
    if (!pResult)
        throw OdError_InvalidValue(eNullObjectPointer, L"pResult", pszFunction);
    pResult->m_idObject = id;
    if (pData && !pResult->ReadFrom(pData))
        throw OdError_InvalidValue(eInvalidResBuf, L"pResult", pszFunction);
    return pResult;
}

bool CZolExtendedData::Initialize(const OdDbObject* pObject)
{
    return ReadFrom(ReadMarks(*pObject));
}

bool CZolExtendedData::ReadFrom(const OdResBuf* pData)
{
    MarksReader reader(pData);
    OdUInt32 uiVersion = 0;
    OdUInt32 uiCharacteristics = 0;
    if (!reader.Read(uiVersion) || uiVersion > m_uiCurrentVersion)
        return false;
    if (!reader.Read(m_uiFlags) || !reader.Read(uiCharacteristics))
        return false;
    m_eExtendedCharacteristicFlags = static_cast<EZolExtendedCharacteristicFlags>(uiCharacteristics);
    if (uiVersion > 1 && (!reader.Read(m_strLinkedObject) || !reader.Read(m_strGuid)))
        return false;
    m_bHasData = uiVersion < 3 || reader.Read(m_strName);
    return m_bHasData;
}

OdDbObjectId CZolExtendedData::DataReadFromObject() const
{
    return m_idObject;
}

// ---- Writing
// ---------------------------------------------------------------------------------------------------------

OdResBufPtr CZolExtendedData::GetResultBuffer() const
{
    OdResBufPtr pHead = OdResBuf::newRb(OdResBuf::kDxfRegAppName, Application());
    OdResBuf* pLast = pHead.get();
    const auto Append = [&pLast](const OdResBufPtr& pElement)
    {
        pLast->setNext(pElement.get());
        pLast = pElement.get();
    };
    for (const OdUInt32 uiWord : {m_uiCurrentVersion, m_uiFlags, OdUInt32(m_eExtendedCharacteristicFlags)})
        Append(OdResBuf::newRb(OdResBuf::kDxfXdInteger32, static_cast<OdInt32>(uiWord)));
    for (const OdString* pText : {&m_strLinkedObject, &m_strGuid, &m_strName})
        Append(OdResBuf::newRb(OdResBuf::kDxfXdAsciiString, *pText));
    return pHead;
}

// Nearly always the application is known, so it is looked for only when it turns out to be missing.
static void WriteMarks(OdDbObject& object, const OdResBuf& marks, const OdChar* pszFunction)
{
    try
    {
        object.setXData(&marks);
    }
    catch (const OdError& error)
    {
        OdDbDatabase* pDb = object.database();
        if (error.code() != eRegappIdNotFound || !pDb)
            throw;
        RegisterApplication(*pDb, kDefaultApplication, pszFunction);
        object.setXData(&marks);
    }
}

void CZolExtendedData::Save()
{
    SaveTo(m_idObject);
}

void CZolExtendedData::SaveTo(const OdDbObjectId& id)
{
    constexpr const OdChar* pszFunction = L"CZolExtendedData::SaveTo";
    RequireId(id, pszFunction);
    if (!m_bModified)
        return;
    const OdDbObjectPtr pObject = RequireObject(id.openObject(OdDb::kForWrite, true), pszFunction);
    if (!m_pWritten)
        m_pWritten = GetResultBuffer();
    if (!m_pWritten)
        throw OdError_InvalidValue(eNullObjectPointer, L"pResBuf", pszFunction);
    WriteMarks(*pObject, *m_pWritten, pszFunction);
}

void CZolExtendedData::Remove()
{
    RemoveFrom(m_idObject);
}

void CZolExtendedData::RemoveFrom(const OdDbObjectId& id)
{
    const OdDbObjectPtr pObject = RequireObject(id.openObject(OdDb::kForWrite, true), L"CZolExtendedData::RemoveFrom");
    if (MarksOf(pObject))
        pObject->setXData(OdResBuf::newRb(OdResBuf::kDxfRegAppName, Application()).get());
}

// ---- Fields
// ----------------------------------------------------------------------------------------------------------

template<class Value>
void CZolExtendedData::Change(Value& field, const Value& value)
{
    if (field == value)
        return;
    m_bModified = true;
    m_pWritten.release();
    field = value;
}

void CZolExtendedData::SetFlag(OdUInt32 uiFlag, bool bValue)
{
    Change(m_uiFlags, bValue ? m_uiFlags | uiFlag : m_uiFlags & ~uiFlag);
}

void CZolExtendedData::Reset()
{
    Change(m_uiFlags, OdUInt32(0));
    Change(m_eExtendedCharacteristicFlags, eZolExtendedCharacteristicNone);
    for (OdString* pText : {&m_strLinkedObject, &m_strGuid, &m_strName})
        Change(*pText, OdString());
}

bool CZolExtendedData::IgnoreOnCharacteristicSearch() const
{
    return HasFlag(eFlagIgnoreOnCharacteristicSearch | eFlagCustomLabel);
}

void CZolExtendedData::SetIgnoreOnCharacteristicSearch(bool bValue)
{
    SetFlag(eFlagIgnoreOnCharacteristicSearch, bValue);
}

bool CZolExtendedData::IsCreatedObject() const
{
    return HasFlag(eFlagCreatedObject);
}

void CZolExtendedData::SetIsCreatedObject(bool bValue)
{
    SetFlag(eFlagCreatedObject, bValue);
}

bool CZolExtendedData::IsCustomLabel() const
{
    return HasFlag(eFlagCustomLabel);
}

void CZolExtendedData::SetIsCustomLabel(bool bValue)
{
    SetFlag(eFlagCustomLabel, bValue);
}

bool CZolExtendedData::IsTable() const
{
    return HasFlag(eFlagTable);
}

void CZolExtendedData::SetIsTable(bool bValue)
{
    SetFlag(eFlagTable, bValue);
}

OdDbObjectId CZolExtendedData::GetLinkedObject() const
{
    OdDbDatabase* pDb = m_idObject.database();
    if (m_strLinkedObject.isEmpty() || !pDb)
        return OdDbObjectId();
    return pDb->getOdDbObjectId(OdDbHandle(m_strLinkedObject), false);
}

void CZolExtendedData::SetLinkedObject(const OdDbObjectId& value)
{
    if (!value.isValid())
        throw OdError_InvalidArgument(eInvalidObjectId, L"value", L"CZolExtendedData::SetLinkedObject");
    Change(m_strLinkedObject, value.getHandle().ascii());
}

OdString CZolExtendedData::GetGuid() const
{
    return m_strGuid;
}

void CZolExtendedData::SetGuid(const OdString& value)
{
    Change(m_strGuid, value);
}

OdString CZolExtendedData::GetName() const
{
    return m_strName;
}

void CZolExtendedData::SetName(const OdString& value)
{
    Change(m_strName, value);
}

EZolExtendedCharacteristicFlags CZolExtendedData::GetExtendedCharacteristicFlags() const
{
    return m_eExtendedCharacteristicFlags;
}

void CZolExtendedData::SetExtendedCharacteristicFlags(EZolExtendedCharacteristicFlags eValue)
{
    Change(m_eExtendedCharacteristicFlags, eValue);
}

void CZolExtendedData::SetIsRoughnessValue(bool bValue)
{
    constexpr OdUInt32 uiBit = eZolExtendedCharacteristicRoughnessValue;
    const OdUInt32 uiPresent = m_eExtendedCharacteristicFlags;
    const OdUInt32 uiFlags = bValue ? uiPresent | uiBit : uiPresent & ~uiBit;
    SetExtendedCharacteristicFlags(static_cast<EZolExtendedCharacteristicFlags>(uiFlags));
}
