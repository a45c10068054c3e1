// Dimensions of every kind.
#pragma once

#include "DbEntity.h"

/** A DIMENSION measures something and draws the result through an anonymous block definition of its own. Points are
    world coordinates, angles radians. */
class OdDbDimension : public OdDbEntity
{
public:
    ODDB_DECLARE_MEMBERS(OdDbDimension);

    /** The block definition that holds the dimension's lines and text, null when there is none. */
    OdDbObjectId dimBlockId() const;
    /** Throws OdError(eInvalidInput), and changes nothing, for an id that is no block table record. */
    void setDimBlockId(OdDbObjectId blockId, bool singleReferenced = true);
    /** True when the block definition belongs to this dimension alone. */
    bool isSingleDimBlockReference() const;

    OdGePoint3d textPosition() const;
    void setTextPosition(const OdGePoint3d& position);
    bool isUsingDefaultTextPosition() const;

    /** The text in place of the measurement; empty or "<>" for the measurement itself. */
    OdString dimensionText() const;
    void setDimensionText(const OdString& text);
    double textRotation() const;
    void setTextRotation(double rotation);
    /** The measured value as it was stored: drawing units, or radians for angles; -1 when none is stored. */
    double measurement() const;
    double elevation() const;
    double horizontalRotation() const;

    OdDbObjectId dimensionStyle() const;
    /** Throws OdError(eInvalidInput), and changes nothing, for an id that is no dimension style. */
    void setDimensionStyle(OdDbObjectId styleId);

    bool isPlanar() const override;

protected:
    bool subWorldDraw(OdGiWorldDraw* worldDraw) const override;
    OdUInt32 subSetAttributes(OdGiDrawableTraits* traits) const override;
    /** A dimension only moves: its block definition stays as it is. */
    OdResult subTransformBy(const OdGeMatrix3d& xform) override;
};

using OdDbDimensionPtr = OdSmartPtr<OdDbDimension>;

/** The distance of two points along the line through them. */
class OdDbAlignedDimension : public OdDbDimension
{
public:
    ODDB_DECLARE_MEMBERS(OdDbAlignedDimension);

    OdGePoint3d dimLinePoint() const;
    void setDimLinePoint(const OdGePoint3d& point);
    OdGePoint3d xLine1Point() const;
    void setXLine1Point(const OdGePoint3d& point);
    OdGePoint3d xLine2Point() const;
    void setXLine2Point(const OdGePoint3d& point);
    double oblique() const;
    void setOblique(double oblique);
};

/** The distance of two points along a given direction. */
class OdDbRotatedDimension : public OdDbDimension
{
public:
    ODDB_DECLARE_MEMBERS(OdDbRotatedDimension);

    OdGePoint3d dimLinePoint() const;
    void setDimLinePoint(const OdGePoint3d& point);
    OdGePoint3d xLine1Point() const;
    void setXLine1Point(const OdGePoint3d& point);
    OdGePoint3d xLine2Point() const;
    void setXLine2Point(const OdGePoint3d& point);
    double oblique() const;
    void setOblique(double oblique);
    double rotation() const;
    void setRotation(double rotation);
};

/** The angle between two lines, each given by two points. */
class OdDb2LineAngularDimension : public OdDbDimension
{
public:
    ODDB_DECLARE_MEMBERS(OdDb2LineAngularDimension);

    OdGePoint3d arcPoint() const;
    void setArcPoint(const OdGePoint3d& point);
    OdGePoint3d xLine1Start() const;
    void setXLine1Start(const OdGePoint3d& point);
    OdGePoint3d xLine1End() const;
    void setXLine1End(const OdGePoint3d& point);
    OdGePoint3d xLine2Start() const;
    void setXLine2Start(const OdGePoint3d& point);
    OdGePoint3d xLine2End() const;
    void setXLine2End(const OdGePoint3d& point);
};

/** The angle at a centre between two points. */
class OdDb3PointAngularDimension : public OdDbDimension
{
public:
    ODDB_DECLARE_MEMBERS(OdDb3PointAngularDimension);

    OdGePoint3d arcPoint() const;
    void setArcPoint(const OdGePoint3d& point);
    OdGePoint3d centerPoint() const;
    void setCenterPoint(const OdGePoint3d& point);
    OdGePoint3d xLine1Point() const;
    void setXLine1Point(const OdGePoint3d& point);
    OdGePoint3d xLine2Point() const;
    void setXLine2Point(const OdGePoint3d& point);
};

/** The radius of a circle or an arc. */
class OdDbRadialDimension : public OdDbDimension
{
public:
    ODDB_DECLARE_MEMBERS(OdDbRadialDimension);

    OdGePoint3d center() const;
    void setCenter(const OdGePoint3d& point);
    OdGePoint3d chordPoint() const;
    void setChordPoint(const OdGePoint3d& point);
    double leaderLength() const;
    void setLeaderLength(double length);
};

/** The radius of an arc whose centre lies too far away to be shown. */
class OdDbRadialDimensionLarge : public OdDbDimension
{
public:
    ODDB_DECLARE_MEMBERS(OdDbRadialDimensionLarge);

    OdGePoint3d center() const;
    void setCenter(const OdGePoint3d& point);
    OdGePoint3d overrideCenter() const;
    void setOverrideCenter(const OdGePoint3d& point);
    OdGePoint3d jogPoint() const;
    void setJogPoint(const OdGePoint3d& point);
    OdGePoint3d chordPoint() const;
    void setChordPoint(const OdGePoint3d& point);
};

/** The diameter of a circle or an arc. */
class OdDbDiametricDimension : public OdDbDimension
{
public:
    ODDB_DECLARE_MEMBERS(OdDbDiametricDimension);

    OdGePoint3d chordPoint() const;
    void setChordPoint(const OdGePoint3d& point);
    OdGePoint3d farChordPoint() const;
    void setFarChordPoint(const OdGePoint3d& point);
    double leaderLength() const;
    void setLeaderLength(double length);
};

/** The distance of a point from an origin along x or y. */
class OdDbOrdinateDimension : public OdDbDimension
{
public:
    ODDB_DECLARE_MEMBERS(OdDbOrdinateDimension);

    OdGePoint3d origin() const;
    void setOrigin(const OdGePoint3d& point);
    OdGePoint3d definingPoint() const;
    void setDefiningPoint(const OdGePoint3d& point);
    OdGePoint3d leaderEndPoint() const;
    void setLeaderEndPoint(const OdGePoint3d& point);
    bool isUsingXAxis() const;
    void useXAxis();
    void useYAxis();
};

/** The length of an arc. */
class OdDbArcDimension : public OdDbDimension
{
public:
    ODDB_DECLARE_MEMBERS(OdDbArcDimension);

    OdGePoint3d arcPoint() const;
    void setArcPoint(const OdGePoint3d& point);
    OdGePoint3d centerPoint() const;
    void setCenterPoint(const OdGePoint3d& point);
    OdGePoint3d xLine1Point() const;
    void setXLine1Point(const OdGePoint3d& point);
    OdGePoint3d xLine2Point() const;
    void setXLine2Point(const OdGePoint3d& point);
};

using OdDbAlignedDimensionPtr = OdSmartPtr<OdDbAlignedDimension>;
using OdDbRotatedDimensionPtr = OdSmartPtr<OdDbRotatedDimension>;
using OdDb2LineAngularDimensionPtr = OdSmartPtr<OdDb2LineAngularDimension>;
using OdDb3PointAngularDimensionPtr = OdSmartPtr<OdDb3PointAngularDimension>;
using OdDbRadialDimensionPtr = OdSmartPtr<OdDbRadialDimension>;
using OdDbRadialDimensionLargePtr = OdSmartPtr<OdDbRadialDimensionLarge>;
using OdDbDiametricDimensionPtr = OdSmartPtr<OdDbDiametricDimension>;
using OdDbOrdinateDimensionPtr = OdSmartPtr<OdDbOrdinateDimension>;
using OdDbArcDimensionPtr = OdSmartPtr<OdDbArcDimension>;
