// Texts of several lines.
#include <algorithm>
#include <cmath>

#include "DbMText.h"
#include "Gi/GiWorldDraw.h"
#include "OdError.h"
#include "entities/Drawing.h"
#include "entities/Fields.h"
#include "entities/MTextLayout.h"
#include "entities/MTextParser.h"
#include "entities/TextStyles.h"

using namespace entityfields;
using entitytables::kMText;

namespace
{

constexpr std::size_t kChunk = 250; // characters in a part of the contents
constexpr double kLeastSpacing = 0.25;
constexpr double kGreatestSpacing = 4.0;

/// The contents of all parts: groups 3 in order, then group 1.
std::wstring contentsOf(const OdDbMText& text)
{
    const Reader fields = read<kMText>(text);
    std::string contents;
    bool inside = false;
    for (const oddb::GroupView& group : fields.groups())
    {
        if (group.beginsSection())
            inside = group.code() == 100 && group.atom() == fields.atom();
        else if (inside && (group.code() == 3 || group.code() == 1))
            contents += group.text();
    }
    return std::wstring(odUtf8ToString(contents).view());
}

OdDbMText::AttachmentPoint attachmentOf(const Reader& fields)
{
    const int stored = fields.integer(71);
    const bool known = stored >= OdDbMText::kTopLeft && stored <= OdDbMText::kBottomRight;
    return known ? static_cast<OdDbMText::AttachmentPoint>(stored) : OdDbMText::kTopLeft;
}

constexpr mtext::Alignment kAlignments[] = {mtext::Alignment::kLeft, mtext::Alignment::kCenter,
                                            mtext::Alignment::kRight};

/// The columns, as newer files have them behind all else:
///
///   101 "Embedded Object" ... 71 kind (none 0, static 1, dynamic 2)  72 count  44 width  45 gutter
///                             73 all of one height  74 from right to left  { 46 height }   41 that height
///
/// In older files each column is a text of its own.
void readColumns(const Groups& groups, mtext::Style& style)
{
    enum Kind
    {
        kNone = 0
    };
    bool inside = false;
    std::int64_t kind = kNone;
    bool ofOneHeight = false;
    double width = 0.0;
    double height = 0.0;
    mtext::Columns columns;
    for (const oddb::GroupView& group : groups)
    {
        if (group.beginsSection())
            inside = group.code() == 101;
        if (!inside)
            continue;
        switch (group.code())
        {
        case 71:
            kind = group.integer();
            break;
        case 72:
            columns.count = static_cast<int>(std::clamp<std::int64_t>(group.integer(), 1, 1000));
            break;
        case 44:
            width = group.real();
            break;
        case 45:
            columns.gutter = group.real();
            break;
        case 73:
            ofOneHeight = group.integer() != 0;
            break;
        case 74:
            columns.isReversed = group.integer() != 0;
            break;
        case 41:
            height = group.real();
            break;
        case 46:
            columns.heights.push_back(group.real());
            break;
        default:
            break;
        }
    }
    if (kind == kNone || columns.count < 2 || !(width > 0.0) || !std::isfinite(columns.gutter))
        return;
    if (ofOneHeight || columns.heights.empty())
        columns.heights.assign(1, height);
    style.width = width;
    style.columns = std::move(columns);
}

mtext::Layout layoutOf(const OdDbMText& text)
{
    const Reader fields = read<kMText>(text);
    mtext::Style style;
    style.text = textstyles::styleOf(fields.stub(7));
    style.height = fields.real(40);
    style.alignment = kAlignments[(attachmentOf(fields) - 1) % 3];
    style.width = fields.real(41);
    style.spacingFactor = fields.real(44);
    style.exactSpacing = fields.integer(73) == OdDb::kExactly;
    readColumns(fields.groups(), style);
    return mtext::layOut(contentsOf(text), style);
}

/// The world's x axis where nothing is said, as far as it lies in the plane.
OdGeVector3d directionOf(const Reader& fields, const ocs::Frame& frame)
{
    if (!fields.has(11) && fields.has(50))
        return frame.direction(fields.angle(50));
    OdGeVector3d direction = fields.has(11) ? fields.vector(11) : OdGeVector3d(1.0, 0.0, 0.0);
    if (!fields.has(11))
        direction = direction - frame.z * direction.dotProduct(frame.z);
    const double length = direction.length();
    return length > 1e-9 && std::isfinite(length) ? direction * (1.0 / length) : frame.x;
}

/// Column 0 left, 1 centre, 2 right; row 0 top, 1 middle, 2 bottom.
int columnOf(OdDbMText::AttachmentPoint attachment)
{
    return (attachment - 1) % 3;
}

int rowOf(OdDbMText::AttachmentPoint attachment)
{
    return (attachment - 1) / 3;
}

/// The plane that a layout lies in.
struct Sheet
{
    OdGePoint3d corner; ///< the layout's top left corner
    OdGeVector3d along;
    OdGeVector3d up;
    OdGeVector3d normal;

    OdGePoint3d at(double x, double y) const { return corner + along * x + up * y; }
};

Sheet sheetOf(const OdDbMText& text, const mtext::Layout& layout)
{
    const Reader fields = read<kMText>(text);
    const ocs::Frame frame = ocs::frameOf(fields.normal());
    Sheet sheet;
    sheet.along = directionOf(fields, frame);
    sheet.normal = frame.z;
    sheet.up = frame.z.crossProduct(sheet.along);
    const OdDbMText::AttachmentPoint attachment = attachmentOf(fields);
    sheet.corner = fields.point(10) - sheet.along * (layout.frame * columnOf(attachment) * 0.5) +
                   sheet.up * (layout.height * rowOf(attachment) * 0.5);
    return sheet;
}

enum BackgroundFlag
{
    kFilled = 1,
    kFilledAsWindow = 2,
    kFramed = 16
};

/// The area behind the text and the line around it, where the text has them.
void drawBackground(OdGiWorldDraw& worldDraw, const Reader& fields, const mtext::Layout& layout, const Sheet& sheet)
{
    const int flags = fields.integer(90);
    if ((flags & (kFilled | kFilledAsWindow | kFramed)) == 0)
        return;
    const double border = std::max(fields.real(45) - 1.0, 0.0) * fields.real(40);
    const OdGePoint3d corners[4] = {sheet.at(-border, border), sheet.at(layout.frame + border, border),
                                    sheet.at(layout.frame + border, -layout.height - border),
                                    sheet.at(-border, -layout.height - border)};
    OdGiSubEntityTraits& traits = worldDraw.subEntityTraits();
    const OdCmEntityColor color = traits.trueColor();
    if ((flags & (kFilled | kFilledAsWindow)) != 0)
    {
        OdCmEntityColor fill(OdCmEntityColor::kNone);
        if ((flags & kFilledAsWindow) == 0 && fields.has(421))
        {
            const auto rgb = static_cast<OdUInt32>(fields.integer(421));
            fill.setRGB(static_cast<OdUInt8>(rgb >> 16), static_cast<OdUInt8>(rgb >> 8), static_cast<OdUInt8>(rgb));
        }
        else if ((flags & kFilledAsWindow) == 0)
            fill.setColorIndex(static_cast<OdUInt16>(std::clamp(fields.integer(63), 0, 256)));
        traits.setTrueColor(fill);
        traits.setFillType(kOdGiFillAlways);
        worldDraw.geometry().polygon(4, corners);
        traits.setFillType(kOdGiFillNever);
        traits.setTrueColor(color);
    }
    if ((flags & kFramed) != 0)
        worldDraw.geometry().polygon(4, corners);
}

/// Modes in the order of columns and rows.
constexpr OdDb::TextHorzMode kHorizontalModes[] = {OdDb::kTextLeft, OdDb::kTextCenter, OdDb::kTextRight};
constexpr OdDb::TextVertMode kVerticalModes[] = {OdDb::kTextTop, OdDb::kTextVertMid, OdDb::kTextBottom};

int columnOf(OdDb::TextHorzMode mode)
{
    return mode == OdDb::kTextRight ? 2 : mode == OdDb::kTextCenter || mode == OdDb::kTextMid ? 1 : 0;
}

int rowOf(OdDb::TextVertMode mode)
{
    return mode == OdDb::kTextTop ? 0 : mode == OdDb::kTextVertMid ? 1 : 2;
}

} // namespace

OdString OdDbMText::contents() const
{
    return OdString(contentsOf(*this));
}

void OdDbMText::setContents(const OdString& contents)
{
    const std::wstring_view all = contents.view();
    oddb::GroupsBuilder groups;
    std::size_t at = 0;
    for (; all.size() - at > kChunk; at += kChunk)
        groups.text(3, odStringToUtf8(all.substr(at, kChunk)));
    remove(*this, kMText, 3);
    if (!groups.empty())
        setGroups(*this, kMText, 3, groups);
    groups.clear();
    setGroups(*this, kMText, 1, groups.text(1, odStringToUtf8(all.substr(at))));
}

OdString OdDbMText::text() const
{
    return OdString(mtext::plainText(contentsOf(*this)));
}

OdGePoint3d OdDbMText::location() const
{
    return read<kMText>(*this).point(10);
}

void OdDbMText::setLocation(const OdGePoint3d& location)
{
    setPoint(*this, kMText, 10, location);
}

OdGeVector3d OdDbMText::direction() const
{
    const Reader fields = read<kMText>(*this);
    return directionOf(fields, ocs::frameOf(fields.normal()));
}

void OdDbMText::setDirection(const OdGeVector3d& direction)
{
    setVector(*this, kMText, 11, requireDirection(direction));
    remove(*this, kMText, 50);
}

double OdDbMText::rotation() const
{
    return ocs::frameOf(normal()).angleOf(direction());
}

void OdDbMText::setRotation(double rotation)
{
    setDirection(ocs::frameOf(normal()).direction(rotation));
}

void OdDbMText::setNormal(const OdGeVector3d& normal)
{
    setVector(*this, kMText, 210, requireDirection(normal));
}

double OdDbMText::width() const
{
    return read<kMText>(*this).real(41);
}

void OdDbMText::setWidth(double width)
{
    requireNotNegative(width);
    setReal(*this, kMText, 41, width);
}

double OdDbMText::height() const
{
    return read<kMText>(*this).real(46);
}

void OdDbMText::setHeight(double height)
{
    requireNotNegative(height);
    setReal(*this, kMText, 46, height);
}

double OdDbMText::actualWidth() const
{
    const OdGeExtents2d ink = mtext::inkOf(layoutOf(*this));
    return ink.isValidExtents() ? ink.maxPoint().x - ink.minPoint().x : 0.0;
}

double OdDbMText::actualHeight() const
{
    const mtext::Layout layout = layoutOf(*this);
    const OdGeExtents2d ink = mtext::inkOf(layout);
    return layout.height + (ink.isValidExtents() ? std::max(ink.maxPoint().y, 0.0) : 0.0);
}

double OdDbMText::textHeight() const
{
    return read<kMText>(*this).real(40);
}

void OdDbMText::setTextHeight(double height)
{
    requirePositive(height);
    setReal(*this, kMText, 40, height);
}

OdDbMText::AttachmentPoint OdDbMText::attachment() const
{
    return attachmentOf(read<kMText>(*this));
}

void OdDbMText::setAttachment(AttachmentPoint attachment)
{
    if (attachment < kTopLeft || attachment > kBottomRight)
        throw OdError(eInvalidInput);
    setInteger(*this, kMText, 71, attachment);
}

OdDb::TextHorzMode OdDbMText::horizontalMode() const
{
    return kHorizontalModes[columnOf(attachment())];
}

void OdDbMText::setHorizontalMode(OdDb::TextHorzMode mode)
{
    setInteger(*this, kMText, 71, rowOf(attachment()) * 3 + columnOf(mode) + 1);
}

OdDb::TextVertMode OdDbMText::verticalMode() const
{
    return kVerticalModes[rowOf(attachment())];
}

void OdDbMText::setVerticalMode(OdDb::TextVertMode mode)
{
    setInteger(*this, kMText, 71, rowOf(mode) * 3 + columnOf(attachment()) + 1);
}

OdDbMText::FlowDirection OdDbMText::flowDirection() const
{
    return static_cast<FlowDirection>(read<kMText>(*this).integer(72));
}

void OdDbMText::setFlowDirection(FlowDirection direction)
{
    setInteger(*this, kMText, 72, direction);
}

double OdDbMText::lineSpacingFactor() const
{
    return read<kMText>(*this).real(44);
}

void OdDbMText::setLineSpacingFactor(double factor)
{
    if (!(factor >= kLeastSpacing && factor <= kGreatestSpacing))
        throw OdError(eInvalidInput);
    setReal(*this, kMText, 44, factor);
}

OdDb::LineSpacingStyle OdDbMText::lineSpacingStyle() const
{
    return static_cast<OdDb::LineSpacingStyle>(read<kMText>(*this).integer(73));
}

void OdDbMText::setLineSpacingStyle(OdDb::LineSpacingStyle style)
{
    setInteger(*this, kMText, 73, style);
}

OdDbObjectId OdDbMText::textStyle() const
{
    return read<kMText>(*this).stub(7);
}

void OdDbMText::setTextStyle(OdDbObjectId textStyleId)
{
    requireRecord(textStyleId, oddb::SymbolTable::TextStyle);
    setName(*this, kMText, 7, textStyleId);
}

bool OdDbMText::isPlanar() const
{
    return true;
}

bool OdDbMText::subWorldDraw(OdGiWorldDraw* worldDraw) const
{
    const mtext::Layout layout = layoutOf(*this);
    const Sheet sheet = sheetOf(*this, layout);
    drawBackground(*worldDraw, read<kMText>(*this), layout, sheet);
    const OdCmEntityColor color = worldDraw->subEntityTraits().trueColor();
    const auto setColor = [&](const mtext::Look& look)
    {
        OdCmEntityColor own = color;
        if (look.color)
            own.setColor(*look.color);
        worldDraw->subEntityTraits().setTrueColor(own);
    };
    for (const mtext::Run& run : layout.runs)
    {
        const OdGiTextStyle style = mtext::styleOf(layout, run.look);
        setColor(run.look);
        worldDraw->geometry().text(sheet.at(run.x, run.y), sheet.normal, sheet.along, run.characters.c_str(),
                                   static_cast<OdInt32>(run.characters.size()), true, &style);
    }
    for (const mtext::Bar& bar : layout.bars)
    {
        const OdGePoint3d points[2] = {sheet.at(bar.start.x, bar.start.y), sheet.at(bar.end.x, bar.end.y)};
        setColor(bar.look);
        worldDraw->geometry().polyline(2, points);
    }
    worldDraw->subEntityTraits().setTrueColor(color);
    return true;
}

namespace
{

// The format codes, in the order of the operations below.
constexpr OdChar kNonBreakSpace[] = L"\\~";
constexpr OdChar kOverlineOn[] = L"\\O";
constexpr OdChar kOverlineOff[] = L"\\o";
constexpr OdChar kUnderlineOn[] = L"\\L";
constexpr OdChar kUnderlineOff[] = L"\\l";
constexpr OdChar kColorChange[] = L"\\C";
constexpr OdChar kFontChange[] = L"\\f";
constexpr OdChar kHeightChange[] = L"\\H";
constexpr OdChar kWidthChange[] = L"\\W";
constexpr OdChar kObliqueChange[] = L"\\Q";
constexpr OdChar kTrackChange[] = L"\\T";
constexpr OdChar kLineBreak[] = L"\\P";
constexpr OdChar kStackStart[] = L"\\S";
constexpr OdChar kAlignChange[] = L"\\A";
constexpr OdChar kBlockBegin[] = L"{";
constexpr OdChar kBlockEnd[] = L"}";

} // namespace

// clang-format off
const OdChar* OdDbMText::nonBreakSpace() { return kNonBreakSpace; }
const OdChar* OdDbMText::overlineOn() { return kOverlineOn; }
const OdChar* OdDbMText::overlineOff() { return kOverlineOff; }
const OdChar* OdDbMText::underlineOn() { return kUnderlineOn; }
const OdChar* OdDbMText::underlineOff() { return kUnderlineOff; }
const OdChar* OdDbMText::colorChange() { return kColorChange; }
const OdChar* OdDbMText::fontChange() { return kFontChange; }
const OdChar* OdDbMText::heightChange() { return kHeightChange; }
const OdChar* OdDbMText::widthChange() { return kWidthChange; }
const OdChar* OdDbMText::obliqueChange() { return kObliqueChange; }
const OdChar* OdDbMText::trackChange() { return kTrackChange; }
const OdChar* OdDbMText::lineBreak() { return kLineBreak; }
const OdChar* OdDbMText::paragraphBreak() { return kLineBreak; }
const OdChar* OdDbMText::stackStart() { return kStackStart; }
const OdChar* OdDbMText::alignChange() { return kAlignChange; }
const OdChar* OdDbMText::blockBegin() { return kBlockBegin; }
const OdChar* OdDbMText::blockEnd() { return kBlockEnd; }
// clang-format on
