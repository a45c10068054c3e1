// Loads modules from files and from the program itself.
#include "DynamicLinker.h"

#include <dlfcn.h>

#include <algorithm>
#include <map>
#include <vector>

#include "OdError.h"
#include "RxObjectImpl.h"
#include "RxSystemServices.h"
#include "rx/Linker.h"

ODRX_NO_CONS_DEFINE_MEMBERS(OdRxModule, OdRxObject)
ODRX_NO_CONS_DEFINE_MEMBERS(OdRxDLinkerReactor, OdRxObject)
ODRX_NO_CONS_DEFINE_MEMBERS(OdRxDynamicLinker, OdRxObject)

void OdRxDLinkerReactor::rxAppWillBeLoaded(const OdString&) {}
void OdRxDLinkerReactor::rxAppLoaded(OdRxModule*) {}
void OdRxDLinkerReactor::rxAppLoadAborted(const OdString&) {}
void OdRxDLinkerReactor::rxAppWillBeUnloaded(OdRxModule*) {}
void OdRxDLinkerReactor::rxAppUnloaded(const OdString&) {}

namespace
{

constexpr const OdChar* kExtension = L".tx";
constexpr const OdChar* kVersionSuffix = L"_22.10_16";

OdString fileNameOf(const OdString& path)
{
    return path.mid(path.reverseFind(L'/') + 1);
}

struct NoCaseLess
{
    bool operator()(const OdString& first, const OdString& second) const { return first.iCompare(second) < 0; }
};

std::map<OdString, StaticModuleEntryPoint, NoCaseLess>& staticModules()
{
    static auto* const all = new std::map<OdString, StaticModuleEntryPoint, NoCaseLess>;
    return *all;
}

// An open module file; closed with the object unless it is kept.
class ModuleFile
{
public:
    explicit ModuleFile(const OdString& path)
        : m_path(path), m_handle(::dlopen(odStringToUtf8(path).c_str(), RTLD_NOW | RTLD_LOCAL))
    {
        if (!m_handle)
            fail(lastReason());
    }
    ~ModuleFile()
    {
        if (m_handle)
            ::dlclose(m_handle);
    }
    ModuleFile(const ModuleFile&) = delete;
    ModuleFile& operator=(const ModuleFile&) = delete;

    void checkVersion() const
    {
        int version[4] = {};
        const auto getVersion = reinterpret_cast<OdrxGetApiVersionPtr>(find("odrxGetAPIVersion"));
        getVersion(version[0], version[1], version[2], version[3]);
        if (version[0] == TD_MAJOR_VERSION && version[1] == TD_MINOR_VERSION)
            return;
        throw OdError(eModuleVersionMismatch,
                      OdString().format(L"Module %ls was built for version %d.%d, version %d.%d is required",
                                        m_path.c_str(), version[0], version[1], TD_MAJOR_VERSION, TD_MINOR_VERSION));
    }
    OdRxModule* createModule() const
    {
        const auto create = reinterpret_cast<OdrxCreateModuleObjectPtr>(find("odrxCreateModuleObject"));
        OdRxModule* module = create(m_handle);
        if (!module)
            fail(L"it made no module object");
        return module;
    }
    void* keep() { return std::exchange(m_handle, nullptr); }

private:
    void* find(const char* name) const
    {
        void* found = ::dlsym(m_handle, name);
        if (!found)
            fail(OdString(L"it has no ") + name);
        return found;
    }
    static OdString lastReason()
    {
        const char* reason = ::dlerror();
        return reason ? OdString(reason) : OdString(L"no reason given");
    }
    [[noreturn]] void fail(const OdString& reason) const
    {
        throw OdError(eLoadFailed, L"Module " + m_path + L" cannot be loaded: " + reason);
    }

    OdString m_path;
    void* m_handle;
};

struct LoadedModule
{
    OdString name; ///< as it was asked for
    OdString path; ///< empty for a module of the program
    OdRxModulePtr module;
    void* handle = nullptr;
};

class Linker : public OdRxDynamicLinker
{
public:
    void addReactor(OdRxDLinkerReactor* reactor) override
    {
        if (reactor && std::find(m_reactors.begin(), m_reactors.end(), reactor) == m_reactors.end())
            m_reactors.emplace_back(reactor);
    }
    void removeReactor(OdRxDLinkerReactor* reactor) override
    {
        m_reactors.erase(std::remove(m_reactors.begin(), m_reactors.end(), reactor), m_reactors.end());
    }

    OdRxModulePtr loadApp(const OdString& applicationName, bool silent) override
    {
        return load(applicationName, silent);
    }
    OdRxModulePtr loadModule(const OdString& moduleFileName, bool silent) override
    {
        return load(moduleFileName, silent);
    }

    OdRxModulePtr lookupModule(const OdString& name) const override
    {
        const auto found = findLoaded(name);
        return found == m_modules.end() ? OdRxModulePtr() : found->module;
    }

    bool unloadModule(const OdString& name) override
    {
        const auto found = findLoaded(name);
        if (found == m_modules.end() || found->module->numRefs() > 1)
            return false;
        unload(static_cast<std::size_t>(found - m_modules.begin()));
        return true;
    }
    bool unloadUnreferenced() override
    {
        const std::size_t before = m_modules.size();
        for (std::size_t i = before; i-- > 0;)
            if (m_modules[i].module->numRefs() <= 1)
                unload(i);
        return m_modules.size() < before;
    }
    void unloadAll()
    {
        while (!m_modules.empty())
            unload(m_modules.size() - 1);
    }

    void addSearchFolder(const OdString& folder) override
    {
        if (!m_folders.contains(folder))
            m_folders.append(folder);
    }
    OdStringArray searchFolders() const override { return m_folders; }

    OdStringArray moduleFileNames(const OdString& applicationName) const override
    {
        OdStringArray names;
        OdString base = applicationName;
        const int extension = base.getLength() - OdString(kExtension).getLength();
        if (extension >= 0 && base.mid(extension).iCompare(kExtension) == 0)
            base = base.left(extension);
        if (base.find(kVersionSuffix) < 0)
            names.append(base + kVersionSuffix + kExtension);
        names.append(applicationName);
        return names;
    }

    OdStringArray loadedModules() const override
    {
        OdStringArray names;
        for (const LoadedModule& loaded : m_modules)
            names.append(loaded.name);
        return names;
    }

private:
    std::vector<LoadedModule>::const_iterator findLoaded(const OdString& name) const
    {
        return std::find_if(m_modules.begin(), m_modules.end(),
                            [&name](const LoadedModule& loaded)
                            {
                                return loaded.name.iCompare(name) == 0 || loaded.path == name ||
                                       (!loaded.path.isEmpty() && fileNameOf(loaded.path).iCompare(name) == 0) ||
                                       loaded.module->moduleName().iCompare(name) == 0;
                            });
    }

    OdRxModulePtr load(const OdString& name, bool silent)
    {
        if (OdRxModulePtr present = lookupModule(name); !present.isNull())
            return present;
        tellReactors([&name](OdRxDLinkerReactor& reactor) { reactor.rxAppWillBeLoaded(name); });
        LoadedModule made;
        try
        {
            made = make(name);
        }
        catch (const OdError&)
        {
            tellReactors([&name](OdRxDLinkerReactor& reactor) { reactor.rxAppLoadAborted(name); });
            if (silent)
                return {};
            throw;
        }
        start(made);
        return made.module;
    }

    LoadedModule make(const OdString& name) const
    {
        if (const auto found = staticModules().find(name); found != staticModules().end())
            return {name, OdString(), OdRxModulePtr(found->second(name)), nullptr};
        const OdString path = findFile(name);
        if (path.isEmpty())
            throw OdError(eModuleNotFound, L"Module " + name + L" was not found");
        ModuleFile file(path);
        file.checkVersion();
        OdRxModulePtr module(file.createModule());
        return {name, path, module, file.keep()};
    }

    OdString findFile(const OdString& name) const
    {
        if (name.find(L'/') >= 0)
            return odSystemServices()->findModule(name, OdString());
        const OdStringArray names = moduleFileNames(name);
        for (const OdString& folder : m_folders)
            for (const OdString& fileName : names)
                if (OdString path = odSystemServices()->findModule(fileName, folder); !path.isEmpty())
                    return path;
        return {};
    }

    void start(const LoadedModule& made)
    {
        m_modules.push_back(made);
        try
        {
            made.module->initApp();
        }
        catch (...)
        {
            // The file stays in memory: what was thrown may need its code.
            m_modules.pop_back();
            tellReactors([&made](OdRxDLinkerReactor& reactor) { reactor.rxAppLoadAborted(made.name); });
            throw;
        }
        tellReactors([&made](OdRxDLinkerReactor& reactor) { reactor.rxAppLoaded(made.module); });
    }

    void unload(std::size_t index)
    {
        tellReactors([&](OdRxDLinkerReactor& reactor) { reactor.rxAppWillBeUnloaded(m_modules[index].module); });
        LoadedModule ended = m_modules[index];
        m_modules.erase(m_modules.begin() + static_cast<std::ptrdiff_t>(index));
        ended.module->uninitApp();
        OdRxModule* module = ended.module.get();
        ended.module.release();
        module->deleteModule();
        if (ended.handle)
            ::dlclose(ended.handle);
        tellReactors([&ended](OdRxDLinkerReactor& reactor) { reactor.rxAppUnloaded(ended.name); });
    }

    template<class Tell>
    void tellReactors(Tell tell)
    {
        const std::vector<OdRxDLinkerReactorPtr> reactors = m_reactors;
        for (const OdRxDLinkerReactorPtr& reactor : reactors)
            tell(*reactor);
    }

    std::vector<LoadedModule> m_modules;
    std::vector<OdRxDLinkerReactorPtr> m_reactors;
    OdStringArray m_folders;
};

Linker& linker()
{
    static Linker* const one = new OdRxObjectImpl<Linker>;
    return *one;
}

} // namespace

OdRxDynamicLinker* odrxDynamicLinker()
{
    return &linker();
}

void odrxRegisterStaticModule(const OdString& applicationName, StaticModuleEntryPoint entryPoint)
{
    if (entryPoint)
        staticModules()[applicationName] = entryPoint;
    else
        staticModules().erase(applicationName);
}

OdRxModulePtr odrxLoadModule(const OdString& moduleFileName, bool silent)
{
    return odrxDynamicLinker()->loadModule(moduleFileName, silent);
}

OdRxModulePtr odrxLoadApp(const OdString& applicationName, bool silent)
{
    return odrxDynamicLinker()->loadApp(applicationName, silent);
}

namespace odlinker
{
void unloadAll()
{
    linker().unloadAll();
}
} // namespace odlinker
