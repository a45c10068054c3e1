// Running one command string of the plug-in against one drawing: what a host uses.
#pragma once

#include <memory>

#include "CommandHandlerCallback.h"
#include "DbCommandContext.h"
#include "DbDatabase.h"
#include "Ed/EdCommand.h"
#include "RxDictionary.h"

class CBaseIO;
class CFunctionIO;
class CRunUndo;
class CStringIO;
class CUserIO;
class OdEdBaseIO;

/** How far a run has come. */
enum ECommandState
{
    eCommandNone = 0,      ///< no command has started
    eCommandStarted = 1,   ///< a command has started and not come to an end
    eCommandEnded = 2,     ///< the last command came to its end
    eCommandCancelled = 3, ///< the run was cancelled
    eCommandFailed = 4     ///< a command failed
};

/** A CCommandHandler runs one command string against one drawing and keeps the outcome. It is the context of every
   command that runs in the meantime, those that commands run in turn included: it holds their arguments and results,
   and their questions go through it. One handler serves one Execute, on one thread.

    A command string is the global name of a command, in any case, or a macro: the name followed by answers to what the
    command asks, and by further commands with theirs. Blanks, tabs and line ends separate answers; an answer in double
    quotes may hold them, "" is an empty answer, and JSON that begins with { or [ is one answer up to its closing
   bracket. When a command asks for more than the string holds, the host is asked.

    A run leaves at most one undo record, and none when its first command switches recording off (flag 0x01000000). A
   run that is cancelled or fails is undone as a whole once its commands have left their transactions, also when a
   command went on after another one that it had run failed. Only what a transaction opened by an earlier run covers is
   left to that transaction. */
class QUEND_ZOL_EXPORT CCommandHandler : public OdDbCommandContext
{
public:
    ODRX_DECLARE_MEMBERS(CCommandHandler);

    /** A handler for a command string. Neither database nor callback may go before the handler does; the handler holds
        a reference to the callback only.
        Throws OdError_InvalidArgument, function "CCommandHandler::Init": 904 "strCommand" for an empty string, 122
       "pDb", 417 "pCallback" for null; OdError_ModuleInitialization (417, "CUserIO::Init") when the module is not
       loaded. */
    static OdSmartPtr<CCommandHandler> createObject(const OdString& strCommand, OdRxObject* pDb,
                                                    CCommandHandlerCallback* pCallback);
    static OdSmartPtr<CCommandHandler> createObject(const OdString& strCommand, const OdSmartPtr<OdDbDatabase>& pDb,
                                                    CCommandHandlerCallback* pCallback);

    /** Runs the command string. What its commands throw is kept for GetResult; at the end the callback hears the
       message, if any. Throws OdError_InvalidValue, function "CCommandHandler::Execute": 122 "pDb" without database, 20
        "pCommands" without command stack. */
    virtual void Execute();

    /** Gives the state, the flags of all commands that were started and the result: the chain that the last command
       left, null when it left none; or, when the run failed, a chain of the name "ERROR" and the address of the error
       as a 64-bit integer of type 160: a const OdError* that is good as long as the handler lives. */
    virtual void GetResult(ECommandState& eState, OdInt32& iFlags, OdRxObjectPtr& pResult);

    /** Makes no further command of the macro start; commands that run ask IsCancelled at their leisure. */
    virtual void Cancel();
    virtual bool IsCancelled();

    /** The command string, the name at its beginning in upper case, and what follows the name. */
    virtual OdString GetCommand();
    virtual OdString GetCommandName();
    virtual OdInt32 GetCommandFlags();
    virtual OdString GetMacro();

    OdRxObjectPtr arbitraryData(const OdString& key) const override;
    void setArbitraryData(const OdString& key, OdRxObject* object) override;

    /** Events of the command stack, handed on by the module's reactor. */
    virtual void CommandUnknown(const OdString& strName);
    virtual void CommandWillStart(OdEdCommand* pCommand);
    virtual void CommandCancelled(OdEdCommand* pCommand);
    virtual void CommandFailed(OdEdCommand* pCommand);
    virtual void CommandEnded(OdEdCommand* pCommand);

    /** The database that was given to Init. */
    OdRxObject* baseDatabase() override;
    OdEdUserIO* userIO() override;
    OdEdFunctionIO* funcIO() override;

    /** Where questions go now: the command string while it has text left, else the host. */
    OdEdBaseIO* currentIO();

protected:
    CCommandHandler();
    ~CCommandHandler() override;

    virtual void Init(const OdString& strCommand, OdRxObject* pDb, CCommandHandlerCallback* pCallback);

    /** Has the run undone when its commands have left their transactions. */
    virtual void UndoCommand();

    /** Where parameter, result and arbitrary data lie: synchronised, created by the first call. */
    virtual OdRxDictionaryPtr GetArbitrayDataDictionary() const;

private:
    OdRxDictionary& ArbitraryData() const;
    void BeginUndo(OdUInt32 uiFlags);
    void EndUndo();
    void RunKeepingError(const OdString& strName);
    void Run(const OdString& strName);
    void RunMacro();
    void KeepError(const OdError& error);
    void KeepFirstError(const OdError& error);
    void FinishState();
    OdString ComposeMessage(const OdString& strShownName);

    OdSmartPtr<CBaseIO> m_pBaseIO;
    OdSmartPtr<CFunctionIO> m_pFunctionIO;
    OdSmartPtr<CStringIO> m_pStringIO;
    OdSmartPtr<CUserIO> m_pUserIO;
    CCommandHandlerCallbackPtr m_pCallback;
    OdDbDatabase* m_pDb = nullptr;
    OdString m_strCommand;
    bool m_bCancelled = false;
    bool m_bUndoDisabled = false;
    OdInt32 m_iCommandFlags = 0;
    ECommandState m_eState = eCommandNone;
    OdError m_error;
    mutable OdRxDictionaryPtr m_pArbitraryData;
    bool m_bStopped = false; ///< an unknown command ended the run
    std::unique_ptr<CRunUndo> m_pUndo;
};
using CCommandHandlerPtr = OdSmartPtr<CCommandHandler>;
