// What belongs to images beside their definitions: reactors, and the settings of a drawing.
#include "DbDatabase.h"
#include "DbDictionary.h"
#include "DbRasterImageDefReactor.h"
#include "DbRasterVariables.h"
#include "OdError.h"
#include "entities/Fields.h"

using namespace entityfields;
using entitytables::kRasterImageDefReactor;
using entitytables::kRasterVariables;

namespace
{

constexpr OdChar kVariablesName[] = L"ACAD_IMAGE_VARS";

} // namespace

OdDbObjectId OdDbRasterImageDefReactor::imageId() const
{
    return read<kRasterImageDefReactor>(*this).stub(330);
}

void OdDbRasterImageDefReactor::setImageId(OdDbObjectId imageId)
{
    setId(*this, kRasterImageDefReactor, 330, imageId);
}

OdDbRasterVariablesPtr OdDbRasterVariables::openRasterVariables(OdDbDatabase* database, OdDb::OpenMode openMode)
{
    if (!database)
        throw OdError(eNullPtr);
    const OdDbDictionaryPtr named = database->getNamedObjectsDictionaryId().safeOpenObject();
    if (named->has(kVariablesName))
        return named->getAt(kVariablesName, openMode);
    named->upgradeOpen();
    const OdDbObjectId made = named->setAt(kVariablesName, OdDbRasterVariables::createObject());
    named->downgradeOpen();
    return made.safeOpenObject(openMode);
}

OdDbRasterVariables::FrameSettings OdDbRasterVariables::imageFrame() const
{
    return static_cast<FrameSettings>(read<kRasterVariables>(*this).integer(70));
}

void OdDbRasterVariables::setImageFrame(FrameSettings imageFrame)
{
    setInteger(*this, kRasterVariables, 70, imageFrame);
}

OdDbRasterVariables::ImageQuality OdDbRasterVariables::imageQuality() const
{
    return static_cast<ImageQuality>(read<kRasterVariables>(*this).integer(71));
}

void OdDbRasterVariables::setImageQuality(ImageQuality imageQuality)
{
    setInteger(*this, kRasterVariables, 71, imageQuality);
}
