// Pictures and what hides things. The outline is given in pixels: the origin is the centre of the pixel at the lower
// left, so that the picture begins half a pixel before it.
#include <cmath>

#include "DbDatabase.h"
#include "DbRasterImage.h"
#include "DbRasterImageDef.h"
#include "DbRasterImageDefReactor.h"
#include "Gi/GiWorldDraw.h"
#include "OdError.h"
#include "db/ErasingWithOwner.h"
#include "entities/Fields.h"

using namespace entityfields;
using entitytables::kRasterImage;
using entitytables::kWipeout;

namespace
{

constexpr int kRectangle = 1;

const oddb::DxfSubclass& tableOf(const OdDbRasterImage& image)
{
    const bool wipeout = oddb::ObjectCore::groups(image).hasSection(atomOf<kWipeout>());
    return wipeout ? kWipeout : kRasterImage;
}

Reader fieldsOf(const OdDbRasterImage& image)
{
    const oddb::DxfSubclass& table = tableOf(image);
    return Reader(image, table, &table == &kWipeout ? atomOf<kWipeout>() : atomOf<kRasterImage>());
}

OdGePoint2d sizeOf(const Reader& fields)
{
    const OdGePoint3d size = fields.point(13);
    return OdGePoint2d(size.x, size.y);
}

std::vector<OdGePoint2d> clippingOutline(const Reader& fields)
{
    std::vector<OdGePoint2d> outline;
    bool inside = false;
    for (const oddb::GroupView& group : fields.groups())
    {
        if (group.beginsSection())
            inside = group.code() == 100 && group.atom() == fields.atom();
        else if (inside && group.code() == 14)
            outline.emplace_back(group.real(), 0.0);
        else if (inside && group.code() == 24 && !outline.empty())
            outline.back().y = group.real();
    }
    if (fields.integer(71) == kRectangle && outline.size() == 2)
    {
        const OdGePoint2d low = outline[0];
        const OdGePoint2d high = outline[1];
        outline = {low, OdGePoint2d(high.x, low.y), high, OdGePoint2d(low.x, high.y)};
    }
    return outline;
}

std::vector<OdGePoint2d> wholeOutline(const Reader& fields)
{
    const OdGePoint2d size = sizeOf(fields);
    return {OdGePoint2d(-0.5, -0.5), OdGePoint2d(size.x - 0.5, -0.5), OdGePoint2d(size.x - 0.5, size.y - 0.5),
            OdGePoint2d(-0.5, size.y - 0.5)};
}

OdDbObjectId makeReactor(OdDbRasterImage& image)
{
    const OdDbRasterImageDefReactorPtr reactor = OdDbRasterImageDefReactor::createObject();
    reactor->setImageId(image.objectId());
    return image.database()->addOdDbObject(reactor, image.objectId());
}

/// Lets a definition, also an erased one, know an image or forget it; it is told only of what is new to it.
void setKnown(const OdDbObjectId& definitionId, const OdDbObjectId& reactorId, bool known)
{
    const OdDbObjectPtr definition = definitionId.openObject(OdDb::kForRead, true);
    if (definition.isNull() || definition->hasPersistentReactor(reactorId) == known)
        return;
    definition->upgradeOpen();
    known ? definition->addPersistentReactor(reactorId) : definition->removePersistentReactor(reactorId);
    definition->downgradeOpen();
}

/// Pixels are counted from the top, world coordinates of the picture from the bottom.
OdGePoint3d toWorld(const Reader& fields, const OdGePoint2d& pixel)
{
    const double up = sizeOf(fields).y - 0.5 - pixel.y;
    return fields.point(10) + fields.vector(11) * (pixel.x + 0.5) + fields.vector(12) * up;
}

} // namespace

OdDbObjectId OdDbRasterImage::imageDefId() const
{
    return fieldsOf(*this).stub(340);
}

void OdDbRasterImage::setImageDefId(OdDbObjectId imageDefId)
{
    if (OdDbRasterImageDef::cast(imageDefId.openObject()).isNull())
        throw OdError(eInvalidInput);
    const OdDbObjectId before = this->imageDefId();
    setId(*this, tableOf(*this), 340, imageDefId);
    if (!isDBRO())
        return;
    if (reactorId().isErased())
        setId(*this, tableOf(*this), 360, makeReactor(*this));
    if (before != imageDefId)
        setKnown(before, reactorId(), false);
    setKnown(imageDefId, reactorId(), true);
}

OdDbObjectId OdDbRasterImage::reactorId() const
{
    return fieldsOf(*this).stub(360);
}

void OdDbRasterImage::getOrientation(OdGePoint3d& origin, OdGeVector3d& u, OdGeVector3d& v) const
{
    const Reader fields = fieldsOf(*this);
    const OdGePoint2d size = sizeOf(fields);
    origin = fields.point(10);
    u = fields.vector(11) * size.x;
    v = fields.vector(12) * size.y;
}

bool OdDbRasterImage::setOrientation(const OdGePoint3d& origin, const OdGeVector3d& u, const OdGeVector3d& v)
{
    if (u.crossProduct(v).length() < 1e-12 * u.length() * v.length() || u.length() == 0.0 || v.length() == 0.0)
        return false;
    const OdGeVector2d size = imageSize();
    const oddb::DxfSubclass& table = tableOf(*this);
    setPoint(*this, table, 10, origin);
    setVector(*this, table, 11, u * (size.x > 0.0 ? 1.0 / size.x : 1.0));
    setVector(*this, table, 12, v * (size.y > 0.0 ? 1.0 / size.y : 1.0));
    return true;
}

OdGeVector2d OdDbRasterImage::imageSize() const
{
    const OdGePoint2d size = sizeOf(fieldsOf(*this));
    return OdGeVector2d(size.x, size.y);
}

void OdDbRasterImage::setImageSize(const OdGeVector2d& size)
{
    setPoint(*this, tableOf(*this), 13, OdGePoint3d(size.x, size.y, 0.0));
}

bool OdDbRasterImage::isSetDisplayOpt(ImageDisplayOpt option) const
{
    return fieldsOf(*this).flag(70, option);
}

void OdDbRasterImage::setDisplayOpt(ImageDisplayOpt option, bool value)
{
    setFlag(*this, tableOf(*this), 70, option, value);
}

bool OdDbRasterImage::isClipped() const
{
    return fieldsOf(*this).integer(280) != 0;
}

void OdDbRasterImage::setClipBoundaryToWholeImage()
{
    const OdGePoint2d size = sizeOf(fieldsOf(*this));
    oddb::GroupsBuilder corners;
    corners.point(14, -0.5, -0.5).point(14, size.x - 0.5, size.y - 0.5);
    const oddb::DxfSubclass& table = tableOf(*this);
    setInteger(*this, table, 71, kRectangle);
    setInteger(*this, table, 91, 2);
    setGroups(*this, table, 14, corners);
    setInteger(*this, table, 280, 0);
}

OdInt8 OdDbRasterImage::brightness() const
{
    return static_cast<OdInt8>(fieldsOf(*this).integer(281));
}

OdInt8 OdDbRasterImage::contrast() const
{
    return static_cast<OdInt8>(fieldsOf(*this).integer(282));
}

OdInt8 OdDbRasterImage::fade() const
{
    return static_cast<OdInt8>(fieldsOf(*this).integer(283));
}

OdResult OdDbRasterImage::getVertices(OdArray<OdGePoint3d>& points) const
{
    const Reader fields = fieldsOf(*this);
    std::vector<OdGePoint2d> outline = isClipped() ? clippingOutline(fields) : wholeOutline(fields);
    if (outline.size() < 3)
        outline = wholeOutline(fields);
    points.clear();
    for (const OdGePoint2d& pixel : outline)
        points.append(toWorld(fields, pixel));
    return points.isEmpty() ? eInvalidExtents : eOk;
}

bool OdDbRasterImage::isPlanar() const
{
    return true;
}

namespace
{

void drawOutline(const OdDbRasterImage& image, OdGiWorldDraw& worldDraw)
{
    OdArray<OdGePoint3d> points;
    if (image.getVertices(points) == eOk)
        worldDraw.geometry().polygon(static_cast<OdInt32>(points.size()), points.asArrayPtr());
}

/// The outline in the pixels of the picture as it is, which may have become another one than the drawing says.
std::vector<OdGePoint2d> boundaryOf(const Reader& fields, const OdGiRasterImage& picture)
{
    const OdGePoint2d size = sizeOf(fields);
    std::vector<OdGePoint2d> boundary = clippingOutline(fields);
    for (OdGePoint2d& point : boundary)
        point = OdGePoint2d((point.x + 0.5) * picture.pixelWidth() / size.x,
                            (point.y + 0.5) * picture.pixelHeight() / size.y);
    return boundary;
}

/// What stands for a picture that is not there: its outline and the name of its file.
void drawMissing(const OdDbRasterImage& image, const OdString& fileName, OdGiWorldDraw& worldDraw)
{
    drawOutline(image, worldDraw);
    OdGePoint3d origin;
    OdGeVector3d u;
    OdGeVector3d v;
    image.getOrientation(origin, u, v);
    const double length = u.length();
    if (fileName.isEmpty() || !(length > 0.0) || !(v.length() > 0.0))
        return;
    const double height = std::min(v.length() / 10.0, length / (fileName.getLength() + 1.0));
    const OdGeVector3d along = u / length;
    worldDraw.geometry().text(origin + (along + v.normal()) * (height / 2.0), along.crossProduct(v).normal(), along,
                              height, 1.0, 0.0, fileName);
}

} // namespace

bool OdDbRasterImage::subWorldDraw(OdGiWorldDraw* worldDraw) const
{
    if (worldDraw->regenType() == kOdGiForExtents || !isSetDisplayOpt(kShow))
    {
        drawOutline(*this, *worldDraw);
        return true;
    }
    const OdDbRasterImageDefPtr definition = OdDbRasterImageDef::cast(imageDefId().openObject());
    const OdGiRasterImagePtr picture = definition.isNull() ? OdGiRasterImagePtr() : definition->image();
    if (picture.isNull())
    {
        drawMissing(*this, definition.isNull() ? OdString() : definition->sourceFileName(), *worldDraw);
        return true;
    }
    const Reader fields = fieldsOf(*this);
    const std::vector<OdGePoint2d> boundary = isClipped() ? boundaryOf(fields, *picture) : std::vector<OdGePoint2d>();
    OdGePoint3d origin;
    OdGeVector3d u;
    OdGeVector3d v;
    getOrientation(origin, u, v);
    worldDraw->geometry().rasterImageDc(origin, u, v, picture, boundary.data(), static_cast<OdUInt32>(boundary.size()),
                                        isSetDisplayOpt(kTransparent), brightness(), contrast(), fade());
    return true;
}

bool OdDbWipeout::subWorldDraw(OdGiWorldDraw* worldDraw) const
{
    worldDraw->subEntityTraits().setTrueColor(OdCmEntityColor(OdCmEntityColor::kNone));
    worldDraw->subEntityTraits().setFillType(kOdGiFillAlways);
    drawOutline(*this, *worldDraw);
    return true;
}

OdResult OdDbRasterImage::subErase(bool erasing)
{
    if (const OdResult result = OdDbEntity::subErase(erasing); result != eOk)
        return result;
    OdDbStub* const reactor = reactorId();
    if (!reactor || !OdDbObjectId(reactor).isValid())
        return eOk;
    if (const OdResult result = oddb::eraseWithOwner({&reactor, 1}, erasing); result != eOk)
        return result;
    setKnown(imageDefId(), reactor, !OdDbObjectId(reactor).isErased());
    return eOk;
}
