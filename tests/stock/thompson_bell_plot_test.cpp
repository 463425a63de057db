#include "stock/thompson_bell_plot.h"

#include <gtest/gtest.h>

#include <cmath>

#include "chart/kind_a.h"

namespace norvo {
namespace {

using Q = ThompsonBellQuantity;

TEST(ThompsonBellPlot, AxisTitles) {
    EXPECT_EQ(ThompsonBellAxisTitle(Q::Yield, 1, true), "Yield (10^1)");
    EXPECT_EQ(ThompsonBellAxisTitle(Q::Biomass, 1, true), "Biomass x 10");
    EXPECT_EQ(ThompsonBellAxisTitle(Q::Value, 1, true), "Value x 10");
    EXPECT_EQ(ThompsonBellAxisTitle(Q::Value, 4, true), "Value (10^4)");
    EXPECT_EQ(ThompsonBellAxisTitle(Q::Biomass, 0, false), "Biomass");
    EXPECT_EQ(ThompsonBellAxisTitle(Q::Yield, 2, false), "Yield (10^2)");
}

// The curve runs over the whole f-factor axis and stays inside the frame, its peak below the
// rounded top of the axis.
TEST(ThompsonBellPlot, CurveFillsTheFrame) {
    ThompsonBellTable t;
    for (int p = 1; p <= kThompsonBellSteps; ++p) {
        const double x = ThompsonBellFFactor(p);
        t.ffactor.push_back(x);
        t.yield.push_back(5000 * x * std::exp(-x));
        t.biomass.push_back(1e6 * std::exp(-x));
        t.value.push_back(0);
    }
    t.pYield = ThompsonBellPower(5000 * std::exp(-1.0));
    ChartCanvas canvas;
    DrawThompsonBellPlot(canvas, t, Q::Yield, true);
    const auto lines = canvas.commandsOf(DrawOp::Polyline);
    ASSERT_EQ(lines.size(), 1u);
    const auto& pts = lines[0].points;
    ASSERT_EQ(pts.size(), 41u);
    EXPECT_DOUBLE_EQ(pts.front().x, kFrameLeft);
    EXPECT_DOUBLE_EQ(pts.back().x, kFrameRight);
    EXPECT_DOUBLE_EQ(pts.front().y, kFrameBottom);
    for (const UserPoint& p : pts) {
        EXPECT_LE(p.y, kFrameBottom);
        EXPECT_GE(p.y, kFrameTop);
    }
    // An empty table (no fleet varies) draws the frame only.
    ChartCanvas empty;
    DrawThompsonBellPlot(empty, ThompsonBellTable{}, Q::Value, false);
    EXPECT_TRUE(empty.commandsOf(DrawOp::Polyline).empty());
}

}  // namespace
}  // namespace norvo
