// Taking back what one run has done to a drawing.
#pragma once

#include "DbDatabase.h"

/** A CRunUndo knows what of the undo history belongs to one run of commands. */
class CRunUndo
{
public:
    /** The run begins: announces its undo record. */
    void Begin(OdDbDatabase& db);

    /** Makes TakeBack do its work. */
    void Request() { m_bRequested = true; }

    /** Takes back what the run has done, when that was requested: aborts the transactions that the run left open, and
        takes back and drops its undo record. A transaction of an earlier run stays open, with what was done in it
        before. */
    void TakeBack(OdDbDatabase& db);

private:
    bool m_bRequested = false;
    OdUInt64 m_uiEarlierRecord = 0;
    int m_iEarlierTransactions = 0;
};
