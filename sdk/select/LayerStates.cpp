// Looks at layers.
#include "select/LayerStates.h"

#include "DbLayerTableRecord.h"

namespace picking
{

const LayerState& LayerStates::of(OdDbStub* layer)
{
    if (m_lastState != nullptr && layer == m_last)
        return *m_lastState;
    const auto [entry, isNew] = m_states.try_emplace(layer);
    if (isNew)
    {
        const OdDbLayerTableRecordPtr record = OdDbLayerTableRecord::cast(OdDbObjectId(layer).openObject());
        if (!record.isNull())
            entry->second = {record->isOff(), record->isFrozen()};
    }
    m_last = layer;
    m_lastState = &entry->second;
    return entry->second;
}

} // namespace picking
