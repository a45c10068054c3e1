// What one list of entities - those given to the parser, or those of a block definition - holds for the text parser, in
// the coordinates of that list. A block definition is read once, however often it is used.
#pragma once

#include <cstddef>
#include <vector>

#include "DbObjectId.h"
#include "Ge/GeMatrix3d.h"
#include "Ge/GePoint3d.h"
#include "Ge/GeVector3d.h"
#include "commands/textparser/ClosedShapes.h"
#include "commands/textparser/FoundTexts.h"

class OdRxClass;

namespace textparser
{

// A box or a frame's axes in space, before it is placed in the layout's plane.
struct Place
{
    OdGePoint3d center;
    OdGeVector3d along;
    OdGeVector3d across;
};

struct PlacedText
{
    OdString characters;
    Place place;
};

struct PlacedFrame
{
    FrameKind kind = FrameKind::kNone;
    Frame::Outline outline = Frame::kParallelogram;
    Place place;
};

// A block reference, a table or a dimension: a block definition drawn once or in rows and columns.
struct PlacedBlock
{
    OdDbObjectId block;
    OdGeMatrix3d transform;
    OdGeVector3d columnStep;
    OdGeVector3d rowStep;
    std::size_t columns = 1;
    std::size_t rows = 1;
    std::vector<PlacedText> attributes; // not in the definition's coordinates but in those of the list
};

struct BlockContent
{
    std::vector<PlacedText> texts;
    std::vector<PlacedFrame> frames;
    std::vector<PlacedBlock> blocks;
};

// Sorts entities into a content. Ids that come twice, and ids that cannot be opened, are passed over.
class ContentReader
{
public:
    // The content of the given entities. An attribute that is given beside its block reference comes with the latter.
    BlockContent readEntities(const OdDbObjectIdArray& ids);

    // The content of a block definition; empty when the id is none.
    BlockContent readDefinition(OdDbObjectId block);

private:
    enum class Source
    {
        kGivenEntities,
        kDefinition
    };
    // The order in which entities are looked at: attributes after the references that they may have come with, frames
    // when there is something to frame.
    enum class Stage
    {
        kTexts,
        kAttributes,
        kFrames
    };
    struct Reading;
    using Take = void (*)(Reading& reading, OdDbObjectId id);
    struct ClassRow;

    static const ClassRow kClasses[];
    static void takeText(Reading& reading, OdDbObjectId id);
    static void takeGivenAttribute(Reading& reading, OdDbObjectId id);
    static void takeConstantAttribute(Reading& reading, OdDbObjectId id);
    static void takeMText(Reading& reading, OdDbObjectId id);
    static void takeDimension(Reading& reading, OdDbObjectId id);
    static void takeBlockReference(Reading& reading, OdDbObjectId id);
    static void takeLine(Reading& reading, OdDbObjectId id);
    static void takeCircle(Reading& reading, OdDbObjectId id);
    static void takeEllipse(Reading& reading, OdDbObjectId id);
    static void takePolyline(Reading& reading, OdDbObjectId id);
    static void take2dPolyline(Reading& reading, OdDbObjectId id);

    static void addLineRectangles(Reading& reading);
    BlockContent read(const OdDbObjectIdArray& ids, Source source);
    void take(Reading& reading, const OdDbObjectIdArray& ids, Stage stage);
    const ClassRow* findRow(OdRxClass* entityClass);

    OdRxClass* m_recentClass = nullptr; // entities of a class mostly come in a row
    const ClassRow* m_recentRow = nullptr;
};

} // namespace textparser
