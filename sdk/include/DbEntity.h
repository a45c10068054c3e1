// What every drawn object of a drawing has in common: its layer, colour, linetype, visibility, extents.
#pragma once

#include "CmColorBase.h"
#include "DbEnums.h"
#include "DbObject.h"
#include "Ge/GeExtents3d.h"
#include "Ge/GeMatrix3d.h"
#include "Ge/GePoint3d.h"
#include "Ge/GeVector3d.h"

class OdCmColor;
class OdDbEntity;

namespace oddb
{
class SubentityList;
}

/** A smart pointer to an open entity. */
using OdDbEntityPtr = OdSmartPtr<OdDbEntity>;

/** An entity is a database object that is drawn. It lives in a block table record (model space, a paper space or a
    block definition), or, as an attribute or vertex does, in another entity. Like every database object it is used
    by one thread at a time.

    Reading operations throw OdError(eNotOpenForRead) on an entity that is not open; every set... operation and
    transformBy throws OdError(eNotOpenForWrite) unless the entity is open for write or not yet in a database, and
    changes nothing then. */
class OdDbEntity : public OdDbObject
{
public:
    ODDB_DECLARE_MEMBERS(OdDbEntity);

    /** The block table record that holds this entity; null when it is in none. */
    OdDbObjectId blockId() const;

    /** The layer's name, "0" when the entity names none. */
    OdString layer() const;
    /** The layer, null when the entity is in no database or its layer does not exist there. */
    OdDbObjectId layerId() const;
    /** Puts the entity on a layer. Returns eKeyNotFound when the database has no such layer, eNoDatabase for an entity
        that is in no database, eInvalidInput for an id that is no layer; nothing is changed then. */
    OdResult setLayer(const OdString& layerName, bool doSubents = true);
    OdResult setLayer(OdDbObjectId layerId, bool doSubents = true);

    /** The colour by method: by layer, by block, index or true colour. */
    OdCmColor color() const;
    OdCmEntityColor entityColor() const;
    /** 0 by block, 1 to 255, 256 by layer; for a true colour the index of the nearest colour stored beside it. */
    OdUInt16 colorIndex() const;
    /** doSubents: the vertices and attributes of the entity too. Returns eOk. */
    OdResult setColor(const OdCmColor& color, bool doSubents = true);
    /** Returns eInvalidInput, and changes nothing, for an index above 256. */
    OdResult setColorIndex(OdUInt16 colorIndex, bool doSubents = true);

    OdCmTransparency transparency() const;
    OdResult setTransparency(const OdCmTransparency& transparency, bool doSubents = true);

    /** The linetype's name, "ByLayer" when the entity names none. */
    OdString linetype() const;
    OdDbObjectId linetypeId() const;
    /** As setLayer. "ByLayer" and "ByBlock" are taken without a record of that name. */
    OdResult setLinetype(const OdString& linetypeName, bool doSubents = true);
    OdResult setLinetype(OdDbObjectId linetypeId, bool doSubents = true);
    double linetypeScale() const;
    /** Returns eInvalidInput, and changes nothing, unless the scale is positive. */
    OdResult setLinetypeScale(double linetypeScale, bool doSubents = true);

    OdDb::LineWeight lineWeight() const;
    OdResult setLineWeight(OdDb::LineWeight lineWeight, bool doSubents = true);

    OdDb::Visibility visibility() const;
    OdResult setVisibility(OdDb::Visibility visibility, bool doSubents = true);

    /** The plot style, null for the layer's. */
    OdDbObjectId plotStyleNameId() const;

    /** True for an entity of a paper space. */
    bool isInPaperSpace() const;

    /** Sets layer 0 or the given database's current layer, colour, linetype, line weight of new entities. */
    void setDatabaseDefaults(OdDbDatabase* database = nullptr, bool doSubents = false);

    /** Copies layer, colour, linetype, line weight, visibility and transparency from another entity. */
    void setPropertiesFrom(const OdDbEntity* source, bool doSubents = true);

    /** The axis-parallel box of what the entity draws, in world coordinates. Layers that are off or frozen do not
        matter. Returns eInvalidExtents, and leaves extents as it was, when nothing is drawn or the data of the entity
        describes no finite shape. */
    OdResult getGeomExtents(OdGeExtents3d& extents) const override;

    /** Moves, turns, mirrors or scales the entity. Returns eCannotScaleNonUniformly when the matrix would make a shape
        that the class cannot hold, eInvalidInput for a matrix that is not finite or flattens space, eWasOpenForWrite
        while a vertex or attribute of the entity is open for write, eNotImplementedYet for an entity whose
        shape is kept in a form that is not understood; nothing is changed then. Places, directions and lengths in the
        extended data (1011, 1012, 1013, 1041, 1042) go with the entity. */
    OdResult transformBy(const OdGeMatrix3d& xform);

    /** Makes a new entity, in no database, that is this one mapped by xform. Returns what transformBy returns; copy is
        set only for eOk. */
    OdResult getTransformedCopy(const OdGeMatrix3d& xform, OdDbEntityPtr& copy) const;

    /** True for an entity with a plane; the plane's normal is then normal(). */
    virtual bool isPlanar() const;

    /** The direction of the entity's own z axis, (0, 0, 1) unless set otherwise. */
    OdGeVector3d normal() const;

    /** The vertices or attributes that the entity owns; null for an entity of a class that owns none. */
    virtual oddb::SubentityList* subentities() const { return nullptr; }
    /** As subentities, made when the entity may own some but has none yet. Throws OdError(eNotApplicable) otherwise. */
    virtual oddb::SubentityList& makeSubentities();

    bool keepsGroups() const override { return true; }

    OdResult dwgInFields(OdDbDwgFiler* filer) override;
    void dwgOutFields(OdDbDwgFiler* filer) const override;

    /** Copies vertices and attributes too. */
    void copyFrom(const OdRxObject* source) override;

protected:
    OdUInt32 subSetAttributes(OdGiDrawableTraits* traits) const override;
    bool subWorldDraw(OdGiWorldDraw* worldDraw) const override;
    virtual OdResult subGetGeomExtents(OdGeExtents3d& extents) const;
    virtual OdResult subTransformBy(const OdGeMatrix3d& xform);
    void subMadeResident() override;
    /** Erases vertices and attributes with the entity, and brings back those that were erased with it. */
    OdResult subErase(bool erasing) override;
};
