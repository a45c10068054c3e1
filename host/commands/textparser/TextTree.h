// A tree over the places of texts that answers which of them a frame holds, and forgets those that have been given to
// a frame.
#pragma once

#include <cstddef>
#include <vector>

#include "commands/textparser/FoundTexts.h"

namespace textparser
{

class TextTree
{
public:
    // The tree refers to texts first to end - 1 and lives no longer than they do.
    TextTree(const std::vector<FoundText>& texts, std::size_t first, std::size_t end);

    // Removes the texts that lie in the frame and appends their positions to taken.
    void take(const Frame& frame, std::vector<std::size_t>& taken);

private:
    struct Node
    {
        std::size_t begin = 0; // its part of m_order
        std::size_t end = 0;   // behind the last text that has not been taken
        Box centers;
        double leastHalfWidth = 0.0; // of its texts: none fits in a frame that is smaller
        double leastHalfHeight = 0.0;
        std::size_t remaining = 0;
        std::size_t firstChild = 0; // the second one follows it; 0 for a leaf
    };

    void addNode(std::size_t begin, std::size_t end);
    void split(std::size_t node);
    void measure(Node& node) const;
    bool mayHold(const Frame& frame, const Node& node) const;
    void takeFrom(std::size_t node, const Frame& frame, std::vector<std::size_t>& taken);
    void takeFromLeaf(Node& node, const Frame& frame, std::vector<std::size_t>& taken);

    const std::vector<FoundText>& m_texts;
    std::vector<std::size_t> m_order;
    std::vector<Node> m_nodes;
};

} // namespace textparser
