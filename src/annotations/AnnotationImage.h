// The image of a stamp: a block definition with the image, and a reference to it.
#pragma once

#include "DbBlockReference.h"
#include "DbBlockTableRecord.h"
#include "annotations/AnnotationDrawing.h"
#include "annotations/AnnotationOutline.h"

namespace Annotation
{

/** Appends to the definition of a stamp a reference to a new block definition that holds an image of the record's file,
    all on layer "0". Returns the reference, open for write. Throws as CPictures::Find. */
OdDbBlockReferencePtr CreateRasterImage(const AnnotationProperties& properties, OdDbBlockTableRecord& definition,
                                        CAnnotationDrawing& drawing);

/** Makes the image show the record's file: within the box less padding and half of the border on each side, in its own
    proportion and centred, or stretched. The reference is clipped to an outline that is no plain rectangle. */
void FillImage(const AnnotationProperties& properties, const Outline& outline, OdDbBlockReference& reference,
               CAnnotationDrawing& drawing);

/** True for a reference to a block definition that holds an image. */
bool ShowsImage(const OdDbBlockReference& reference);

/** Erases the reference of an image and, unless it is used elsewhere, its block definition. */
void EraseImage(OdDbBlockReference& reference, CAnnotationDrawing& drawing);

/** Erases the block definition of an image whose reference was erased, unless it is used elsewhere. */
void EraseImageDefinition(const OdDbObjectId& idBlock, CAnnotationDrawing& drawing);

} // namespace Annotation
