// Undo, redo and transactions of a database.
#include "DatabaseImpl.h"
#include "OdError.h"

// Listeners and objects that are read back must not start one replay inside another.
static void requireNoReplay(const oddb::Journal& journal)
{
    if (journal.isReplaying())
        throw OdError(eUndoOperationNotAvailable);
}

static void requireNoTransaction(const oddb::Journal& journal)
{
    requireNoReplay(journal);
    if (journal.transactions() > 0)
        throw OdError(eUndoOperationNotAvailable);
}

static void requireTransaction(const oddb::Journal& journal)
{
    requireNoReplay(journal);
    if (journal.transactions() == 0)
        throw OdError(eNoActiveTransactions);
}

void OdDbDatabase::startUndoRecord()
{
    requireNoReplay(m_impl->journal);
    m_impl->journal.startRecord();
}

bool OdDbDatabase::hasUndo() const
{
    return m_impl->journal.hasUndo();
}

bool OdDbDatabase::hasRedo() const
{
    return m_impl->journal.hasRedo();
}

void OdDbDatabase::undo()
{
    requireNoTransaction(m_impl->journal);
    m_impl->journal.undo();
}

void OdDbDatabase::redo()
{
    requireNoTransaction(m_impl->journal);
    m_impl->journal.redo();
}

void OdDbDatabase::clearUndo()
{
    requireNoTransaction(m_impl->journal);
    m_impl->journal.clear();
}

void OdDbDatabase::dropUndoRecordsAfter(OdUInt64 mark)
{
    requireNoReplay(m_impl->journal);
    m_impl->journal.dropRecordsAfter(mark);
}

void OdDbDatabase::disableUndoRecording(bool disable)
{
    requireNoReplay(m_impl->journal);
    m_impl->journal.disable(disable);
}

bool OdDbDatabase::undoRecordingDisabled() const
{
    return m_impl->journal.disabled();
}

OdUInt64 OdDbDatabase::undoMark() const
{
    return m_impl->journal.newestRecord();
}

bool OdDbDatabase::isUndoRecordOpen() const
{
    return m_impl->journal.isRecordOpen();
}

void OdDbDatabase::startTransaction()
{
    requireNoReplay(m_impl->journal);
    m_impl->journal.startTransaction();
}

void OdDbDatabase::endTransaction()
{
    requireTransaction(m_impl->journal);
    m_impl->journal.endTransaction();
}

void OdDbDatabase::abortTransaction()
{
    requireTransaction(m_impl->journal);
    m_impl->journal.abortTransaction();
}

int OdDbDatabase::numActiveTransactions() const
{
    return m_impl->journal.transactions();
}

bool OdDbDatabase::isUndoing() const
{
    return m_impl->journal.isReplaying();
}
