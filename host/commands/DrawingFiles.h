// Writing a drawing to a file by the words that people use for versions and formats.
#pragma once

#include "OdString.h"

class OdDbDatabase;

namespace hostcommands
{

struct WriteOrder
{
    OdString file;    // empty: the drawing's own
    OdString version; // empty: the drawing's own; one that is too old for labels becomes R2018
    OdString format;  // "ascii" or "binary", empty: ascii
};

// Throws OdError(eInvalidInput) for a file name that the system would cut short.
void requireFileName(const OdString& file);

// Writes the drawing, whole or not at all, and returns the file. Throws OdError, with the old file unchanged.
OdString writeDrawing(OdDbDatabase& database, const WriteOrder& order);

} // namespace hostcommands
