// Leaders.
#include <vector>

#include "DbLeader.h"
#include "OdError.h"
#include "entities/Fields.h"

using namespace entityfields;
using entitytables::kLeader;

namespace
{

std::vector<OdGePoint3d> verticesOf(const OdDbLeader& leader)
{
    const Reader fields = read<kLeader>(leader);
    std::vector<OdGePoint3d> vertices;
    bool inside = false;
    for (const oddb::GroupView& group : fields.groups())
    {
        if (group.beginsSection())
            inside = group.code() == 100 && group.atom() == fields.atom();
        else if (inside && group.code() == 10)
            vertices.emplace_back(group.real(), 0.0, 0.0);
        else if (inside && !vertices.empty() && group.code() == 20)
            vertices.back().y = group.real();
        else if (inside && !vertices.empty() && group.code() == 30)
            vertices.back().z = group.real();
    }
    return vertices;
}

void putVertices(OdDbLeader& leader, const std::vector<OdGePoint3d>& vertices)
{
    oddb::GroupsBuilder groups;
    for (const OdGePoint3d& vertex : vertices)
        groups.point(10, vertex.x, vertex.y, vertex.z);
    setGroups(leader, kLeader, 10, groups);
    setInteger(leader, kLeader, 76, static_cast<std::int64_t>(vertices.size()));
}

} // namespace

int OdDbLeader::numVertices() const
{
    return static_cast<int>(verticesOf(*this).size());
}

OdGePoint3d OdDbLeader::vertexAt(int index) const
{
    const std::vector<OdGePoint3d> vertices = verticesOf(*this);
    if (index < 0 || static_cast<std::size_t>(index) >= vertices.size())
        throw OdError(eInvalidIndex);
    return vertices[static_cast<std::size_t>(index)];
}

void OdDbLeader::setVertexAt(int index, const OdGePoint3d& point)
{
    std::vector<OdGePoint3d> vertices = verticesOf(*this);
    if (index < 0 || static_cast<std::size_t>(index) >= vertices.size())
        throw OdError(eInvalidIndex);
    vertices[static_cast<std::size_t>(index)] = point;
    putVertices(*this, vertices);
}

void OdDbLeader::appendVertex(const OdGePoint3d& point)
{
    std::vector<OdGePoint3d> vertices = verticesOf(*this);
    vertices.push_back(point);
    putVertices(*this, vertices);
}

bool OdDbLeader::hasArrowHead() const
{
    return read<kLeader>(*this).integer(71) != 0;
}

bool OdDbLeader::isSplined() const
{
    return read<kLeader>(*this).integer(72) != 0;
}

OdDbObjectId OdDbLeader::annotationObjId() const
{
    return read<kLeader>(*this).stub(340);
}

OdDbObjectId OdDbLeader::dimensionStyle() const
{
    return read<kLeader>(*this).stub(3);
}

bool OdDbLeader::isClosed() const
{
    return false;
}

OdResult OdDbLeader::getStartPoint(OdGePoint3d& point) const
{
    const std::vector<OdGePoint3d> vertices = verticesOf(*this);
    if (vertices.empty())
        return eInvalidExtents;
    point = vertices.front();
    return eOk;
}

OdResult OdDbLeader::getEndPoint(OdGePoint3d& point) const
{
    const std::vector<OdGePoint3d> vertices = verticesOf(*this);
    if (vertices.empty())
        return eInvalidExtents;
    point = vertices.back();
    return eOk;
}
