// The 2-D plot's marks and the order of the printed values.
#include "stock/relative_ypr_plot.h"

#include <gtest/gtest.h>

#include "stock/relative_ypr_knife.h"

namespace norvo {
namespace {

TEST(DrawYprPlot, CurvesStartRightAndMarksReachTheAxis) {
    const KnifeAnalysis r = AnalyseKnife(1, 0.3f);
    ChartCanvas c;
    DrawYprPlot(c,
                {r.curveY, r.curveB, 0.11f, r.e10, r.e50, r.eMax, r.yAtE10, r.bAtE50, r.yAtEmax});
    const auto curves = c.commandsOf(DrawOp::Polyline);
    ASSERT_EQ(curves.size(), 2u);
    // Y' from (40, 85) and then one point per E; B' from its first point (E 0, B' 1).
    EXPECT_EQ(curves[0].points.size(), 12u);
    EXPECT_EQ(curves[0].points[0], (UserPoint{40, 85}));
    EXPECT_EQ(curves[1].points[0], (UserPoint{40, 15}));
    // The label 0.50 of the B' axis alone is red.
    int red = 0;
    Colour fore = kBlack;
    for (const auto& cmd : c.commands()) {
        if (cmd.op == DrawOp::SetForeColour) fore = cmd.colour;
        if (cmd.op == DrawOp::Print && fore == kRed) {
            ++red;
            EXPECT_EQ(cmd.text, "0.50");
        }
    }
    EXPECT_EQ(red, 1);
    // Each mark: across from x = 40 at the curve's height, then down to y = 85.
    int greens = 0;
    PenStyle pen = PenStyle::Solid;
    for (const auto& cmd : c.commands()) {
        if (cmd.op == DrawOp::SetPen) pen = cmd.pen;
        if (cmd.op != DrawOp::Line || cmd.colour != kGreen) continue;
        ++greens;
        EXPECT_EQ(pen, PenStyle::Dashed);
        EXPECT_TRUE(cmd.x1 == 40 || cmd.y2 == 85);
    }
    EXPECT_EQ(greens, 2);
    EXPECT_DOUBLE_EQ(YprX(r.e10), 40 + 55 * r.e10);
}

TEST(Ypr2DReport, InputsPointsThenTheTableFromPointNinetyNineDown) {
    Ypr2DReportInput in;
    in.title = kYrOgiveReportTitle;
    in.ratioCaption = "L50/Loo :";
    in.ratio = 0.05;
    in.mk = 1.5;
    in.loo = 42;
    in.eMax = 0.6;
    in.e10 = 0.5;
    in.e50 = 0.3;
    for (float e : kYprReportE) in.rows.push_back({e, 0.1, 0.2});
    const ReportDescriptor r = Ypr2DReport(in, 0);
    EXPECT_EQ(r.header1, kYrOgiveReportTitle);
    const auto data = r.dataFields();
    ASSERT_EQ(data.size(), 3u);
    EXPECT_EQ(data[0].value, "0.050");
    EXPECT_EQ(data[2].caption, "Loo :");
    const auto results = r.resultFields();
    ASSERT_EQ(results.size(), 13u);
    EXPECT_EQ(results[0].caption, "E-max :");
    EXPECT_EQ(results[1].caption, "E-10 :");
    EXPECT_EQ(results[2].caption, "E-50 :");
    EXPECT_EQ(results[3].caption, "0.99");
    EXPECT_EQ(results[4].caption, "0.90");
    EXPECT_EQ(results[12].caption, "0.10");
}

}  // namespace
}  // namespace norvo
