// Drawing borders: the frame of a sheet and the names of the columns and lines that it is divided into.
//
//   dictionary "ZOL_DRAWINGBORDERDATA" in the named-objects dictionary: one entry for each border, under its GUID
//
//   DXF, object "CDRAWINGBORDERDATA"     DWG-style filers
//     100  "CDrawingBorderData"            owner               soft owner, wblock cloning only
//      70  version, 1                      version, 1          16 bits
//       1  GUID                            GUID                string
//     290  marked as deleted               marked as deleted   bool
//     290  corners valid                   corners valid       bool
//     290  columns and lines valid         columns and lines   bool
//      12  first corner                    first corner        point
//      12  second corner                   second corner       point
//      90  number of columns               number of columns   32 bits
//      90  number of lines                 number of lines     32 bits
//       1  column ...                      columns             strings
//       1  line ...                        lines               strings
//
// Filers that only ask for ids (id translation, id, purge) get no more than the version.
#pragma once

#include <utility>

#include "DbDatabase.h"
#include "DbDictionary.h"
#include "DbObject.h"
#include "Ge/GePoint3d.h"
#include "QuendZolExport.h"
#include "StringArray.h"

class OdDbUserIO;

/** A CDrawingBorderData is the border of one sheet: two corners in drawing units and two lists of names, each valid or
    not yet. A border that is no longer wanted is marked as deleted rather than erased, so that its GUID stays taken.

    The operations that read require the border to be open for read, those that change it for write, as OdDbObject says.
    Errors that an operation throws itself name "CDrawingBorderData::" and the operation as their function. */
class QUEND_ZOL_EXPORT CDrawingBorderData : public OdDbObject
{
public:
    ODDB_DECLARE_MEMBERS(CDrawingBorderData);

    /** The dictionary of all borders of a drawing, open for read; created by the first call. Throws
        OdError_InvalidArgument 122 "pDb", 20 "pNamedObjectsDictionary", 20 "pDictionary"; OdError_NotThatKindOfClass
        when something else lies in its place. */
    static OdDbDictionaryPtr GetDictionary(const OdDbDatabase* pDb);

    /** Makes a new border resident under the GUID as given (a new GUID for an empty or all-zero one). Returns its id,
        null with nothing done for a null database. Throws what GetDictionary throws. */
    virtual OdDbObjectId Initialize(OdDbDatabase* pDb, const OdString& strGuid);

    /** Changes the GUID, trimmed, and the dictionary entry with it. An empty or all-zero GUID, and the same one in
       another case, change nothing. Throws what GetDictionary throws, for the border's own database. */
    virtual void setGuid(const OdString& strGuid);

    /** Asks the user for the GUID; the present one is the default. Throws OdError_InvalidArgument 417 "pIO", and what
        setGuid and OdDbUserIO::getString throw. */
    virtual void UpdateGuid(OdDbUserIO* pIO);

    /** Marks the border as deleted, or takes the mark off. */
    virtual void Delete(bool bDelete);
    virtual bool IsDeleted() const;

    OdResult dwgInFields(OdDbDwgFiler* pFiler) override;
    void dwgOutFields(OdDbDwgFiler* pFiler) const override;
    /** Appends what it reads to the lists. */
    OdResult dxfInFields(OdDbDxfFiler* pFiler) override;
    void dxfOutFields(OdDbDxfFiler* pFiler) const override;

    /** Takes any two opposite corners. They are valid from then on. */
    void SetCorners(const OdGePoint3d& first, const OdGePoint3d& second);
    /** First the corner of least x, greatest y and least z, then that of greatest x, least y and greatest z. */
    std::pair<OdGePoint3d, OdGePoint3d> GetCorners() const;
    bool AreCornersValid() const;
    /** Takes the validity back; the corners stay. */
    void ForceCornersInvalid();

    /** Replaces both lists. They become valid when both have entries, and stay as valid as they were otherwise. */
    void SetColumnLineIds(const OdStringArray& columns, const OdStringArray& lines);
    void GetColumnLineIds(OdStringArray& columns, OdStringArray& lines) const;
    /** The lists themselves, for as long as the border is open and not changed. */
    const OdStringArray& GetColumnIds() const;
    const OdStringArray& GetLineIds() const;
    bool AreColumnLinesValid() const;
    /** Takes the validity back; the lists stay. */
    void ForceColumnLinesInvalid();

    /** The version that is written; data of a later one are refused. */
    static const OdInt16 m_iLastKnownVersion;
    static const OdString m_strDictionaryName;

protected:
    CDrawingBorderData() = default;

    OdResult subOpen(OdDb::OpenMode mode) override;
    void subClose() override;
    OdResult subErase(bool erasing) override;

private:
    void MoveTo(const OdString& strGuid);
    void ReadGuid(OdDbDwgFiler& filer);

    OdString m_guid;
    bool m_bDeleted = false;
    bool m_bCornersValid = false;
    OdGePoint3d m_first;
    OdGePoint3d m_second;
    bool m_bColumnLinesValid = false;
    OdStringArray m_columnIds;
    OdStringArray m_lineIds;
};
using CDrawingBorderDataPtr = OdSmartPtr<CDrawingBorderData>;
