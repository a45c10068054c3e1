// A tree over the places of texts.
#include "commands/textparser/TextTree.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace textparser
{

namespace
{

constexpr std::size_t kLeafSize = 8;
constexpr double kMargin = 0.89; // a little less than what a frame forgives, so that the tree never decides

} // namespace

TextTree::TextTree(const std::vector<FoundText>& texts, std::size_t first, std::size_t end)
    : m_texts(texts), m_order(end - first)
{
    std::iota(m_order.begin(), m_order.end(), first);
    m_nodes.reserve(2 * (m_order.size() / kLeafSize + 1));
    m_nodes.push_back(Node{0, m_order.size()});
    for (std::size_t node = 0; node < m_nodes.size(); ++node)
        split(node);
}

void TextTree::split(std::size_t index)
{
    measure(m_nodes[index]);
    const Node node = m_nodes[index];
    if (node.remaining <= kLeafSize)
        return;
    const std::size_t middle = node.begin + node.remaining / 2;
    const bool isWide = node.right - node.left > node.top - node.bottom;
    const auto comesBefore = [this, isWide](std::size_t first, std::size_t second)
    {
        const OdGePoint2d& a = m_texts[first].box.center;
        const OdGePoint2d& b = m_texts[second].box.center;
        return isWide ? a.x < b.x : a.y < b.y;
    };
    const auto begin = m_order.begin();
    std::nth_element(begin + std::ptrdiff_t(node.begin), begin + std::ptrdiff_t(middle),
                     begin + std::ptrdiff_t(node.end), comesBefore);
    m_nodes[index].firstChild = m_nodes.size();
    m_nodes.push_back(Node{node.begin, middle});
    m_nodes.push_back(Node{middle, node.end});
}

void TextTree::measure(Node& node) const
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    node.remaining = node.end - node.begin;
    node.left = node.bottom = node.leastHalfWidth = node.leastHalfHeight = infinity;
    node.right = node.top = -infinity;
    for (std::size_t i = node.begin; i < node.end; ++i)
    {
        const Box& box = m_texts[m_order[i]].box;
        node.left = std::min(node.left, box.center.x);
        node.right = std::max(node.right, box.center.x);
        node.bottom = std::min(node.bottom, box.center.y);
        node.top = std::max(node.top, box.center.y);
        // The middles of its sides are what a frame looks at.
        node.leastHalfWidth = std::min(node.leastHalfWidth, std::max(std::abs(box.along.x), std::abs(box.across.x)));
        node.leastHalfHeight = std::min(node.leastHalfHeight, std::max(std::abs(box.along.y), std::abs(box.across.y)));
    }
}

void TextTree::take(const Frame& frame, std::vector<std::size_t>& taken)
{
    takeFrom(0, frame, taken);
}

bool TextTree::mayHold(const Frame& frame, const Node& node) const
{
    const double halfWidth = frame.halfWidth();
    const double halfHeight = frame.halfHeight();
    return node.remaining != 0 && node.left <= frame.center.x + halfWidth && node.right >= frame.center.x - halfWidth &&
           node.bottom <= frame.center.y + halfHeight && node.top >= frame.center.y - halfHeight &&
           node.leastHalfWidth * kMargin <= halfWidth && node.leastHalfHeight * kMargin <= halfHeight;
}

void TextTree::takeFrom(std::size_t index, const Frame& frame, std::vector<std::size_t>& taken)
{
    Node& node = m_nodes[index];
    if (!mayHold(frame, node))
        return;
    if (node.firstChild == 0)
    {
        takeFromLeaf(node, frame, taken);
        return;
    }
    takeFrom(node.firstChild, frame, taken);
    takeFrom(node.firstChild + 1, frame, taken);
    node.remaining = m_nodes[node.firstChild].remaining + m_nodes[node.firstChild + 1].remaining;
}

void TextTree::takeFromLeaf(Node& node, const Frame& frame, std::vector<std::size_t>& taken)
{
    for (std::size_t i = node.begin; i < node.end;)
    {
        if (!frame.holds(m_texts[m_order[i]].box))
        {
            ++i;
            continue;
        }
        taken.push_back(m_order[i]);
        m_order[i] = m_order[--node.end];
    }
    if (node.remaining != node.end - node.begin)
        measure(node);
}

} // namespace textparser
