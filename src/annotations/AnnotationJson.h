// The JSON form of stamps: how it is read, and what is answered about a stamp.
#pragma once

#include <vector>

#include "DbObjectId.h"
#include "annotations/AnnotationProperties.h"
#include "framework/Json.h"

namespace Annotation
{

/** The records of a JSON text that holds one object or an array of objects, in their order. Blanks, tabs, line feeds
    and quotes around the text are passed over. Throws OdError, with nothing returned: message 926 (number of the
    character, reason) for a text that is no JSON; "Invalid Data" for any other value than an object or an array;
    eInvalidInput, with a text that names the index of the object and the key, for an object that cannot be read. */
std::vector<AnnotationProperties> ReadAnnotationsFromJson(const OdString& strJson);

/** Fills a record, which has to be a new one, from an object. Throws OdError (eInvalidInput), with a text that names
    the key, when one is missing that has to be there ("X", "Y" and "Z" need not) or has a value of a wrong kind. */
void ReadAnnotationFromJson(const JsonValue& object, AnnotationProperties& properties);

/** A colour "#AARRGGBB". Returns true and sets colour and transparency, to 0 in what is not there or no hexadecimal
    digit; returns false and leaves both for null and the empty string. Throws OdError (eInvalidInput) for a value of
    another kind. */
bool ParseArgbColor(const JsonValue& value, OdCmColor& color, OdCmTransparency& transparency);

/** Writes what commands answer about a stamp: handle, angle in degrees, font size, position, and its size as the
    reference shows it. Throws OdError_NotThatKindOfClass when the object is no block reference or what it refers to no
    block table record, and what OdDbObjectId::safeOpenObject throws. */
void WriteAnnotationResult(const AnnotationProperties& properties, const OdDbObjectId& idReference, JsonWriter& writer);

/** Points have the same form everywhere. */
using ::ReadJsonPoint;
using ::WriteJsonPoint;

} // namespace Annotation
