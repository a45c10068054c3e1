// The work of the annotation commands on the records of a request. Each record is drawn or deleted wholly or not at
// all; what throws leaves the work on the records before it.
#pragma once

#include "annotations/AnnotationCommands.h"

/** "JSON": an array of what was created, in the order of the records. */
void CreateAnnotations(CCommandCall& call, AnnotationRecords& records);

/** "JSON": an array of what was modified, in the order of the records. Throws what OdDbObjectId::safeOpenObject throws
    for a handle that names no object, OdError_NotThatKindOfClass for one that is no block reference. */
void ModifyAnnotations(CCommandCall& call, AnnotationRecords& records);

/** Erases references and their block definitions; a definition that is still referred to stays. Records without handle
    are passed over. Throws as ModifyAnnotations. */
void DeleteAnnotations(CCommandCall& call, AnnotationRecords& records);
