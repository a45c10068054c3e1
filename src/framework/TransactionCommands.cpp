// A start always opens a transaction; an end or abort with nothing open is silently passed over.
#include "framework/TransactionCommands.h"

#include "DbDatabase.h"

static constexpr FrameCheckRow kChecks[] = {
    kContextIsDrawingContext,
    {EFrameCheck::HasDatabase, eNoDatabase, L"pDb"},
};

static constexpr CommandRow kStart = {L"CCommandStartTransaction", CommandGroup::kTransaction, L"TRANSACTIONSTART",
                                      eCommandFlagNoUndo};
static constexpr CommandRow kEnd = {L"CCommandEndTransaction", CommandGroup::kTransaction, L"TRANSACTIONEND",
                                    eCommandFlagNoUndo | eCommandFlagHost1};
static constexpr CommandRow kAbort = {L"CCommandAbortTransaction", CommandGroup::kTransaction, L"TRANSACTIONABORT",
                                      eCommandFlagNoUndo};

CCommandStartTransaction::CCommandStartTransaction() : CCommand(kStart, kChecks) {}
CCommandEndTransaction::CCommandEndTransaction() : CCommand(kEnd, kChecks) {}
CCommandAbortTransaction::CCommandAbortTransaction() : CCommand(kAbort, kChecks) {}

void CCommandStartTransaction::Work(CCommandCall& call)
{
    call.Database()->startTransaction();
}

void CCommandEndTransaction::Work(CCommandCall& call)
{
    if (call.Database()->numActiveTransactions() > 0)
        call.Database()->endTransaction();
}

void CCommandAbortTransaction::Work(CCommandCall& call)
{
    if (call.Database()->numActiveTransactions() > 0)
        call.Database()->abortTransaction();
}
