#include "chart/kind_a.h"

#include <gtest/gtest.h>

#include "base/fault.h"

namespace norvo {
namespace {

TEST(ClipToFrame, KeepsThePartInsideTheFrame) {
    // A steep line from far below the frame to far above it: cut at y 85 and y 15.
    UserPoint a{30, 200}, b{60, -100};
    ASSERT_TRUE(ClipToFrame(a, b));
    EXPECT_DOUBLE_EQ(a.y, 85);
    EXPECT_DOUBLE_EQ(a.x, 30 + 30 * (115.0 / 300));
    EXPECT_DOUBLE_EQ(b.y, 15);
    // Inside stays as it is; wholly outside (left of the frame, or above it) is dropped.
    UserPoint c{25, 50}, d{90, 30};
    ASSERT_TRUE(ClipToFrame(c, d));
    EXPECT_DOUBLE_EQ(c.x, 25);
    EXPECT_DOUBLE_EQ(d.y, 30);
    UserPoint e{5, 50}, f{15, 20};
    EXPECT_FALSE(ClipToFrame(e, f));
    UserPoint g{30, 10}, h{60, 2};
    EXPECT_FALSE(ClipToFrame(g, h));
}

TEST(PercentCanvas, BeginsWithAWhitePageAndTheCustomaryFrame) {
    ChartCanvas c;
    BeginPercentCanvas(c);
    DrawPercentFrame(c, kFrameTopTall);
    BeginPercentCanvas(c);  // a redraw starts from an empty list
    DrawPercentFrame(c, kFrameTopTall);
    EXPECT_EQ(c.scale(), (UserScale{0, 0, 100, 100}));
    const auto boxes = c.commandsOf(DrawOp::FilledBox);
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(boxes[0].colour, kWhite);
    const auto lines = c.commandsOf(DrawOp::Line);
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0].y1, 85);
    EXPECT_EQ(lines[0].x2, 95);
    EXPECT_EQ(lines[1].x1, 20);
    EXPECT_EQ(lines[1].y2, 8);
    EXPECT_DOUBLE_EQ(PercentY(55, PercentScaleY(110)), 85 - 35);
    EXPECT_DOUBLE_EQ(PercentScaleY(7, kFrameTopTall), 11);
}

TEST(PercentCanvas, ALongYLabelExtendsLeftByItsEstimatedWidthUnclipped) {
    ChartCanvas c(800, 600);
    BeginPercentCanvas(c);
    DrawYLabel(c, 50, "1");
    DrawYLabel(c, 40, "123456789012");
    const auto prints = c.commandsOf(DrawOp::Print);
    ASSERT_EQ(prints.size(), 2u);
    // 12 characters at 8 points estimate 48 points = 64 pixels = 8 units of 800 pixels.
    EXPECT_NEAR(prints[0].x1 - prints[1].x1, 11 * 4 * (96.0 / 72) / 8, 1e-9);
    EXPECT_NEAR(prints[1].x1, 20 - 1.5 - 8, 1e-9);
    EXPECT_EQ(prints[1].y1, 38);
    EXPECT_EQ(prints[1].text, "123456789012");
}

TEST(KindARounding, TopsOfRangesAndPowersOfTen) {
    EXPECT_EQ(TopWholePlusOne(3.0), 4);
    EXPECT_DOUBLE_EQ(TopTimesOnePointOne(1.234), 1.35);  // 1.3574 down to two decimals
    const PowerOfTen p = ReduceByPowerOfTen(45678);
    EXPECT_EQ(p.exponent, 4);
    EXPECT_DOUBLE_EQ(p.top, 5);
    EXPECT_EQ(p.titleSuffix(), "(10^4)");
    EXPECT_EQ(ReduceByPowerOfTen(10).exponent, 0);  // 10 is not above 10
}

TEST(KindARounding, FiveStepsKeepTheTopTickDespiteRounding) {
    for (double top : {1.0, 0.7, 3.3, 110.0, 0.01}) {
        const auto ticks = FixedStepTicks(top, 5, 0.05 * top);
        ASSERT_EQ(ticks.size(), 6u) << top;
        EXPECT_NEAR(ticks.back(), top, 1e-9 * top);
    }
    EXPECT_EQ(FixedStepTicks(0).size(), 1u);
}

TEST(KindARounding, CategoriesAndLengthLabelSpacing) {
    EXPECT_DOUBLE_EQ(CategoryWidth(3), 25);
    EXPECT_DOUBLE_EQ(CategoryLeft(2, 3), 70);
    EXPECT_THROW(CategoryWidth(0), ArithmeticFault);
    EXPECT_EQ(LengthLabelEvery(15), 2);
    EXPECT_EQ(LengthLabelEvery(16), 5);
    EXPECT_EQ(LengthLabelEvery(26), 5);
    EXPECT_EQ(LengthLabelEvery(27), 10);
    EXPECT_EQ(LengthLabelEvery(50), 10);
    EXPECT_EQ(LengthLabelEvery(51), 25);
}

}  // namespace
}  // namespace norvo
