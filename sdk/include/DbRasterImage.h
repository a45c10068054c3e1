// Pictures in a drawing.
#pragma once

#include "DbEntity.h"
#include "Ge/GePoint2d.h"
#include "Ge/GeVector2d.h"
#include "OdArray.h"

/** An IMAGE: it shows the picture of an image definition as a parallelogram in space. */
class OdDbRasterImage : public OdDbEntity
{
public:
    ODDB_DECLARE_MEMBERS(OdDbRasterImage);

    enum ImageDisplayOpt : int
    {
        kShow = 1,
        kShowUnAligned = 2,
        kClip = 4,
        kTransparent = 8
    };

    OdDbObjectId imageDefId() const;
    /** An image that is resident gets a reactor (OdDbRasterImageDefReactor), which becomes a persistent reactor of the
        definition and is erased with the image. Throws OdError(eInvalidInput), and changes nothing, for an id that is
       no image definition. */
    void setImageDefId(OdDbObjectId imageDefId);
    /** The reactor, null when there is none. */
    OdDbObjectId reactorId() const;

    /** The corner at the lower left and the edges from there along the picture's width and height. */
    void getOrientation(OdGePoint3d& origin, OdGeVector3d& u, OdGeVector3d& v) const;
    /** Returns false, and changes nothing, when u and v are parallel or one of them is the zero vector. */
    bool setOrientation(const OdGePoint3d& origin, const OdGeVector3d& u, const OdGeVector3d& v);

    /** The picture's size in pixels. */
    OdGeVector2d imageSize() const;
    void setImageSize(const OdGeVector2d& size);

    bool isSetDisplayOpt(ImageDisplayOpt option) const;
    void setDisplayOpt(ImageDisplayOpt option, bool value);
    bool isClipped() const;
    /** Shows the whole picture; to be called when the image has its size. */
    void setClipBoundaryToWholeImage();

    /** 0 to 100. */
    OdInt8 brightness() const;
    OdInt8 contrast() const;
    OdInt8 fade() const;

    /** Fills points with the outline of what is shown, in world coordinates. Returns eInvalidExtents when nothing is.
     */
    OdResult getVertices(OdArray<OdGePoint3d>& points) const;

    bool isPlanar() const override;

protected:
    bool subWorldDraw(OdGiWorldDraw* worldDraw) const override;
    OdResult subErase(bool erasing) override;
};

using OdDbRasterImagePtr = OdSmartPtr<OdDbRasterImage>;

/** A WIPEOUT: it hides what lies behind its outline. */
class OdDbWipeout : public OdDbRasterImage
{
public:
    ODDB_DECLARE_MEMBERS(OdDbWipeout);

protected:
    bool subWorldDraw(OdGiWorldDraw* worldDraw) const override;
};

using OdDbWipeoutPtr = OdSmartPtr<OdDbWipeout>;
