// One line of text with all that says where it stands: from its alignment follow the start of its base line, its
// direction and its size.
#pragma once

#include "DbEnums.h"
#include "Gi/GiTextStyle.h"
#include "OdString.h"
#include "entities/Ocs.h"

class OdDbText;
class OdGiWorldDraw;

namespace textline
{

/// Points are in the coordinates of the text's plane, angles in radians.
struct Line
{
    OdString characters; ///< with their %% codes
    OdGePoint3d position;
    OdGePoint3d alignment;
    OdGiTextStyle style;
    double rotation = 0.0;
    OdDb::TextHorzMode horizontal = OdDb::kTextLeft;
    OdDb::TextVertMode vertical = OdDb::kTextBase;
    bool backward = false;
    bool upsideDown = false;
    ocs::Frame frame;
    double thickness = 0.0;
};

/// The line that a text draws when it shows the given string, which may hold %% codes.
Line lineOf(const OdDbText& text, const OdString& shown);
/// The line that it draws by itself.
Line lineOf(const OdDbText& text);

void draw(OdGiWorldDraw& worldDraw, Line line);

} // namespace textline
