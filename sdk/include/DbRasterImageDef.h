// The pictures that images show.
#pragma once

#include "DbObject.h"
#include "Ge/GeVector2d.h"
#include "Gi/GiRasterImage.h"

/** An IMAGEDEF names the file of a picture. The definitions of a drawing stand in one dictionary under names of
    their own, and any number of images may show the same one. */
class OdDbRasterImageDef : public OdDbObject
{
public:
    ODDB_DECLARE_MEMBERS(OdDbRasterImageDef);

    enum Units : int
    {
        kNone = 0,
        kMillimeter = 1,
        kCentimeter = 2,
        kInch = 5
    };

    /** The dictionary of image definitions; createImageDictionary makes it when it is missing, imageDictionary returns
        null then. Both throw OdError(eNullPtr) for a null database. */
    static OdDbObjectId createImageDictionary(OdDbDatabase* database);
    static OdDbObjectId imageDictionary(OdDbDatabase* database);

    OdString sourceFileName() const;
    void setSourceFileName(const OdString& fileName);

    /** The size in pixels. */
    OdGeVector2d size() const;
    void setImageSize(const OdGeVector2d& size);
    /** The size of one pixel in millimetres. */
    OdGeVector2d resolutionMMPerPixel() const;
    void setResolutionMMPerPixel(const OdGeVector2d& size);
    Units resolutionUnits() const;
    void setResolutionUnits(Units units);
    /** The file that sourceFileName names: as it stands, in the folder of the drawing, or there by its last part;
        empty when there is none. */
    OdString activeFileName() const;
    /** The picture in the file, null when it cannot be read. A picture that was read last is kept as long as its file
        is unchanged. */
    OdGiRasterImagePtr image() const;

    /** How many images show it; takes the same time for any number of images, but for the first question. Where
        pbLocked is given, it is set to whether one of them stands on a locked layer, for which each is looked at. */
    int entityCount(bool* pbLocked = nullptr) const;

    bool isLoaded() const;
    void setLoaded(bool loaded);

    bool keepsGroups() const override { return true; }
};

using OdDbRasterImageDefPtr = OdSmartPtr<OdDbRasterImageDef>;
