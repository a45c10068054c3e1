// Entities of classes that are not known.
#pragma once

#include "DbEntity.h"

/** An entity whose class nobody has registered. It keeps all its data, so that it is saved as it was read, and becomes
    an object of its real class when the drawing is opened with the class at hand. */
class OdDbProxyEntity : public OdDbEntity
{
public:
    ODDB_DECLARE_MEMBERS(OdDbProxyEntity);

    /** The name of the entity's class in drawing files. */
    OdString originalDxfName() const;

protected:
    bool subWorldDraw(OdGiWorldDraw* worldDraw) const override;
    OdResult subTransformBy(const OdGeMatrix3d& xform) override;
};

using OdDbProxyEntityPtr = OdSmartPtr<OdDbProxyEntity>;
