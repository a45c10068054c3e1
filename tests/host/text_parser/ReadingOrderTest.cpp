// Texts at given places come out in the order in which they are read, and marked by what is drawn around them.
#include <chrono>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "commands/textparser/AssignFrames.h"
#include "commands/textparser/ClosedShapes.h"
#include "commands/textparser/ComposeText.h"

namespace
{

using namespace textparser;

Box boxAt(double left, double bottom, double width, double height)
{
    return Box{OdGePoint2d(left + width / 2.0, bottom + height / 2.0), OdGeVector2d(width / 2.0, 0.0),
               OdGeVector2d(0.0, height / 2.0)};
}

FoundText textAt(const wchar_t* characters, double left, double bottom, double width = 10.0, double height = 5.0)
{
    return FoundText{characters, boxAt(left, bottom, width, height)};
}

TEST(ReadingOrder, IsFromTheTopAndFromTheLeft)
{
    const std::tuple<const char*, std::vector<FoundText>, const wchar_t*> rows[] = {
        {"nothing", {}, L""},
        {"one", {textAt(L"E12", 3, 4)}, L"E12"},
        {"a line given backwards", {textAt(L"c", 40, 0), textAt(L"b", 20, 0), textAt(L"a", 0, 0)}, L"a b c"},
        {"two lines", {textAt(L"d", 20, 0), textAt(L"a", 0, 10), textAt(L"c", 0, 0), textAt(L"b", 20, 10)}, L"a b c d"},
        {"overlap of more than half", {textAt(L"right", 20, 2.4), textAt(L"left", 0, 0)}, L"left right"},
        {"overlap of exactly half", {textAt(L"right", 20, 2.5), textAt(L"left", 0, 0)}, L"left right"},
        {"overlap of less than half", {textAt(L"right", 20, 2.6), textAt(L"left", 0, 0)}, L"right left"},
        {"a small text beside a large one",
         {textAt(L"small", 20, 0.5, 5, 2), textAt(L"LARGE", 0, 0, 18, 8)},
         L"LARGE small"},
        {"a staircase does not become one line",
         {textAt(L"a", 20, 4), textAt(L"b", 10, 2), textAt(L"c", 0, 0)},
         L"b a c"},
        {"a tall text beside three lines belongs to one of them",
         {textAt(L"TALL", -10, 0, 5, 40), textAt(L"one", 0, 30), textAt(L"two", 0, 18), textAt(L"three", 0, 5)},
         L"one TALL two three"},
        {"texts without height",
         {textAt(L"b", 5, 0, 0, 0), textAt(L"a", 0, 0, 0, 0), textAt(L"c", 0, -1, 0, 0)},
         L"a b c"},
        {"in one place the order stays as given", {textAt(L"x", 0, 0), textAt(L"y", 0, 0)}, L"x y"}};
    for (const auto& [what, texts, expected] : rows)
        EXPECT_EQ(composeText(texts), OdString(expected)) << what;
}

Frame frameAt(FrameKind kind, double x, double y, double halfWidth, double halfHeight)
{
    Frame frame;
    frame.kind = kind;
    frame.outline = kind == FrameKind::kRectangle ? Frame::kParallelogram
                    : kind == FrameKind::kCircle  ? Frame::kEllipse
                                                  : Frame::kStadium;
    frame.center = OdGePoint2d(x, y);
    frame.along = OdGeVector2d(halfWidth, 0.0);
    frame.across = OdGeVector2d(0.0, halfHeight);
    return frame;
}

OdString parse(std::vector<FoundText> texts, std::vector<Frame> frames)
{
    FoundTexts found;
    found.texts = std::move(texts);
    found.scopes.push_back(Scope{0, found.texts.size(), std::move(frames)});
    assignFrames(found);
    return composeText(found.texts);
}

constexpr FrameKind kRect = FrameKind::kRectangle;
constexpr FrameKind kCircle = FrameKind::kCircle;
constexpr FrameKind kOval = FrameKind::kOval;

TEST(Frames, AroundATextDecideItsMarks)
{
    // For a text of 10 by 5 around the origin.
    const std::tuple<const char*, std::vector<Frame>, const wchar_t*> rows[] = {
        {"none", {}, L"E12"},
        {"rectangle", {frameAt(kRect, 0, 0, 7, 4)}, L"<inRect>E12</inRect>"},
        {"circle", {frameAt(kCircle, 0, 0, 6, 6)}, L"<inCir>E12/<inCir>"},
        {"oval", {frameAt(kOval, 0, 0, 9, 4)}, L"<inOv>E12/<inOv>"},
        {"a rectangle that touches the text", {frameAt(kRect, 0, 0, 5, 2.5)}, L"<inRect>E12</inRect>"},
        {"a rectangle that is too small", {frameAt(kRect, 0, 0, 3, 4)}, L"E12"},
        {"a rectangle beside it", {frameAt(kRect, 12, 0, 7, 4)}, L"E12"},
        {"a circle within the text", {frameAt(kCircle, 0, 0, 2, 2)}, L"E12"},
        {"the inner one of two", {frameAt(kRect, 0, 0, 20, 20), frameAt(kCircle, 0, 0, 6, 6)}, L"<inCir>E12/<inCir>"},
        {"the inner one too, given first",
         {frameAt(kCircle, 0, 0, 6, 6), frameAt(kRect, 0, 0, 20, 20)},
         L"<inCir>E12/<inCir>"},
        {"the larger one when the smaller one does not hold it",
         {frameAt(kCircle, 0, 0, 2, 2), frameAt(kOval, 0, 0, 30, 10)},
         L"<inOv>E12/<inOv>"},
        {"a frame without width", {frameAt(kRect, 0, 0, 7, 0)}, L"E12"}};
    for (const auto& [what, frames, expected] : rows)
        EXPECT_EQ(parse({textAt(L"E12", -5, -2.5)}, frames), OdString(expected)) << what;
}

// ---- What frames are recognised in polylines and lines --------------------------------------------------------------

OutlineVertex at(double x, double y, double bulge = 0.0)
{
    return OutlineVertex{OdGePoint2d(x, y), bulge};
}

TEST(Outlines, AreRecognised)
{
    const std::tuple<const char*, std::vector<OutlineVertex>, FrameKind> rows[] = {
        {"square", {at(0, 0), at(1, 0), at(1, 1), at(0, 1)}, kRect},
        {"rectangle, clockwise", {at(0, 0), at(0, 2), at(9, 2), at(9, 0)}, kRect},
        {"rectangle that repeats its first corner", {at(0, 0), at(4, 0), at(4, 1), at(0, 1), at(0, 0)}, kRect},
        {"turned rectangle", {at(0, 0), at(3, 4), at(-1, 7), at(-4, 3)}, kRect},
        {"parallelogram", {at(0, 0), at(4, 0), at(5, 1), at(1, 1)}, FrameKind::kNone},
        {"trapezium", {at(0, 0), at(4, 0), at(3, 1), at(1, 1)}, FrameKind::kNone},
        {"bow", {at(0, 0), at(4, 1), at(4, 0), at(0, 1)}, FrameKind::kNone},
        {"collapsed", {at(0, 0), at(4, 0), at(4, 0), at(0, 0)}, FrameKind::kNone},
        {"all in one point", {at(1, 1), at(1, 1), at(1, 1), at(1, 1)}, FrameKind::kNone},
        {"triangle", {at(0, 0), at(4, 0), at(0, 3)}, FrameKind::kNone},
        {"circle of two arcs", {at(0, 0, 1), at(4, 0, 1)}, kCircle},
        {"circle, clockwise", {at(0, 0, -1), at(4, 0, -1)}, kCircle},
        {"two arcs over each other", {at(0, 0, 1), at(4, 0, -1)}, FrameKind::kNone},
        {"lens", {at(0, 0, 0.5), at(4, 0, 0.5)}, FrameKind::kNone},
        {"oval", {at(0, 0), at(6, 0, 1), at(6, 2), at(0, 2, 1)}, kOval},
        {"oval that begins with an arc", {at(6, 0, 1), at(6, 2), at(0, 2, 1), at(0, 0)}, kOval},
        {"oval, clockwise", {at(0, 2), at(6, 2, -1), at(6, 0), at(0, 0, -1)}, kOval},
        {"bone: arcs that bulge inward", {at(0, 0), at(6, 0, -1), at(6, 2), at(0, 2, -1)}, FrameKind::kNone},
        {"one arc outward, one inward", {at(0, 0), at(6, 0, 1), at(6, 2), at(0, 2, -1)}, FrameKind::kNone},
        {"not a number", {at(0, 0), at(NAN, 0), at(4, 1), at(0, 1)}, FrameKind::kNone}};
    for (const auto& [what, vertices, expected] : rows)
    {
        const std::optional<Frame> frame = recognizeOutline(vertices);
        EXPECT_EQ(frame ? frame->kind : FrameKind::kNone, expected) << what;
    }
}

struct Segment
{
    double x1, y1, x2, y2;
};

TEST(Lines, JoinToRectangles)
{
    const std::tuple<const char*, std::vector<Segment>, std::size_t> rows[] = {
        {"in turn", {{0, 0, 4, 0}, {4, 0, 4, 2}, {4, 2, 0, 2}, {0, 2, 0, 0}}, 1},
        {"in any order and direction", {{4, 2, 4, 0}, {0, 2, 0, 0}, {4, 2, 0, 2}, {0, 0, 4, 0}}, 1},
        {"with a fifth line at a corner", {{0, 0, 4, 0}, {4, 0, 4, 2}, {4, 2, 0, 2}, {0, 2, 0, 0}, {0, 0, -3, -3}}, 0},
        {"with a gap", {{0, 0, 4, 0}, {4, 0, 4, 2}, {4, 2, 0.1, 2}, {0, 2, 0, 0}}, 0},
        {"drawn twice", {{0, 0, 4, 0}, {4, 0, 0, 0}, {0, 0, 4, 0}, {4, 0, 0, 0}}, 0},
        {"points", {{1, 1, 1, 1}, {1, 1, 1, 1}, {1, 1, 1, 1}, {1, 1, 1, 1}}, 0},
        {"too far away to tell", {{1e300, 0, 1e300, 2}, {NAN, 0, 4, 2}, {4, 2, 0, 2}, {0, 2, 0, 0}}, 0},
        {"two rectangles",
         {{0, 0, 4, 0},
          {4, 0, 4, 2},
          {4, 2, 0, 2},
          {0, 2, 0, 0},
          {9, 9, 8, 9},
          {8, 9, 8, 8},
          {8, 8, 9, 8},
          {9, 8, 9, 9}},
         2}};
    for (const auto& [what, lines, count] : rows)
    {
        LineRectangles rectangles;
        for (const Segment& line : lines)
            rectangles.add(OdGePoint2d(line.x1, line.y1), OdGePoint2d(line.x2, line.y2));
        std::vector<Frame> frames;
        rectangles.close(frames);
        EXPECT_EQ(frames.size(), count) << what;
    }
}

// ---- Large drawings -------------------------------------------------------------------------------------------------

constexpr int kSide = 316; // 100,000 texts in rows and columns

std::vector<FoundText> manyTexts()
{
    std::vector<FoundText> texts;
    for (int row = 0; row < kSide; ++row)
        for (int column = 0; column < kSide; ++column)
            texts.push_back(textAt(L"t", column * 20.0, row * 10.0));
    std::shuffle(texts.begin(), texts.end(), std::mt19937(1));
    return texts;
}

// A search of every frame for every text would take many minutes.
TEST(Crowds, OfFramesAndTextsTakeSeconds)
{
    const struct
    {
        const char* what;
        Frame (*frame)(int index);
    } rows[] = {
        {"one around each text",
         [](int i) { return frameAt(kRect, i % kSide * 20.0 + 5, 10.0 * static_cast<int>(i / kSide) + 2.5, 6, 3); }},
        {"all around everything", [](int i) { return frameAt(kRect, 3160, 1580, 1e4 + i, 1e4 + i); }},
        {"all growing around the middle", [](int i) { return frameAt(kCircle, 3160, 1580, i * 0.05, i * 0.05); }},
        {"all too small for any text",
         [](int i) { return frameAt(kCircle, 3160, 1580, 1e-5 * (i + 1), 1e-5 * (i + 1)); }},
        {"long and thin over everything", [](int i) { return frameAt(kRect, 3160, 1580, 1e5, 2.0 + 1e-6 * i); }}};
    for (const auto& row : rows)
    {
        std::vector<Frame> frames;
        for (int i = 0; i < kSide * kSide; ++i)
            frames.push_back(row.frame(i));
        const auto begin = std::chrono::steady_clock::now();
        const OdString text = parse(manyTexts(), std::move(frames));
        const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - begin;
        EXPECT_LT(elapsed.count(), 60.0) << row.what;
        EXPECT_GE(text.getLength(), 2 * kSide * kSide - 1);
    }
}

} // namespace
