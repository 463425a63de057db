#include "chart/chart_plot.h"

#include <gtest/gtest.h>

#include "base/fault.h"

namespace norvo {
namespace {

ChartText Font(float size = 8) {
    ChartText t;
    ChartSetFont(t, "Arial", size, 0);
    return t;
}

ChartText Title(const std::string& s) {
    ChartText t = Font(10);
    ChartSetText(t, s);
    return t;
}

ChartPlot Prepared(float minX, float maxX, float minY, float maxY) {
    ChartPlot p;
    ChartPrepareDefault(p, minX, maxX, minY, maxY);
    return p;
}

TEST(ChartPrepare, DerivesThePlotAreaAndScales) {
    const ChartPlot p = Prepared(0, 50, 0, 200);
    EXPECT_EQ(p.signX, 1);
    EXPECT_EQ(p.signY, 1);
    EXPECT_EQ(p.plotLeft, 10);
    EXPECT_EQ(p.plotRight, 98);
    EXPECT_EQ(p.plotTop, 5);
    EXPECT_EQ(p.plotBottom, 80);
    EXPECT_FLOAT_EQ(p.scaleX, 88.0f / 50);
    EXPECT_FLOAT_EQ(ChartToUserX(p, 25), 54);
    EXPECT_FLOAT_EQ(ChartToUserY(p, 100), 42.5f);
    EXPECT_EQ(ChartToUser(p, 3, 100), 0);
    EXPECT_EQ(ChartToUserY(p, std::vector<float>{0, 200}), (std::vector<float>{80, 5}));

    // y growing upwards: margins count from the other side.
    ChartPlot up;
    ChartPrepare(up, kWhite, 0, 100, 100, 0, 20, 5, 10, 2, 0, 1, 0, 1, std::nullopt, 0.5f);
    EXPECT_EQ(up.signY, -1);
    EXPECT_EQ(up.plotBottom, 20);
    EXPECT_EQ(up.plotTop, 95);
    EXPECT_FALSE(up.xAxis.crossingGiven);
    EXPECT_TRUE(up.yAxis.crossingGiven);
    EXPECT_EQ(up.yAxis.crossing, 0.5f);

    ChartPlot flat;
    EXPECT_THROW(ChartPrepareDefault(flat, 3, 3, 0, 1), ArithmeticFault);
}

TEST(ChartDefineAxis, StepZeroGivesOneTickAndTheDefaultStepGivesEleven) {
    ChartPlot p = Prepared(0, 1, -3.3f, 12.9f);
    ChartDefineAxis(p, kChartXAxis, 0, 1, Font(), Title(""), 1, 1, ChartTicks::Series(0.2f, 0));
    EXPECT_EQ(p.xAxis.tickCount, 1);
    EXPECT_EQ(p.xAxis.ticks, std::vector<float>{0.2f});

    for (auto [lo, hi] : {std::pair{0.0f, 1.0f}, {0.0f, 7.0f}, {-3.3f, 12.9f}, {0.1f, 0.7f}}) {
        ChartPlot q = Prepared(lo, hi, 0, 1);
        ChartDefineAxis(q, kChartXAxis, 0, 1, Font(), Title(""), 1, 1,
                        ChartTicks::Series(kChartNoValue, kChartNoValue));
        ASSERT_EQ(q.xAxis.tickCount, 11) << lo << ".." << hi;
        EXPECT_EQ(q.xAxis.ticks.front(), lo);
        EXPECT_NEAR(q.xAxis.ticks.back(), hi, 1e-5 * (hi - lo));
        EXPECT_TRUE(q.xAxis.ticksAuto);
        EXPECT_TRUE(q.xAxis.hasTicks);
    }
}

TEST(ChartDefineAxis, ListsStartsAndAutomaticOrigin) {
    ChartPlot p = Prepared(0, 100, 0, 10);
    ChartDefineAxis(p, kChartYAxis, 0, 1, Font(), Title("y"), 2, 1, ChartTicks::List({1, 2.5f, 9}));
    EXPECT_EQ(p.yAxis.tickCount, 3);
    EXPECT_EQ(p.yAxis.firstTick, 1);
    EXPECT_FALSE(p.yAxis.ticksAuto);
    EXPECT_TRUE(p.yAxis.hasTitle);

    // Given start and step: whole part of (max - start) / step, plus one.
    ChartDefineAxis(p, kChartXAxis, 0, 1, Font(), Title(""), 1, 1, ChartTicks::Series(5, 20));
    EXPECT_EQ(p.xAxis.ticks, (std::vector<float>{5, 25, 45, 65, 85}));
    EXPECT_FALSE(p.xAxis.hasTitle);

    // Automatic origin: the ticks line up with the other axis's crossing.
    ChartPlot a;
    ChartPrepare(a, kWhite, 0, 100, 0, 100, 20, 5, 10, 2, 3, 40, 0, 1, std::nullopt, 17.0f);
    ChartDefineAxis(a, kChartXAxis, 0, 1, Font(), Title(""), 1, 1,
                    ChartTicks::Series(kChartNoValue, 5, true));
    EXPECT_EQ(a.xAxis.firstTick, 3 + 4);  // 3 + |round(17 - 3) mod 5|
    EXPECT_EQ(a.xAxis.tickCount, 5);      // from 17: whole part of 23 / 5, plus one
    EXPECT_EQ(a.xAxis.ticks.front(), 7);
    // No crossing given: start at the minimum.
    ChartPlot b = Prepared(3, 40, 0, 1);
    ChartDefineAxis(b, kChartXAxis, 0, 1, Font(), Title(""), 1, 1,
                    ChartTicks::Series(kChartNoValue, 5, true));
    EXPECT_EQ(b.xAxis.firstTick, 3);
    // A step that rounds to 0 divides by zero; a step far too fine is an overflow.
    EXPECT_THROW(ChartDefineAxis(b, kChartXAxis, 0, 1, Font(), Title(""), 1, 1,
                                 ChartTicks::Series(kChartNoValue, 0.4f, true)),
                 ArithmeticFault);
    EXPECT_THROW(ChartDefineAxis(b, kChartXAxis, 0, 1, Font(), Title(""), 1, 1,
                                 ChartTicks::Series(3, 1e-6f)),
                 ArithmeticFault);
    EXPECT_THROW(ChartDefineAxis(b, 3, 0, 1, Font(), Title(""), 1, 1, ChartTicks::List({})),
                 SubscriptFault);
}

TEST(ChartDraw, AxesTicksAndLabelsGoWhereTheEstimatesPutThem) {
    ChartCanvas canvas(800, 600);
    ChartPlot p = Prepared(0, 40, 0, 12345678);
    ChartDefineAxis(p, kChartXAxis, 0, 1, Font(), Title("Length (cm)"), 1, 1,
                    ChartTicks::Series(0, 20));
    ChartDefineAxis(p, kChartYAxis, 0, 1, Font(), Title("Numbers"), 1, 1,
                    ChartTicks::Series(0, 12345678), "0");
    ChartDraw(canvas, p);
    EXPECT_EQ(p.canvasWidthTwips, 12000);
    EXPECT_DOUBLE_EQ(p.unitTwipsY, 90);
    ASSERT_EQ(canvas.commands().front().op, DrawOp::Clear);

    const auto lines = canvas.commandsOf(DrawOp::Line);
    ASSERT_EQ(lines.size(), 2u + 3 + 2);
    EXPECT_EQ(lines[0].y1, 80);  // x axis along the plot's bottom
    EXPECT_EQ(lines[0].x1, 10);
    EXPECT_EQ(lines[0].x2, 98);
    // x ticks below the axis, as long as 1 % of the width in physical terms: 1 x 120/90.
    EXPECT_FLOAT_EQ(lines[1].y2 - lines[1].y1, 100.0f / 75);
    EXPECT_EQ(lines[4].x1, 10);                     // y axis
    EXPECT_FLOAT_EQ(lines[5].x1 - lines[5].x2, 1);  // y ticks left of it

    const auto prints = canvas.commandsOf(DrawOp::Print);
    ASSERT_EQ(prints.size(), 3u + 2 + 2);
    // x label "20.0": 4 characters, 16 points = 2.667 units wide, centred on x = 54.
    EXPECT_EQ(prints[1].text, "20.0");
    EXPECT_NEAR(prints[1].x1, 54 - 4 * 8 * 0.5 / 600 * 100 / 2, 1e-4);
    EXPECT_NEAR(prints[1].y1, 85, 1e-5);
    // The x title starts at the middle and sits 1.1 title heights under the labels.
    EXPECT_EQ(prints[3].text, "Length (cm)");
    EXPECT_EQ(prints[3].x1, 50);
    EXPECT_NEAR(prints[3].y1, 85 + 10.0 / 450 * 100 * 1.1, 1e-4);
    // A label of many digits extends left of the axis by its estimated width; nothing clips
    // or shifts it even where it leaves the canvas.
    EXPECT_EQ(prints[5].text, "12345678");
    const double width = 8 * 4.0 / 600 * 100;  // 32 points of 600
    EXPECT_NEAR(prints[5].x1, 10 - (1 + width), 1e-4);
    EXPECT_NEAR(prints[5].y1, 5 - 8.0 / 450 * 100 / 2, 1e-4);
    // The y title reads upwards, 1.5 title heights left of the last label, centred by estimate.
    EXPECT_EQ(prints[6].font.angleTenths, 900);
    EXPECT_NEAR(prints[6].x1, prints[5].x1 - 1.5 * 10.0 / 600 * 100, 1e-4);
    EXPECT_NEAR(prints[6].y1, 50 + 7 * 5.0 / 450 * 100 / 2, 1e-4);
}

TEST(FrequencyAxes, StepsPowersOfTenAndTitles) {
    EXPECT_EQ(ComputeFrequencyAxes(2, 9, 5, "cm").xStep, 2);
    EXPECT_EQ(ComputeFrequencyAxes(2, 10, 5, "cm").xStep, 4);
    EXPECT_EQ(ComputeFrequencyAxes(2, 20, 5, "cm").xStep, 4);
    EXPECT_EQ(ComputeFrequencyAxes(2, 21, 5, "cm").xStep, 10);
    EXPECT_EQ(ComputeFrequencyAxes(2, 45, 5, "cm").xStep, 10);
    EXPECT_EQ(ComputeFrequencyAxes(2, 46, 5, "cm").xStep, 20);
    const auto a = ComputeFrequencyAxes(0.5f, 30, 95, "mm");
    EXPECT_EQ(a.xFirstTick, 2.75f);
    EXPECT_EQ(a.xTitle, "Length (mm)");
    EXPECT_EQ(a.powerOfTen, 1);
    EXPECT_EQ(a.yStep, 20);  // r = 10, above 5
    EXPECT_EQ(a.yTitle, "Frequency (10^1)");
    EXPECT_EQ(ComputeFrequencyAxes(1, 5, 140, "cm").yStep, 50);   // r = 1
    EXPECT_EQ(ComputeFrequencyAxes(1, 5, 150, "cm").yStep, 100);  // r = 2
    const auto small = ComputeFrequencyAxes(1, 5, 8, "cm");
    EXPECT_EQ(small.powerOfTen, 0);
    EXPECT_EQ(small.yStep, 2);
    EXPECT_EQ(small.yTitle, "Frequency ");

    ChartPlot p;
    ChartFrequencyPlot(p, 0.5f, 30, 95, "mm");
    EXPECT_EQ(p.worldMaxX, 15);
    EXPECT_FLOAT_EQ(p.worldMaxY, 114);
    EXPECT_EQ(p.yAxis.labelPowerOfTen, 1);
    EXPECT_EQ(ChartLabelText(p.yAxis, 40), "4.0");
    EXPECT_EQ(p.yAxis.ticks.size(), 6u);
}

TEST(LogDifference, FlatSeriesKeepADrawableRange) {
    const auto zero = LogDifferenceRangeY({0, 0, 0});
    EXPECT_EQ(zero.min, -0.5f);
    EXPECT_EQ(zero.max, 0.5f);
    const auto flat = LogDifferenceRangeY({2, 2});
    EXPECT_EQ(flat.min, 1.5f);
    EXPECT_EQ(flat.max, 2.5f);
    const auto spread = LogDifferenceRangeY({-1, 0.3f, 2});
    EXPECT_EQ(spread.min, -1);
    EXPECT_FLOAT_EQ(spread.max, 2.2f);
    const auto negative = LogDifferenceRangeY({-2, -1.02f});
    EXPECT_GT(negative.max, -1.02f);

    ChartCanvas canvas;
    ChartPlot p;
    ChartLogDifferencePlot(p, 10, 60, 10, {0, 0, 0}, "Length (cm)");
    ChartDraw(canvas, p);
    EXPECT_EQ(p.yAxis.title.text, "ln(Dn)");
    EXPECT_EQ(p.yAxis.tickCount, 11);
    EXPECT_EQ(ChartLabelText(p.yAxis, p.yAxis.ticks.front()), "-0.50");
    EXPECT_FLOAT_EQ(ChartToUserY(p, 0), 42.5f);
}

TEST(ChartSeries, CurvesPointsAndBarsMapToUserCoordinatesAndKeepThePen) {
    ChartCanvas canvas;
    ChartPlot p = Prepared(0, 10, 0, 100);
    ChartDraw(canvas, p);
    const ChartPointStyle red{PenStyle::Dashed, 2, kRed};
    ChartDrawCurve(canvas, p, red, {0, 5, 10}, {0, 50, 100});
    const auto curve = canvas.commandsOf(DrawOp::Polyline);
    ASSERT_EQ(curve.size(), 1u);
    EXPECT_EQ(curve[0].points[1], (UserPoint{54, 42.5}));
    EXPECT_EQ(canvas.penStyle(), PenStyle::Solid);

    ChartDrawPoints(canvas, p, red, {1, 2, 3}, {10, 20, 30}, 1, 2);
    const auto dots = canvas.commandsOf(DrawOp::Circle);
    ASSERT_EQ(dots.size(), 2u);
    EXPECT_FLOAT_EQ(dots[0].x1, ChartToUserX(p, 2));
    ChartDrawPoints(canvas, p, red, {30}, {40}, 0, 0, true);
    EXPECT_EQ(canvas.commandsOf(DrawOp::Circle).back().x1, 30);
    EXPECT_THROW(ChartDrawPoints(canvas, p, red, {1}, {1}, 0, 1), SubscriptFault);
    EXPECT_EQ(canvas.fillStyle(), FillStyle::Transparent);

    ChartBarStyle bars;
    bars.fillColour = kYellow;
    bars.barWidth = 2;
    ChartDrawBars(canvas, p, bars, {3, 5}, {50, 100});
    const auto filled = canvas.commandsOf(DrawOp::FilledBox);
    ASSERT_EQ(filled.size(), 2u);
    EXPECT_FLOAT_EQ(filled[0].x1, ChartToUserX(p, 2));
    EXPECT_FLOAT_EQ(filled[0].x2, ChartToUserX(p, 4));
    EXPECT_FLOAT_EQ(filled[0].y1, 42.5f);
    EXPECT_FLOAT_EQ(filled[0].y2, 80);
    EXPECT_EQ(canvas.commandsOf(DrawOp::Box).size(), 2u);
}

}  // namespace
}  // namespace norvo
