// The undo of one run: what belongs to earlier runs is never touched.
#include "framework/RunUndo.h"

void CRunUndo::Begin(OdDbDatabase& db)
{
    m_uiEarlierRecord = db.undoMark();
    m_iEarlierTransactions = db.numActiveTransactions();
    db.startUndoRecord();
}

void CRunUndo::TakeBack(OdDbDatabase& db)
{
    if (!m_bRequested)
        return;
    m_bRequested = false;
    while (db.numActiveTransactions() > m_iEarlierTransactions)
        db.abortTransaction();
    db.dropUndoRecordsAfter(m_uiEarlierRecord);
}
