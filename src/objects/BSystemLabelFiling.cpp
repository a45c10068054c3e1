// How a label is written to and read from filers and JSON; the layouts stand in BSystemLabel.h.
#include "BSystemLabel.h"
#include "DbFiler.h"
#include "ModuleErrors.h"
#include "framework/Json.h"
#include "objects/Guid.h"
#include "objects/ReferenceList.h"

// ---- DWG-style filers
// ------------------------------------------------------------------------------------------------

OdResult CBSystemLabel::dwgInFields(OdDbDwgFiler* pFiler)
{
    assertWriteEnabled();
    const OdResult eResult = OdDbObject::dwgInFields(pFiler);
    if (eResult != eOk)
        return eResult;
    if (pFiler->filerType() == OdDbFiler::kWblockCloneFiler)
        pFiler->rdHardPointerId();
    if (pFiler->rdInt16() > m_iLastKnownVersion)
        return eNotImplementedYet;
    ReadGuid(*pFiler);
    ReadLabel(*pFiler);
    ReadReferences(*pFiler);
    return eOk;
}

void CBSystemLabel::ReadGuid(OdDbDwgFiler& filer)
{
    const GuidReading reading = ::ReadGuid(*this, filer, filer.rdString(), m_strGuid, &CBSystemLabel::GetDictionary);
    if (reading.bMoves)
        SetGuid(reading.strGuid);
    else
        m_strGuid = reading.strGuid;
}

void CBSystemLabel::ReadLabel(OdDbDwgFiler& filer)
{
    const OdString strLabel = filer.rdString();
    if (IsPutBack(*this, filer))
        m_strLabel = strLabel;
    else
        SetLabel(strLabel);
}

// A reference whose object was not copied along is null after its translation and stands for nothing.
void CBSystemLabel::ReadReferences(OdDbDwgFiler& filer)
{
    m_pReferences->Clear();
    for (OdInt32 iLeft = filer.rdInt32(); iLeft > 0; --iLeft)
    {
        const OdDbObjectId id = filer.rdHardPointerId();
        if (!id.isNull() || filer.filerType() != OdDbFiler::kIdXlateFiler)
            m_pReferences->Append(id);
    }
}

// A handle that names nothing is written back, an entity that the user erased is not.
OdDbObjectIdArray CBSystemLabel::ReferencesFor(const OdDbFiler& filer) const
{
    if (filer.filerType() != OdDbFiler::kFileFiler)
        return m_pReferences->Ids();
    OdDbObjectIdArray ids;
    m_pReferences->ForEach(
        [&](const OdDbObjectId& id)
        {
            if (!id.isValid() || !id.isErased())
                ids.append(id);
        });
    return ids;
}

void CBSystemLabel::dwgOutFields(OdDbDwgFiler* pFiler) const
{
    assertReadEnabled();
    OdDbObject::dwgOutFields(pFiler);
    if (pFiler->filerType() == OdDbFiler::kWblockCloneFiler)
        pFiler->wrHardPointerId(ownerId());
    pFiler->wrInt16(m_iLastKnownVersion);
    pFiler->wrString(m_strGuid);
    pFiler->wrString(m_strLabel);
    const OdDbObjectIdArray ids = ReferencesFor(*pFiler);
    pFiler->wrInt32(static_cast<OdInt32>(ids.size()));
    for (const OdDbObjectId& id : ids)
        pFiler->wrHardPointerId(id);
}

// ---- DXF
// -------------------------------------------------------------------------------------------------------------

static bool IsNext(OdDbDxfFiler& filer, int iGroupCode)
{
    return !filer.atEOF() && filer.nextItem() == iGroupCode;
}

OdResult CBSystemLabel::dxfInFields(OdDbDxfFiler* pFiler)
{
    assertWriteEnabled();
    const OdResult eResult = OdDbObject::dxfInFields(pFiler);
    if (eResult != eOk)
        return eResult;
    if (!pFiler->atSubclassData(desc()->name()))
        return eBadDxfSequence;
    if (!IsNext(*pFiler, 70) || pFiler->rdInt16() > m_iLastKnownVersion)
        return eNotImplementedYet;
    if (!IsNext(*pFiler, 1))
        return eNotImplementedYet;
    SetGuid(pFiler->rdString());
    if (!IsNext(*pFiler, 2))
        return eNotImplementedYet;
    SetLabel(pFiler->rdString());
    if (!IsNext(*pFiler, 90))
        return eNotImplementedYet;
    m_pReferences->Clear();
    for (OdInt32 iLeft = pFiler->rdInt32(); iLeft > 0; --iLeft)
    {
        if (!IsNext(*pFiler, 340))
            return eNotImplementedYet;
        m_pReferences->Append(pFiler->rdObjectId());
    }
    return eOk;
}

void CBSystemLabel::dxfOutFields(OdDbDxfFiler* pFiler) const
{
    assertReadEnabled();
    OdDbObject::dxfOutFields(pFiler);
    pFiler->wrSubclassMarker(desc()->name());
    pFiler->wrInt16(70, m_iLastKnownVersion);
    pFiler->wrString(1, m_strGuid);
    pFiler->wrString(2, m_strLabel);
    const OdDbObjectIdArray ids = ReferencesFor(*pFiler);
    pFiler->wrInt32(90, static_cast<OdInt32>(ids.size()));
    for (const OdDbObjectId& id : ids)
        pFiler->wrObjectId(340, id);
}

// ---- JSON
// ------------------------------------------------------------------------------------------------------------

namespace
{

constexpr const OdChar* kHandle = L"Handle";
constexpr const OdChar* kVersion = L"Version";
constexpr const OdChar* kGuid = L"Guid";
constexpr const OdChar* kLabel = L"Label";
constexpr const OdChar* kReferences = L"ReferencedElements";

void Require(bool bIsOfType, const OdChar* pszName)
{
    if (!bIsOfType)
        throw OdError_InvalidValue(eInvalidInput, pszName, L"CBSystemLabel::JsonInFields");
}

const JsonValue* FindText(const JsonValue& object, const OdChar* pszName)
{
    const JsonValue* pText = FindMember(object, pszName);
    if (pText)
        Require(pText->IsString(), pszName);
    return pText;
}

} // namespace

// Refuses what is meant for another label or written by a later version.
void CBSystemLabel::ReadJsonHead(const JsonValue& value) const
{
    if (const JsonValue* pHandle = FindText(value, kHandle))
    {
        const OdString strHandle = TextOfJson(*pHandle);
        if (!strHandle.isEmpty() && strHandle.iCompare(objectHandle().ascii()) != 0)
            throw OdError(eInvalidObjectId);
    }
    if (const JsonValue* pVersion = FindMember(value, kVersion))
    {
        Require(pVersion->IsNumber(), kVersion);
        if (pVersion->GetDouble() > m_iLastKnownVersion)
            throw OdError(eMakeMeProxy);
    }
}

OdDbObjectIdArray CBSystemLabel::ReadJsonReferences(const JsonValue& elements) const
{
    Require(elements.IsArray(), kReferences);
    CReferenceList ids;
    for (const JsonValue& element : elements.GetArray())
    {
        Require(element.IsString(), kReferences);
        const OdString strHandle = TextOfJson(element);
        OdDbObjectId id;
        if (strHandle.iCompare(L"NONE") != 0 && database())
            id = database()->getOdDbObjectId(OdDbHandle(strHandle), false);
        if (!id.isValid())
            id.setNull();
        if (!ids.Has(id))
            ids.Append(id);
    }
    return ids.Ids();
}

void CBSystemLabel::JsonInFields(const JsonValue& value)
{
    assertWriteEnabled();
    Require(value.IsObject(), L"value");
    ReadJsonHead(value);
    if (const JsonValue* pGuid = FindText(value, kGuid); pGuid && !IsNullGuid(TextOfJson(*pGuid)))
        SetGuid(TextOfJson(*pGuid));
    if (const JsonValue* pLabel = FindText(value, kLabel))
        SetLabel(TextOfJson(*pLabel));
    if (const JsonValue* pReferences = FindMember(value, kReferences))
        SetReferencedObjectIds(ReadJsonReferences(*pReferences));
}

void CBSystemLabel::JsonOutFields(JsonValue& value, JsonAllocator& allocator) const
{
    assertReadEnabled();
    const auto Add = [&](const OdChar* pszName, JsonValue&& member)
    { value.AddMember(rapidjson::StringRef(pszName), member, allocator); };
    value.SetObject();
    if (!objectHandle().isNull())
        Add(kHandle, JsonOfText(objectHandle().ascii(), allocator));
    Add(kVersion, JsonValue(static_cast<int>(m_iLastKnownVersion)));
    Add(kGuid, JsonOfText(m_strGuid, allocator));
    Add(kLabel, JsonOfText(m_strLabel, allocator));
    JsonValue elements(rapidjson::kArrayType);
    elements.Reserve(m_pReferences->Count(), allocator);
    m_pReferences->ForEach([&](const OdDbObjectId& id)
                           { elements.PushBack(JsonOfText(id.getHandle().ascii(), allocator), allocator); });
    Add(kReferences, std::move(elements));
}
