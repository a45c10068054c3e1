// What layers say of the entities on them.
#include "commands/Layers.h"

#include "DbLayerTableRecord.h"

namespace hostcommands
{

const LayerState& Layers::of(const OdDbObjectId& layer)
{
    const auto [entry, isNew] = m_states.try_emplace(static_cast<OdDbStub*>(layer));
    if (isNew)
    {
        const OdDbLayerTableRecordPtr record = OdDbLayerTableRecord::cast(layer.openObject());
        if (!record.isNull())
            entry->second = {record->isLocked()};
    }
    return entry->second;
}

} // namespace hostcommands
