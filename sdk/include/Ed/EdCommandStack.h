// All commands of the program, and running them.
#pragma once

#include "DbCommandContext.h"
#include "Ed/EdCommand.h"
#include "Ed/EdCommandContext.h"
#include "Ed/EdCommandStackReactor.h"
#include "RxIterator.h"

class OdEdCommandStack;
using OdEdCommandStackPtr = OdSmartPtr<OdEdCommandStack>;

/** The OdEdCommandStack keeps the commands of the program in groups and runs them. Names of groups and commands are
    compared without regard to case, independent of the user's language. It is used by one thread. */
class OdEdCommandStack : public OdRxObject
{
public:
    ODRX_DECLARE_MEMBERS(OdEdCommandStack);

    /** Where lookupCmd looks; combined with |. */
    enum LookupFlags : int
    {
        kGlobal = 1,        ///< among global names
        kLocal = 2,         ///< among local names
        kAnyGroup = 4,      ///< in all groups, when no group is named
        kSpecifedGroup = 16 ///< in the group that is named
    };

    // ---- Listeners -----------------------------------------------------------------------------------------------

    /** Attaches a listener, which the stack does not keep alive: it is detached before it ends. One that is attached
        already stays where it is. Listeners hear of an event in the order in which they were attached; one that is
        detached meanwhile hears of it no more, one that is attached meanwhile does not hear of it yet.
        Throws OdError (eNullPtr). */
    virtual void addReactor(OdEdCommandStackReactor* reactor) = 0;
    /** Detaches a listener; one that is not attached is passed over. */
    virtual void removeReactor(OdEdCommandStackReactor* reactor) = 0;

    // ---- Commands ------------------------------------------------------------------------------------------------

    /** Adds a command to the group that it names, behind those there. Throws OdError, with nothing changed: eNullPtr;
        eEmptyName when its group or global name is empty; eDuplicateKey when the group has a command of that global
        name. */
    virtual void addCommand(OdEdCommand* command) = 0;

    /** Adds a command made of a function. Returns it. Throws as the other addCommand. */
    virtual OdEdCommandPtr addCommand(const OdString& groupName, const OdString& globalName, const OdString& localName,
                                      OdUInt32 flags, OdEdCommandFunction* function) = 0;

    /** The first command of that name: groups in the order in which they got their first command, commands in the order
        in which they were added. With a group named, only that one is searched. lookupFlags say which names count;
        without kGlobal and kLocal none does. Returns null when there is none. */
    virtual OdEdCommandPtr lookupCmd(const OdString& commandName, OdUInt32 lookupFlags,
                                     const OdString& groupName = OdString()) const = 0;

    /** Takes a command off the stack, and its group with its last one. Returns false when it is not there. */
    virtual bool removeCmd(const OdEdCommand* command) = 0;
    virtual bool removeCmd(const OdString& groupName, const OdString& globalName) = 0;
    /** Takes all commands of a group off the stack. Returns false when there is no such group. */
    virtual bool removeGroup(const OdString& groupName) = 0;

    /** Walks over all commands (objects of class OdEdCommand) as they were when the iterator was made, group by group
       in the order of lookupCmd. */
    virtual OdRxIteratorPtr newIterator() const = 0;

    // ---- Running -------------------------------------------------------------------------------------------------

    /** Runs a command: listeners hear commandWillStart, the command executes, listeners hear commandEnded. When it
        throws, they hear commandCancelled (for OdEdCancel) or commandFailed (for everything else), and the same
        exception then reaches the caller; what listeners throw at that time is dropped. A command may run others. It
        stays alive while it runs, also when it is taken off the stack. Throws OdError (eNullPtr) for a null command. */
    virtual void executeCommand(OdEdCommand* command, OdEdCommandContext* context) = 0;

    /** Runs the command with that global or local name. When there is none, listeners hear unknownCommand one after the
        other until one of them returns a command, which is then run; when none does, nothing is run. Without listeners
        throws OdError (eUnknownCommand). */
    virtual void executeCommand(const OdString& commandName, OdEdCommandContext* context) = 0;
};

/** The command stack of the program; null while the SDK is not initialised. */
OdEdCommandStackPtr odedRegCmds();
