//   definition of the stamp            block definition "AnnotationImage"        dictionary of image definitions
//    └─ INSERT at the origin  ──────►   └─ IMAGE centred on the origin  ──────►   └─ "AnnotationImage": IMAGEDEF, the
//    file
//        clipped to the outline             └─ reactor, which listens to the definition
#include "annotations/AnnotationImage.h"

#include <algorithm>

#include "DbRasterImage.h"
#include "DbSpatialFilter.h"

namespace Annotation
{

namespace
{

constexpr const OdChar* kBlockName = L"AnnotationImage";

/// The image in a block definition, null when it has none.
OdDbRasterImagePtr FindImage(const OdDbObjectId& idBlock, OdDb::OpenMode eMode)
{
    const OdDbBlockTableRecordPtr pBlock = OdDbBlockTableRecord::cast(idBlock.openObject());
    if (!pBlock || pBlock->isLayout())
        return OdDbRasterImagePtr();
    const OdDbObjectIteratorPtr pEntities = pBlock->newIterator();
    const bool bImage =
        !pEntities->done() && pEntities->objectId().objectClass()->isDerivedFrom(OdDbRasterImage::desc());
    return bImage ? OdDbRasterImagePtr(pEntities->objectId().safeOpenObject(eMode)) : OdDbRasterImagePtr();
}

void AddImage(const OdDbObjectId& idBlock, const OdDbObjectId& idDefinition)
{
    const OdDbBlockTableRecordPtr pBlock = idBlock.safeOpenObject(OdDb::kForWrite);
    const OdDbRasterImagePtr pImage = OdDbRasterImage::createObject();
    pBlock->appendOdDbEntity(pImage);
    pImage->setImageDefId(idDefinition);
}

// ---- Place
// -----------------------------------------------------------------------------------------------------------

/// The size of the image in drawing units.
OdGeVector2d SizeOf(const AnnotationProperties& properties, const Picture& picture)
{
    const double fBorder = properties.HasVisibleBorder() ? properties.borderThickness / 2.0 : 0.0;
    const double fMargin = EffectivePadding(properties) + fBorder;
    const OdGeVector2d room(ContentLength(properties.width, fMargin), ContentLength(properties.height, fMargin));
    if (!properties.uniform)
        return room;
    return picture.pixels * std::min(room.x / picture.pixels.x, room.y / picture.pixels.y);
}

void PlaceImage(OdDbRasterImage& image, const Picture& picture, const OdGeVector2d& size)
{
    image.setImageSize(picture.pixels);
    image.setOrientation(OdGePoint3d(-size.x / 2.0, -size.y / 2.0, 0.0), OdGeVector3d(size.x, 0.0, 0.0),
                         OdGeVector3d(0.0, size.y, 0.0));
    image.setClipBoundaryToWholeImage();
    for (const auto eOption : {OdDbRasterImage::kShow, OdDbRasterImage::kShowUnAligned, OdDbRasterImage::kClip,
                               OdDbRasterImage::kTransparent})
        image.setDisplayOpt(eOption, true);
}

void ClipToOutline(OdDbBlockReference& reference, const AnnotationProperties& properties, const Outline& outline)
{
    if (IsPlainRectangle(properties))
        return OdDbIndexFilterManager::removeFilter(&reference, OdDbSpatialFilter::desc());
    const OdDbSpatialFilterPtr pFilter = OdDbSpatialFilter::createObject();
    pFilter->setDefinition(FlattenOutline(outline), OdGeVector3d::kZAxis, 0.0);
    OdDbIndexFilterManager::addFilter(&reference, pFilter);
}

} // namespace

OdDbBlockReferencePtr CreateRasterImage(const AnnotationProperties& properties, OdDbBlockTableRecord& definition,
                                        CAnnotationDrawing& drawing)
{
    const OdDbObjectId idBlock = drawing.AddDefinition(kBlockName);
    AddImage(idBlock, drawing.Pictures().Definition(drawing.Pictures().Find(properties)));
    OdDbBlockReferencePtr pReference = OdDbBlockReference::createObject();
    pReference->setBlockTableRecord(idBlock);
    definition.appendOdDbEntity(pReference);
    return pReference;
}

void FillImage(const AnnotationProperties& properties, const Outline& outline, OdDbBlockReference& reference,
               CAnnotationDrawing& drawing)
{
    const Picture& picture = drawing.Pictures().Find(properties);
    const OdDbRasterImagePtr pImage = FindImage(reference.blockTableRecord(), OdDb::kForWrite);
    const OdDbObjectId idBefore = pImage->imageDefId();
    const OdDbObjectId idDefinition = drawing.Pictures().Definition(picture);
    if (idDefinition != idBefore)
    {
        pImage->setImageDefId(idDefinition);
        drawing.Pictures().Release(idBefore);
    }
    for (OdDbEntity* pEntity : {static_cast<OdDbEntity*>(&reference), static_cast<OdDbEntity*>(pImage.get())})
        pEntity->setLayer(drawing.LayerZero());
    PlaceImage(*pImage, picture, SizeOf(properties, picture));
    ClipToOutline(reference, properties, outline);
}

bool ShowsImage(const OdDbBlockReference& reference)
{
    return !FindImage(reference.blockTableRecord(), OdDb::kForRead).isNull();
}

void EraseImage(OdDbBlockReference& reference, CAnnotationDrawing& drawing)
{
    const OdDbObjectId idBlock = reference.blockTableRecord();
    reference.erase(true);
    EraseImageDefinition(idBlock, drawing);
}

void EraseImageDefinition(const OdDbObjectId& idBlock, CAnnotationDrawing& drawing)
{
    const OdDbRasterImagePtr pImage = FindImage(idBlock, OdDb::kForRead);
    const OdDbObjectId idDefinition = pImage ? pImage->imageDefId() : OdDbObjectId();
    if (EraseDefinitionIfUnused(idBlock))
        drawing.Pictures().Release(idDefinition);
}

} // namespace Annotation
