// Runs a command string: finds the command, looks after undo, feeds the rest of the string to the commands, and says
// what came of it.
#include "CommandHandler.h"

#include "Ed/EdCommandStack.h"
#include "Ed/EdException.h"
#include "ModuleErrors.h"
#include "RxObjectImpl.h"
#include "RxSystemServices.h"
#include "UserIO.h"
#include "framework/BaseIO.h"
#include "framework/CadCommands.h"
#include "framework/CloseWatcher.h"
#include "framework/CommandNames.h"
#include "framework/FunctionIO.h"
#include "framework/RunUndo.h"
#include "framework/StringIO.h"
#include "module/ground/DictionaryEntry.h"
#include "module/ground/Messages.h"

ODRX_CONS_DEFINE_MEMBERS(CCommandHandler, OdDbCommandContext, RXIMPL_CONSTR)
ODRX_CONS_DEFINE_MEMBERS(CCommandHandlerCallback, OdRxObject, RXIMPL_CONSTR)

CCommandHandler::CCommandHandler() : m_pUndo(std::make_unique<CRunUndo>()) {}

CCommandHandler::~CCommandHandler() = default;

CCommandHandlerPtr CCommandHandler::createObject(const OdString& strCommand, OdRxObject* pDb,
                                                 CCommandHandlerCallback* pCallback)
{
    CCommandHandlerPtr pHandler = createObject();
    pHandler->Init(strCommand, pDb, pCallback);
    return pHandler;
}

CCommandHandlerPtr CCommandHandler::createObject(const OdString& strCommand, const OdSmartPtr<OdDbDatabase>& pDb,
                                                 CCommandHandlerCallback* pCallback)
{
    return createObject(strCommand, static_cast<OdRxObject*>(pDb.get()), pCallback);
}

void CCommandHandler::Init(const OdString& strCommand, OdRxObject* pDb, CCommandHandlerCallback* pCallback)
{
    constexpr const OdChar* pszFunction = L"CCommandHandler::Init";
    if (strCommand.isEmpty())
        throw OdError_InvalidArgument(eUnknownCommand, L"strCommand", pszFunction);
    if (!pDb)
        throw OdError_InvalidArgument(eNoDatabase, L"pDb", pszFunction);
    if (!pCallback)
        throw OdError_InvalidArgument(eNullPtr, L"pCallback", pszFunction);
    m_strCommand = strCommand;
    m_pDb = OdDbDatabase::cast(pDb).get();
    m_pCallback = pCallback;
    m_pBaseIO = CBaseIO::createObject(this, pCallback);
    m_pUserIO = CUserIO::createObject(this);
    m_pFunctionIO = CFunctionIO::createObject(this);
    m_pStringIO.release();
    m_iCommandFlags = 0;
    m_bCancelled = false;
    m_bUndoDisabled = false;
}

// ---- Running
// ---------------------------------------------------------------------------------------------------------

void CCommandHandler::Execute()
{
    constexpr const OdChar* pszFunction = L"CCommandHandler::Execute";
    if (!m_pDb)
        throw OdError_InvalidValue(eNoDatabase, L"pDb", pszFunction);
    const OdString strName = GetCommandName();
    const OdEdCommandStackPtr pCommands = odedRegCmds();
    if (!pCommands)
        throw OdError_InvalidValue(eNullObjectPointer, L"pCommands", pszFunction);
    const OdEdCommandPtr pCommand = pCommands->lookupCmd(strName, OdEdCommandStack::kGlobal | OdEdCommandStack::kLocal);
    const OdString strShownName = pCommand ? pCommand->localName() : strName;

    WatchForClosing(m_pDb);
    BeginUndo(pCommand ? pCommand->flags() : 0);
    RunKeepingError(strName);
    EndUndo();
    FinishState();
    const OdString strMessage = ComposeMessage(strShownName);
    if (!strMessage.isEmpty())
        m_pCallback->CommandMessage(strMessage);
}

void CCommandHandler::BeginUndo(OdUInt32 uiFlags)
{
    m_bUndoDisabled = uiFlags & eCommandFlagNoUndo;
    if (m_bUndoDisabled)
        m_pDb->disableUndoRecording(true);
    else
        m_pUndo->Begin(*m_pDb);
}

// Only now have all commands of the run left their transactions, so only now may the journal be replayed.
void CCommandHandler::EndUndo()
{
    if (m_bUndoDisabled)
        m_pDb->disableUndoRecording(false);
    else
        m_pUndo->TakeBack(*m_pDb);
    m_bUndoDisabled = false;
}

void CCommandHandler::RunKeepingError(const OdString& strName)
{
    try
    {
        Run(strName);
    }
    catch (const OdEdCancel&)
    {
        m_bCancelled = true;
    }
    catch (const OdError& error)
    {
        KeepError(error);
    }
    catch (const std::exception& error)
    {
        KeepError(OdError(OdString(error.what())));
    }
    catch (...)
    {
        KeepError(OdError(eGeneralException));
    }
}

// A name of no characters has nothing behind it that could belong to it, so it is no macro.
void CCommandHandler::Run(const OdString& strName)
{
    if (m_strCommand.getLength() > strName.getLength() && !strName.isEmpty())
        RunMacro();
    else if (!m_bCancelled)
        odedRegCmds()->executeCommand(strName, this);
}

void CCommandHandler::RunMacro()
{
    m_pStringIO = CStringIO::createObject(m_strCommand, m_pBaseIO.get());
    while (m_pStringIO->HasText() && !m_bCancelled && !m_bStopped)
    {
        OdString strName = currentIO()->getString(OdString(), 0, nullptr);
        odedRegCmds()->executeCommand(strName.makeUpper(), this);
    }
}

// ---- Outcome
// ---------------------------------------------------------------------------------------------------------

void CCommandHandler::KeepError(const OdError& error)
{
    m_error = error.code() == eOk ? OdError(eGeneralException, error) : error;
}

void CCommandHandler::FinishState()
{
    if (m_eState != eCommandFailed && m_bCancelled)
        m_eState = eCommandCancelled;
}

OdString CCommandHandler::ComposeMessage(const OdString& strShownName)
{
    const auto Format = [&](EMessage eMessage)
    { return odSystemServices()->formatMessage(eMessage, strShownName.c_str()); };
    switch (m_eState)
    {
    case eCommandNone:
        KeepFirstError(OdError(eUnknownCommand, Format(eMessageUnknownCommand)));
        return m_error.description() + L" " + Format(eMessageRunFailed);
    case eCommandEnded:
        return Format(eMessageRunEnded);
    case eCommandCancelled:
        return Format(eMessageRunCancelled);
    case eCommandStarted:
    case eCommandFailed:
    {
        OdString strFailed = Format(eMessageRunFailed);
        KeepFirstError(OdError(static_cast<OdResult>(eMessageRunFailed), strFailed));
        return strFailed;
    }
    }
    KeepError(OdError_InvalidValue(eOutOfRange, L"m_eState", L"CCommandHandler::Execute"));
    m_eState = eCommandFailed;
    return OdString();
}

void CCommandHandler::KeepFirstError(const OdError& error)
{
    if (m_error.code() == eOk)
        KeepError(error);
}

void CCommandHandler::GetResult(ECommandState& eState, OdInt32& iFlags, OdRxObjectPtr& pResult)
{
    eState = m_eState;
    iFlags = m_iCommandFlags;
    if (m_error.code() != eOk)
        pResult = CadCommands::SetParameterVoidPtr(L"ERROR", &m_error);
    else
        pResult = m_pFunctionIO->result();
}

// ---- Events
// ----------------------------------------------------------------------------------------------------------

void CCommandHandler::CommandUnknown(const OdString& strName)
{
    KeepError(OdError(eUnknownCommand, odSystemServices()->formatMessage(eMessageUnknownCommand, strName.c_str())));
    m_bStopped = true;
    if (m_eState == eCommandNone)
        return;
    m_eState = eCommandFailed;
    m_bCancelled = true;
    UndoCommand();
}

void CCommandHandler::CommandWillStart(OdEdCommand* pCommand)
{
    m_eState = eCommandStarted;
    m_iCommandFlags |= static_cast<OdInt32>(pCommand->flags());
}

void CCommandHandler::CommandCancelled(OdEdCommand*)
{
    m_eState = eCommandCancelled;
    m_bCancelled = true;
    UndoCommand();
}

void CCommandHandler::CommandFailed(OdEdCommand*)
{
    m_eState = eCommandFailed;
    m_bCancelled = true;
    UndoCommand();
}

void CCommandHandler::CommandEnded(OdEdCommand*)
{
    m_eState = eCommandEnded;
}

void CCommandHandler::UndoCommand()
{
    m_pUndo->Request();
}

void CCommandHandler::Cancel()
{
    m_bCancelled = true;
}

bool CCommandHandler::IsCancelled()
{
    return m_bCancelled;
}

// ---- What it was given
// -----------------------------------------------------------------------------------------------

static constexpr const OdChar* kBlanks = L" \t\r\n";

OdString CCommandHandler::GetCommand()
{
    return m_strCommand;
}

OdString CCommandHandler::GetCommandName()
{
    OdString strName = m_strCommand.spanExcluding(kBlanks);
    strName.makeUpper();
    return strName;
}

OdInt32 CCommandHandler::GetCommandFlags()
{
    return m_iCommandFlags;
}

OdString CCommandHandler::GetMacro()
{
    return m_strCommand.mid(GetCommandName().getLength()).trimLeft(kBlanks);
}

// ---- As a context
// ----------------------------------------------------------------------------------------------------

OdRxDictionary& CCommandHandler::ArbitraryData() const
{
    if (!m_pArbitraryData)
        m_pArbitraryData = odrxCreateSyncRxDictionary();
    return *m_pArbitraryData;
}

OdRxDictionaryPtr CCommandHandler::GetArbitrayDataDictionary() const
{
    return &ArbitraryData();
}

OdRxObjectPtr CCommandHandler::arbitraryData(const OdString& key) const
{
    return ArbitraryData().getAt(key);
}

void CCommandHandler::setArbitraryData(const OdString& key, OdRxObject* object)
{
    PutOrRemove(ArbitraryData(), key, object);
}

OdRxObject* CCommandHandler::baseDatabase()
{
    return m_pDb;
}

OdEdUserIO* CCommandHandler::userIO()
{
    return m_pUserIO.get();
}

OdEdFunctionIO* CCommandHandler::funcIO()
{
    return m_pFunctionIO.get();
}

OdEdBaseIO* CCommandHandler::currentIO()
{
    if (m_pStringIO && m_pStringIO->HasText())
        return m_pStringIO.get();
    return m_pBaseIO.get();
}
