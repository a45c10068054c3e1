// One row of a table for each figure and what it must not be.
#include "annotations/AnnotationChecks.h"

#include <cmath>

#include "OdError.h"
#include "RxSystemServices.h"
#include "annotations/AnnotationErrors.h"
#include "annotations/AnnotationOutline.h"

namespace Annotation
{

namespace
{

using Properties = AnnotationProperties;

constexpr double kGreatestFigure = 1e100; // its square can still be computed with
constexpr double kLeastFigure = 1e-100;

// ---- What has to be
// --------------------------------------------------------------------------------------------------

bool IsMoreThanZero(double fValue)
{
    return fValue > 0.0;
}

bool IsNotTooSmall(double fValue)
{
    return fValue >= kLeastFigure;
}

bool IsBoxGiven(const Properties& properties)
{
    return !properties.fitToText;
}

bool HasText(const Properties& properties)
{
    return !properties.text.isEmpty();
}

bool Always(const Properties&)
{
    return true;
}

bool IsNotNegative(double fValue)
{
    return fValue >= 0.0;
}

bool IsNotTooGreat(double fValue)
{
    return std::fabs(fValue) <= kGreatestFigure;
}

struct CheckRow
{
    const OdChar* pszKey;
    double (*value)(const Properties& properties);
    bool (*isGood)(double fValue);
    bool (*matters)(const Properties& properties);
    EMessage eMessage;
};

template<double Properties::*Field>
double Value(const Properties& properties)
{
    return properties.*Field;
}

template<double OdGePoint3d::*Coordinate>
double Position(const Properties& properties)
{
    return properties.position.*Coordinate;
}

template<double OdGeVector3d::*Coordinate>
double Normal(const Properties& properties)
{
    return properties.normal.*Coordinate;
}

double Corners(const Properties& properties)
{
    return PolygonCorners(properties.borderShape);
}

bool IsCornerCount(double fCorners)
{
    return fCorners <= kMostCorners;
}

constexpr CheckRow kChecks[] = {
    {L"Width", &Value<&Properties::width>, &IsMoreThanZero, &IsBoxGiven, eMessageKeyNotPositive},
    {L"Height", &Value<&Properties::height>, &IsMoreThanZero, &IsBoxGiven, eMessageKeyNotPositive},
    {L"FontSize", &Value<&Properties::fontSize>, &IsMoreThanZero, &HasText, eMessageKeyNotPositive},
    {L"Width", &Value<&Properties::width>, &IsNotTooSmall, &IsBoxGiven, eMessageKeyTooSmall},
    {L"Height", &Value<&Properties::height>, &IsNotTooSmall, &IsBoxGiven, eMessageKeyTooSmall},
    {L"FontSize", &Value<&Properties::fontSize>, &IsNotTooSmall, &HasText, eMessageKeyTooSmall},
    {L"BorderThickness", &Value<&Properties::borderThickness>, &IsNotNegative, &Always, eMessageKeyNegative},
    {L"BorderShape", &Corners, &IsCornerCount, &Always, eMessageKeyTooGreat},
    {L"X", &Position<&OdGePoint3d::x>, &IsNotTooGreat, &Always, eMessageKeyTooGreat},
    {L"Y", &Position<&OdGePoint3d::y>, &IsNotTooGreat, &Always, eMessageKeyTooGreat},
    {L"Z", &Position<&OdGePoint3d::z>, &IsNotTooGreat, &Always, eMessageKeyTooGreat},
    {L"Nx", &Normal<&OdGeVector3d::x>, &IsNotTooGreat, &Always, eMessageKeyTooGreat},
    {L"Ny", &Normal<&OdGeVector3d::y>, &IsNotTooGreat, &Always, eMessageKeyTooGreat},
    {L"Nz", &Normal<&OdGeVector3d::z>, &IsNotTooGreat, &Always, eMessageKeyTooGreat},
    {L"Width", &Value<&Properties::width>, &IsNotTooGreat, &Always, eMessageKeyTooGreat},
    {L"Height", &Value<&Properties::height>, &IsNotTooGreat, &Always, eMessageKeyTooGreat},
    {L"Padding", &Value<&Properties::padding>, &IsNotTooGreat, &Always, eMessageKeyTooGreat},
    {L"Angle", &Value<&Properties::angle>, &IsNotTooGreat, &Always, eMessageKeyTooGreat},
    {L"BorderThickness", &Value<&Properties::borderThickness>, &IsNotTooGreat, &Always, eMessageKeyTooGreat},
    {L"FontSize", &Value<&Properties::fontSize>, &IsNotTooGreat, &Always, eMessageKeyTooGreat},
};

OdString Message(EMessage eMessage, const OdChar* pszKey)
{
    return odSystemServices()->formatMessage(eMessage, pszKey);
}

/// What is wrong with a record, empty when nothing is.
OdString FindFault(const Properties& properties)
{
    for (const CheckRow& row : kChecks)
        if (row.matters(properties) && !row.isGood(row.value(properties)))
            return Message(row.eMessage, row.pszKey);
    if (properties.normal.isZeroLength())
        return odSystemServices()->formatMessage(eMessageNormalTooShort);
    return OdString();
}

} // namespace

void RequireDrawable(const std::vector<AnnotationProperties>& annotations)
{
    for (std::size_t i = 0; i < annotations.size(); ++i)
        if (const OdString strFault = FindFault(annotations[i]); !strFault.isEmpty())
            RefuseAnnotation(i, strFault);
}

} // namespace Annotation
