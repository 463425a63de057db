#include "chart/regress_plot.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace norvo {
namespace {

XyfData File() {
    XyfData f;
    f.header.path = "/data/weights.xyf";
    f.graphTitle = "Length-weight";
    f.xAxis = "Length";
    f.yAxis = "Weight";
    f.header.remarks = "Trawl survey";
    return f;
}

std::vector<std::string> Texts(const ChartCanvas& c) {
    std::vector<std::string> t;
    for (const auto& p : c.commandsOf(DrawOp::Print)) t.push_back(p.text);
    return t;
}

bool Has(const std::vector<std::string>& v, const std::string& s) {
    return std::find(v.begin(), v.end(), s) != v.end();
}

TEST(RegressPlot, LogLogAxesShowTheNumbersBackInTheFileSpace) {
    // Y = X^2 over 1..1000: log10 x spans 0..3, log10 y 0..6, widened by a twentieth.
    RegressOptions o;
    o.form = kFormLogLog;
    const std::vector<float> x = {1, 10, 100, 1000};
    const std::vector<float> y = {1, 100, 10000, 1000000};
    const RegressRun run = RunRegression(x, y, o);
    ChartCanvas c(800, 600);
    const RegressPlotRange r = DrawRegression(c, File(), run);
    EXPECT_DOUBLE_EQ(r.xMin, -0.15);
    EXPECT_DOUBLE_EQ(r.yMax, 6.3);

    const auto texts = Texts(c);
    EXPECT_TRUE(Has(texts, "log(Weight)"));
    EXPECT_TRUE(Has(texts, "log(Length)"));
    EXPECT_TRUE(Has(texts, "Function: log(Y) = a + b * log(X)"));
    EXPECT_TRUE(Has(texts, "Length-weight"));
    // The x ticks stand at -0.15, 0.51, ... 3.15: 10^-0.15 = 0.708 and 10^3.15 = 1413.
    EXPECT_TRUE(Has(texts, "0.708"));
    EXPECT_TRUE(Has(texts, "1413"));

    // Points inside the frame (x 20..90, y 85..20), the first one a twenty-second in.
    const auto circles = c.commandsOf(DrawOp::Circle);
    ASSERT_EQ(circles.size(), 4u);
    EXPECT_NEAR(circles[0].x1, 20 + 70.0 / 22, 1e-9);
    EXPECT_NEAR(circles[3].y1, 85 - 65 * 21.0 / 22, 1e-6);
    // The red line runs through the first and last points.
    const auto lines = c.commandsOf(DrawOp::Line);
    const auto red = std::find_if(lines.begin(), lines.end(),
                                  [](const DrawCommand& l) { return l.colour == kRed; });
    ASSERT_NE(red, lines.end());
    EXPECT_NEAR(red->x1, circles[0].x1, 1e-4);
    EXPECT_NEAR(red->y2, circles[3].y1, 1e-4);
}

TEST(RegressPlot, TicksByFormAndSeparator) {
    // Form 4's x axis keeps ln X; forms 3 and 6 show e^v on y.
    EXPECT_EQ(RegressTickText(kFormLogX, false, 1.386294, 0.2), "1.39");
    EXPECT_EQ(RegressTickText(kFormLnY, true, 0, 0.2), "1.00");
    EXPECT_EQ(RegressTickText(kFormLnOneMinus, true, -9.21034, 2), "0.000100");
    EXPECT_EQ(RegressTickText(kFormLinear, true, 250, 50), "250");
    EXPECT_EQ(RegressTickText(kFormLinear, true, 0.25, 0.05, ','), "0,250");
}

TEST(RegressPlot, AlikeValuesAndALineOutsideTheFrame) {
    // Form 1 on a constant x: the functional fit zeroes its slots, the range is +-0.5 and the
    // line (y = 0) lies below every point, so nothing red is drawn.
    RegressOptions o;
    o.form = kFormFunctional;
    const std::vector<float> x = {2, 2, 2};
    const std::vector<float> y = {5, 6, 7};
    const RegressRun run = RunRegression(x, y, o);
    ChartCanvas c;
    const auto r = DrawRegression(c, File(), run);
    EXPECT_DOUBLE_EQ(r.xMin, 1.5);
    EXPECT_DOUBLE_EQ(r.xMax, 2.5);
    for (const auto& l : c.commandsOf(DrawOp::Line)) EXPECT_NE(l.colour, kRed);
}

TEST(RegressReport, TitleConstantAndReadOuts) {
    RegressOptions o;
    o.form = kFormLnOneMinus;
    o.c = 10;
    const std::vector<float> x = {1, 2, 3, 4};
    const std::vector<float> y = {1, 3, 2, 5};
    const RegressRun run = RunRegression(x, y, o);
    const auto rep = RegressionReport(File(), run, 0);
    EXPECT_EQ(rep.screenName, "frmOutRegress");
    EXPECT_EQ(rep.header1, "Regression Analysis (Function: ln(1-Y/C) = a + b * X)");
    EXPECT_EQ(rep.header2.rfind("Report Generated: ", 0), 0u);
    const auto data = rep.dataFields();
    ASSERT_EQ(data.size(), 6u);
    EXPECT_EQ(data[0].value, "/data/weights.xyf");
    EXPECT_EQ(data[5].caption, "Constant (C):");
    EXPECT_EQ(data[5].value, "10.000");
    const auto res = rep.resultFields();
    ASSERT_EQ(res.size(), 7u);
    EXPECT_EQ(res[0].value, "4");
    EXPECT_EQ(res[6].caption, "Variance of the fit (F):");
    // Without C the line is left out.
    o.form = kFormLinear;
    EXPECT_EQ(RegressionReport(File(), RunRegression(x, y, o), 0).dataFields().size(), 5u);
}

}  // namespace
}  // namespace norvo
