// What a reader sees of a text entity. The entity is asked to draw itself, and what it draws is caught: the characters
// without codes, and the direction in which they run.
#pragma once

#include "Ge/GeVector3d.h"
#include "OdString.h"

class OdDbEntity;

namespace textparser
{

struct SeenText
{
    OdString characters;
    OdGeVector3d direction = OdGeVector3d::kXAxis; // of the last piece that was drawn
};

SeenText seenTextOf(const OdDbEntity& entity);

// One line with single blanks between its words and none at its ends.
OdString joinWords(const OdString& text);

} // namespace textparser
