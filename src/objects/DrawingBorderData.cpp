// The drawing border: its identity, its corners, its columns and lines.
#include "DrawingBorderData.h"

#include <algorithm>

#include "DbUserIO.h"
#include "RxSystemServices.h"
#include "module/ground/Messages.h"
#include "module/ground/Text.h"
#include "objects/Guid.h"
#include "objects/ObjectDictionary.h"

ODRX_DXF_DEFINE_MEMBERS(CDrawingBorderData, OdDbObject, DBOBJECT_CONSTR, OdDb::vAC32, OdDb::kMRelease55, 0,
                        L"CDRAWINGBORDERDATA", L"Quend.Zol.Cad.tx")

const OdInt16 CDrawingBorderData::m_iLastKnownVersion = 1;
const OdString CDrawingBorderData::m_strDictionaryName(L"ZOL_DRAWINGBORDERDATA");

OdResult CDrawingBorderData::subGetClassID(void* classId) const
{
    return OdDbObject::subGetClassID(classId);
}

OdResult CDrawingBorderData::subOpen(OdDb::OpenMode mode)
{
    return OdDbObject::subOpen(mode);
}

void CDrawingBorderData::subClose()
{
    OdDbObject::subClose();
}

OdResult CDrawingBorderData::subErase(bool erasing)
{
    return OdDbObject::subErase(erasing);
}

// ---- Identity
// --------------------------------------------------------------------------------------------------------

OdDbDictionaryPtr CDrawingBorderData::GetDictionary(const OdDbDatabase* pDb)
{
    return OpenObjectDictionary<OdError_InvalidArgument>(pDb, m_strDictionaryName,
                                                         L"CDrawingBorderData::GetDictionary");
}

OdDbObjectId CDrawingBorderData::Initialize(OdDbDatabase* pDb, const OdString& strGuid)
{
    assertWriteEnabled();
    if (!pDb)
        return OdDbObjectId();
    const OdDbDictionaryPtr pDictionary = GetDictionary(pDb);
    m_guid = strGuid.isEmpty() || IsNullGuid(strGuid) ? CreateGuid() : strGuid;
    return PutInDictionary(*pDictionary, m_guid, *this);
}

void CDrawingBorderData::setGuid(const OdString& strGuid)
{
    assertWriteEnabled();
    const OdString strTrimmed = Trimmed(strGuid);
    if (strTrimmed.isEmpty() || IsNullGuid(strTrimmed) || strTrimmed.iCompare(m_guid) == 0)
        return;
    MoveTo(strTrimmed);
}

// The entry under the old key may be that of another object by now; that one stays.
void CDrawingBorderData::MoveTo(const OdString& strGuid)
{
    const OdDbDictionaryPtr pDictionary = GetDictionary(database());
    const OdDbObjectId id = PutInDictionary(*pDictionary, strGuid, *this);
    if (!m_guid.isEmpty() && pDictionary->getAt(m_guid) == id)
    {
        pDictionary->upgradeOpen();
        pDictionary->remove(m_guid);
        pDictionary->downgradeOpen();
    }
    m_guid = strGuid;
}

void CDrawingBorderData::UpdateGuid(OdDbUserIO* pIO)
{
    assertWriteEnabled();
    if (!pIO)
        throw OdError_InvalidArgument(eNullPtr, L"pIO", L"CDrawingBorderData::UpdateGuid");
    setGuid(pIO->getString(odSystemServices()->formatMessage(eMessageBorderGuid, m_guid.c_str()), 0, m_guid));
}

void CDrawingBorderData::Delete(bool bDelete)
{
    assertWriteEnabled();
    m_bDeleted = bDelete;
}

bool CDrawingBorderData::IsDeleted() const
{
    assertReadEnabled();
    return m_bDeleted;
}

// ---- Corners
// ---------------------------------------------------------------------------------------------------------

void CDrawingBorderData::SetCorners(const OdGePoint3d& first, const OdGePoint3d& second)
{
    assertWriteEnabled();
    m_first.set(std::min(first.x, second.x), std::max(first.y, second.y), std::min(first.z, second.z));
    m_second.set(std::max(first.x, second.x), std::min(first.y, second.y), std::max(first.z, second.z));
    m_bCornersValid = true;
}

std::pair<OdGePoint3d, OdGePoint3d> CDrawingBorderData::GetCorners() const
{
    assertReadEnabled();
    return {m_first, m_second};
}

bool CDrawingBorderData::AreCornersValid() const
{
    assertReadEnabled();
    return m_bCornersValid;
}

void CDrawingBorderData::ForceCornersInvalid()
{
    assertWriteEnabled();
    m_bCornersValid = false;
}

// ---- Columns and lines
// -----------------------------------------------------------------------------------------------

void CDrawingBorderData::SetColumnLineIds(const OdStringArray& columns, const OdStringArray& lines)
{
    assertWriteEnabled();
    m_columnIds = columns;
    m_lineIds = lines;
    if (!m_columnIds.isEmpty() && !m_lineIds.isEmpty())
        m_bColumnLinesValid = true;
}

void CDrawingBorderData::GetColumnLineIds(OdStringArray& columns, OdStringArray& lines) const
{
    assertReadEnabled();
    columns = m_columnIds;
    lines = m_lineIds;
}

const OdStringArray& CDrawingBorderData::GetColumnIds() const
{
    assertReadEnabled();
    return m_columnIds;
}

const OdStringArray& CDrawingBorderData::GetLineIds() const
{
    assertReadEnabled();
    return m_lineIds;
}

bool CDrawingBorderData::AreColumnLinesValid() const
{
    assertReadEnabled();
    return m_bColumnLinesValid;
}

void CDrawingBorderData::ForceColumnLinesInvalid()
{
    assertWriteEnabled();
    m_bColumnLinesValid = false;
}
