// The texts that a block reference carries.
#pragma once

#include "DbText.h"

/** An ATTRIB: a text with a tag that belongs to one block reference. */
class OdDbAttribute : public OdDbText
{
public:
    ODDB_DECLARE_MEMBERS(OdDbAttribute);

    OdString tag() const;
    void setTag(const OdString& tag);
    /** An invisible attribute is not drawn. */
    bool isInvisible() const;
    void setInvisible(bool invisible);
    bool isConstant() const;
    bool isVerifiable() const;
    bool isPreset() const;

protected:
    bool subWorldDraw(OdGiWorldDraw* worldDraw) const override;
};

using OdDbAttributePtr = OdSmartPtr<OdDbAttribute>;
