// Hatches.
#include <cmath>

#include "DbHatch.h"
#include "OdError.h"
#include "db/KnownEdits.h"
#include "entities/Fields.h"
#include "entities/HatchLoops.h"
#include "entities/HatchTransform.h"

using namespace entityfields;
using entitytables::kHatch;
using hatchloops::Loop;

namespace
{

std::vector<Loop> loopsOf(const Reader& fields)
{
    return hatchloops::readLoops(fields.groups(), fields.atom());
}

const Loop& loopAt(const std::vector<Loop>& loops, int index)
{
    if (index < 0 || static_cast<std::size_t>(index) >= loops.size())
        throw OdError(eInvalidIndex);
    return loops[static_cast<std::size_t>(index)];
}

/// The groups of the hatch with others in the place of some items, and with this number of loops.
Groups withItems(const OdDbHatch& hatch, const Reader& fields, const std::uint8_t* begin, const std::uint8_t* end,
                 const oddb::GroupsBuilder& replacement, std::size_t loopCount)
{
    const Groups edited = fields.groups().spliced(begin, end, replacement);
    return oddb::withInteger(edited, classOf(hatch), kHatch, 91, static_cast<std::int64_t>(loopCount));
}

/// Where a further loop goes: behind the last one, or behind the number of loops.
const std::uint8_t* endOfLoops(const Reader& fields, const std::vector<Loop>& loops)
{
    if (!loops.empty())
        return loops.back().end;
    const std::optional<oddb::GroupView> count = fields.groups().find(fields.atom(), 91);
    if (!count)
        throw OdError(eDwgObjectImproperlyRead);
    return count->next();
}

void appendPolyline(oddb::GroupsBuilder& groups, const OdGePoint2dArray& vertices, const OdGeDoubleArray& bulges)
{
    groups.integer(72, bulges.isEmpty() ? 0 : 1).integer(73, 1);
    groups.integer(93, static_cast<std::int64_t>(vertices.size()));
    for (unsigned int i = 0; i < static_cast<unsigned int>(vertices.size()); ++i)
    {
        groups.point(10, vertices[i].x, vertices[i].y);
        if (!bulges.isEmpty())
            groups.real(42, bulges[i]);
    }
    groups.integer(97, 0);
}

} // namespace

int OdDbHatch::numLoops() const
{
    return static_cast<int>(loopsOf(read<kHatch>(*this)).size());
}

OdInt32 OdDbHatch::loopTypeAt(int index) const
{
    return loopAt(loopsOf(read<kHatch>(*this)), index).type;
}

void OdDbHatch::getLoopAt(int index, OdGePoint2dArray& vertices, OdGeDoubleArray& bulges) const
{
    const std::vector<Loop> loops = loopsOf(read<kHatch>(*this));
    const Loop& loop = loopAt(loops, index);
    if (!loop.isPolyline())
        throw OdError(eNotApplicable);
    vertices.clear();
    bulges.clear();
    for (const drawing::BulgeVertex& vertex : loop.vertices)
    {
        vertices.append(OdGePoint2d(vertex.x, vertex.y));
        bulges.append(vertex.bulge);
    }
}

void OdDbHatch::appendLoop(OdInt32 loopType, const OdGePoint2dArray& vertices, const OdGeDoubleArray& bulges)
{
    if (vertices.isEmpty() || (!bulges.isEmpty() && bulges.size() != vertices.size()))
        throw OdError(eInvalidInput);
    const Reader fields = read<kHatch>(*this);
    oddb::GroupsBuilder groups;
    groups.integer(92, loopType | kPolyline);
    appendPolyline(groups, vertices, bulges);
    const auto append = [&]
    {
        const std::vector<Loop> loops = loopsOf(fields);
        const std::uint8_t* place = endOfLoops(fields, loops);
        return withItems(*this, fields, place, place, groups, loops.size() + 1);
    };
    static constexpr char kAppend = 0;
    const oddb::RowEdit edit(&kAppend, isA(), 0, groups);
    oddb::ObjectCore::changeGroups(*this, oddb::resultOfEdit(*this, fields.groups(), edit, append));
}

void OdDbHatch::removeLoopAt(int index)
{
    const Reader fields = read<kHatch>(*this);
    const std::vector<Loop> loops = loopsOf(fields);
    const Loop& loop = loopAt(loops, index);
    oddb::ObjectCore::changeGroups(
        *this, withItems(*this, fields, loop.begin, loop.end, oddb::GroupsBuilder(), loops.size() - 1));
}

OdString OdDbHatch::patternName() const
{
    return read<kHatch>(*this).text(2);
}

OdDbHatch::HatchPatternType OdDbHatch::patternType() const
{
    return static_cast<HatchPatternType>(read<kHatch>(*this).integer(76));
}

void OdDbHatch::setPattern(HatchPatternType type, const OdString& name)
{
    setText(*this, kHatch, 2, name);
    setInteger(*this, kHatch, 76, type);
    setInteger(*this, kHatch, 70, name.iCompare(L"SOLID") == 0 ? 1 : 0);
}

bool OdDbHatch::isSolidFill() const
{
    return read<kHatch>(*this).integer(70) != 0;
}

OdDbHatch::HatchStyle OdDbHatch::hatchStyle() const
{
    return static_cast<HatchStyle>(read<kHatch>(*this).integer(75));
}

void OdDbHatch::setHatchStyle(HatchStyle style)
{
    setInteger(*this, kHatch, 75, style);
}

bool OdDbHatch::associative() const
{
    return read<kHatch>(*this).integer(71) != 0;
}

void OdDbHatch::setAssociative(bool associative)
{
    setInteger(*this, kHatch, 71, associative ? 1 : 0);
}

double OdDbHatch::patternAngle() const
{
    return read<kHatch>(*this).angle(52);
}

double OdDbHatch::patternScale() const
{
    return read<kHatch>(*this).real(41);
}

double OdDbHatch::elevation() const
{
    return read<kHatch>(*this).point(10).z;
}

void OdDbHatch::setElevation(double elevation)
{
    const Reader fields = read<kHatch>(*this);
    oddb::GroupsBuilder groups;
    groups.point(10, 0.0, 0.0, elevation);
    const std::optional<oddb::GroupView> first = fields.groups().find(fields.atom(), 10);
    const std::optional<oddb::GroupView> last = fields.groups().find(fields.atom(), 30);
    if (!first || !last)
        throw OdError(eDwgObjectImproperlyRead);
    oddb::ObjectCore::changeGroups(*this, fields.groups().spliced(first->item(), last->next(), groups));
}

void OdDbHatch::setNormal(const OdGeVector3d& normal)
{
    setVector(*this, kHatch, 210, requireDirection(normal));
}

OdResult OdDbHatch::evaluateHatch(bool)
{
    return numLoops() > 0 ? eOk : eInvalidInput;
}

bool OdDbHatch::isPlanar() const
{
    return true;
}

OdResult OdDbHatch::subTransformBy(const OdGeMatrix3d& xform)
{
    return transform::transformHatch(*this, xform);
}
