// Completes a drawing that was read: what every drawing has, and what old or damaged files lack.
#pragma once

namespace dxf
{

struct Reading;

/// Makes missing tables, records, spaces, dictionaries and layouts, and mends links between them. Reports what a file
/// of its version should have had.
void repairDrawing(Reading& reading);

} // namespace dxf
