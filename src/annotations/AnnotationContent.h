// Drawing a stamp: the entities of its block definition, and the reference that shows them.
#pragma once

#include "DbBlockReference.h"
#include "annotations/AnnotationDrawing.h"

namespace Annotation
{

/** Draws a record: gives the reference, which is open for write and resident, its place and layer, and the block
    definition that it refers to the entities of the stamp. Entities that are there are used again, those that are
    missing are made, all on layer "0". A record whose box takes the size of its text is given that size. Throws
    OdError_NotThatKindOfClass when what the reference refers to is no block table record, and what the operations of
    the entities throw. */
void BuildAnnotationContent(AnnotationProperties& properties, OdDbBlockReference& reference,
                            CAnnotationDrawing& drawing);

/** Erases a reference, which is open for write, and the block definition that it refers to with all that is drawn of it
    only; a definition that something else refers to stays. */
void EraseAnnotation(OdDbBlockReference& reference, CAnnotationDrawing& drawing);

} // namespace Annotation
