// Block references: places where a block definition is drawn.
#pragma once

#include <memory>

#include "DbComplexEntity.h"
#include "Ge/GeScale3d.h"

class OdDbAttribute;

/** An INSERT: it draws the entities of a block table record at its position, scaled and turned, and carries the
    attributes that its block definition asks for. */
class OdDbBlockReference : public OdDbEntity
{
public:
    ODDB_DECLARE_MEMBERS(OdDbBlockReference);
    ~OdDbBlockReference() override;

    /** The block definition, null when the one that the reference names does not exist. */
    OdDbObjectId blockTableRecord() const;
    /** Throws OdError(eInvalidInput), and changes nothing, for an id that is no block table record. */
    void setBlockTableRecord(OdDbObjectId blockId);

    /** The place of the definition's base point in world coordinates. */
    OdGePoint3d position() const;
    void setPosition(const OdGePoint3d& position);
    OdGeScale3d scaleFactors() const;
    /** Throws OdError(eInvalidInput), and changes nothing, when a factor is 0 or not finite. */
    void setScaleFactors(const OdGeScale3d& scale);
    /** Radians about the normal. */
    double rotation() const;
    void setRotation(double rotation);
    /** The position stays where it is. Throws OdError(eInvalidInput) for the zero vector. */
    void setNormal(const OdGeVector3d& normal);

    /** The map from the block definition's coordinates to those that hold the reference. */
    OdGeMatrix3d blockTransform() const;

    /** Adds an attribute after the last one. Returns its id. Throws OdError, and changes nothing: eNotInDatabase when
        the reference is in no database, eAlreadyInDb when the attribute is in one. */
    OdDbObjectId appendAttribute(OdDbAttribute* attribute);
    /** Goes over the attributes that are not erased. */
    OdDbObjectIteratorPtr attributeIterator() const;

    /** The box of what the reference draws when it is mapped by parentXform. It fits more closely than the mapped
        result of getGeomExtents. Returns as getGeomExtents does. */
    OdResult geomExtentsBestFit(OdGeExtents3d& extents,
                                const OdGeMatrix3d& parentXform = OdGeMatrix3d::kIdentity) const;

    bool isPlanar() const override;
    oddb::SubentityList* subentities() const override;
    oddb::SubentityList& makeSubentities() override;

protected:
    OdDbBlockReference();
    bool subWorldDraw(OdGiWorldDraw* worldDraw) const override;
    OdUInt32 subSetAttributes(OdGiDrawableTraits* traits) const override;
    OdResult subTransformBy(const OdGeMatrix3d& xform) override;

    /** Draws the block definition wherever the reference shows it. */
    virtual void drawDefinition(OdGiWorldDraw* worldDraw) const;

private:
    std::unique_ptr<oddb::SubentityList> m_attributes;
};

using OdDbBlockReferencePtr = OdSmartPtr<OdDbBlockReference>;

/** An INSERT with rows and columns: the definition is drawn once for each cell of a grid that is turned with the
    reference. */
class OdDbMInsertBlock : public OdDbBlockReference
{
public:
    ODDB_DECLARE_MEMBERS(OdDbMInsertBlock);

    OdUInt16 columns() const;
    /** Throws OdError(eInvalidInput), and changes nothing, for 0. The same holds for setRows. */
    void setColumns(OdUInt16 columns);
    OdUInt16 rows() const;
    void setRows(OdUInt16 rows);
    double columnSpacing() const;
    void setColumnSpacing(double spacing);
    double rowSpacing() const;
    void setRowSpacing(double spacing);

protected:
    void drawDefinition(OdGiWorldDraw* worldDraw) const override;
};

using OdDbMInsertBlockPtr = OdSmartPtr<OdDbMInsertBlock>;

/** An ACAD_TABLE: a table that is drawn through a block definition of its own. */
class OdDbTable : public OdDbBlockReference
{
public:
    ODDB_DECLARE_MEMBERS(OdDbTable);

protected:
    void drawDefinition(OdGiWorldDraw* worldDraw) const override;
};

using OdDbTablePtr = OdSmartPtr<OdDbTable>;
