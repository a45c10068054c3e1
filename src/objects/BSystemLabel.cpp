// The label object: its identity, its references and the marks they carry.
#include "BSystemLabel.h"

#include <unordered_set>

#include "DbBlockReference.h"
#include "DbBlockTableRecord.h"
#include "DbDimension.h"
#include "Ge/GeExtents3d.h"
#include "ModuleErrors.h"
#include "RxSystemServices.h"
#include "ZolExtendedData.h"
#include "module/ground/Text.h"
#include "objects/Guid.h"
#include "objects/ObjectDictionary.h"
#include "objects/ReferenceList.h"

ODRX_DXF_DEFINE_MEMBERS(CBSystemLabel, OdDbObject, DBOBJECT_CONSTR, OdDb::vAC32, OdDb::kMRelease55, 0, L"BSYSTEMLABEL",
                        L"Quend.Zol.Cad | Description: terra - SHAPING - B - System - Label")

const OdInt16 CBSystemLabel::m_iLastKnownVersion = 1;
const OdString CBSystemLabel::m_strDictionaryName(L"ZOL_BSYSTEM_LABELS");

CBSystemLabel::CBSystemLabel() : m_pReferences(std::make_unique<CReferenceList>()) {}

CBSystemLabel::~CBSystemLabel() = default;

OdResult CBSystemLabel::subGetClassID(void* classId) const
{
    return OdDbObject::subGetClassID(classId);
}

// ---- Identity
// --------------------------------------------------------------------------------------------------------

OdDbDictionaryPtr CBSystemLabel::GetDictionary(const OdDbDatabase* pDb)
{
    return OpenObjectDictionary<OdError_InvalidValue>(pDb, m_strDictionaryName, L"CBSystemLabel::GetDictionary");
}

static OdDbDictionaryPtr RequireDictionary(const OdDbDatabase* pDb, const OdChar* pszFunction)
{
    OdDbDictionaryPtr pDictionary = CBSystemLabel::GetDictionary(pDb);
    if (!pDictionary)
        throw OdError_InvalidValue(eNullObjectPointer, L"pDictionary", pszFunction);
    return pDictionary;
}

OdDbObjectId CBSystemLabel::Initialize(const OdDbDatabase* pDb, const OdString& strLabel, const OdDbObjectIdArray& ids,
                                       const OdString& strGuid)
{
    constexpr const OdChar* pszFunction = L"CBSystemLabel::Initialize";
    assertWriteEnabled();
    if (!pDb)
        throw OdError_InvalidArgument(eNoDatabase, L"pDb", pszFunction);
    m_strGuid = strGuid.isEmpty() || IsNullGuid(strGuid) ? CreateGuid() : strGuid;
    m_strLabel = strLabel;
    const OdDbDictionaryPtr pDictionary = RequireDictionary(pDb, pszFunction);
    const OdDbObjectId id = PutInDictionary(*pDictionary, m_strGuid, *this);
    SetReferencedObjectIds(ids);
    return id;
}

void CBSystemLabel::SetGuid(const OdString& strGuid)
{
    constexpr const OdChar* pszFunction = L"CBSystemLabel::SetGuid";
    assertWriteEnabled();
    const OdString strTrimmed = Trimmed(strGuid);
    if (strTrimmed.isEmpty() || IsNullGuid(strTrimmed))
        throw OdError_InvalidValue(eInvalidValue, L"strGuid", pszFunction);
    if (strTrimmed.iCompare(m_strGuid) == 0)
        return;
    const OdDbDictionaryPtr pDictionary = RequireDictionary(database(), pszFunction);
    if (!m_strGuid.isEmpty() && pDictionary->has(m_strGuid))
    {
        pDictionary->upgradeOpen();
        pDictionary->remove(m_strGuid);
        pDictionary->downgradeOpen();
    }
    m_strGuid = strTrimmed;
    PutInDictionary(*pDictionary, m_strGuid, *this);
}

OdString CBSystemLabel::GetGuid() const
{
    assertReadEnabled();
    return m_strGuid;
}

void CBSystemLabel::SetLabel(const OdString& strLabel)
{
    assertWriteEnabled();
    const OdString strTrimmed = Trimmed(strLabel);
    if (strTrimmed != m_strLabel)
        m_strLabel = strTrimmed;
}

OdString CBSystemLabel::GetLabel() const
{
    assertReadEnabled();
    return m_strLabel;
}

// ---- References
// ------------------------------------------------------------------------------------------------------

// Erased objects are opened too where marks are taken off or put back, so that labels on them can still be changed.
static OdDbObjectPtr RequireObject(const OdDbObjectId& id, bool bOpenErased, const OdChar* pszFunction)
{
    OdDbObjectPtr pObject = id.openObject(OdDb::kForRead, bOpenErased);
    if (!pObject)
        throw OdError_InvalidValue(eNullObjectPointer, L"pObject", pszFunction);
    return pObject;
}

void CBSystemLabel::AddAsReactor(const OdDbObjectPtr& pObject) const
{
    if (objectId().isNull() || pObject->hasPersistentReactor(objectId()))
        return;
    pObject->upgradeOpen();
    pObject->addPersistentReactor(objectId());
    pObject->downgradeOpen();
}

void CBSystemLabel::RemoveAsReactor(const OdDbObjectPtr& pObject) const
{
    if (objectId().isNull() || !pObject->hasPersistentReactor(objectId()))
        return;
    pObject->upgradeOpen();
    pObject->removePersistentReactor(objectId());
    pObject->downgradeOpen();
}

void CBSystemLabel::AddReferencedObjectId(const OdDbObjectId& id)
{
    constexpr const OdChar* pszFunction = L"CBSystemLabel::AddReferencedObjectId";
    assertWriteEnabled();
    if (id.isNull())
        throw OdError_InvalidArgument(eNullObjectId, L"id", pszFunction);
    if (!id.isValid())
        throw OdError_InvalidArgument(eInvalidObjectId, L"id", pszFunction);
    if (m_pReferences->Has(id))
        return;
    const OdDbObjectPtr pObject = RequireObject(id, false, pszFunction);
    SetExtendedData(id);
    AddAsReactor(pObject);
    m_pReferences->Append(id);
}

void CBSystemLabel::RemoveReferencedObjectId(const OdDbObjectId& id)
{
    assertWriteEnabled();
    if (!id.isValid() || !m_pReferences->Has(id))
        return;
    const OdDbObjectPtr pObject = RequireObject(id, true, L"CBSystemLabel::RemoveReferencedObjectId");
    RemoveAsReactor(pObject);
    RemoveExtendedData(id);
    m_pReferences->RemoveFirst(id);
}

/** Makes the marks of the label once for all objects that carry none yet. */
class CBSystemLabel::CommonMarks
{
public:
    explicit CommonMarks(CBSystemLabel& label) : m_label(label)
    {
        m_label.m_pCommonMarks = CZolExtendedData::createObject();
        m_label.PutMarks(*m_label.m_pCommonMarks);
    }
    ~CommonMarks() { m_label.m_pCommonMarks.release(); }
    CommonMarks(const CommonMarks&) = delete;
    CommonMarks& operator=(const CommonMarks&) = delete;

private:
    CBSystemLabel& m_label;
};

void CBSystemLabel::SetReferencedObjectIds(const OdDbObjectIdArray& ids)
{
    assertWriteEnabled();
    ClearReferencedObjectIds();
    const CommonMarks commonMarks(*this);
    for (const OdDbObjectId& id : ids)
        AddReferencedObjectId(id);
}

void CBSystemLabel::GetReferencedObjectIds(OdDbObjectIdArray& ids) const
{
    assertReadEnabled();
    ids = m_pReferences->Ids();
}

void CBSystemLabel::ClearReferencedObjectIds()
{
    assertWriteEnabled();
    const OdDbObjectIdArray ids = m_pReferences->Ids();
    for (const OdDbObjectId& id : ids)
        RemoveReferencedObjectId(id);
}

// ---- Marks
// -----------------------------------------------------------------------------------------------------------

/** The blocks whose entities are to be visited, each once: a block that contains itself ends there. */
class CBSystemLabel::BlockWalk
{
public:
    explicit BlockWalk(BlockWalk*& pCurrent) : m_pCurrent(pCurrent) { m_pCurrent = this; }
    ~BlockWalk() { m_pCurrent = nullptr; }
    BlockWalk(const BlockWalk&) = delete;
    BlockWalk& operator=(const BlockWalk&) = delete;

    void Add(const OdDbObjectId& idBlock)
    {
        if (m_known.insert(idBlock).second)
            m_waiting.push_back(idBlock);
    }
    bool IsEmpty() const { return m_waiting.empty(); }
    OdDbObjectId Take()
    {
        const OdDbObjectId idBlock = m_waiting.back();
        m_waiting.pop_back();
        return idBlock;
    }

private:
    BlockWalk*& m_pCurrent;
    std::unordered_set<OdDbObjectId> m_known;
    std::vector<OdDbObjectId> m_waiting;
};

static bool IsShared(const OdDbObjectId& idBlock)
{
    const OdDbBlockTableRecordPtr pBlock = idBlock.openObject();
    OdDbObjectIdArray references;
    if (pBlock)
        pBlock->getBlockReferenceIds(references);
    return references.size() >= 2;
}

// The block that the entity alone draws, null when there is none.
static OdDbObjectId FindOwnBlock(const OdDbEntity& entity)
{
    if (const OdDbBlockReferencePtr pReference = OdDbBlockReference::cast(&entity))
    {
        const OdDbObjectId idBlock = pReference->blockTableRecord();
        return IsShared(idBlock) ? OdDbObjectId() : idBlock;
    }
    const OdDbDimensionPtr pDimension = OdDbDimension::cast(&entity);
    return pDimension && pDimension->isSingleDimBlockReference() ? pDimension->dimBlockId() : OdDbObjectId();
}

static void ForEachEntity(const OdDbObjectId& idBlock, const std::function<void(const OdDbObjectId&)>& visit)
{
    const OdDbBlockTableRecordPtr pBlock = idBlock.openObject();
    if (!pBlock)
        return;
    for (OdDbObjectIteratorPtr pEntities = pBlock->newIterator(); !pEntities->done(); pEntities->step())
        visit(pEntities->objectId());
}

// Blocks inside of a block wait until that one is done, so that depth costs no stack.
void CBSystemLabel::VisitBlock(const OdDbObjectId& idBlock, Visit visitEntity)
{
    if (idBlock.isNull())
        return;
    if (m_pWalk)
        return m_pWalk->Add(idBlock);
    BlockWalk walk(m_pWalk);
    walk.Add(idBlock);
    while (!walk.IsEmpty())
        ForEachEntity(walk.Take(), [&](const OdDbObjectId& id) { (this->*visitEntity)(id); });
}

void CBSystemLabel::VisitMarked(const OdDbObjectId& id, const OdChar* pszFunction, Visit mark, Visit visitEntity)
{
    assertWriteEnabled();
    const OdDbObjectPtr pObject = RequireObject(id, true, pszFunction);
    const OdDbEntityPtr pEntity = OdDbEntity::cast(pObject.get());
    if (!pEntity)
        return;
    (this->*mark)(id);
    VisitBlock(FindOwnBlock(*pEntity), visitEntity);
}

void CBSystemLabel::SetExtendedData(const OdDbObjectId& id)
{
    VisitMarked(id, L"CBSystemLabel::SetExtendedData", &CBSystemLabel::Mark, &CBSystemLabel::SetExtendedData);
}

void CBSystemLabel::RemoveExtendedData(const OdDbObjectId& id)
{
    VisitMarked(id, L"CBSystemLabel::RemoveExtendedData", &CBSystemLabel::Unmark, &CBSystemLabel::RemoveExtendedData);
}

void CBSystemLabel::PutMarks(CZolExtendedData& data) const
{
    data.SetIsCustomLabel(true);
    data.SetGuid(m_strGuid);
    data.SetName(m_strLabel);
}

void CBSystemLabel::Mark(const OdDbObjectId& id)
{
    if (m_pCommonMarks && !CZolExtendedData::ObjectHasData(id, true))
        return m_pCommonMarks->SaveTo(id);
    const CZolExtendedDataPtr pData = CZolExtendedData::Get(id, true, true);
    if (!pData)
        return;
    PutMarks(*pData);
    pData->Save();
}

// A record that belongs to another label by now keeps what that one wrote.
void CBSystemLabel::Unmark(const OdDbObjectId& id)
{
    const CZolExtendedDataPtr pData = CZolExtendedData::Get(id, false, true);
    if (!pData)
        return;
    pData->SetIsCustomLabel(false);
    if (pData->GetGuid().iCompare(m_strGuid) == 0)
        pData->SetGuid(OdString());
    if (pData->GetName() == m_strLabel)
        pData->SetName(OdString());
    pData->Save();
}

OdResult CBSystemLabel::subErase(bool erasing)
{
    const OdResult eResult = OdDbObject::subErase(erasing);
    if (eResult != eOk)
        return eResult;
    const CommonMarks commonMarks(*this);
    for (const OdDbObjectId& id : std::as_const(*m_pReferences).Ids())
    {
        const OdDbObjectPtr pObject = RequireObject(id, true, L"CBSystemLabel::subErase");
        if (erasing)
        {
            RemoveAsReactor(pObject);
            RemoveExtendedData(id);
        }
        else
        {
            SetExtendedData(id);
            AddAsReactor(pObject);
        }
    }
    return eOk;
}

// ---- Geometry
// --------------------------------------------------------------------------------------------------------

static OdResult FindExtents(const OdDbObjectId& id, OdGeExtents3d& extents)
{
    const OdDbEntityPtr pEntity = OdDbEntity::cast(id.openObject().get());
    if (!pEntity)
        return eInvalidExtents;
    if (const OdDbBlockReferencePtr pReference = OdDbBlockReference::cast(pEntity.get()))
        return pReference->geomExtentsBestFit(extents, OdGeMatrix3d::kIdentity);
    return pEntity->getGeomExtents(extents);
}

OdResult CBSystemLabel::getGeomExtents(OdGeExtents3d& extents) const
{
    assertReadEnabled();
    OdGeExtents3d all;
    m_pReferences->ForEach(
        [&](const OdDbObjectId& id)
        {
            OdGeExtents3d one;
            if (FindExtents(id, one) == eOk)
                all.addExt(one);
        });
    if (!all.isValidExtents())
        return eInvalidExtents;
    extents = all;
    return eOk;
}
