// A block definition of a stamp holds, from back to front, each at most once:
//
//   HATCH        the background: solid, within the outline
//   INSERT       the image: a reference to a block definition that holds the IMAGE
//   LWPOLYLINE   the border: the outline
//   MTEXT        the text
#include "annotations/AnnotationContent.h"

#include "DbBlockTableRecord.h"
#include "DbHatch.h"
#include "DbPolyline.h"
#include "annotations/AnnotationImage.h"

namespace Annotation
{

namespace
{

constexpr OdInt32 kLoopType = OdDbHatch::kExternal | OdDbHatch::kPolyline;

// ---- The entities of a definition
// ------------------------------------------------------------------------------------

/// The entities that a definition has, open for write; null for those that are missing.
struct Content
{
    OdDbHatchPtr pBackground;
    OdDbBlockReferencePtr pImage;
    OdDbPolylinePtr pBorder;
    OdDbMTextPtr pText;
};

template<class Entity>
void TakeFirst(OdSmartPtr<Entity>& pFirst, const OdDbObjectId& id)
{
    if (!pFirst && id.objectClass()->isDerivedFrom(Entity::desc()))
        pFirst = id.safeOpenObject(OdDb::kForWrite);
}

void TakeImage(OdDbBlockReferencePtr& pImage, const OdDbObjectId& id)
{
    const OdDbBlockReferencePtr pReference = OdDbBlockReference::cast(id.openObject());
    if (pReference && ShowsImage(*pReference))
        TakeFirst(pImage, id);
}

Content FindContent(const OdDbBlockTableRecord& definition)
{
    Content content;
    for (OdDbObjectIteratorPtr pEntities = definition.newIterator(); !pEntities->done(); pEntities->step())
    {
        TakeFirst(content.pBackground, pEntities->objectId());
        TakeImage(content.pImage, pEntities->objectId());
        TakeFirst(content.pBorder, pEntities->objectId());
        TakeFirst(content.pText, pEntities->objectId());
    }
    return content;
}

/// The block definition of the image in a definition, null when it has none.
OdDbObjectId FindImageBlock(const OdDbObjectId& idDefinition)
{
    const OdDbBlockTableRecordPtr pDefinition = idDefinition.safeOpenObject(OdDb::kForRead);
    OdDbBlockReferencePtr pImage;
    for (OdDbObjectIteratorPtr pEntities = pDefinition->newIterator(); !pEntities->done(); pEntities->step())
        TakeImage(pImage, pEntities->objectId());
    return pImage ? pImage->blockTableRecord() : OdDbObjectId();
}

template<class Entity>
void Erase(OdSmartPtr<Entity>& pEntity)
{
    if (pEntity)
        pEntity->erase(true);
    pEntity.release();
}

/// Makes or erases the image. What has to be in front of a new one is erased, to be made anew behind it in the row.
void RequireImage(const AnnotationProperties& properties, Content& content, OdDbBlockTableRecord& definition,
                  CAnnotationDrawing& drawing)
{
    if (!properties.HasImage() && content.pImage)
    {
        EraseImage(*content.pImage, drawing);
        content.pImage.release();
    }
    if (!properties.HasImage() || content.pImage)
        return;
    content.pImage = CreateRasterImage(properties, definition, drawing);
    Erase(content.pBorder);
    Erase(content.pText);
}

/// Empties an entity that is drawn anew.
void Empty(OdDbHatch& hatch)
{
    while (hatch.numLoops() > 0)
        hatch.removeLoopAt(hatch.numLoops() - 1);
    if (hatch.associative())
        hatch.setAssociative(false);
}

void Empty(OdDbPolyline& border)
{
    border.reset();
}

void Empty(const OdDbMText&) {}

/// Makes the entity when it is missing, and empties it otherwise.
template<class Entity>
Entity& Require(OdSmartPtr<Entity>& pEntity, OdDbBlockTableRecord& definition, const OdDbObjectId& idLayer)
{
    if (!pEntity)
    {
        pEntity = Entity::createObject();
        definition.appendOdDbEntity(pEntity);
    }
    else
        Empty(*pEntity);
    pEntity->setLayer(idLayer);
    return *pEntity;
}

// ---- Filling them
// ----------------------------------------------------------------------------------------------------

// Vertices come last, for what is set behind them has to pass them.
void FillBackground(const AnnotationProperties& properties, const Outline& outline, OdDbHatch& hatch)
{
    hatch.setPattern(OdDbHatch::kPreDefined, L"SOLID");
    hatch.setHatchStyle(OdDbHatch::kOuter);
    hatch.setColor(properties.backgroundColor, true);
    hatch.setTransparency(properties.backgroundTransparency, true);
    hatch.appendLoop(kLoopType, outline.points, outline.bulges);
}

void FillBorder(const AnnotationProperties& properties, const Outline& outline, OdDbPolyline& border)
{
    border.setClosed(true);
    border.setColor(properties.borderColor, true);
    border.setTransparency(properties.borderTransparency, true);
    border.setConstantWidth(properties.borderThickness);
    for (unsigned i = 0; i < outline.points.size(); ++i)
        border.addVertexAt(i, outline.points[i], outline.bulges[i], -1.0, -1.0);
}

bool IsExactly(const OdGeVector3d& first, const OdGeVector3d& second)
{
    return first.x == second.x && first.y == second.y && first.z == second.z;
}

bool IsUnscaled(const OdGeScale3d& scale)
{
    return scale.sx == 1.0 && scale.sy == 1.0 && scale.sz == 1.0;
}

// A new reference is as most stamps want it.
void PlaceReference(const AnnotationProperties& properties, OdDbBlockReference& reference, CAnnotationDrawing& drawing)
{
    reference.setLayer(drawing.Layer());
    if (!IsExactly(reference.normal(), properties.normal))
        reference.setNormal(properties.normal);
    reference.setPosition(properties.position);
    if (!IsUnscaled(reference.scaleFactors()))
        reference.setScaleFactors(OdGeScale3d(1.0, 1.0, 1.0));
    reference.setRotation(properties.angle / 180.0 * OdaPI);
}

} // namespace

// What is missing is made from back to front; the text is filled first, for the box may take its size.
void BuildAnnotationContent(AnnotationProperties& properties, OdDbBlockReference& reference,
                            CAnnotationDrawing& drawing)
{
    PlaceReference(properties, reference, drawing);
    const OdDbBlockTableRecordPtr pDefinition = reference.blockTableRecord().safeOpenObject(OdDb::kForWrite);
    Content content = FindContent(*pDefinition);
    const OdDbObjectId idLayer = drawing.LayerZero();
    OdDbHatch& background = Require(content.pBackground, *pDefinition, idLayer);
    RequireImage(properties, content, *pDefinition, drawing);
    OdDbPolyline& border = Require(content.pBorder, *pDefinition, idLayer);
    OdDbMText& text = Require(content.pText, *pDefinition, idLayer);

    FillText(properties, text, drawing.TextStyle(), drawing.TextMeasure());
    const Outline outline = MakeOutline(properties);
    FillBackground(properties, outline, background);
    FillBorder(properties, outline, border);
    if (content.pImage)
        FillImage(properties, outline, *content.pImage, drawing);
}

void EraseAnnotation(OdDbBlockReference& reference, CAnnotationDrawing& drawing)
{
    const OdDbObjectId idDefinition = reference.blockTableRecord();
    const OdDbObjectId idImageBlock = FindImageBlock(idDefinition);
    reference.erase(true);
    reference.downgradeOpen();
    if (EraseDefinitionIfUnused(idDefinition) && !idImageBlock.isNull())
        EraseImageDefinition(idImageBlock, drawing);
}

} // namespace Annotation
