// Transactions that end with a scope.
#pragma once

#include "DbDatabase.h"

/** A CTransactionScope is a transaction of a database. Unless it was ended it is aborted when the scope is left,
   whatever leaves it. */
class CTransactionScope
{
public:
    explicit CTransactionScope(OdDbDatabase& db) : m_db(db), m_iOutside(db.numActiveTransactions())
    {
        m_db.startTransaction();
    }
    ~CTransactionScope() { Abort(); }
    CTransactionScope(const CTransactionScope&) = delete;
    CTransactionScope& operator=(const CTransactionScope&) = delete;

    /** Keeps what was changed. */
    void End()
    {
        if (IsOpen())
            m_db.endTransaction();
        m_bDone = true;
    }

private:
    // A command that was run inside may have closed this transaction too; one that is not there is not closed again.
    bool IsOpen() const { return !m_bDone && m_db.numActiveTransactions() > m_iOutside; }
    void Abort()
    {
        while (IsOpen())
            m_db.abortTransaction();
    }

    OdDbDatabase& m_db;
    int m_iOutside;
    bool m_bDone = false;
};
