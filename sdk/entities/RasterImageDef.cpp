// The pictures that images show: names of files and sizes.
#include "DbRasterImageDef.h"

#include "DbDatabase.h"
#include "DbDictionary.h"
#include "DbEntity.h"
#include "DbLayerTableRecord.h"
#include "DbRasterImageDefReactor.h"
#include "OdError.h"
#include "entities/Fields.h"

using namespace entityfields;
using entitytables::kRasterImageDef;

namespace
{

constexpr OdChar kDictionaryName[] = L"ACAD_IMAGE_DICT";

OdDbObjectId namedObjectsOf(OdDbDatabase* database)
{
    if (!database)
        throw OdError(eNullPtr);
    return database->getNamedObjectsDictionaryId();
}

OdGeVector2d pairOf(const OdDbRasterImageDef& definition, int code)
{
    const OdGePoint3d pair = read<kRasterImageDef>(definition).point(code);
    return OdGeVector2d(pair.x, pair.y);
}

bool isLocked(OdDbStub* reactorId)
{
    const OdDbRasterImageDefReactorPtr reactor = OdDbRasterImageDefReactor::cast(OdDbObjectId(reactorId).openObject());
    if (reactor.isNull())
        return false;
    const OdDbEntityPtr image = OdDbEntity::cast(reactor->imageId().openObject());
    const OdDbLayerTableRecordPtr layer =
        image.isNull() ? OdDbLayerTableRecordPtr() : OdDbLayerTableRecord::cast(image->layerId().openObject());
    return !layer.isNull() && layer->isLocked();
}

bool isOneLocked(const oddb::ReactorSet& reactors)
{
    for (OdDbStub* reactor = reactors.first(); reactor; reactor = reactors.after(reactor))
        if (isLocked(reactor))
            return true;
    return false;
}

} // namespace

OdDbObjectId OdDbRasterImageDef::imageDictionary(OdDbDatabase* database)
{
    const OdDbDictionaryPtr named = OdDbDictionary::cast(namedObjectsOf(database).openObject());
    return named.isNull() ? OdDbObjectId() : named->getAt(kDictionaryName);
}

OdDbObjectId OdDbRasterImageDef::createImageDictionary(OdDbDatabase* database)
{
    const OdDbObjectId present = imageDictionary(database);
    if (!present.isNull() && !present.isErased())
        return present;
    const OdDbDictionaryPtr named = OdDbDictionary::cast(namedObjectsOf(database).safeOpenObject(OdDb::kForWrite));
    const OdDbDictionaryPtr made = OdDbDictionary::createObject();
    return named->setAt(kDictionaryName, made);
}

OdString OdDbRasterImageDef::sourceFileName() const
{
    return read<kRasterImageDef>(*this).text(1);
}

void OdDbRasterImageDef::setSourceFileName(const OdString& fileName)
{
    setText(*this, kRasterImageDef, 1, fileName);
}

OdGeVector2d OdDbRasterImageDef::size() const
{
    return pairOf(*this, 10);
}

void OdDbRasterImageDef::setImageSize(const OdGeVector2d& size)
{
    setPoint(*this, kRasterImageDef, 10, OdGePoint3d(size.x, size.y, 0.0));
}

OdGeVector2d OdDbRasterImageDef::resolutionMMPerPixel() const
{
    return pairOf(*this, 11);
}

void OdDbRasterImageDef::setResolutionMMPerPixel(const OdGeVector2d& size)
{
    setPoint(*this, kRasterImageDef, 11, OdGePoint3d(size.x, size.y, 0.0));
}

// Images that are erased take their reactors off and put them on again when they come back, so that reactors count
// them.
int OdDbRasterImageDef::entityCount(bool* pbLocked) const
{
    assertReadEnabled();
    const oddb::ObjectExtras* extras = oddb::ObjectCore::extras(*this);
    if (pbLocked)
        *pbLocked = extras && isOneLocked(extras->reactors);
    return extras ? static_cast<int>(extras->reactors.countOf(OdDbRasterImageDefReactor::desc())) : 0;
}

OdDbRasterImageDef::Units OdDbRasterImageDef::resolutionUnits() const
{
    return static_cast<Units>(read<kRasterImageDef>(*this).integer(281));
}

void OdDbRasterImageDef::setResolutionUnits(Units units)
{
    setInteger(*this, kRasterImageDef, 281, units);
}

bool OdDbRasterImageDef::isLoaded() const
{
    return read<kRasterImageDef>(*this).integer(280) != 0;
}

void OdDbRasterImageDef::setLoaded(bool loaded)
{
    setInteger(*this, kRasterImageDef, 280, loaded ? 1 : 0);
}
