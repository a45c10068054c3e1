// A drawing border as JSON, as the commands of drawing borders take and give it.
//
//   {"ColumnLinesValid": true, "Columns": ["1", "2"], "Lines": ["A", "B"],
//    "AreaValid": true, "AreaFirst": {"X": 0.0, "Y": 297.0, "Z": 0.0}, "AreaSecond": {"X": 420.0, "Y": 0.0, "Z": 0.0}}
#pragma once

#include "DrawingBorderData.h"
#include "framework/Json.h"

/** A CParamsDrawingBorder is what a drawing border holds. */
class CParamsDrawingBorder
{
public:
    CParamsDrawingBorder() = default;
    explicit CParamsDrawingBorder(const CDrawingBorderData& border);

    /** What a JSON text says. "Columns", "Lines" and "ColumnLinesValid" have to
        be there, and both lists need entries when they are said to be valid; without "AreaValid" the area is not valid,
        and a corner or coordinate that is missing is 0. Throws OdError with a message whose number is its code too: 926
        for what is no JSON, 924 for what is no object, 925 for what is missing or of another type, with its key, and
        with "ColumnStringArray entries" or "LinesStringArray entries" for an empty list. */
    static CParamsDrawingBorder Read(const OdString& strJson);

    /** Throws OdError 925 "AreaValid" unless the area is valid, and "AreaFirst", "AreaSecond" for a corner that the
       JSON did not have. */
    void RequireArea() const;

    OdString Write() const;

    bool m_bColumnLinesValid = false;
    OdStringArray m_columns;
    OdStringArray m_lines;
    bool m_bAreaValid = false;
    OdGePoint3d m_areaFirst;
    OdGePoint3d m_areaSecond;

private:
    void ReadArea(const JsonValue& root);

    bool m_bHasFirst = false;
    bool m_bHasSecond = false;
};
