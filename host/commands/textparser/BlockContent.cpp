// What one list of entities holds for the text parser.
#include "commands/textparser/BlockContent.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <unordered_set>

#include "Db2dPolyline.h"
#include "DbAttribute.h"
#include "DbAttributeDefinition.h"
#include "DbBlockReference.h"
#include "DbBlockTableRecord.h"
#include "DbCircle.h"
#include "DbDimension.h"
#include "DbEllipse.h"
#include "DbLine.h"
#include "DbMText.h"
#include "DbObjectIterator.h"
#include "DbPolyline.h"
#include "OdaDefs.h"
#include "commands/textparser/DimensionText.h"
#include "commands/textparser/SeenText.h"

namespace textparser
{

namespace
{

template<class T>
OdSmartPtr<T> openForRead(OdDbObjectId id)
{
    return T::cast(id.openObject());
}

Place placeOfExtents(const OdGeExtents3d& extents)
{
    const OdGePoint3d low = extents.minPoint();
    const OdGePoint3d high = extents.maxPoint();
    Place place;
    place.center = OdGePoint3d((low.x + high.x) / 2.0, (low.y + high.y) / 2.0, (low.z + high.z) / 2.0);
    place.along = OdGeVector3d((high.x - low.x) / 2.0, 0.0, 0.0);
    place.across = OdGeVector3d(0.0, (high.y - low.y) / 2.0, 0.0);
    return place;
}

Place mapped(const Place& place, const OdGeMatrix3d& xform)
{
    return Place{xform * place.center, xform * place.along, xform * place.across};
}

Place pointAt(const OdGePoint3d& position)
{
    const OdGeVector3d nothing(0.0, 0.0, 0.0);
    return Place{position, nothing, nothing};
}

// A text at an angle is measured as if it ran to the right, or its box would be far too large.
Place measureText(const OdDbEntity& text, const OdGeVector3d& direction, const OdGePoint3d& position)
{
    const Place point = pointAt(position);
    OdGeExtents3d extents;
    const bool runsAlongAxis = direction.x == 0.0 || direction.y == 0.0;
    if (runsAlongAxis)
        return text.getGeomExtents(extents) == eOk ? placeOfExtents(extents) : point;
    const double angle = std::atan2(direction.y, direction.x);
    const OdGeMatrix3d upright = OdGeMatrix3d::rotation(-angle, OdGeVector3d::kZAxis, position);
    OdDbEntityPtr copy;
    if (text.getTransformedCopy(upright, copy) != eOk || copy->getGeomExtents(extents) != eOk)
        return text.getGeomExtents(extents) == eOk ? placeOfExtents(extents) : point;
    return mapped(placeOfExtents(extents), OdGeMatrix3d::rotation(angle, OdGeVector3d::kZAxis, position));
}

PlacedText readText(const OdDbText& text)
{
    const SeenText seen = seenTextOf(text);
    return PlacedText{joinWords(seen.characters), measureText(text, seen.direction, text.position())};
}

// A text that nothing is beside needs no box: there is no order to find and no frame. Where it stands is not asked.
PlacedText readLoneText(const OdDbText& text)
{
    const OdString string = text.textString();
    const bool hasCodes = string.findOneOf(L"%\\") >= 0;
    return PlacedText{joinWords(hasCodes ? seenTextOf(text).characters : string), pointAt(OdGePoint3d::kOrigin)};
}

void addText(BlockContent& content, PlacedText text)
{
    if (!text.characters.isEmpty())
        content.texts.push_back(std::move(text));
}

// A frame that was recognised in the plane with the given normal, at a height above it.
PlacedFrame inSpace(const Frame& frame, const OdGeVector3d& normal, double elevation)
{
    const OdGeMatrix3d toWorld = OdGeMatrix3d::planeToWorld(normal);
    PlacedFrame placed;
    placed.kind = frame.kind;
    placed.outline = frame.outline;
    placed.place.center = toWorld * OdGePoint3d(frame.center.x, frame.center.y, elevation);
    placed.place.along = toWorld * OdGeVector3d(frame.along.x, frame.along.y, 0.0);
    placed.place.across = toWorld * OdGeVector3d(frame.across.x, frame.across.y, 0.0);
    return placed;
}

PlacedFrame ellipseOf(const OdGePoint3d& center, const OdGeVector3d& along, const OdGeVector3d& across)
{
    PlacedFrame placed;
    placed.kind = FrameKind::kCircle;
    placed.outline = Frame::kEllipse;
    placed.place = Place{center, along, across};
    return placed;
}

OdGePoint2d flatten(const OdGePoint3d& point)
{
    return OdGePoint2d(point.x, point.y);
}

bool closesItself(const std::vector<OutlineVertex>& vertices)
{
    const OdGePoint2d& first = vertices.front().point;
    const OdGePoint2d& last = vertices.back().point;
    return first.x == last.x && first.y == last.y;
}

} // namespace

struct ContentReader::Reading
{
    BlockContent content;
    Source source = Source::kGivenEntities;
    bool isOne = false; // nothing but one given entity
    LineRectangles lines;
    std::unordered_set<OdDbStub*> taken;

    bool isNew(OdDbObjectId id) { return isOne || taken.insert(static_cast<OdDbStub*>(id)).second; }
};

void ContentReader::addLineRectangles(Reading& reading)
{
    std::vector<Frame> rectangles;
    reading.lines.close(rectangles);
    for (const Frame& rectangle : rectangles)
        reading.content.frames.push_back(inSpace(rectangle, OdGeVector3d::kZAxis, 0.0));
}

struct ContentReader::ClassRow
{
    OdRxClass* (*entityClass)();
    Stage stage;
    Take takeGiven;
    Take takeFromDefinition;
};

// A class stands before its base.
const ContentReader::ClassRow ContentReader::kClasses[] = {
    {&OdDbAttribute::desc, Stage::kAttributes, takeGivenAttribute, nullptr},
    {&OdDbAttributeDefinition::desc, Stage::kTexts, nullptr, takeConstantAttribute},
    {&OdDbText::desc, Stage::kTexts, takeText, takeText},
    {&OdDbMText::desc, Stage::kTexts, takeMText, takeMText},
    {&OdDbDimension::desc, Stage::kTexts, takeDimension, takeDimension},
    {&OdDbBlockReference::desc, Stage::kTexts, takeBlockReference, takeBlockReference},
    {&OdDbLine::desc, Stage::kFrames, takeLine, takeLine},
    {&OdDbCircle::desc, Stage::kFrames, takeCircle, takeCircle},
    {&OdDbEllipse::desc, Stage::kFrames, takeEllipse, takeEllipse},
    {&OdDbPolyline::desc, Stage::kFrames, takePolyline, takePolyline},
    {&OdDb2dPolyline::desc, Stage::kFrames, take2dPolyline, take2dPolyline},
};

BlockContent ContentReader::readEntities(const OdDbObjectIdArray& ids)
{
    return read(ids, Source::kGivenEntities);
}

BlockContent ContentReader::readDefinition(OdDbObjectId block)
{
    OdDbObjectIdArray ids;
    const OdDbBlockTableRecordPtr record = openForRead<OdDbBlockTableRecord>(block);
    if (record.isNull())
        return {};
    for (OdDbObjectIteratorPtr entities = record->newIterator(); !entities->done(); entities->step())
        ids.append(entities->objectId());
    return read(ids, Source::kDefinition);
}

BlockContent ContentReader::read(const OdDbObjectIdArray& ids, Source source)
{
    Reading reading;
    reading.source = source;
    reading.isOne = source == Source::kGivenEntities && ids.size() == 1;
    take(reading, ids, Stage::kTexts);
    if (reading.isOne && !reading.content.texts.empty())
        return std::move(reading.content);
    take(reading, ids, Stage::kAttributes);
    // Most selections are many shapes without any text, which are not worth opening then.
    if (reading.content.texts.empty() && reading.content.blocks.empty())
        return std::move(reading.content);
    take(reading, ids, Stage::kFrames);
    addLineRectangles(reading);
    return std::move(reading.content);
}

void ContentReader::take(Reading& reading, const OdDbObjectIdArray& ids, Stage stage)
{
    for (const OdDbObjectId& id : ids)
    {
        const ClassRow* const row = id.isErased() ? nullptr : findRow(id.objectClass());
        if (row == nullptr || row->stage != stage)
            continue;
        const Take takeEntity = reading.source == Source::kGivenEntities ? row->takeGiven : row->takeFromDefinition;
        if (takeEntity != nullptr && reading.isNew(id))
            takeEntity(reading, id);
    }
}

const ContentReader::ClassRow* ContentReader::findRow(OdRxClass* entityClass)
{
    if (entityClass == m_recentClass)
        return m_recentRow;
    const auto row = std::find_if(std::begin(kClasses), std::end(kClasses),
                                  [entityClass](const ClassRow& candidate)
                                  { return entityClass->isDerivedFrom(candidate.entityClass()); });
    m_recentClass = entityClass;
    m_recentRow = row == std::end(kClasses) ? nullptr : row;
    return m_recentRow;
}

void ContentReader::takeText(Reading& reading, OdDbObjectId id)
{
    if (const OdDbTextPtr text = openForRead<OdDbText>(id); !text.isNull())
        addText(reading.content, reading.isOne ? readLoneText(*text) : readText(*text));
}

void ContentReader::takeGivenAttribute(Reading& reading, OdDbObjectId id)
{
    const OdDbAttributePtr attribute = openForRead<OdDbAttribute>(id);
    const bool comesWithReference =
        !attribute.isNull() && reading.taken.count(static_cast<OdDbStub*>(attribute->ownerId())) != 0;
    if (!attribute.isNull() && !comesWithReference)
        addText(reading.content, readText(*attribute));
}

void ContentReader::takeConstantAttribute(Reading& reading, OdDbObjectId id)
{
    const OdDbAttributeDefinitionPtr definition = openForRead<OdDbAttributeDefinition>(id);
    if (definition.isNull() || !definition->isConstant() || definition->isInvisible())
        return;
    PlacedText text = readText(*definition);
    text.characters = joinWords(definition->textString());
    addText(reading.content, std::move(text));
}

void ContentReader::takeMText(Reading& reading, OdDbObjectId id)
{
    const OdDbMTextPtr text = openForRead<OdDbMText>(id);
    if (!text.isNull())
        addText(reading.content,
                PlacedText{joinWords(text->text()), measureText(*text, text->direction(), text->location())});
}

void ContentReader::takeDimension(Reading& reading, OdDbObjectId id)
{
    const OdDbDimensionPtr dimension = openForRead<OdDbDimension>(id);
    if (dimension.isNull())
        return;
    if (dimension->dimBlockId().isValid())
    {
        PlacedBlock block;
        block.block = dimension->dimBlockId();
        reading.content.blocks.push_back(std::move(block));
        return;
    }
    addText(reading.content, PlacedText{joinWords(dimensionText(*dimension)), pointAt(dimension->textPosition())});
}

void ContentReader::takeBlockReference(Reading& reading, OdDbObjectId id)
{
    const OdDbBlockReferencePtr reference = openForRead<OdDbBlockReference>(id);
    if (reference.isNull())
        return;
    PlacedBlock block;
    block.block = reference->blockTableRecord();
    block.transform = reference->blockTransform();
    if (const OdDbMInsertBlockPtr grid = OdDbMInsertBlock::cast(reference); !grid.isNull())
    {
        const OdGeMatrix3d toWorld =
            OdGeMatrix3d::planeToWorld(grid->normal()) * OdGeMatrix3d::rotation(grid->rotation(), OdGeVector3d::kZAxis);
        block.columns = grid->columns();
        block.rows = grid->rows();
        block.columnStep = toWorld * OdGeVector3d(grid->columnSpacing(), 0.0, 0.0);
        block.rowStep = toWorld * OdGeVector3d(0.0, grid->rowSpacing(), 0.0);
    }
    for (OdDbObjectIteratorPtr attributes = reference->attributeIterator(); !attributes->done(); attributes->step())
    {
        const OdDbAttributePtr attribute = openForRead<OdDbAttribute>(attributes->objectId());
        if (attribute.isNull() || attribute->isInvisible())
            continue;
        PlacedText text = readText(*attribute);
        if (!text.characters.isEmpty())
            block.attributes.push_back(std::move(text));
    }
    reading.content.blocks.push_back(std::move(block));
}

void ContentReader::takeLine(Reading& reading, OdDbObjectId id)
{
    if (const OdDbLinePtr line = openForRead<OdDbLine>(id); !line.isNull())
        reading.lines.add(flatten(line->startPoint()), flatten(line->endPoint()));
}

void ContentReader::takeCircle(Reading& reading, OdDbObjectId id)
{
    const OdDbCirclePtr circle = openForRead<OdDbCircle>(id);
    if (circle.isNull())
        return;
    const OdGeMatrix3d toWorld = OdGeMatrix3d::planeToWorld(circle->normal());
    reading.content.frames.push_back(ellipseOf(circle->center(), toWorld * OdGeVector3d(circle->radius(), 0.0, 0.0),
                                               toWorld * OdGeVector3d(0.0, circle->radius(), 0.0)));
}

void ContentReader::takeEllipse(Reading& reading, OdDbObjectId id)
{
    const OdDbEllipsePtr ellipse = openForRead<OdDbEllipse>(id);
    if (!ellipse.isNull() && ellipse->isClosed())
        reading.content.frames.push_back(ellipseOf(ellipse->center(), ellipse->majorAxis(), ellipse->minorAxis()));
}

void ContentReader::takePolyline(Reading& reading, OdDbObjectId id)
{
    const OdDbPolylinePtr polyline = openForRead<OdDbPolyline>(id);
    if (polyline.isNull() || polyline->numVerts() < 2 || polyline->numVerts() > kMostVertices)
        return;
    std::vector<OutlineVertex> vertices(polyline->numVerts());
    for (unsigned i = 0; i < vertices.size(); ++i)
    {
        polyline->getPointAt(i, vertices[i].point);
        vertices[i].bulge = polyline->getBulgeAt(i);
    }
    if (!polyline->isClosed() && !closesItself(vertices))
        return;
    if (const std::optional<Frame> frame = recognizeOutline(std::move(vertices)))
        reading.content.frames.push_back(inSpace(*frame, polyline->normal(), polyline->elevation()));
}

void ContentReader::take2dPolyline(Reading& reading, OdDbObjectId id)
{
    const OdDb2dPolylinePtr polyline = openForRead<OdDb2dPolyline>(id);
    if (polyline.isNull() || polyline->polyType() != OdDb::k2dSimplePoly)
        return;
    std::vector<OutlineVertex> vertices;
    for (OdDbObjectIteratorPtr all = polyline->vertexIterator(); !all->done(); all->step())
    {
        const OdDb2dVertexPtr vertex = openForRead<OdDb2dVertex>(all->objectId());
        if (vertex.isNull())
            continue;
        vertices.push_back(OutlineVertex{flatten(vertex->position()), vertex->bulge()});
        if (vertices.size() > kMostVertices)
            return;
    }
    if (vertices.size() < 2 || (!polyline->isClosed() && !closesItself(vertices)))
        return;
    if (const std::optional<Frame> frame = recognizeOutline(std::move(vertices)))
        reading.content.frames.push_back(inSpace(*frame, polyline->normal(), polyline->elevation()));
}

} // namespace textparser
