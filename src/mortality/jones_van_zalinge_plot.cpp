#include "mortality/jones_van_zalinge_plot.h"

#include "base/basic.h"
#include "base/format.h"
#include "chart/kind_a.h"

namespace norvo {

namespace {

constexpr Colour kChosen = kRed;
constexpr int kTickSteps = 5;

}  // namespace

std::vector<UserPoint> JonesVanZalingePositions(const JonesVanZalingeRun& run) {
    const JvzScale s = JonesVanZalingeScale(run);
    std::vector<UserPoint> pts(static_cast<size_t>(run.usable) + 1);
    for (int i = 1; i <= run.usable; ++i)
        pts[i] = {kFrameLeft + run.logLoo[i] * s.xScale, kFrameBottom - run.logCum[i] * s.yScale};
    return pts;
}

void DrawJonesVanZalinge(ChartCanvas& canvas, const JonesVanZalingeRun& run, int pickedFirst,
                         int pickedLast) {
    BeginPercentCanvas(canvas);
    DrawPercentFrame(canvas, kFrameTop);
    const JvzScale s = JonesVanZalingeScale(run);
    for (double v = 0; v <= s.yTop + 0.01; v += s.yTop / kTickSteps) {
        const double y = kFrameBottom - v * s.yScale;
        canvas.Line(kFrameLeft, y, kFrameLeft + 2, y, kBlack);  // ticks point into the plot
        DrawYLabel(canvas, kFrameBottom - v * s.yScale, Format(v, "0.0"));
    }
    for (double v = 0; v <= s.xTop + 0.01; v += s.xTop / kTickSteps) {
        DrawXTick(canvas, kFrameLeft + v * s.xScale);
        DrawXLabel(canvas, kFrameLeft + v * s.xScale, Format(v, "0.0"));
    }
    DrawPlotTitle(canvas, kJvzPlotTitle, 5);
    DrawYTitle(canvas, kJvzYTitle);
    DrawXTitle(canvas, kJvzXTitle);

    const auto pts = JonesVanZalingePositions(run);
    for (int i = 1; i <= run.usable; ++i) {
        const bool chosen = (run.fitted() && i >= run.first && i <= run.last) || i == pickedFirst ||
                            i == pickedLast;
        DrawPointMark(canvas, pts[i], chosen ? kChosen : kBlack, true);
    }
    if (!run.fitted()) return;
    const double a = run.fit.a(), b = run.fit.b();
    const double x1 = run.logLoo[run.first], x2 = run.logLoo[run.last];
    UserPoint p1{kFrameLeft + x1 * s.xScale, kFrameBottom - (a + b * x1) * s.yScale};
    UserPoint p2{kFrameLeft + x2 * s.xScale, kFrameBottom - (a + b * x2) * s.yScale};
    if (!ClipToFrame(p1, p2, kFrameTop)) return;
    canvas.SetPen(PenStyle::Solid, 2);
    canvas.Line(p1.x, p1.y, p2.x, p2.y, kChosen);
    canvas.SetPen(PenStyle::Solid, 1);
}

ReportDescriptor JonesVanZalingeReport(const LfqData& data, const JonesVanZalingeRun& run,
                                       std::time_t when) {
    auto rep = MakeReport("frmOutJonesZalinge", kJvzReportTitle, data.speciesname, when);
    rep.caption = kJvzReportTitle;
    auto& in = rep.addSection("Data", false);
    in.fields.push_back({"File:", data.path});
    in.fields.push_back({"Species:", data.speciesname});
    in.fields.push_back({"Identifiers:", data.otherId});
    in.fields.push_back(NumberField("Loo:", run.loo, "0.00"));
    in.fields.push_back(NumberField("K:", run.k, "0.000"));
    auto& out = rep.addSection("Results", true);
    using R = RegressionResult;
    out.fields.push_back(
        {"Classes used:", std::to_string(run.first) + " to " + std::to_string(run.last)});
    out.fields.push_back(NumberField("Z/K:", run.zk(), "0.000"));
    out.fields.push_back(
        {"CI of Z:", Format(run.zkLow(), "0.000") + " to " + Format(run.zkHigh(), "0.000")});
    out.fields.push_back(NumberField("Intercept (a):", run.fit.a(), "0.000"));
    out.fields.push_back(NumberField("Correlation coefficient; r:", run.fit[R::kR], "0.0000"));
    return rep;
}

}  // namespace norvo
