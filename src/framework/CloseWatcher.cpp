// One listener that is attached to every drawing on which a command was run.
#include "framework/CloseWatcher.h"

#include <unordered_set>

#include "DbDatabase.h"
#include "DbDatabaseReactor.h"
#include "ModuleServices.h"
#include "StaticRxObject.h"

namespace
{

class CloseReactor : public OdDbDatabaseReactor
{
public:
    void Watch(OdDbDatabase* pDb)
    {
        if (m_watched.insert(pDb).second)
            pDb->addReactor(this);
    }

    void StopWatching()
    {
        for (const OdDbDatabase* pDb : m_watched)
            pDb->removeReactor(this);
        m_watched.clear();
    }

    void goodbye(const OdDbDatabase* database) override
    {
        m_watched.erase(database);
        if (CModuleServices* pServices = CModuleServices::Find())
            pServices->RemoveArbitraryDataDictionary(database);
    }

private:
    std::unordered_set<const OdDbDatabase*> m_watched;
};

// Drawings may still be open when the program's variables end, so this one never does.
OdStaticRxObject<CloseReactor>& Reactor()
{
    static auto* const pReactor = new OdStaticRxObject<CloseReactor>;
    return *pReactor;
}

} // namespace

void WatchForClosing(OdDbDatabase* pDb)
{
    Reactor().Watch(pDb);
}

void StopWatchingForClosing()
{
    Reactor().StopWatching();
}
