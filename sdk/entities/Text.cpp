// Single lines of text.
#include <cmath>

#include "DbText.h"
#include "Gi/GiWorldDraw.h"
#include "entities/Drawing.h"
#include "entities/Fields.h"
#include "entities/TextLine.h"
#include "entities/TextStyles.h"

using namespace entityfields;
using entitytables::kAttribute;
using entitytables::kAttributeDefinition;
using entitytables::kText;
using entitytables::kTextEnd;

namespace
{

enum GenerationFlag
{
    kBackward = 2,
    kUpsideDown = 4
};

/// Vertical alignment stands in another group for attributes than for texts.
struct AlignmentPlace
{
    const oddb::DxfSubclass& table;
    int code;
};

AlignmentPlace verticalAlignmentOf(const OdDbText& text)
{
    const oddb::DxfClass& dxfClass = classOf(text);
    for (const oddb::DxfSubclass* table : {&kAttribute, &kAttributeDefinition})
    {
        if (dxfClass.position(table->marker) >= 0)
            return {*table, 74};
    }
    return {kTextEnd, 73};
}

// A file may hold any number; those that are no mode are read as the usual one.
template<class Mode>
Mode modeOf(int value, Mode usual, Mode last)
{
    return value < 0 || value > static_cast<int>(last) ? usual : static_cast<Mode>(value);
}

OdDb::TextHorzMode horizontalOf(int value)
{
    return modeOf(value, OdDb::kTextLeft, OdDb::kTextFit);
}

OdDb::TextVertMode verticalOf(int value)
{
    return modeOf(value, OdDb::kTextBase, OdDb::kTextTop);
}

OdGePoint3d worldPoint(const OdDbText& text, int code)
{
    const Reader fields = read<kText>(text);
    return ocs::frameOf(fields.normal()).toWorld(fields.point(code));
}

void setWorldPoint(OdDbText& text, int code, const OdGePoint3d& point)
{
    setPoint(text, kText, code, ocs::frameOf(text.normal()).fromWorld(point));
}

} // namespace

namespace textline
{

static Line lineOf(const OdDbText& text, const Reader& fields, const OdString& shown)
{
    const AlignmentPlace vertical = verticalAlignmentOf(text);
    Line line;
    line.characters = shown;
    line.position = fields.point(10);
    line.alignment = fields.point(11);
    line.style = textstyles::styleOf(fields.stub(7));
    line.style.setTextSize(fields.real(40));
    line.style.setXScale(fields.real(41));
    line.style.setObliquingAngle(fields.angle(51));
    line.rotation = fields.angle(50);
    line.horizontal = horizontalOf(fields.integer(72));
    line.vertical = verticalOf(fields.in(vertical.table).integer(vertical.code));
    line.backward = fields.flag(71, kBackward);
    line.upsideDown = fields.flag(71, kUpsideDown);
    line.frame = ocs::frameOf(fields.normal());
    line.thickness = fields.real(39);
    return line;
}

Line lineOf(const OdDbText& text, const OdString& shown)
{
    return lineOf(text, read<kText>(text), shown);
}

Line lineOf(const OdDbText& text)
{
    const Reader fields = read<kText>(text);
    return lineOf(text, fields, fields.text(1));
}

} // namespace textline

OdString OdDbText::textString() const
{
    return read<kText>(*this).text(1);
}

void OdDbText::setTextString(const OdString& text)
{
    setText(*this, kText, 1, text);
}

OdGePoint3d OdDbText::position() const
{
    return worldPoint(*this, 10);
}

void OdDbText::setPosition(const OdGePoint3d& position)
{
    setWorldPoint(*this, 10, position);
}

OdGePoint3d OdDbText::alignmentPoint() const
{
    return worldPoint(*this, 11);
}

void OdDbText::setAlignmentPoint(const OdGePoint3d& point)
{
    setWorldPoint(*this, 11, point);
}

bool OdDbText::isDefaultAlignment() const
{
    return horizontalMode() == OdDb::kTextLeft && verticalMode() == OdDb::kTextBase;
}

double OdDbText::height() const
{
    return read<kText>(*this).real(40);
}

void OdDbText::setHeight(double height)
{
    requirePositive(height);
    setReal(*this, kText, 40, height);
}

double OdDbText::widthFactor() const
{
    return read<kText>(*this).real(41);
}

void OdDbText::setWidthFactor(double factor)
{
    setReal(*this, kText, 41, factor);
}

double OdDbText::rotation() const
{
    return read<kText>(*this).angle(50);
}

void OdDbText::setRotation(double rotation)
{
    setAngle(*this, kText, 50, rotation);
}

double OdDbText::oblique() const
{
    return read<kText>(*this).angle(51);
}

void OdDbText::setOblique(double oblique)
{
    setAngle(*this, kText, 51, oblique);
}

double OdDbText::thickness() const
{
    return read<kText>(*this).real(39);
}

void OdDbText::setThickness(double thickness)
{
    setReal(*this, kText, 39, thickness);
}

void OdDbText::setNormal(const OdGeVector3d& normal)
{
    const OdGePoint3d position = this->position();
    const OdGePoint3d alignment = alignmentPoint();
    const bool aligned = read<kText>(*this).has(11);
    setVector(*this, kText, 210, requireDirection(normal));
    setPosition(position);
    if (aligned)
        setAlignmentPoint(alignment);
}

bool OdDbText::isMirroredInX() const
{
    return read<kText>(*this).flag(71, kBackward);
}

void OdDbText::mirrorInX(bool mirror)
{
    setFlag(*this, kText, 71, kBackward, mirror);
}

bool OdDbText::isMirroredInY() const
{
    return read<kText>(*this).flag(71, kUpsideDown);
}

void OdDbText::mirrorInY(bool mirror)
{
    setFlag(*this, kText, 71, kUpsideDown, mirror);
}

OdDb::TextHorzMode OdDbText::horizontalMode() const
{
    return horizontalOf(read<kText>(*this).integer(72));
}

void OdDbText::setHorizontalMode(OdDb::TextHorzMode mode)
{
    setInteger(*this, kText, 72, mode);
}

OdDb::TextVertMode OdDbText::verticalMode() const
{
    const AlignmentPlace place = verticalAlignmentOf(*this);
    return verticalOf(Reader(*this, place.table, place.table.atom()).integer(place.code));
}

void OdDbText::setVerticalMode(OdDb::TextVertMode mode)
{
    const AlignmentPlace place = verticalAlignmentOf(*this);
    setInteger(*this, place.table, place.code, mode);
}

OdDbObjectId OdDbText::textStyle() const
{
    return read<kText>(*this).stub(7);
}

void OdDbText::setTextStyle(OdDbObjectId textStyleId)
{
    requireRecord(textStyleId, oddb::SymbolTable::TextStyle);
    setName(*this, kText, 7, textStyleId);
}

bool OdDbText::isPlanar() const
{
    return true;
}

bool OdDbText::subWorldDraw(OdGiWorldDraw* worldDraw) const
{
    textline::draw(*worldDraw, textline::lineOf(*this));
    return true;
}
