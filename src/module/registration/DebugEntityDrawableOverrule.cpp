// Reads the marks of what is drawn and changes its colour.
#include "module/registration/DebugEntityDrawableOverrule.h"

#include "DbEntity.h"
#include "Gi/GiSubEntityTraits.h"
#include "OdError.h"
#include "RxObjectImpl.h"
#include "ZolExtendedData.h"

#define IN_FORCE_CONSTR(ClassName) ClassName::CreateInForce()
ODRX_CONS_DEFINE_MEMBERS(CDebugEntityDrawableOverrule, OdGiDrawableOverrule, IN_FORCE_CONSTR)

OdRxObjectPtr CDebugEntityDrawableOverrule::CreateInForce()
{
    const auto pOverrule = OdRxObjectImpl<CDebugEntityDrawableOverrule>::createObject();
    pOverrule->PutInForce();
    return pOverrule;
}

void CDebugEntityDrawableOverrule::PutInForce()
{
    m_bWasOverruling = OdRxOverrule::s_bIsOverruling;
    m_bAdded = OdRxOverrule::addOverrule(OdDbEntity::desc(), this, false) == eOk;
    if (m_bAdded)
        OdRxOverrule::setIsOverruling(true);
}

CDebugEntityDrawableOverrule::~CDebugEntityDrawableOverrule()
{
    if (!m_bAdded)
        return;
    OdRxOverrule::removeOverrule(OdDbEntity::desc(), this);
    OdRxOverrule::setIsOverruling(m_bWasOverruling);
}

// Marks that cannot be read are no reason not to draw.
static CZolExtendedDataPtr FindMarks(const OdGiDrawable* pSubject)
{
    const OdDbObjectPtr pObject = OdDbObject::cast(pSubject);
    if (!pObject || !pObject->isDBRO())
        return CZolExtendedDataPtr();
    try
    {
        return CZolExtendedData::Get(pObject->objectId(), false, false);
    }
    catch (const OdError&)
    {
        return CZolExtendedDataPtr();
    }
}

OdUInt32 CDebugEntityDrawableOverrule::setAttributes(const OdGiDrawable* subject, OdGiDrawableTraits* traits)
{
    const OdUInt32 uiResult = OdGiDrawableOverrule::setAttributes(subject, traits);
    const CZolExtendedDataPtr pData = FindMarks(subject);
    const OdSmartPtr<OdGiSubEntityTraits> pTraits = OdGiSubEntityTraits::cast(traits);
    if (!pData || !pTraits)
        return uiResult;
    if (pData->IsCustomLabel())
        pTraits->setTrueColor(OdCmEntityColor(0, 0, 255));
    else if (pData->IgnoreOnCharacteristicSearch())
        pTraits->setTrueColor(OdCmEntityColor(0, 255, 0));
    return uiResult;
}
