// Linetypes, text styles, dimension styles, registered applications.
#include <cmath>

#include "DatabaseImpl.h"
#include "DbDimStyleTableRecord.h"
#include "DbLinetypeTableRecord.h"
#include "DbRegAppTableRecord.h"
#include "DbTextStyleTableRecord.h"
#include "OdError.h"
#include "RecordFields.h"

namespace
{

using oddb::ObjectCore;
using oddb::RecordFields;

const RecordFields kLinetype(oddb::recordtables::kLinetype);
const RecordFields kTextStyle(oddb::recordtables::kTextStyle);
const RecordFields kDimStyle(oddb::recordtables::kDimStyle);

} // namespace

OdDbRegAppTableRecord::OdDbRegAppTableRecord()
{
    ObjectCore::putGroups(*this, oddb::initialGroups(oddb::recordtables::kRegApp, {2, 70}));
}

// ---- Linetypes -----------------------------------------------------------------------------------------------------

OdDbLinetypeTableRecord::OdDbLinetypeTableRecord()
{
    ObjectCore::putGroups(*this, oddb::initialGroups(oddb::recordtables::kLinetype, {2, 70, 3, 72, 73, 40}));
}

OdString OdDbLinetypeTableRecord::comments() const
{
    return kLinetype.text(*this, 3);
}

void OdDbLinetypeTableRecord::setComments(const OdString& comments)
{
    kLinetype.setText(*this, 3, comments);
}

double OdDbLinetypeTableRecord::patternLength() const
{
    return kLinetype.real(*this, 40);
}

int OdDbLinetypeTableRecord::numDashes() const
{
    int count = 0;
    for (const oddb::GroupView& group : oddb::readableGroups(*this))
        count += group.code() == 49;
    return count;
}

double OdDbLinetypeTableRecord::dashLengthAt(int index) const
{
    const oddb::Groups groups = oddb::readableGroups(*this);
    for (const oddb::GroupView& group : groups)
        if (group.code() == 49 && index-- == 0)
            return group.real();
    throw OdError(eInvalidIndex);
}

// The dashes and what shapes stand at them are one run of groups up to the end.
void OdDbLinetypeTableRecord::setDashes(const OdArray<double>& lengths)
{
    double sum = 0.0;
    oddb::GroupsBuilder groups;
    for (const oddb::GroupView& group : oddb::readableGroups(*this))
    {
        if (group.code() == 49)
            break;
        groups.append(group);
    }
    for (const double length : lengths)
    {
        oddb::requireFinite(length);
        sum += std::abs(length);
        groups.real(49, length).integer(74, 0);
    }
    const oddb::DxfClass& cls = oddb::recordtables::kLinetype;
    const oddb::DxfSubclass& part = *cls.subclasses.back();
    const oddb::Groups counted = oddb::withInteger(groups.build(), cls, part, 73, static_cast<int>(lengths.size()));
    ObjectCore::changeGroups(*this, oddb::withReal(counted, cls, part, 40, sum));
}

// ---- Text styles ---------------------------------------------------------------------------------------------------

namespace
{

constexpr int kTrueType = 1071;
constexpr int kItalic = 1 << 24;
constexpr int kBold = 1 << 25;
constexpr const OdChar* kFontApplication = L"ACAD";

void requireNotNegative(double value)
{
    oddb::requireFinite(value);
    if (value < 0.0)
        throw OdError(eInvalidInput);
}

bool isTrueTypeFile(const OdString& file)
{
    const OdString ending = file.right(4);
    return ending.iCompare(L".ttf") == 0 || ending.iCompare(L".ttc") == 0 || ending.iCompare(L".otf") == 0;
}

} // namespace

OdDbTextStyleTableRecord::OdDbTextStyleTableRecord()
{
    ObjectCore::putGroups(*this,
                          oddb::initialGroups(oddb::recordtables::kTextStyle, {2, 70, 40, 41, 50, 71, 42, 3, 4}));
}

OdString OdDbTextStyleTableRecord::fileName() const
{
    return kTextStyle.text(*this, 3);
}

void OdDbTextStyleTableRecord::setFileName(const OdString& fileName)
{
    kTextStyle.setText(*this, 3, fileName);
}

OdString OdDbTextStyleTableRecord::bigFontFileName() const
{
    return kTextStyle.text(*this, 4);
}

void OdDbTextStyleTableRecord::setBigFontFileName(const OdString& fileName)
{
    kTextStyle.setText(*this, 4, fileName);
}

// The typeface stands in the extended data: 1000 typeface, 1071 cut, character set and pitch.
void OdDbTextStyleTableRecord::font(OdString& typeface, bool& bold, bool& italic, int& charset,
                                    int& pitchAndFamily) const
{
    const OdString file = fileName();
    typeface = isTrueTypeFile(file) ? file.left(file.getLength() - 4) : OdString();
    int traits = 0;
    for (OdResBufPtr element = xData(kFontApplication); !element.isNull(); element = element->next())
    {
        if (element->restype() == 1000)
            typeface = element->getString();
        else if (element->restype() == kTrueType)
            traits = element->getInt32();
    }
    bold = (traits & kBold) != 0;
    italic = (traits & kItalic) != 0;
    charset = traits >> 8 & 0xFF;
    pitchAndFamily = traits & 0xFF;
}

void OdDbTextStyleTableRecord::setFont(const OdString& typeface, bool bold, bool italic, int charset,
                                       int pitchAndFamily)
{
    setFileName(typeface.isEmpty() || isTrueTypeFile(typeface) ? typeface : typeface + L".ttf");
    if (!isDBRO())
        return; // extended data needs the drawing's applications
    OdResBufPtr chain = OdResBuf::newRb(1001, OdString(kFontApplication));
    OdResBufPtr name = OdResBuf::newRb(1000, typeface);
    const int traits = (bold ? kBold : 0) | (italic ? kItalic : 0) | (charset & 0xFF) << 8 | (pitchAndFamily & 0xFF);
    name->setNext(OdResBuf::newRb(kTrueType, static_cast<OdInt32>(traits)));
    if (!typeface.isEmpty())
        chain->setNext(name);
    setXData(chain);
}

double OdDbTextStyleTableRecord::textSize() const
{
    return kTextStyle.real(*this, 40);
}

void OdDbTextStyleTableRecord::setTextSize(double size)
{
    requireNotNegative(size);
    kTextStyle.setReal(*this, 40, size);
}

double OdDbTextStyleTableRecord::priorSize() const
{
    return kTextStyle.real(*this, 42);
}

void OdDbTextStyleTableRecord::setPriorSize(double size)
{
    requireNotNegative(size);
    kTextStyle.setReal(*this, 42, size);
}

double OdDbTextStyleTableRecord::xScale() const
{
    return kTextStyle.real(*this, 41);
}

void OdDbTextStyleTableRecord::setXScale(double scale)
{
    oddb::requirePositive(scale);
    kTextStyle.setReal(*this, 41, scale);
}

double OdDbTextStyleTableRecord::obliquingAngle() const
{
    return kTextStyle.angle(*this, 50);
}

void OdDbTextStyleTableRecord::setObliquingAngle(double angle)
{
    constexpr double kSteepest = OdaToRadian(85.0);
    oddb::requireFinite(angle);
    if (std::abs(angle) > kSteepest + 1e-9)
        throw OdError(eInvalidInput);
    kTextStyle.setAngle(*this, 50, angle);
}

bool OdDbTextStyleTableRecord::isVertical() const
{
    return kTextStyle.flag(*this, 70, 4);
}

void OdDbTextStyleTableRecord::setIsVertical(bool vertical)
{
    kTextStyle.setFlag(*this, 70, 4, vertical);
}

bool OdDbTextStyleTableRecord::isShapeFile() const
{
    return kTextStyle.flag(*this, 70, 1);
}

// ---- Dimension styles ----------------------------------------------------------------------------------------------

OdDbDimStyleTableRecord::OdDbDimStyleTableRecord()
{
    ObjectCore::putGroups(*this, oddb::initialGroups(oddb::recordtables::kDimStyle, {2, 70}));
}

double OdDbDimStyleTableRecord::dimscale() const
{
    return kDimStyle.real(*this, 40);
}

void OdDbDimStyleTableRecord::setDimscale(double scale)
{
    requireNotNegative(scale);
    kDimStyle.setReal(*this, 40, scale);
}

double OdDbDimStyleTableRecord::dimtxt() const
{
    return kDimStyle.real(*this, 140);
}

void OdDbDimStyleTableRecord::setDimtxt(double height)
{
    oddb::requirePositive(height);
    kDimStyle.setReal(*this, 140, height);
}

double OdDbDimStyleTableRecord::dimasz() const
{
    return kDimStyle.real(*this, 41);
}

void OdDbDimStyleTableRecord::setDimasz(double size)
{
    requireNotNegative(size);
    kDimStyle.setReal(*this, 41, size);
}

int OdDbDimStyleTableRecord::dimdec() const
{
    return kDimStyle.integer(*this, 271);
}

void OdDbDimStyleTableRecord::setDimdec(int decimals)
{
    if (decimals < 0 || decimals > 8)
        throw OdError(eInvalidInput);
    kDimStyle.setInteger(*this, 271, decimals);
}

OdDbObjectId OdDbDimStyleTableRecord::dimtxsty() const
{
    return kDimStyle.stub(*this, 340);
}
