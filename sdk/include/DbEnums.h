// The small enumerations that entities, records and the drawing interface share: line weights, visibility, text
// alignment, kinds of polylines. Their values are those stored in drawings.
#pragma once

namespace OdDb
{
/** Width of plotted lines in hundredths of a millimetre; negative values say where it comes from. */
enum LineWeight : int
{
    kLnWt000 = 0,
    kLnWt005 = 5,
    kLnWt009 = 9,
    kLnWt013 = 13,
    kLnWt015 = 15,
    kLnWt018 = 18,
    kLnWt020 = 20,
    kLnWt025 = 25,
    kLnWt030 = 30,
    kLnWt035 = 35,
    kLnWt040 = 40,
    kLnWt050 = 50,
    kLnWt053 = 53,
    kLnWt060 = 60,
    kLnWt070 = 70,
    kLnWt080 = 80,
    kLnWt090 = 90,
    kLnWt100 = 100,
    kLnWt106 = 106,
    kLnWt120 = 120,
    kLnWt140 = 140,
    kLnWt158 = 158,
    kLnWt200 = 200,
    kLnWt211 = 211,
    kLnWtByLayer = -1,
    kLnWtByBlock = -2,
    kLnWtByLwDefault = -3
};

enum Visibility : int
{
    kVisible = 0,
    kInvisible = 1
};

enum TextHorzMode : int
{
    kTextLeft = 0,
    kTextCenter = 1,
    kTextRight = 2,
    kTextAlign = 3, ///< height follows from the distance of two points
    kTextMid = 4,
    kTextFit = 5 ///< width factor follows from the distance of two points
};

enum TextVertMode : int
{
    kTextBase = 0,
    kTextBottom = 1,
    kTextVertMid = 2,
    kTextTop = 3
};

enum LineSpacingStyle : int
{
    kAtLeast = 1, ///< higher characters move lines apart
    kExactly = 2
};

enum Poly2dType
{
    k2dSimplePoly = 0,
    k2dFitCurvePoly = 1,
    k2dQuadSplinePoly = 2,
    k2dCubicSplinePoly = 3
};

enum Poly3dType
{
    k3dSimplePoly = 0,
    k3dQuadSplinePoly = 1,
    k3dCubicSplinePoly = 2
};

enum Vertex2dType
{
    k2dVertex = 0,
    k2dSplineCtlVertex = 1,
    k2dSplineFitVertex = 2,
    k2dCurveFitVertex = 3
};

enum Vertex3dType
{
    k3dSimpleVertex = 0,
    k3dControlVertex = 1,
    k3dFitVertex = 2
};
} // namespace OdDb
