// Finds for every text the frame that it lies in.
#include "commands/textparser/AssignFrames.h"

#include <algorithm>
#include <limits>

#include "commands/textparser/TextTree.h"

namespace textparser
{

namespace
{

// From the smallest frame to the largest one, so that the first frame that takes a text is the innermost one.
void assignFramesOf(Scope& scope, std::vector<FoundText>& texts, std::vector<double>& areas)
{
    std::stable_sort(scope.frames.begin(), scope.frames.end(),
                     [](const Frame& first, const Frame& second) { return first.area() < second.area(); });
    TextTree tree(texts, scope.firstText, scope.endText);
    std::vector<std::size_t> taken;
    for (const Frame& frame : scope.frames)
    {
        taken.clear();
        tree.take(frame, taken);
        for (const std::size_t text : taken)
        {
            if (frame.area() >= areas[text])
                continue;
            areas[text] = frame.area();
            texts[text].frame = frame.kind;
        }
    }
}

} // namespace

void assignFrames(FoundTexts& found)
{
    if (found.scopes.empty())
        return;
    std::vector<double> areas(found.texts.size(), std::numeric_limits<double>::infinity());
    for (Scope& scope : found.scopes)
        assignFramesOf(scope, found.texts, areas);
}

} // namespace textparser
