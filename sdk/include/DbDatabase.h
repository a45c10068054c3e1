// A drawing in memory: all its objects, its settings and the journal of its changes.
#pragma once

#include "DbObject.h"
#include "Ge/GePoint2d.h"
#include "Ge/GePoint3d.h"
#include "OdArray.h"

class OdDbDatabaseReactor;
class OdDbHostAppServices;
class OdStreamBuf;
class OdUnitsFormatter;

namespace oddb
{
class DatabaseImpl;
}

/** The kinds of file a drawing is written as. */
namespace OdDb
{
enum SaveType : int
{
    kDxf = 1, ///< text
    kDxb = 2, ///< the same groups in binary form
    kUnknown = -1
};
} // namespace OdDb

/** An OdDbDatabase is one drawing in memory. It owns its objects, hands out their ids and handles and keeps the
    journal from which changes are undone, redone and aborted. One thread may use it at a time. */
class OdDbDatabase : public OdDbObject
{
public:
    ODRX_DECLARE_MEMBERS(OdDbDatabase);

    OdDbDatabase();
    ~OdDbDatabase() override;

    /** Fills an empty database with what every drawing has: tables, dictionaries, layouts, settings. */
    void initialize(bool metric = true);

    /** The services of the program that the database was made with; null when it was made without. */
    OdDbHostAppServices* appServices() const;
    void setAppServices(OdDbHostAppServices* services);

    // ---- Objects -----------------------------------------------------------------------------------------------

    /** Makes an object resident, gives it the owner, and the handle when that is not null or else the next free one.
        Returns its id; the object is open for write until its smart pointers are released. Throws OdError:
        eNullObjectPointer, eAlreadyInDb for a resident object, eHandleExists for a handle in use. */
    OdDbObjectId addOdDbObject(OdDbObject* object, OdDbObjectId ownerId = OdDbObjectId(),
                               OdDbHandle handle = OdDbHandle());

    /** The id of the handle; when there is none: a new id without object if createIfNotFound, else the null id. */
    OdDbObjectId getOdDbObjectId(const OdDbHandle& handle, bool createIfNotFound = false);

    /** The next handle that will be given to a new object. */
    OdDbHandle handseed() const;

    /** Raises the next handle; a value below the present one is passed over. */
    void setHandseed(OdDbHandle handle);

    /** The number of ids, with those of erased objects. */
    OdUInt64 approxNumObjects() const;

    // ---- Tables and dictionaries -------------------------------------------------------------------------------

    OdDbObjectId getNamedObjectsDictionaryId() const;
    OdDbObjectId getBlockTableId() const;
    OdDbObjectId getLayerTableId() const;
    OdDbObjectId getTextStyleTableId() const;
    OdDbObjectId getLinetypeTableId() const;
    OdDbObjectId getViewTableId() const;
    OdDbObjectId getUCSTableId() const;
    OdDbObjectId getViewportTableId() const;
    OdDbObjectId getRegAppTableId() const;
    OdDbObjectId getDimStyleTableId() const;

    /** The block that holds the entities of the model. */
    OdDbObjectId getModelSpaceId() const;

    /** The block that holds the entities of the paper layout shown last. */
    OdDbObjectId getPaperSpaceId() const;

    /** The block of the current layout. */
    OdDbObjectId getActiveLayoutBTRId() const;

    /** The current layout; null in a drawing without layouts. */
    OdDbObjectId currentLayoutId() const;

    /** What the user looks through: the active viewport record of the model; of a sheet the viewport that is the sheet
        itself, or the layout when the sheet has none. Null in a damaged drawing. Views are changed by their setters, as
        any object; for a change that is not to be undone, recording is switched off meanwhile (disableUndoRecording).
     */
    OdDbObjectId activeViewportId() const;

    /** Records that every drawing has; null in a damaged one that has not. */
    OdDbObjectId getLayerZeroId() const;
    OdDbObjectId getLinetypeByLayerId() const;
    OdDbObjectId getLinetypeByBlockId() const;
    OdDbObjectId getLinetypeContinuousId() const;
    OdDbObjectId getTextStyleStandardId() const;
    OdDbObjectId getDimStyleStandardId() const;
    OdDbObjectId getRegAppAcadId() const;

    /** Makes an application known, so that objects take its extended data. Returns false when it was known before.
        Throws OdError eInvalidSymbolTableName for an empty name, eWasOpenForWrite while the table is open for
        write. */
    bool newRegApp(const OdString& name);

    // ---- Undo and transactions ---------------------------------------------------------------------------------

    /** Announces an undo record: it opens with the next change, so that a run without changes leaves none. */
    void startUndoRecord();

    /** True when there is a record to undo or redo. */
    bool hasUndo() const;
    bool hasRedo() const;

    /** Undoes the newest record, or redoes the record undone last. Nothing happens when there is none.
        Throws OdError eUndoOperationNotAvailable while a transaction is open; nothing is changed then. */
    void undo();
    void redo();

    /** Drops all records. Throws OdError eUndoOperationNotAvailable while a transaction is open. */
    void clearUndo();

    /** Switches recording for undo off or on. While it is off, changes leave no undo record; a transaction can be
        aborted all the same, and the records made before stay. */
    void disableUndoRecording(bool disable);
    bool undoRecordingDisabled() const;

    /** A number that names the newest undo record, 0 when there is none. Later records have higher numbers. */
    OdUInt64 undoMark() const;

    /** Takes back the changes of all undo records later than the one that undoMark() named, and drops these records:
       they cannot be redone, and what could be redone before them can be redone again. While a transaction is open,
       this goes back no further than to where the innermost one was started. */
    void dropUndoRecordsAfter(OdUInt64 mark);

    /** True when the record announced last was opened by a change and is still there, neither undone nor aborted. */
    bool isUndoRecordOpen() const;

    /** Opens a transaction inside those that are open. */
    void startTransaction();

    /** Closes the innermost transaction and keeps its changes. Throws OdError eNoActiveTransactions without one. */
    void endTransaction();

    /** Closes the innermost transaction and takes its changes back, with the undo records opened inside of it.
        Throws OdError eNoActiveTransactions without one. */
    void abortTransaction();
    int numActiveTransactions() const;

    /** True while the journal puts recorded states back and tells listeners of it. Objects then pass changes over, and
        the operations above throw OdError eUndoOperationNotAvailable. */
    bool isUndoing() const;

    // ---- Settings ----------------------------------------------------------------------------------------------

    /** The value of a header variable, named with or without the "$" that files put in front, case ignored: one element
        of the variable's group code. A variable that the drawing does not have gives its default; null for one that is
        not known. */
    OdResBufPtr getSysVar(const OdString& name) const;

    /** Sets a header variable from one element. Throws OdError: eInvalidInput for a variable that is neither known nor
        in the drawing and for a value of another kind. Nothing is changed then. */
    void setSysVar(const OdString& name, const OdResBuf* value);

    /** The scale of all line types; the direction of angle 0 in radians; true when angles run clockwise. */
    double getLTSCALE() const;
    double getANGBASE() const;
    bool getANGDIR() const;

    /** Form and number of digits of lengths and of angles, as the variables of these names have them. */
    OdInt16 getLUNITS() const;
    OdInt16 getLUPREC() const;
    OdInt16 getAUNITS() const;
    OdInt16 getAUPREC() const;

    /** Writes and reads lengths, angles and colours by these variables, as they are whenever it is used. */
    OdUnitsFormatter& formatter() const;

    /** The unit of lengths, by its number; true for metric, true while the model is shown rather than a sheet. */
    OdInt16 getINSUNITS() const;
    bool getMEASUREMENT() const;
    bool getTILEMODE() const;

    /** The limits of the model's sheet, and true when points outside of them are refused. */
    OdGePoint2d getLIMMIN() const;
    OdGePoint2d getLIMMAX() const;
    bool getLIMCHECK() const;

    /** The box around the model when the drawing was saved last; it is empty in a new drawing. */
    OdGePoint3d getEXTMIN() const;
    OdGePoint3d getEXTMAX() const;

    /** The layer of new entities. */
    OdDbObjectId getCLAYER() const;

    // ---- Files -------------------------------------------------------------------------------------------------

    /** Reads a drawing file into this database, which must be empty. Throws OdError with the place and the fault. */
    void readFile(const OdString& fileName);

    /** Writes the drawing to a file, whole or not at all. Throws OdError; the old file is then unchanged. */
    void writeFile(const OdString& fileName, OdDb::SaveType fileType = OdDb::kDxf,
                   OdDb::DwgVersion version = OdDb::kDHL_CURRENT);

    /** The file the drawing was read from or written to last, empty when there is none. */
    OdString getFilename() const;
    void setFilename(const OdString& fileName);

    /** The version of the file that was read; of a new drawing the newest one. */
    OdDb::DwgVersion originalFileVersion() const;
    OdDb::SaveType originalFileType() const;

    /** True while a file is being read. */
    bool isLoading() const;

    /** One line for each fault that was found and mended while the drawing was read. */
    const OdArray<OdString>& recoveryReport() const;
    void addRecoveryLine(const OdString& line);

    // ---- Copies ------------------------------------------------------------------------------------------------

    /** Copies objects with all they own within the drawing, to the owner, or for the null id each to the owner of its
        original. The mapping receives the pairs. References among the copied objects are turned to the copies.
        A dimension or a table is copied with the anonymous block that it draws itself by. Throws what
        OdDbObjectId::safeOpenObject throws, eNotApplicable for what a drawing has by itself (tables, spaces, layouts,
        the root dictionary), and what the classes throw that refuse to be copied. */
    void deepCloneObjects(const OdDbObjectIdArray& objectIds, const OdDbObjectId& ownerId, OdDbIdMapping& mapping);

    /** Makes a new drawing with copies of the objects, moved so that basePoint comes to lie on the origin, and of all
        they need: what they own, name and point to. Units, scales and other settings that are numbers come along.
        Throws as deepCloneObjects, eNotApplicable for an object that has no place in another drawing, and what
        OdDbEntity::transformBy returns for one that cannot be moved. */
    OdSmartPtr<OdDbDatabase> wblock(const OdDbObjectIdArray& objectIds, const OdGePoint3d& basePoint = OdGePoint3d());

    // ---- Reactors ----------------------------------------------------------------------------------------------

    /** Attaches a listener; one that is attached already stays where it is. Throws OdError eNullObjectPointer. */
    void addReactor(OdDbDatabaseReactor* reactor) const;
    void removeReactor(OdDbDatabaseReactor* reactor) const;

    /** The insides, for the SDK's own sources. */
    oddb::DatabaseImpl& impl() const { return *m_impl; }

private:
    oddb::DatabaseImpl* m_impl;
};
using OdDbDatabasePtr = OdSmartPtr<OdDbDatabase>;
