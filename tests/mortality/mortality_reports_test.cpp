#include "mortality/mortality_reports.h"

#include <gtest/gtest.h>

namespace norvo {
namespace {

std::string ValueOf(const std::vector<ReportField>& fields, const std::string& caption) {
    for (const auto& f : fields) {
        if (f.caption == caption) return f.value;
    }
    return "<missing " + caption + ">";
}

TEST(MortalityReports, PaulyPageCarriesTheFormsCaptionFormulaAndCorrectedTemperature) {
    PaulyInput in{PaulyForm::Length, 50, 0.5f, 3.5f};
    auto rep = PaulyReport(in, ComputePaulyM(in));
    EXPECT_EQ(rep.screenName, "frmOutPaulyM");
    EXPECT_EQ(rep.header2.rfind("Report Generated: ", 0), 0u);
    EXPECT_EQ(rep.header3, kPaulyLengthFormula);
    const auto data = rep.dataFields();
    EXPECT_EQ(ValueOf(data, "Asymptotic length (Loo; in cm):"), "50.00");
    EXPECT_EQ(ValueOf(data, "Temperature used (corrected):"), "4.05");
    EXPECT_EQ(ValueOf(rep.resultFields(), "Natural mortality (M):"), "0.401 /year");

    in = {PaulyForm::Weight, 1000, 0.5f, 25};
    rep = PaulyReport(in, ComputePaulyM(in));
    EXPECT_EQ(rep.header3, kPaulyWeightFormula);
    EXPECT_EQ(ValueOf(rep.dataFields(), "Asymptotic weight (Woo; in g):"), "1000.00");
    EXPECT_EQ(rep.dataFields().size(), 3u);  // no corrected temperature above 3.5
    EXPECT_EQ(rep.note, kPaulyWeightRemark);
}

TEST(MortalityReports, MeanLengthAndHoenigPagesShowTheScreensFigures) {
    const AultEhrhardtInput ault{{50, 0.5f, 30, 20}, 45};
    const auto a = AultEhrhardtReport(ault, ComputeAultEhrhardt(ault));
    EXPECT_EQ(ValueOf(a.resultFields(), kComputedZCaption), "0.895 /year");
    EXPECT_EQ(ValueOf(a.resultFields(), kAultExactRootCaption), "0.909 /year");
    EXPECT_EQ(ValueOf(a.dataFields(), "Cut-off length (L'):"), "20.00");

    const HoenigInput h{true, false, 20, 0, 0};
    const auto hr = HoenigReport(h, ComputeHoenig(h));
    EXPECT_EQ(hr.resultFields().size(), 1u);  // model 2 not asked for
    EXPECT_EQ(ValueOf(hr.resultFields(), "Model 1, Z:"), "0.221 /year");
}

TEST(MortalityReports, ResultCardPrintsFormulaAndResults) {
    const RikhterEfanovInput in{22};
    const auto rep = RikhterEfanovReport(in, ComputeRikhterEfanov(in));
    ChartCanvas canvas;
    DrawResultCard(canvas, rep);
    std::vector<std::string> texts;
    for (const auto& c : canvas.commandsOf(DrawOp::Print)) texts.push_back(c.text);
    EXPECT_EQ(texts, (std::vector<std::string>{"M = 1.52 / tm^0.72 - 0.16",
                                               "Natural mortality (M): 0.004 /year"}));
}

}  // namespace
}  // namespace norvo
