#include "chart/surface3d.h"

#include <gtest/gtest.h>

namespace norvo {
namespace {

SurfaceGrid Flat(int n, double v) {
    SurfaceGrid g;
    g.z.assign(size_t(n), std::vector<double>(size_t(n), v));
    return g;
}

int Count(const ChartCanvas& c, DrawOp op) {
    return int(c.commandsOf(op).size());
}

TEST(Surface3d, SpinNeverStandsAt360) {
    EXPECT_EQ(NextSpinAngle(0), 1);
    EXPECT_EQ(NextSpinAngle(45), 46);
    EXPECT_EQ(NextSpinAngle(358), 359);
    EXPECT_EQ(NextSpinAngle(359), 1);
}

TEST(Surface3d, CellContoursCrossTheRightEdges) {
    // Rising along u: one segment across the cell at u = 0.25.
    auto s = CellContour(0, 2, 2, 0, 0.5);
    ASSERT_EQ(s.size(), 1u);
    EXPECT_DOUBLE_EQ(s[0].u1, 0.25);
    EXPECT_DOUBLE_EQ(s[0].v1, 0);
    EXPECT_DOUBLE_EQ(s[0].u2, 0.25);
    EXPECT_DOUBLE_EQ(s[0].v2, 1);
    EXPECT_TRUE(CellContour(1, 1, 1, 1, 0.5).empty());
    // A saddle crosses all four edges: two segments.
    EXPECT_EQ(CellContour(1, 0, 1, 0, 0.5).size(), 2u);
}

TEST(Surface3d, MeshCellsFloorAndLevelsAreDrawn) {
    SurfaceGrid g;
    for (int r = 0; r < 4; ++r) {
        g.z.emplace_back();
        for (int c = 0; c < 4; ++c) g.z.back().push_back(r * c);
    }
    ChartCanvas plain;
    SurfaceStyle s;
    DrawSurface(plain, g, s);
    // Three walls and nine cells.
    EXPECT_EQ(Count(plain, DrawOp::Polygon), 12);
    ChartCanvas all;
    s.floor = s.ceiling = s.isopleths = true;
    DrawSurface(all, g, s);
    EXPECT_EQ(Count(all, DrawOp::Polygon), 21);
    EXPECT_GT(Count(all, DrawOp::Line), Count(plain, DrawOp::Line) + 20);
    // A flat grid still draws (its range is widened around the value).
    ChartCanvas flat;
    DrawSurface(flat, Flat(3, 2.0), SurfaceStyle{});
    EXPECT_EQ(Count(flat, DrawOp::Polygon), 7);
}

TEST(Surface3d, NodeUnderThePointerIsFoundOrNothing) {
    const SurfaceGrid g = Flat(3, 1.0);
    SurfaceStyle s;
    // The box's centre (the middle node of a flat grid) projects to the picture's centre.
    const auto node = SurfaceNodeAt(g, s, {52, 54});
    ASSERT_TRUE(node);
    EXPECT_EQ(node->row, 2);
    EXPECT_EQ(node->col, 2);
    EXPECT_FALSE(SurfaceNodeAt(g, s, {1, 1}));
    // A turn of 180 degrees mirrors the grid: a node off the centre changes sides.
    s.rotationDeg = 0;
    const auto a = SurfaceNodeAt(g, s, {70, 54});
    s.rotationDeg = 180;
    const auto b = SurfaceNodeAt(g, s, {70, 54});
    ASSERT_TRUE(a && b);
    EXPECT_EQ(a->row + b->row, 4);
}

}  // namespace
}  // namespace norvo
