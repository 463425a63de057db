#include "mortality/mortality_reports.h"

#include "base/format.h"
#include "chart/kind_a.h"
#include "chart/rotated_text.h"

namespace norvo {
namespace {

ReportField Value(const std::string& caption, double v, const char* format = "0.00") {
    return NumberField(caption, v, format);
}

void AddMeanLengthInputs(ReportSection& s, const MeanLengthInput& in) {
    s.fields.push_back(Value("Asymptotic length (Loo):", in.loo));
    s.fields.push_back(Value("Growth constant (K):", in.k, "0.000"));
    s.fields.push_back(Value("Mean length (Lmean):", in.lmean));
    s.fields.push_back(Value(kCutOffLengthCaption, in.lc));
}

std::string PerYear(double v, const char* format) {
    return Format(v, format) + " " + kPerYear;
}

}  // namespace

ReportDescriptor BhMortalityReport(const MeanLengthInput& in, const BhMortalityResult& r,
                                   std::time_t when) {
    auto rep =
        MakeReport("frmOutBHMort", kBhReportTitle, "Z = K (Loo - Lmean) / (Lmean - L')", when);
    AddMeanLengthInputs(rep.addSection(kReportInputHeading, false), in);
    rep.addSection(kReportResultHeading, true)
        .fields.push_back({kComputedZCaption, PerYear(r.z, kZFormat)});
    return rep;
}

ReportDescriptor AultEhrhardtReport(const AultEhrhardtInput& in, const AultEhrhardtResult& r,
                                    std::time_t when) {
    auto rep = MakeReport("frmOutAultErh", kAultReportTitle, "", when);
    auto& data = rep.addSection(kReportInputHeading, false);
    AddMeanLengthInputs(data, in.common);
    data.fields.push_back(Value("Maximum length (Lmax):", in.lmax));
    auto& res = rep.addSection(kReportResultHeading, true);
    res.fields.push_back({kComputedZCaption, PerYear(r.z, kZFormat)});
    res.fields.push_back(
        {kAultExactRootCaption, r.exactRoot ? PerYear(*r.exactRoot, kZFormat) : "none in range"});
    res.fields.push_back({"Beverton & Holt Z:", PerYear(r.zBevertonHolt, kZFormat)});
    return rep;
}

ReportDescriptor HoenigReport(const HoenigInput& in, const HoenigResult& r, std::time_t when) {
    auto rep = MakeReport("frmOutHoenig", kHoenigReportTitle, "", when);
    auto& data = rep.addSection(kReportInputHeading, false);
    data.fields.push_back(Value("Maximum age (tmax):", in.tmax));
    if (in.model2) {
        data.fields.push_back(Value("Mean age at first capture (tc):", in.tc));
        data.fields.push_back(Value("Sample size (N):", in.n, "0"));
    }
    auto& res = rep.addSection(kReportResultHeading, true);
    if (r.z1) res.fields.push_back({"Model 1, Z:", PerYear(*r.z1, kHoenigFormat)});
    if (r.z2) {
        res.fields.push_back({"Model 2, Z:", PerYear(*r.z2, kHoenigFormat)});
        res.fields.push_back({"Model 2, s.e.(Z):", Format(*r.se2, kHoenigFormat)});
    }
    return rep;
}

ReportDescriptor PaulyReport(const PaulyInput& in, const PaulyResult& r, std::time_t when) {
    const bool weight = in.form == PaulyForm::Weight;
    auto rep = MakeReport("frmOutPaulyM", kPaulyReportTitle,
                          weight ? kPaulyWeightFormula : kPaulyLengthFormula, when);
    auto& data = rep.addSection(kReportInputHeading, false);
    data.fields.push_back(
        Value(weight ? kPaulyWeightReportCaption : kPaulyLengthReportCaption, in.size));
    data.fields.push_back(Value("Growth constant (K; /year):", in.k, "0.000"));
    data.fields.push_back(Value("Mean habitat temperature (T; deg C):", in.t, "0.0"));
    if (in.t <= kPaulyColdLimit) {
        data.fields.push_back(Value("Temperature used (corrected):", r.temperatureUsed, "0.00"));
    }
    rep.addSection(kReportResultHeading, true)
        .fields.push_back({"Natural mortality (M):", PerYear(r.m, kPaulyMFormat)});
    rep.note = weight ? kPaulyWeightRemark : kPaulyLengthRemark;
    return rep;
}

ReportDescriptor RikhterEfanovReport(const RikhterEfanovInput& in, const RikhterEfanovResult& r,
                                     std::time_t when) {
    auto rep = MakeReport("frmOutRikEfa", kRikhterReportTitle, "M = 1.52 / tm^0.72 - 0.16", when);
    rep.addSection(kReportInputHeading, false)
        .fields.push_back(Value("Age at first maturity (tm; years):", in.tm));
    rep.addSection(kReportResultHeading, true)
        .fields.push_back({"Natural mortality (M):", PerYear(r.m, kRikhterMFormat)});
    return rep;
}

void DrawResultCard(ChartCanvas& canvas, const ReportDescriptor& report) {
    BeginPercentCanvas(canvas);
    double y = 30;
    if (!report.header3.empty()) {
        DrawRotatedText(canvas, report.header3, 0, 11, 10, y);
        y += 15;
    }
    for (const auto& f : report.resultFields()) {
        DrawRotatedText(canvas, f.caption + " " + f.value, 0, 14, 10, y);
        y += 12;
    }
}

}  // namespace norvo
