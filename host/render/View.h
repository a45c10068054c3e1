// What part of a layout a picture shows.
#pragma once

#include <optional>

#include "DbDatabase.h"
#include "DbLayout.h"
#include "render/PageMap.h"
#include "render/Picture.h"
#include "render/Recording.h"

namespace render
{

/// A rectangle of the plane that is seen from a point of view.
struct View
{
    ViewPoint from;
    OdGeExtents2d plane;
    std::optional<Recording> recording; ///< of the layout's space, when it was gone through to find what is seen
};

/// The layout with this name, case ignored; the current one for the empty name. Throws OdError (eKeyNotFound).
OdDbLayoutPtr findLayout(OdDbDatabase& database, const OdString& name);

/// True for the layout of the model, whatever its own settings say.
bool isModel(const OdDbLayout& layout);

/// The sheet of a paper layout in its drawing units, invalid when the layout has no paper size.
OdGeExtents2d sheetOf(const OdDbLayout& layout);

/// Drawing units of a paper layout in a millimetre of paper.
double unitsPerMillimetre(const OdDbLayout& layout);

/// What a picture shows: the order's window, the active view, the sheet with all that is on it, or all of the model
/// that is seen, with a little room around it.
View viewOf(OdDbDatabase& database, const OdDbLayout& layout, const PictureOrder& order);

/// A size that the page does not exceed on either side; none when it depends on what the layout holds.
std::optional<PageSize> largestPage(const OdDbLayout& layout, const PictureOrder& order);

/// The page's size, and what of the view's plane is on it: as much more on two sides as its proportions ask for.
PageSize fitPage(View& view, const OdDbLayout& layout, const PictureOrder& order);

} // namespace render
