// Each record is worked on in a transaction of its own, so that one that fails leaves nothing behind.
#include "annotations/AnnotationWork.h"

#include "DbBlockTableRecord.h"
#include "DbLayout.h"
#include "EditorRefresher.h"
#include "ModuleServices.h"
#include "annotations/AnnotationChecks.h"
#include "annotations/AnnotationContent.h"
#include "annotations/AnnotationJson.h"
#include "framework/TransactionScope.h"

using Annotation::AnnotationProperties;
using Annotation::CAnnotationDrawing;

namespace
{

constexpr const OdChar* kDefinitionName = L"Annotation";
constexpr const OdChar* kEditorKey = L"EDITOROBJECT";

// ---- What is answered
// ------------------------------------------------------------------------------------------------

/// The array of results as it is written: piece by piece into the text that is answered.
class CResults
{
public:
    CResults() : m_writer(m_buffer) { m_writer.StartArray(); }

    void Add(const AnnotationProperties& record, const OdDbObjectId& idReference)
    {
        Annotation::WriteAnnotationResult(record, idReference, m_writer);
        if (m_buffer.GetSize() > kPiece)
            TakePiece();
    }
    OdResBufPtr Chain()
    {
        m_writer.EndArray();
        TakePiece();
        return CadCommands::SetParameterOdString(L"JSON", m_strJson);
    }

private:
    static constexpr std::size_t kPiece = std::size_t{256} * 1024; // in bytes

    void TakePiece()
    {
        m_strJson.append({m_buffer.GetString(), m_buffer.GetSize() / sizeof(OdChar)});
        m_buffer.Clear();
    }

    OdString m_strJson;
    JsonBuffer m_buffer;
    JsonWriter m_writer;
};

// ---- Where stamps are
// ------------------------------------------------------------------------------------------------

/// The space of the current layout, open for write.
OdDbBlockTableRecordPtr OpenSpace(OdDbDatabase& db)
{
    const OdDbLayoutPtr pLayout = db.currentLayoutId().safeOpenObject(OdDb::kForWrite);
    return pLayout->getBlockTableRecordId().safeOpenObject(OdDb::kForWrite);
}

/// The reference that a record names, open for write.
OdDbBlockReferencePtr OpenReference(OdDbDatabase& db, const AnnotationProperties& record)
{
    return db.getOdDbObjectId(OdDbHandle(record.handle)).safeOpenObject(OdDb::kForWrite);
}

/// Image files that are missing or unreadable are found out before anything is changed.
void RequireReady(CAnnotationDrawing& drawing, const AnnotationRecords& records)
{
    Annotation::RequireDrawable(records);
    for (const AnnotationProperties& record : records)
        if (record.HasImage())
            drawing.Pictures().Find(record);
}

/// Works on each record in a transaction of its own, and tidies up also when one of them fails.
template<class Work>
void ForEachInTransaction(CAnnotationDrawing& drawing, AnnotationRecords& records, Work work)
{
    try
    {
        for (AnnotationProperties& record : records)
        {
            CTransactionScope transaction(drawing.Database());
            work(record);
            transaction.End();
        }
    }
    catch (...)
    {
        drawing.Pictures().EraseUnused();
        throw;
    }
    drawing.Pictures().EraseUnused();
}

OdDbBlockReferencePtr AddReference(CAnnotationDrawing& drawing, OdDbBlockTableRecord& space)
{
    OdDbBlockReferencePtr pReference = OdDbBlockReference::createObject();
    pReference->setBlockTableRecord(drawing.AddDefinition(kDefinitionName));
    space.appendOdDbEntity(pReference);
    return pReference;
}

// ---- The editor
// ------------------------------------------------------------------------------------------------------

/// Tells the editor of a drawing, if it has one that wants to know.
class CEditor
{
public:
    explicit CEditor(const OdDbDatabase& db)
    {
        if (CModuleServices* pServices = CModuleServices::Find())
            m_pObject = pServices->arbitraryData(&db, kEditorKey);
    }
    void Refresh(const OdDbObjectId& idReference)
    {
        if (auto* pRefresher = dynamic_cast<CEditorRefresher*>(m_pObject.get()))
            pRefresher->Refresh(idReference);
    }

private:
    OdRxObjectPtr m_pObject;
};

} // namespace

void CreateAnnotations(CCommandCall& call, AnnotationRecords& records)
{
    CAnnotationDrawing drawing(*call.Database());
    RequireReady(drawing, records);
    const OdDbBlockTableRecordPtr pSpace = OpenSpace(drawing.Database());
    CResults results;
    ForEachInTransaction(drawing, records,
                         [&](AnnotationProperties& record)
                         {
                             const OdDbBlockReferencePtr pReference = AddReference(drawing, *pSpace);
                             Annotation::BuildAnnotationContent(record, *pReference, drawing);
                             results.Add(record, pReference->objectId());
                         });
    call.m_pResult = results.Chain();
}

void ModifyAnnotations(CCommandCall& call, AnnotationRecords& records)
{
    CAnnotationDrawing drawing(*call.Database());
    RequireReady(drawing, records);
    const OdDbBlockTableRecordPtr pSpace = OpenSpace(drawing.Database());
    CEditor editor(drawing.Database());
    CResults results;
    ForEachInTransaction(drawing, records,
                         [&](AnnotationProperties& record)
                         {
                             const OdDbBlockReferencePtr pReference = OpenReference(drawing.Database(), record);
                             Annotation::BuildAnnotationContent(record, *pReference, drawing);
                             editor.Refresh(pReference->objectId());
                             results.Add(record, pReference->objectId());
                         });
    call.m_pResult = results.Chain();
}

void DeleteAnnotations(CCommandCall& call, AnnotationRecords& records)
{
    CAnnotationDrawing drawing(*call.Database());
    const OdDbBlockTableRecordPtr pSpace = OpenSpace(drawing.Database());
    ForEachInTransaction(drawing, records,
                         [&](AnnotationProperties& record)
                         {
                             if (!record.handle.isEmpty())
                                 Annotation::EraseAnnotation(*OpenReference(drawing.Database(), record), drawing);
                         });
}
