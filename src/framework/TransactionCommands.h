// Commands that let a caller bracket other commands in a transaction.
#pragma once

#include "framework/Command.h"

/** "TRANSACTIONSTART": opens a transaction inside those that are open. */
class CCommandStartTransaction : public CCommand
{
public:
    CCommandStartTransaction();

protected:
    void Work(CCommandCall& call) override;
};

/** "TRANSACTIONEND": keeps what was done in the innermost transaction; without one, does nothing. */
class CCommandEndTransaction : public CCommand
{
public:
    CCommandEndTransaction();

protected:
    void Work(CCommandCall& call) override;
};

/** "TRANSACTIONABORT": takes back what was done in the innermost transaction; without one, does nothing. */
class CCommandAbortTransaction : public CCommand
{
public:
    CCommandAbortTransaction();

protected:
    void Work(CCommandCall& call) override;
};
