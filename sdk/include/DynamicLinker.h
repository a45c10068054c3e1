// Loading modules into the running program and unloading them.
#pragma once

#include "OdError.h"
#include "RxModule.h"
#include "StringArray.h"

/** Hears of modules being loaded and unloaded; every operation does nothing unless it is overridden. */
class OdRxDLinkerReactor : public OdRxObject
{
public:
    ODRX_DECLARE_MEMBERS(OdRxDLinkerReactor);

    virtual void rxAppWillBeLoaded(const OdString& moduleName);
    virtual void rxAppLoaded(OdRxModule* module);
    virtual void rxAppLoadAborted(const OdString& moduleName);
    virtual void rxAppWillBeUnloaded(OdRxModule* module);
    virtual void rxAppUnloaded(const OdString& moduleName);
};
using OdRxDLinkerReactorPtr = OdSmartPtr<OdRxDLinkerReactor>;

/** The OdRxDynamicLinker knows the modules of the program. It is used by one thread.

    A module is asked for by its application name ("Vendor.Module.tx") or its file. The file of an application is its
    name with "_", the version of the SDK and the build of it that modules depend on put in before the extension
    ("Vendor.Module_22.10_16.tx"); a file with just the application name is taken too. Files are looked for in the
   module folders, in their order; a name with a folder is taken as it is. Modules that are part of the program
    (odrxRegisterStaticModule) come before files. */
class OdRxDynamicLinker : public OdRxObject
{
public:
    ODRX_DECLARE_MEMBERS(OdRxDynamicLinker);

    virtual void addReactor(OdRxDLinkerReactor* reactor) = 0;
    virtual void removeReactor(OdRxDLinkerReactor* reactor) = 0;

    /** The module of an application, loaded unless it is already. On failure returns null when silent, else throws
        OdError: eModuleNotFound; eModuleVersionMismatch for a module built for another version of the SDK; eLoadFailed,
        with the reason that the system gave, for a file that cannot be loaded or is no module; and whatever initApp of
        the module throws. Nothing is left loaded then, and silent does not hide what initApp throws. */
    virtual OdRxModulePtr loadApp(const OdString& applicationName, bool silent = true) = 0;
    virtual OdRxModulePtr loadModule(const OdString& moduleFileName, bool silent = true) = 0;

    /** The module when it is loaded, else null. */
    virtual OdRxModulePtr lookupModule(const OdString& name) const = 0;

    /** Unloads a module. Returns false when no such module is loaded or references to it are held elsewhere; nothing is
        changed then. */
    virtual bool unloadModule(const OdString& name) = 0;
    /** Unloads all modules that nobody holds a reference to. Returns true when there were any. */
    virtual bool unloadUnreferenced() = 0;

    /** The folders that module files are looked for in. */
    virtual void addSearchFolder(const OdString& folder) = 0;
    virtual OdStringArray searchFolders() const = 0;

    /** The file names that stand for an application, the preferred one first. */
    virtual OdStringArray moduleFileNames(const OdString& applicationName) const = 0;

    /** The application names or file names of the modules that are loaded, in the order of loading. */
    virtual OdStringArray loadedModules() const = 0;
};
using OdRxDynamicLinkerPtr = OdSmartPtr<OdRxDynamicLinker>;

/** The linker of the program; never null. */
OdRxDynamicLinker* odrxDynamicLinker();

/** Makes a module that is part of the program known under an application name, in place of one known before. A null
    entry point withdraws it. */
void odrxRegisterStaticModule(const OdString& applicationName, StaticModuleEntryPoint entryPoint);

/** As loadModule of the linker: the module, null on failure. */
OdRxModulePtr odrxLoadModule(const OdString& moduleFileName, bool silent = true);
OdRxModulePtr odrxLoadApp(const OdString& applicationName, bool silent = true);
