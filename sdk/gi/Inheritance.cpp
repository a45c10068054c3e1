// Implements the taking over of looks.
#include "gi/Inheritance.h"

#include "DbLayerTableRecord.h"
#include "DbLinetypeTableRecord.h"
#include "db/SymbolNames.h"

namespace gi
{

namespace
{

/// Colour 7 is whatever is seen on the ground at hand. Some programs write it as white beside, which means the same.
bool isForeground(const OdDbLayerTableRecord& layer)
{
    const OdCmEntityColor color = layer.color().entityColor();
    return layer.colorIndex() == OdCmEntityColor::kACIforeground && color.isByColor() && color.red() == 255 &&
           color.green() == 255 && color.blue() == 255;
}

LayerLooks read(OdDbStub* layer)
{
    LayerLooks looks;
    looks.color.setColorIndex(OdCmEntityColor::kACIforeground);
    const OdDbLayerTableRecordPtr record = OdDbLayerTableRecord::cast(OdDbObjectId(layer).openObject());
    if (record.isNull())
        return looks;
    looks.color = record->color().entityColor();
    looks.linetype = record->linetypeObjectId();
    looks.lineWeight = record->lineWeight();
    looks.transparency = record->transparency();
    looks.isOff = record->isOff();
    looks.isFrozen = record->isFrozen();
    if (looks.color.isByLayer() || looks.color.isByBlock() || isForeground(*record))
        looks.color.setColorIndex(OdCmEntityColor::kACIforeground);
    if (looks.lineWeight < 0)
        looks.lineWeight = OdDb::kLnWtByLwDefault;
    if (!looks.transparency.isByAlpha())
        looks.transparency.setAlpha(255);
    return looks;
}

} // namespace

void Inheritance::enter(const TraitValues& outer)
{
    m_outer.push_back({outer, false});
    m_isKept = false;
}

void Inheritance::leave()
{
    m_outer.pop_back();
    m_isKept = false;
}

OdDbStub* Inheritance::layerOf(OdDbStub* layer)
{
    if (m_outer.empty() || !m_outer.back().values.layer)
        return layer; // in a space
    const auto [place, isNew] = m_layerZeros.try_emplace(layer, false);
    if (isNew)
        place->second = !layer || oddb::symbolName(layer) == "0";
    return place->second ? m_outer.back().values.layer : layer;
}

const LayerLooks& Inheritance::looksOf(OdDbStub* layer)
{
    if (m_lastLooks && m_lastLayer == layer)
        return *m_lastLooks;
    auto known = m_layers.find(layer);
    if (known == m_layers.end())
    {
        LayerLooks looks = read(layer);
        if (kindOf(looks.linetype) != Linetype::kPattern)
            looks.linetype = nullptr;
        known = m_layers.emplace(layer, looks).first;
    }
    m_lastLayer = layer;
    m_lastLooks = &known->second;
    return known->second;
}

Inheritance::Linetype Inheritance::kindOf(OdDbStub* linetype)
{
    if (!linetype)
        return Linetype::kByLayer;
    const auto [place, isNew] = m_linetypes.try_emplace(linetype, Linetype::kPattern);
    if (!isNew)
        return place->second;
    const OdString name = odUtf8ToString(oddb::symbolName(linetype));
    const OdDbLinetypeTableRecordPtr record = OdDbLinetypeTableRecord::cast(OdDbObjectId(linetype).openObject());
    if (name.iCompare(L"ByLayer") == 0)
        place->second = Linetype::kByLayer;
    else if (name.iCompare(L"ByBlock") == 0)
        place->second = Linetype::kByBlock;
    else if (record.isNull() || record->numDashes() == 0)
        place->second = Linetype::kPlain;
    return place->second;
}

/// The looks of the block reference around, which are resolved when they are asked for first.
const TraitValues& Inheritance::outer()
{
    std::size_t first = m_outer.size();
    while (first > 0 && !m_outer[first - 1].isResolved)
        --first;
    for (std::size_t i = first; i < m_outer.size(); ++i)
    {
        resolve(m_outer[i].values, i > 0 ? &m_outer[i - 1].values : nullptr);
        m_outer[i].isResolved = true;
    }
    return m_outer.back().values;
}

void Inheritance::resolve(TraitValues& values, const TraitValues* outer)
{
    const LayerLooks& layer = looksOf(values.layer);
    if (values.color.isByBlock())
    {
        values.color.setColorIndex(OdCmEntityColor::kACIforeground);
        values.color = outer ? outer->color : values.color;
    }
    else if (values.color.isByLayer())
        values.color = layer.color;

    const Linetype linetype = kindOf(values.linetype);
    if (linetype == Linetype::kByBlock)
        values.linetype = outer ? outer->linetype : nullptr;
    else if (linetype == Linetype::kByLayer)
        values.linetype = layer.linetype;
    else if (linetype == Linetype::kPlain)
        values.linetype = nullptr;

    if (values.lineWeight == OdDb::kLnWtByBlock)
        values.lineWeight = outer ? outer->lineWeight : OdDb::kLnWtByLwDefault;
    else if (values.lineWeight == OdDb::kLnWtByLayer)
        values.lineWeight = layer.lineWeight;

    if (values.transparency.isByBlock())
    {
        values.transparency.setAlpha(255);
        values.transparency = outer ? outer->transparency : values.transparency;
    }
    else if (values.transparency.isByLayer())
        values.transparency = layer.transparency;
}

const TraitValues& Inheritance::effective(const Traits& traits)
{
    if (m_isKept && m_effectiveAt == traits.changes() && m_effectiveDepth == m_outer.size())
        return m_effective;
    m_effective = traits.values();
    // Most drawables stand in no block, so that there is nothing to take over.
    resolve(m_effective, m_outer.empty() ? nullptr : &outer());
    m_effectiveAt = traits.changes();
    m_effectiveDepth = m_outer.size();
    m_isKept = true;
    return m_effective;
}

} // namespace gi
