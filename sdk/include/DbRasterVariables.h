// How the images of a drawing are shown.
#pragma once

#include "DbObject.h"

/** The RASTERVARIABLES of a drawing: one object in its named-objects dictionary. */
class OdDbRasterVariables : public OdDbObject
{
public:
    ODDB_DECLARE_MEMBERS(OdDbRasterVariables);

    enum FrameSettings : int
    {
        kImageFrameOff = 0,
        kImageFrameAbove = 1,
        kImageFrameBelow = 2
    };

    enum ImageQuality : int
    {
        kImageQualityDraft = 0,
        kImageQualityHigh = 1
    };

    /** The variables of a drawing, made when they are missing: no frames, high quality. Throws OdError(eNullPtr) for a
        null database. */
    static OdSmartPtr<OdDbRasterVariables> openRasterVariables(OdDbDatabase* database,
                                                               OdDb::OpenMode openMode = OdDb::kForRead);

    FrameSettings imageFrame() const;
    void setImageFrame(FrameSettings imageFrame);
    ImageQuality imageQuality() const;
    void setImageQuality(ImageQuality imageQuality);

    bool keepsGroups() const override { return true; }
};

using OdDbRasterVariablesPtr = OdSmartPtr<OdDbRasterVariables>;
