// The values that travel between JSON and chains. A chain is a row of elements: a name (a string), then the value's
// element or elements, then the next name:
//
//   JSON                                      elements behind the name
//   "text"                                    string
//   true                                      boolean
//   12                                        32-bit integer
//   {"objectId": "2A"}                        object id
//   {"objectIds": ["2A", "2B"]}               one object id for each, none for an empty list
//   {"point": [x, y, z]}                      point
//   {"extents": [[x, y, z], [x, y, z]]}       point, point
//   {"selectionSet": ["2A", "2B"]}            selection set
//   {"object": null}                          pointer that is null
//   {"pointer": true}                         pointer (in results only)
//   {"chain": {…}}                            nested chain (in results only)
#pragma once

#include "ResBuf.h"
#include "session/Json.h"
#include "session/RequestReader.h"

class OdDbDatabase;

namespace session
{

// The chain of a JSON object, its members in order. An empty object gives a chain of one element without a value.
// Throws RequestError for a value of no known form and for a handle that names nothing in the drawing.
OdResBufPtr readChain(const WideValue& members, OdDbDatabase& database);

// Writes a chain as a JSON object. A name that ends in "ARRAY" always has a list of objects; a name without a value has
// null, one with several values an array of them.
void writeChain(JsonWriter& writer, const OdResBuf* chain);

} // namespace session
