// The patterns of attributes in block definitions.
#pragma once

#include "DbText.h"

/** An ATTDEF: it stands in a block definition and says which attribute a reference to the block gets. It is drawn as
    its tag, and within a block reference only when it is constant. */
class OdDbAttributeDefinition : public OdDbText
{
public:
    ODDB_DECLARE_MEMBERS(OdDbAttributeDefinition);

    OdString tag() const;
    void setTag(const OdString& tag);
    OdString prompt() const;
    void setPrompt(const OdString& prompt);
    bool isInvisible() const;
    void setInvisible(bool invisible);
    bool isConstant() const;
    void setConstant(bool constant);
    bool isVerifiable() const;
    bool isPreset() const;

protected:
    bool subWorldDraw(OdGiWorldDraw* worldDraw) const override;
};

using OdDbAttributeDefinitionPtr = OdSmartPtr<OdDbAttributeDefinition>;
