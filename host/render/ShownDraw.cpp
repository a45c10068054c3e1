// Implements the choice of what is shown.
#include "render/ShownDraw.h"

#include "DbLayerTable.h"
#include "DbViewport.h"

namespace render
{

namespace
{

/// The layer that holds what dimensions hang on, which is there to be picked but not to be printed.
OdDbObjectId findDefpoints(const OdDbDatabase& database)
{
    const OdDbLayerTablePtr layers = OdDbLayerTable::cast(database.getLayerTableId().openObject());
    return layers.isNull() ? OdDbObjectId() : layers->getAt(L"Defpoints");
}

} // namespace

bool showsModel(const OdGiDrawable& drawable)
{
    return drawable.isA() == OdDbViewport::desc();
}

ShownDraw::ShownDraw(OdGiRegenType regenType, const OdDbDatabase& database)
    : OdGiBaseVectorizer(regenType), m_defpoints(findDefpoints(database))
{
}

bool ShownDraw::isShown(const OdGiDrawable&, OdUInt32 flags)
{
    if ((flags & OdGiDrawable::kDrawableIsInvisible) != 0 || isLayerFrozen())
        return false;
    if (m_defpoints && traits().layer() == m_defpoints)
        return false;
    // What a block reference on a layer that is off holds on other layers is seen.
    return (flags & OdGiDrawable::kDrawableIsCompoundObject) != 0 || isLayerShown();
}

} // namespace render
