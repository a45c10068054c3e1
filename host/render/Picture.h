// Pictures of drawings.
#pragma once

#include <optional>
#include <string>

#include "DbDatabase.h"
#include "render/Canvas.h"

namespace render
{

enum class Format
{
    kPng,
    kSvg,
    kPdf
};

/// What is to be seen, and how large.
struct PictureOrder
{
    std::string file;
    Format format = Format::kPng;
    OdString layout;                     ///< by its name; empty for the one that is current in the drawing
    std::optional<OdGeExtents2d> window; ///< a part of the layout, in its drawing units, seen from above
    bool isActiveView = false;           ///< what the layout's active view shows
    std::optional<PageSize> size;        ///< in pixels; by default as large as the paper, or 1600 along the longer side
    Color background{255, 255, 255, 255};
};

/// Paints a picture and writes its file. Throws OdError: eKeyNotFound, which names the layouts that there are, for a
/// name that no layout has, OdError_FileWriteError for a file that cannot be written.
void paintPicture(OdDbDatabase& database, const PictureOrder& order);

/// The format of a file by its ending; none for another ending.
std::optional<Format> formatOf(const std::string& file);

} // namespace render
