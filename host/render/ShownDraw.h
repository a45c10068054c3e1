// Which of the things in a drawing pictures show.
#pragma once

#include "DbDatabase.h"
#include "Gi/GiBaseVectorizer.h"

namespace render
{

/// True for windows on a sheet, through which the model is seen.
bool showsModel(const OdGiDrawable& drawable);

/// Passes over what is invisible, on layers that are off or frozen, or there only for dimensions to hang on.
class ShownDraw : public OdGiBaseVectorizer
{
protected:
    ShownDraw(OdGiRegenType regenType, const OdDbDatabase& database);

    bool isShown(const OdGiDrawable& drawable, OdUInt32 flags) override;

private:
    OdDbStub* m_defpoints; ///< the layer of points that are not printed, null when there is none
};

} // namespace render
