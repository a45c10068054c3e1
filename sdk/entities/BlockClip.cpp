// Implements the reading of the filters that cut block references.
#include "entities/BlockClip.h"

#include <vector>

#include "DbDictionary.h"
#include "db/ObjectCore.h"

namespace drawing
{

namespace
{

constexpr std::size_t kMatrixSize = 12; ///< three rows of four

OdDbObjectPtr filterOf(const OdDbBlockReference& reference)
{
    OdDbStub* extension = oddb::ObjectCore::extensionDictionary(reference);
    const OdDbDictionaryPtr own = OdDbDictionary::cast(OdDbObjectId(extension).openObject());
    if (own.isNull())
        return {};
    const OdDbDictionaryPtr filters = OdDbDictionary::cast(own->getAt(L"ACAD_FILTER").openObject());
    return filters.isNull() ? OdDbObjectPtr() : filters->getAt(L"SPATIAL").openObject();
}

OdGeMatrix3d matrixOf(const double* numbers)
{
    OdGeMatrix3d matrix;
    for (int row = 0; row < 3; ++row)
    {
        for (int column = 0; column < 4; ++column)
            matrix.entry[row][column] = numbers[row * 4 + column];
    }
    return matrix;
}

} // namespace

std::optional<OdGiClipBoundary> clipOf(const OdDbBlockReference& reference)
{
    const OdDbObjectPtr filter = filterOf(reference);
    if (filter.isNull())
        return std::nullopt;
    OdGiClipBoundary clip;
    std::vector<double> numbers;
    double x = 0.0;
    for (const oddb::GroupView& group : oddb::ObjectCore::groups(*filter))
    {
        switch (group.code())
        {
        case 10:
            x = group.real();
            break;
        case 20:
            clip.m_Points.append(OdGePoint2d(x, group.real()));
            break;
        case 40:
            numbers.push_back(group.real());
            break;
        case 71:
            clip.m_bDrawBoundary = group.integer() != 0;
            break;
        default:
            break;
        }
    }
    if (clip.m_Points.size() < 2 || numbers.size() < 2 * kMatrixSize)
        return std::nullopt;
    // A distance of the plane in front may come before the matrices.
    const double* matrices = numbers.data() + numbers.size() - 2 * kMatrixSize;
    OdGeMatrix3d toBlock = matrixOf(matrices);
    const OdGeMatrix3d toClipSpace = matrixOf(matrices + kMatrixSize);
    if (!toBlock.isFinite() || toBlock.isSingular() || !toClipSpace.isFinite() || toClipSpace.isSingular())
        return std::nullopt;
    clip.m_xToClipSpace = toClipSpace * toBlock.invert();
    return clip;
}

} // namespace drawing
