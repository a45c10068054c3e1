// The frame that all commands of the module run in: what is checked before the work, the transaction around it, and the
// result after it.
#pragma once

#include <span>

#include "Ed/EdCommand.h"
#include "framework/CadCommands.h"
#include "framework/CommandNames.h"

/** What a command is called and what it adds to the flags of the SDK. */
struct CommandRow
{
    const OdChar* pszClass;
    const OdChar* pszGroup;
    const OdChar* pszName;
    OdUInt32 uiFlags;

    /** What errors name as their function. */
    OdString FunctionName() const { return OdString(pszClass) + L"::execute"; }
};

/** What a frame requires of the context of a command: that something is there and of the right class. */
enum class EFrameCheck
{
    HasContext,       ///< there is a context
    IsDrawingContext, ///< it is an OdDbCommandContext
    IsDrawingUserIO,  ///< it is an OdDbUserIO
    HasFunctionIO,    ///< there is a function IO
    IsOurFunctionIO,  ///< it is a CFunctionIO
    HasDatabase,      ///< there is a database
    HasHostServices   ///< the database was made through the services of a host
};

/** The class of error that a failing check throws. */
enum class EFrameError
{
    InvalidValue,      ///< OdError_InvalidValue
    InvalidArgument,   ///< OdError_InvalidArgument
    NotThatKindOfClass ///< OdError_NotThatKindOfClass; code and name of the row do not matter
};

/** One check of a frame, and the code, name and class that the error has when it fails. Groups of commands differ in
    these. */
struct FrameCheckRow
{
    EFrameCheck eCheck;
    OdResult eCode = eOk;
    const OdChar* pszName = L"";
    EFrameError eError = EFrameError::InvalidValue;
};

/** The first check of most frames. */
inline constexpr FrameCheckRow kContextIsDrawingContext = {EFrameCheck::IsDrawingContext, eNullPtr,
                                                           L"pEdCommandContext", EFrameError::InvalidArgument};

/** The checks in their order. Every frame requires IsDrawingContext. */
using FrameChecks = std::span<const FrameCheckRow>;

/** A CCommandCall is what a command has at hand while it works. */
class CCommandCall
{
public:
    CCommandCall(const CommandRow& row, OdDbCommandContext& context) : m_row(row), m_context(context) {}

    OdDbCommandContext& Context() { return m_context; }
    /** Not null in frames that check it. */
    OdDbDatabase* Database() { return m_context.database(); }
    /** Not null in frames that check it. */
    OdEdFunctionIO* FunctionIO() { return m_context.funcIO(); }

    /** What errors name as their function: the class and "::execute". */
    OdString FunctionName() const { return m_row.FunctionName(); }

    /** The parameter chain, null when there is none. */
    OdResBufPtr Parameters();

    /** Asks the user for a text; the options are those of OdEdUserIO::getString. Throws OdError_InvalidValue (417,
       "pUserIO") when there is nobody to ask, and what OdEdUserIO::getString throws. */
    OdString AskString(const OdString& strPrompt, const OdString& strKeywords = OdString(), int iOptions = 0);

    /** The JSON text that the caller gave: the parameter "JSON", else the first value of the chain that is a string,
        else an empty text. Without any parameter object the user is asked for it. Throws as AskString, and
        OdError_InvalidArgument (68, "pResBuf") for a "JSON" that is no string. */
    OdString JsonText(const OdString& strPrompt, int iOptions = 0);

    /** Runs another command and returns the value of that name in its result, null when it has none. Afterwards the
        parameters and the result of this command are what they were before, also when the other one throws. */
    OdResBufPtr Call(const OdString& strGroup, const OdString& strCommand, const OdResBufPtr& pParameters,
                     const OdString& strResult);

    /** As Call, for the results "OBJECTID" and "OBJECTIDARRAY"; null and empty when there is none. */
    OdDbObjectId CallForId(const OdChar* pszGroup, const OdChar* pszCommand, const OdResBufPtr& pParameters);
    OdDbObjectIdArray CallForIds(const OdChar* pszGroup, const OdChar* pszCommand, const OdResBufPtr& pParameters);

    /** As Call, for a command that gives nothing. */
    void Run(const OdChar* pszGroup, const OdChar* pszCommand, const OdResBufPtr& pParameters);

    /** The chain that the frame leaves as the result; null for none. */
    OdResBufPtr m_pResult;

private:
    const CommandRow& m_row;
    OdDbCommandContext& m_context;
};

/** A CCommand is a command of the module: a name, flags, the checks of its frame, and the work. */
class CCommand : public OdEdCommand
{
public:
    /** Both have to outlive the command. */
    CCommand(const CommandRow& row, FrameChecks checks)
        : m_row(row), m_checks(checks), m_strGroup(row.pszGroup), m_strName(row.pszName)
    {
    }

    OdString groupName() const override { return m_strGroup; }
    OdString globalName() const override { return m_strName; }
    OdUInt32 flags() const override { return (OdEdCommand::flags() & eCommandFlagsOfSdk) | m_row.uiFlags; }

    /** Checks the context, works (in a transaction when the flags say so, which is aborted when anything is thrown,
        unless KeepsWorkBeforeFailure) and sets the result when the flags say so. Throws what the checks of the frame
        say, and what the work throws. */
    void execute(OdEdCommandContext* context) override;

protected:
    virtual void Work(CCommandCall& call) = 0;
    /** True for a command whose transaction is ended also when the work throws: what it leaves then is what it keeps.
     */
    virtual bool KeepsWorkBeforeFailure() const { return false; }

private:
    void WorkInTransaction(CCommandCall& call);

    const CommandRow& m_row;
    FrameChecks m_checks;
    OdString m_strGroup;
    OdString m_strName;
};
