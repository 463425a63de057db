// The report page and the stored parameters of Shepherd's method.
#include "growth/shepherd_report.h"

#include <gtest/gtest.h>

namespace norvo {
namespace {

TEST(ShepherdReport, PageHasTheMethodTitleTheBestPointAndNoSeasonalParameters) {
    ElefanFileInfo file;
    file.fileName = "a.lfq";
    file.classSize = 2;
    file.largestClassSize = 41;
    ShepherdBest best;
    best.loo = 50;
    best.k = 0.6f;
    best.score = 12.34567f;
    const ReportDescriptor d = Elefan1ReportDescriptor(ShepherdReportInfo(file, &best));
    EXPECT_EQ(d.header2, "Shepherd's Method");
    EXPECT_EQ(d.screenName, "frmOutShepherd");
    ASSERT_EQ(d.sections.size(), 2u);
    EXPECT_EQ(d.sections[1].heading, "At Maximum Score");
    const auto& f = d.sections[1].fields;
    ASSERT_EQ(f.size(), 5u);
    EXPECT_EQ(f[0].value, "50.00");
    EXPECT_EQ(f[1].value, "0.600");
    EXPECT_EQ(f[2].value, "1");
    EXPECT_EQ(f[3].caption, std::string("Starting length:"));
    EXPECT_EQ(f[3].value, "n.a.");
    EXPECT_EQ(f[4].value, "12.346");

    best.startLength = 15.7f;
    EXPECT_EQ(ShepherdBestTexts(best)[3], "15.7");
    // Before a scan: the file only.
    EXPECT_EQ(Elefan1ReportDescriptor(ShepherdReportInfo(file, nullptr)).sections.size(), 1u);
}

TEST(ShepherdReport, PlotParametersWithoutSeasonAndWithoutAStart) {
    ShepherdBest best;
    best.loo = 50;
    best.k = 0.6f;
    GrowthParams p = ShepherdPlotParams(best);
    EXPECT_EQ(p.c, 0.0f);
    EXPECT_EQ(p.wp, 0.0f);
    EXPECT_EQ(p.ss, 1.0f);
    EXPECT_EQ(p.sl, 0.0f);
    best.startLength = 12.5f;
    EXPECT_EQ(ShepherdPlotParams(best).sl, 12.5f);
}

}  // namespace
}  // namespace norvo
