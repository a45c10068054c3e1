// Prints entities on all processors:
//
//   this thread     | part 1 -> file | append part 2 | part 3 -> file | append part 4 | ...
//   another thread  | part 2 -> memory               | part 4 -> memory               | ...
//
// Printing only looks at what the database keeps, which nobody changes meanwhile. Objects that file themselves may do
// anything then, so where there is one of them, this thread prints everything.
#include "EntitiesWriter.h"

#include "Writing.h"
#include "entities/Subentities.h"

#include "DbEntity.h"

#include <algorithm>
#include <future>
#include <memory>
#include <span>
#include <thread>

namespace dxf
{
namespace
{

using Entities = std::span<const OdDbStub* const>;

constexpr std::size_t kPart = 2048;      // entities that one thread prints at a time: about half a megabyte
constexpr unsigned int kMostThreads = 8; // beyond, appending what they printed takes all the time

const oddb::SubentityList* subentitiesOf(const OdDbStub& entity)
{
    const oddb::SubentityList* const list = static_cast<const OdDbEntity*>(entity.object)->subentities();
    return list != nullptr && list->hasElements() ? list : nullptr;
}

void printSubentities(ObjectPrinter& objects, const oddb::SubentityList& list)
{
    for (const OdDbStub* const element : list.elements())
        if (!element->isErased())
            objects.print(*element);
    if (list.sequenceEnd() != nullptr && !list.sequenceEnd()->isErased())
        objects.print(*list.sequenceEnd());
    else
        objects.groups().text(0, "SEQEND");
}

void print(ObjectPrinter& objects, Entities entities)
{
    for (const OdDbStub* const entity : entities)
    {
        objects.print(*entity);
        if (const oddb::SubentityList* const list = subentitiesOf(*entity))
            printSubentities(objects, *list);
    }
}

/// Prints one part after the other into memory, each on a thread of its own.
class PartPrinter
{
public:
    explicit PartPrinter(const Writing& writing)
        : m_tags(m_memory, writing.form), m_groups(m_tags, writing.groups), m_objects(m_groups, writing.objects)
    {
    }

    void begin(Entities part)
    {
        const auto work = [this, part] { print(m_objects, part); };
        m_work = std::async(std::launch::async | std::launch::deferred, work); // deferred when there is no thread left
    }

    /// Appends what begin() began.
    void appendTo(TagPrinter& tags)
    {
        m_work.get();
        tags.again(m_memory.bytes());
        m_memory.clear();
    }

private:
    OutputMemory m_memory;
    TagPrinter m_tags;
    GroupPrinter m_groups;
    ObjectPrinter m_objects;
    std::future<void> m_work; // the last, so that it ends before what it works on
};

// False when one of them files itself. Afterwards all their kinds are known.
bool mayBePrintedAtOnce(ObjectKinds& kinds, Entities entities)
{
    const auto isKept = [&](const OdDbStub* stub) { return !kinds.of(*stub->object).isFiled; };
    return std::all_of(entities.begin(), entities.end(),
                       [&](const OdDbStub* entity)
                       {
                           const oddb::SubentityList* const list = subentitiesOf(*entity);
                           if (list == nullptr)
                               return isKept(entity);
                           const bool endIsKept = list->sequenceEnd() == nullptr || isKept(list->sequenceEnd());
                           return isKept(entity) && endIsKept && std::ranges::all_of(list->elements(), isKept);
                       });
}

Entities takePart(Entities& entities)
{
    const Entities part = entities.first(std::min(kPart, entities.size()));
    entities = entities.subspan(part.size());
    return part;
}

void printAtOnce(Writing& writing, Entities entities, unsigned int threads)
{
    std::vector<std::unique_ptr<PartPrinter>> others;
    while (others.size() + 1 < threads)
        others.push_back(std::make_unique<PartPrinter>(writing));
    while (!entities.empty())
    {
        const Entities own = takePart(entities);
        std::size_t begun = 0;
        for (; begun < others.size() && !entities.empty(); ++begun)
            others[begun]->begin(takePart(entities));
        print(writing.objects, own);
        for (std::size_t i = 0; i < begun; ++i)
            others[i]->appendTo(writing.tags);
    }
}

} // namespace

void writeEntities(Writing& writing, const std::vector<const OdDbStub*>& entities)
{
    const unsigned int threads = std::min(std::thread::hardware_concurrency(), kMostThreads);
    if (threads > 1 && entities.size() > kPart && mayBePrintedAtOnce(writing.kinds, entities))
        printAtOnce(writing, entities, threads);
    else
        print(writing.objects, entities);
}

} // namespace dxf
