// Writes the entities of a section.
#pragma once

#include <vector>

class OdDbStub;

namespace dxf
{
struct Writing;

/// Writes these entities one behind the other, each with its attributes or vertices. Many of them are printed on
/// several threads; the file is the same.
void writeEntities(Writing& writing, const std::vector<const OdDbStub*>& entities);

} // namespace dxf
