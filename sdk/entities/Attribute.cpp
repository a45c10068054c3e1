// Attributes and their definitions.
#include "DbAttribute.h"
#include "DbAttributeDefinition.h"
#include "entities/Fields.h"
#include "entities/TextLine.h"

using namespace entityfields;
using entitytables::kAttribute;
using entitytables::kAttributeDefinition;

namespace
{

enum Flag
{
    kInvisible = 1,
    kConstant = 2,
    kVerifiable = 4,
    kPreset = 8
};

} // namespace

OdString OdDbAttribute::tag() const
{
    return read<kAttribute>(*this).text(2);
}

void OdDbAttribute::setTag(const OdString& tag)
{
    setText(*this, kAttribute, 2, tag);
}

bool OdDbAttribute::isInvisible() const
{
    return read<kAttribute>(*this).flag(70, kInvisible);
}

void OdDbAttribute::setInvisible(bool invisible)
{
    setFlag(*this, kAttribute, 70, kInvisible, invisible);
}

bool OdDbAttribute::isConstant() const
{
    return read<kAttribute>(*this).flag(70, kConstant);
}

bool OdDbAttribute::isVerifiable() const
{
    return read<kAttribute>(*this).flag(70, kVerifiable);
}

bool OdDbAttribute::isPreset() const
{
    return read<kAttribute>(*this).flag(70, kPreset);
}

bool OdDbAttribute::subWorldDraw(OdGiWorldDraw* worldDraw) const
{
    return isInvisible() || OdDbText::subWorldDraw(worldDraw);
}

OdString OdDbAttributeDefinition::tag() const
{
    return read<kAttributeDefinition>(*this).text(2);
}

void OdDbAttributeDefinition::setTag(const OdString& tag)
{
    setText(*this, kAttributeDefinition, 2, tag);
}

OdString OdDbAttributeDefinition::prompt() const
{
    return read<kAttributeDefinition>(*this).text(3);
}

void OdDbAttributeDefinition::setPrompt(const OdString& prompt)
{
    setText(*this, kAttributeDefinition, 3, prompt);
}

bool OdDbAttributeDefinition::isInvisible() const
{
    return read<kAttributeDefinition>(*this).flag(70, kInvisible);
}

void OdDbAttributeDefinition::setInvisible(bool invisible)
{
    setFlag(*this, kAttributeDefinition, 70, kInvisible, invisible);
}

bool OdDbAttributeDefinition::isConstant() const
{
    return read<kAttributeDefinition>(*this).flag(70, kConstant);
}

void OdDbAttributeDefinition::setConstant(bool constant)
{
    setFlag(*this, kAttributeDefinition, 70, kConstant, constant);
}

bool OdDbAttributeDefinition::isVerifiable() const
{
    return read<kAttributeDefinition>(*this).flag(70, kVerifiable);
}

bool OdDbAttributeDefinition::isPreset() const
{
    return read<kAttributeDefinition>(*this).flag(70, kPreset);
}

bool OdDbAttributeDefinition::subWorldDraw(OdGiWorldDraw* worldDraw) const
{
    textline::draw(*worldDraw, textline::lineOf(*this, isConstant() ? textString() : tag()));
    return true;
}
