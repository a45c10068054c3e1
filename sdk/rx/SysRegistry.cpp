// The registry of the program.
#include "rx/SysRegistry.h"

#include "RxClass.h"
#include "RxSysRegistry.h"

namespace
{

constexpr const OdChar* kClassDictionary = L"ClassDictionary";

} // namespace

OdRxDictionary* odrxSysRegistry()
{
    static OdRxDictionary* const registry = []
    {
        OdRxDictionaryPtr made = odrxCreateSyncRxDictionary(true);
        made->putAt(kClassDictionary, odrxClassDictionary());
        return made.detach();
    }();
    return registry;
}

namespace odregistry
{
void clear()
{
    for (OdRxDictionaryIteratorPtr it = odrxSysRegistry()->newIterator(); !it->done(); it->next())
        if (it->getKey() != kClassDictionary)
            odrxSysRegistry()->remove(it->getKey());
}
} // namespace odregistry
