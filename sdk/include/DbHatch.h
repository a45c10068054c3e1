// Hatches: areas filled with a pattern or a colour.
#pragma once

#include "DbEntity.h"
#include "Ge/GeDoubleArray.h"
#include "Ge/GePoint2d.h"
#include "OdArray.h"

/** A HATCH fills the area within its loops, which lie in one plane. A loop is a polyline with bulges or a row of edges:
    lines, arcs, elliptical arcs and splines. */
class OdDbHatch : public OdDbEntity
{
public:
    ODDB_DECLARE_MEMBERS(OdDbHatch);

    enum HatchLoopType : int
    {
        kDefault = 0,
        kExternal = 1,
        kPolyline = 2,
        kDerived = 4,
        kTextbox = 8,
        kOutermost = 0x10
    };

    enum HatchPatternType : int
    {
        kUserDefined = 0,
        kPreDefined = 1,
        kCustomDefined = 2
    };

    enum HatchStyle : int
    {
        kNormal = 0, ///< every second area from outside is filled
        kOuter = 1,  ///< only the outermost area is filled
        kIgnore = 2  ///< all that lies within the outermost loop is filled
    };

    int numLoops() const;
    /** Throws OdError(eInvalidIndex) for an index that names no loop; so do getLoopAt and removeLoopAt, which changes
        nothing then. */
    OdInt32 loopTypeAt(int index) const;
    /** The vertices and bulges of a polyline loop. Throws OdError(eNotApplicable), and leaves both as they were, for a
        loop of edges. */
    void getLoopAt(int index, OdGePoint2dArray& vertices, OdGeDoubleArray& bulges) const;
    /** Adds a closed polyline loop after the last one; loopType gets kPolyline besides. bulges is empty or holds one
        bulge per vertex. Throws OdError(eInvalidInput), and changes nothing, for other numbers or no vertex. */
    void appendLoop(OdInt32 loopType, const OdGePoint2dArray& vertices, const OdGeDoubleArray& bulges);
    void removeLoopAt(int index);

    OdString patternName() const;
    HatchPatternType patternType() const;
    /** "SOLID" fills with the hatch's colour. Lines of other patterns are those that the hatch holds already. */
    void setPattern(HatchPatternType type, const OdString& name);
    bool isSolidFill() const;
    HatchStyle hatchStyle() const;
    void setHatchStyle(HatchStyle style);
    /** True when the hatch follows the objects that its loops were made from. */
    bool associative() const;
    void setAssociative(bool associative);
    double patternAngle() const;
    double patternScale() const;

    double elevation() const;
    void setElevation(double elevation);
    /** Throws OdError(eInvalidInput) for the zero vector. */
    void setNormal(const OdGeVector3d& normal);

    /** Prepares the fill for drawing; it is always prepared. Returns eOk, eInvalidInput when the hatch has no loop. */
    OdResult evaluateHatch(bool underestimateNumLines = false);

    bool isPlanar() const override;

protected:
    bool subWorldDraw(OdGiWorldDraw* worldDraw) const override;
    OdResult subTransformBy(const OdGeMatrix3d& xform) override;
};

using OdDbHatchPtr = OdSmartPtr<OdDbHatch>;
