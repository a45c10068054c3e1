// What is written in a single entity.
#pragma once

#include <vector>

#include "OdString.h"

class OdDbEntity;

namespace hostcommands
{

// The text of a TEXT, an MTEXT (without format codes), an attribute or its definition, the text of a dimension, and the
// attributes of a block reference. Empty for all else.
std::vector<OdString> visibleTextsOf(const OdDbEntity& entity);

} // namespace hostcommands
