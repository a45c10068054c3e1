// How a drawing border is written to and read from filers; the layouts stand in DrawingBorderData.h.
#include "DbFiler.h"
#include "DrawingBorderData.h"
#include "objects/Guid.h"

// What such a filer asks for is in the version already: a border refers to nothing.
static bool AsksForIdsOnly(const OdDbFiler& filer)
{
    switch (filer.filerType())
    {
    case OdDbFiler::kIdXlateFiler:
    case OdDbFiler::kIdFiler:
    case OdDbFiler::kPurgeFiler:
        return true;
    default:
        return false;
    }
}

// ---- DWG-style filers
// ------------------------------------------------------------------------------------------------

static void ReadStrings(OdDbDwgFiler& filer, OdInt32 iCount, OdStringArray& strings)
{
    for (; iCount > 0; --iCount)
        strings.append(filer.rdString());
}

OdResult CDrawingBorderData::dwgInFields(OdDbDwgFiler* pFiler)
{
    assertWriteEnabled();
    const OdResult eResult = OdDbObject::dwgInFields(pFiler);
    if (eResult != eOk)
        return eResult;
    if (pFiler->filerType() == OdDbFiler::kWblockCloneFiler)
        pFiler->rdSoftOwnershipId();
    if (pFiler->rdInt16() > m_iLastKnownVersion)
        return eNotImplementedYet;
    if (AsksForIdsOnly(*pFiler))
        return eOk;
    ReadGuid(*pFiler);
    m_bDeleted = pFiler->rdBool();
    m_bCornersValid = pFiler->rdBool();
    m_bColumnLinesValid = pFiler->rdBool();
    m_first = pFiler->rdPoint3d();
    m_second = pFiler->rdPoint3d();
    const OdInt32 iColumns = pFiler->rdInt32();
    const OdInt32 iLines = pFiler->rdInt32();
    m_columnIds.clear();
    m_lineIds.clear();
    ReadStrings(*pFiler, iColumns, m_columnIds);
    ReadStrings(*pFiler, iLines, m_lineIds);
    return eOk;
}

// A file brings the dictionary along.
void CDrawingBorderData::ReadGuid(OdDbDwgFiler& filer)
{
    const OdString strGuid = filer.rdString();
    const GuidReading reading = ::ReadGuid(*this, filer, strGuid, m_guid, &CDrawingBorderData::GetDictionary);
    if (filer.filerType() == OdDbFiler::kFileFiler)
        m_guid = strGuid;
    else if (reading.bMoves)
        setGuid(reading.strGuid);
    else
        m_guid = reading.strGuid;
}

void CDrawingBorderData::dwgOutFields(OdDbDwgFiler* pFiler) const
{
    assertReadEnabled();
    OdDbObject::dwgOutFields(pFiler);
    if (pFiler->filerType() == OdDbFiler::kWblockCloneFiler)
        pFiler->wrSoftOwnershipId(ownerId());
    pFiler->wrInt16(m_iLastKnownVersion);
    if (AsksForIdsOnly(*pFiler))
        return;
    pFiler->wrString(m_guid);
    pFiler->wrBool(m_bDeleted);
    pFiler->wrBool(m_bCornersValid);
    pFiler->wrBool(m_bColumnLinesValid);
    pFiler->wrPoint3d(m_first);
    pFiler->wrPoint3d(m_second);
    pFiler->wrInt32(static_cast<OdInt32>(m_columnIds.size()));
    pFiler->wrInt32(static_cast<OdInt32>(m_lineIds.size()));
    for (const OdStringArray* pStrings : {&m_columnIds, &m_lineIds})
        for (const OdString& strId : *pStrings)
            pFiler->wrString(strId);
}

// ---- DXF
// -------------------------------------------------------------------------------------------------------------

namespace
{

// Reads groups that have to come in one order; from the first one on that does not come, nothing more is read.
class GroupsInOrder
{
public:
    explicit GroupsInOrder(OdDbDxfFiler& filer) : m_filer(filer) {}

    bool IsComplete() const { return m_bComplete; }

    bool Next(int iGroupCode)
    {
        m_bComplete = m_bComplete && !m_filer.atEOF() && m_filer.nextItem() == iGroupCode;
        return m_bComplete;
    }
    void Read(int iGroupCode, OdInt16& iValue)
    {
        if (Next(iGroupCode))
            iValue = m_filer.rdInt16();
    }
    void Read(int iGroupCode, OdInt32& iValue)
    {
        if (Next(iGroupCode))
            iValue = m_filer.rdInt32();
    }
    void Read(int iGroupCode, bool& bValue)
    {
        if (Next(iGroupCode))
            bValue = m_filer.rdBool();
    }
    void Read(int iGroupCode, OdString& strValue)
    {
        if (Next(iGroupCode))
            strValue = m_filer.rdString();
    }
    void Read(int iGroupCode, OdGePoint3d& point)
    {
        if (Next(iGroupCode))
            m_filer.rdPoint3d(point);
    }
    void Append(int iGroupCode, OdInt32 iCount, OdStringArray& strings)
    {
        for (; iCount > 0 && Next(iGroupCode); --iCount)
            strings.append(m_filer.rdString());
    }

private:
    OdDbDxfFiler& m_filer;
    bool m_bComplete = true;
};

} // namespace

OdResult CDrawingBorderData::dxfInFields(OdDbDxfFiler* pFiler)
{
    assertWriteEnabled();
    const OdResult eResult = OdDbObject::dxfInFields(pFiler);
    if (eResult != eOk)
        return eResult;
    if (!pFiler->atSubclassData(desc()->name()))
        return eBadDxfSequence;
    GroupsInOrder groups(*pFiler);
    OdInt16 iVersion = 0;
    groups.Read(70, iVersion);
    if (!groups.IsComplete() || iVersion > m_iLastKnownVersion)
        return eNotImplementedYet;
    if (AsksForIdsOnly(*pFiler))
        return eOk;
    OdString strGuid;
    groups.Read(1, strGuid);
    if (!groups.IsComplete())
        return eNotImplementedYet;
    if (pFiler->filerType() == OdDbFiler::kFileFiler)
        m_guid = strGuid;
    else
        setGuid(strGuid);
    groups.Read(290, m_bDeleted);
    groups.Read(290, m_bCornersValid);
    groups.Read(290, m_bColumnLinesValid);
    groups.Read(12, m_first);
    groups.Read(12, m_second);
    OdInt32 iColumns = 0;
    OdInt32 iLines = 0;
    groups.Read(90, iColumns);
    groups.Read(90, iLines);
    groups.Append(1, iColumns, m_columnIds);
    groups.Append(1, iLines, m_lineIds);
    return groups.IsComplete() ? eOk : eNotImplementedYet;
}

void CDrawingBorderData::dxfOutFields(OdDbDxfFiler* pFiler) const
{
    assertReadEnabled();
    OdDbObject::dxfOutFields(pFiler);
    pFiler->wrSubclassMarker(desc()->name());
    pFiler->wrInt16(70, m_iLastKnownVersion);
    if (AsksForIdsOnly(*pFiler))
        return;
    pFiler->wrString(1, m_guid);
    pFiler->wrBool(290, m_bDeleted);
    pFiler->wrBool(290, m_bCornersValid);
    pFiler->wrBool(290, m_bColumnLinesValid);
    pFiler->wrPoint3d(12, m_first);
    pFiler->wrPoint3d(12, m_second);
    pFiler->wrInt32(90, static_cast<OdInt32>(m_columnIds.size()));
    pFiler->wrInt32(90, static_cast<OdInt32>(m_lineIds.size()));
    for (const OdStringArray* pStrings : {&m_columnIds, &m_lineIds})
        for (const OdString& strId : *pStrings)
            pFiler->wrString(1, strId);
}
