// Makes layers, styles and block definitions for stamps.
#include "annotations/AnnotationDrawing.h"

#include "DbBlockTableRecord.h"
#include "DbLayerTable.h"
#include "DbLayerTableRecord.h"
#include "DbTextStyleTable.h"
#include "DbTextStyleTableRecord.h"

namespace Annotation
{

namespace
{

constexpr const OdChar* kLayerName = L"*ZOL_Annotations_Layer";
constexpr const OdChar* kTextStyleName = L"ZOL_STAMP_TEXTSTYLE_ARIAL";

OdDbTextStyleTableRecordPtr MakeTextStyle()
{
    const OdDbTextStyleTableRecordPtr pStyle = OdDbTextStyleTableRecord::createObject();
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

OdString Numbered(const OdChar* pszName, int iNumber)
{
    return iNumber == 1 ? OdString(pszName) : OdString(pszName) + L"_" + OdString(std::to_wstring(iNumber));
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

// Numbers are taken from the first on, so that a free one behind a taken one is found by doubling and halving; within
// a request the next number is free as a rule.
OdString CAnnotationDrawing::FreeName(const OdDbBlockTable& blocks, const OdChar* pszName)
{
    int& iLast = m_lastNumbers[pszName];
    const auto isTaken = [&](int iNumber) { return blocks.has(Numbered(pszName, iNumber)); };
    int iTaken = iLast;
    int iFree = iTaken + 1;
    for (int iStep = 1; isTaken(iFree); iStep *= 2)
    {
        iTaken = iFree;
        iFree += iStep;
    }
    while (iFree - iTaken > 1)
    {
        const int iMiddle = iTaken + (iFree - iTaken) / 2;
        (isTaken(iMiddle) ? iTaken : iFree) = iMiddle;
    }
    iLast = iFree;
    return Numbered(pszName, iFree);
}

OdDbObjectId CAnnotationDrawing::AddDefinition(const OdChar* pszName)
{
    const OdDbBlockTablePtr pBlocks = m_db.getBlockTableId().safeOpenObject(OdDb::kForWrite);
    const OdDbBlockTableRecordPtr pDefinition = OdDbBlockTableRecord::createObject();
    pDefinition->setName(FreeName(*pBlocks, pszName));
    const OdDbObjectId id = pBlocks->add(pDefinition);
    pBlocks->downgradeOpen();
    return id;
}

} // namespace Annotation
