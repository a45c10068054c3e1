// What can be loaded into a running program: modules.
#pragma once

#include <atomic>

#include "OdPlatform.h"
#include "RxObject.h"

class OdRxModule;
using OdRxModulePtr = OdSmartPtr<OdRxModule>;

/** An OdRxModule is the one object by which a module presents itself to the program that has loaded it. The dynamic
    linker loads modules, calls initApp once after loading and uninitApp once before unloading, on the thread that asked
    for it. */
class OdRxModule : public OdRxObject
{
public:
    ODRX_DECLARE_MEMBERS(OdRxModule);

    /** What the system gave for the loaded file; null for a module that is part of the program. */
    virtual void* sysData() = 0;
    /** Ends the object when its module is unloaded. */
    virtual void deleteModule() = 0;
    /** Registers what the module brings. What it throws refuses the loading. */
    virtual void initApp() = 0;
    /** Withdraws it again. */
    virtual void uninitApp() = 0;
    /** The name that the module was loaded by. */
    virtual OdString moduleName() const = 0;
};

/** An OdRxWin32Module<TModule> is a module object that counts its references from 0 and does not end with the last of
    them, but with deleteModule. */
template<class TModule>
class OdRxWin32Module : public TModule
{
public:
    /** The one object of the class; made by the first call. */
    static OdRxModule* createModule(HINSTANCE handle, const OdString& name)
    {
        if (!s_module)
            s_module = new OdRxWin32Module(handle, name);
        return s_module;
    }

    void addRef() override { m_references.fetch_add(1, std::memory_order_relaxed); }
    void release() override { m_references.fetch_sub(1, std::memory_order_acq_rel); }
    long numRefs() const override { return m_references.load(std::memory_order_acquire); }
    void* sysData() override { return m_handle; }
    OdString moduleName() const override { return m_name; }
    void deleteModule() override
    {
        s_module = nullptr;
        delete this;
    }

protected:
    OdRxWin32Module(HINSTANCE handle, const OdString& name) : m_handle(handle), m_name(name) {}

private:
    static inline OdRxModule* s_module = nullptr;
    HINSTANCE m_handle;
    OdString m_name;
    std::atomic<long> m_references = 0;
};

/** What a module that is part of the program is made by. */
using StaticModuleEntryPoint = OdRxModule* (*)(const OdString& moduleName);

/** The two functions that every module file exports. */
using OdrxCreateModuleObjectPtr = OdRxModule* (*)(HINSTANCE handle);
using OdrxGetApiVersionPtr = void (*)(int& majorVersion, int& minorVersion, int& majorBuild, int& minorBuild);

#define ODRX_MODULE_EXPORT extern "C" __attribute__((visibility("default")))

/** Defines the exports of a module file whose module class is ModuleClass. */
#define ODRX_DEFINE_DYNAMIC_MODULE(ModuleClass, moduleName)                                                            \
    ODRX_MODULE_EXPORT OdRxModule* odrxCreateModuleObject(HINSTANCE handle)                                            \
    {                                                                                                                  \
        return OdRxWin32Module<ModuleClass>::createModule(handle, moduleName);                                         \
    }                                                                                                                  \
    ODRX_MODULE_EXPORT void odrxGetAPIVersion(int& majorVersion, int& minorVersion, int& majorBuild, int& minorBuild)  \
    {                                                                                                                  \
        majorVersion = TD_MAJOR_VERSION;                                                                               \
        minorVersion = TD_MINOR_VERSION;                                                                               \
        majorBuild = TD_MAJOR_BUILD;                                                                                   \
        minorBuild = TD_MINOR_BUILD;                                                                                   \
    }
