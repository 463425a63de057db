#include "selection/selection_plot.h"

#include <gtest/gtest.h>

#include "chart/kind_a.h"

namespace norvo {
namespace {

TEST(DrawLogits, TheFittedLineStaysInsideTheFrame) {
    // The scale is set by classes 1..2 (logits -2 and -1); the fit runs over classes 2..4 and
    // reaches logit 11 at class 4, far above the frame.
    LogitPoints pts;
    pts.x = {10, 12, 14, 16, 18};
    pts.logit = {0, -2, -1, 5, 11};
    pts.selected = {false, false, true, true, true};
    pts.firstClass = 1;
    RegressionResult fit;
    fit[RegressionResult::kA] = -43;
    fit[RegressionResult::kB] = 3;
    ChartCanvas canvas;
    DrawLogits(canvas, pts, 3, &fit, "cm");
    int lines = 0;
    for (const auto& c : canvas.commands()) {
        if (c.op != DrawOp::Line || c.colour != kRed) continue;
        ++lines;
        for (double y : {c.y1, c.y2}) {
            EXPECT_GE(y, kFrameTop - 1e-9);
            EXPECT_LE(y, kFrameBottom + 1e-9);
        }
        EXPECT_NEAR(std::min(c.y1, c.y2), kFrameTop, 1e-9);  // cut at the top edge
    }
    EXPECT_EQ(lines, 1);
}

}  // namespace
}  // namespace norvo
