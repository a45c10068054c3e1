// The link from the definition of a picture back to an image that shows it.
#pragma once

#include "DbObject.h"

/** An IMAGEDEF_REACTOR belongs to an image and listens to its definition, so that programs find the images of a
    definition. OdDbRasterImage::setImageDefId makes it. */
class OdDbRasterImageDefReactor : public OdDbObject
{
public:
    ODDB_DECLARE_MEMBERS(OdDbRasterImageDefReactor);

    /** The image that it belongs to. */
    OdDbObjectId imageId() const;
    void setImageId(OdDbObjectId imageId);

    bool keepsGroups() const override { return true; }
};

using OdDbRasterImageDefReactorPtr = OdSmartPtr<OdDbRasterImageDefReactor>;
