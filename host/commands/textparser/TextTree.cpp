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
    addNode(0, m_order.size());
    for (std::size_t node = 0; node < m_nodes.size(); ++node)
        split(node);
}

void TextTree::addNode(std::size_t begin, std::size_t end)
{
    Node node;
    node.begin = begin;
    node.end = end;
    m_nodes.push_back(node);
}

void TextTree::split(std::size_t index)
{
    measure(m_nodes[index]);
    const Node node = m_nodes[index];
    if (node.remaining <= kLeafSize)
        return;
    const std::size_t middle = node.begin + node.remaining / 2;
    const bool isWide = node.centers.halfWidth() > node.centers.halfHeight();
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
    addNode(node.begin, middle);
    addNode(middle, node.end);
}

void TextTree::measure(Node& node) const
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    node.remaining = node.end - node.begin;
    node.leastHalfWidth = node.leastHalfHeight = infinity;
    double left = infinity, right = -infinity, bottom = infinity, top = -infinity;
    for (std::size_t i = node.begin; i < node.end; ++i)
    {
        const Box& box = m_texts[m_order[i]].box;
        left = std::min(left, box.center.x);
        right = std::max(right, box.center.x);
        bottom = std::min(bottom, box.center.y);
        top = std::max(top, box.center.y);
        // The middles of its sides are what a frame looks at.
        node.leastHalfWidth = std::min(node.leastHalfWidth, std::max(std::abs(box.along.x), std::abs(box.across.x)));
        node.leastHalfHeight = std::min(node.leastHalfHeight, std::max(std::abs(box.along.y), std::abs(box.across.y)));
    }
    node.centers = Box{OdGePoint2d((left + right) / 2.0, (bottom + top) / 2.0), OdGeVector2d((right - left) / 2.0, 0.0),
                       OdGeVector2d(0.0, (top - bottom) / 2.0)};
}

void TextTree::take(const Frame& frame, std::vector<std::size_t>& taken)
{
    takeFrom(0, frame, taken);
}

bool TextTree::mayHold(const Frame& frame, const Node& node) const
{
    return node.remaining != 0 && node.leastHalfWidth * kMargin <= frame.halfWidth() &&
           node.leastHalfHeight * kMargin <= frame.halfHeight() && frame.mayHoldCentersIn(node.centers);
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
