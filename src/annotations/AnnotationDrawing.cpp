// Makes layers, styles and block definitions for stamps.
#include "annotations/AnnotationDrawing.h"

#include "DbBlockTableRecord.h"
#include "DbLayerTable.h"
#include "DbLayerTableRecord.h"
#include "DbTextStyleTable.h"
#include "DbTextStyleTableRecord.h"
#include "annotations/FreeName.h"

namespace Annotation
{

namespace
{

constexpr const OdChar* kLayerName = L"*ZOL_Annotations_Layer";
constexpr const OdChar* kTextStyleName = L"ZOL_STAMP_TEXTSTYLE_ARIAL";

OdDbTextStyleTableRecordPtr MakeTextStyle()
{
    OdDbTextStyleTableRecordPtr pStyle = OdDbTextStyleTableRecord::createObject();
    pStyle->setFileName(L"arial.ttf");
    pStyle->setFont(L"Arial", false, false, 0, 0);
    return pStyle;
}

/// The record of a name, made by the function when it is missing.
template<class Table, class Make>
OdDbObjectId FindOrAdd(OdDbObjectId idTable, const OdChar* pszName, Make make)
{
    const OdSmartPtr<Table> pTable = idTable.safeOpenObject(OdDb::kForRead);
    if (pTable->has(pszName))
        return pTable->getAt(pszName);
    const OdDbSymbolTableRecordPtr pRecord = make();
    pRecord->setName(pszName);
    pTable->upgradeOpen();
    const OdDbObjectId id = pTable->add(pRecord);
    pTable->downgradeOpen();
    return id;
}

} // namespace

OdDbObjectId CAnnotationDrawing::Layer()
{
    if (m_idLayer.isNull())
        m_idLayer = FindOrAdd<OdDbLayerTable>(m_db.getLayerTableId(), kLayerName,
                                              [] { return OdDbLayerTableRecord::createObject(); });
    return m_idLayer;
}

OdDbObjectId CAnnotationDrawing::TextStyle()
{
    if (m_idTextStyle.isNull())
        m_idTextStyle = FindOrAdd<OdDbTextStyleTable>(m_db.getTextStyleTableId(), kTextStyleName, &MakeTextStyle);
    return m_idTextStyle;
}

OdDbObjectId CAnnotationDrawing::AddDefinition(const OdChar* pszName)
{
    const OdDbBlockTablePtr pBlocks = m_db.getBlockTableId().safeOpenObject(OdDb::kForWrite);
    const OdDbBlockTableRecordPtr pDefinition = OdDbBlockTableRecord::createObject();
    int& iLast = m_lastNumbers[pszName];
    const FreeName free = FindFreeName(pszName, iLast, [&](const OdString& strName) { return pBlocks->has(strName); });
    iLast = free.iNumber;
    pDefinition->setName(free.strName);
    const OdDbObjectId id = pBlocks->add(pDefinition);
    pBlocks->downgradeOpen();
    return id;
}

bool EraseDefinitionIfUnused(const OdDbObjectId& idDefinition)
{
    const OdDbBlockTableRecordPtr pDefinition = idDefinition.safeOpenObject(OdDb::kForWrite);
    OdDbObjectIdArray references;
    pDefinition->getBlockReferenceIds(references);
    if (!references.isEmpty())
        return false;
    const bool bErased = pDefinition->erase(true) == eOk;
    pDefinition->downgradeOpen();
    return bErased;
}

} // namespace Annotation
