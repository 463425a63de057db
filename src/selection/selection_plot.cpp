#include "selection/selection_plot.h"

#include <algorithm>
#include <cmath>

#include "base/basic.h"
#include "base/checked.h"
#include "base/format.h"
#include "chart/kind_a.h"

namespace norvo {

namespace {

constexpr Colour kChosen = kRed;
constexpr Colour kGuide = Rgb(0, 128, 0);

}  // namespace

void DrawProbabilityPlot(ChartCanvas& canvas, const SelectionInput& in, const SelectionCurve* curve,
                         const std::string& unit) {
    BeginPercentCanvas(canvas);
    DrawPercentFrame(canvas, kFrameTop);
    const double xScale = 75.0 / (in.nC + 2), yScale = 70;
    const auto xOf = [&](double length) {
        return ((length - in.firstMid) / in.w + 2) * xScale + 20;
    };
    const auto yOf = [&](double p) { return 85 - p * yScale; };
    for (int k = 0; k <= 4; ++k) {
        DrawYTick(canvas, yOf(k / 4.0));
        DrawYLabel(canvas, yOf(k / 4.0), Format(k / 4.0, "0.00"));
    }
    const int every = LengthLabelEvery(in.nC);
    for (int i = 1; i <= in.nC; ++i) {
        DrawXTick(canvas, xOf(in.midlength(i)));
        if ((i - 1) % every == 0)
            DrawXLabel(canvas, xOf(in.midlength(i)), Format(in.midlength(i), "0.0"));
    }
    DrawPlotTitle(canvas, kSelPlotTitle, 2);
    DrawYTitle(canvas, kSelPlotYLabel);
    DrawXTitle(canvas, LengthClassesLabel(unit));
    for (int i = 1; i <= in.nC && i < static_cast<int>(in.probability.size()); ++i)
        DrawPointMark(canvas, {xOf(in.midlength(i)), yOf(std::clamp(in.probability[i], 0.f, 1.f))},
                      kBlack, true);
    if (!curve) return;
    std::vector<UserPoint> line;
    line.push_back({xOf(in.firstMid - in.w), yOf(curve->smoothed[0])});
    for (int i = in.firstClass; i <= in.nC; ++i) {
        line.push_back({xOf(in.midlength(i) - in.w / 2), yOf(curve->smoothedEdge[i])});
        line.push_back({xOf(in.midlength(i)), yOf(curve->smoothed[i])});
    }
    canvas.SetPen(PenStyle::Solid, 2);
    canvas.Polyline(line, kChosen);
    canvas.SetPen(PenStyle::Dashed, 1);
    const float lengths[] = {curve->l25, curve->l50, curve->l75};
    const double levels[] = {0.25, 0.5, 0.75};
    for (int k = 0; k < 3; ++k) {
        const double x = xOf(lengths[k]), y = yOf(levels[k]);
        canvas.Line(20, y, x, y, kGuide);
        canvas.Line(x, y, x, 85, kGuide);
        canvas.MoveTo(x + 0.5, 80 - k * 4);
        canvas.Print(Format(lengths[k], "0.00"));
    }
    canvas.SetPen(PenStyle::Solid, 1);
}

LogitFrame DrawLogits(ChartCanvas& canvas, const LogitPoints& pts, int firstPoint,
                      const RegressionResult* fit, const std::string& unit) {
    LogitFrame fr;
    const int n = static_cast<int>(pts.x.size()) - 1;
    double yMin = 0, yMax = 0;
    bool any = false;
    for (int i = pts.firstClass; i <= std::min(firstPoint - 1, n); ++i) {
        yMin = any ? std::min<double>(yMin, pts.logit[i]) : pts.logit[i];
        yMax = any ? std::max<double>(yMax, pts.logit[i]) : pts.logit[i];
        any = true;
    }
    yMin = Int(yMin);
    yMax = Int(yMax) + 1;
    fr.yMin = yMin;
    fr.yScale = 70 / (yMax - yMin);
    fr.xMin = pts.x[0];
    fr.xScale = 65 / std::max(1e-9, static_cast<double>(pts.x[n] - pts.x[0]));
    BeginPercentCanvas(canvas);
    DrawPercentFrame(canvas, kFrameTop);
    for (double y = yMin; y <= yMax + 1e-9; y += std::max(1.0, Int((yMax - yMin) / 5))) {
        DrawYTick(canvas, fr.at(0, y).y);
        DrawYLabel(canvas, fr.at(0, y).y, Format(y, "0.0"));
    }
    const int every = LengthLabelEvery(n + 1);
    for (int i = 0; i <= n; i += every) {
        DrawXTick(canvas, fr.at(pts.x[i], 0).x);
        DrawXLabel(canvas, fr.at(pts.x[i], 0).x, Format(pts.x[i], "0.0"));
    }
    DrawPlotTitle(canvas, kSelLogitTitle, 2);
    DrawYTitle(canvas, kSelLogitYLabel);
    DrawXTitle(canvas, LengthClassesLabel(unit));
    for (int i = pts.firstClass; i <= n; ++i) {
        const auto p = fr.at(pts.x[i], pts.logit[i]);
        if (p.y < 5 || p.y > 95) continue;  // off the plot (logits of certain capture)
        DrawPointMark(canvas, p, pts.selected[i] ? kChosen : kBlack, pts.selected[i]);
    }
    if (fit) {
        int first = -1, last = -1;
        for (int i = 0; i <= n; ++i)
            if (pts.selected[i]) {
                if (first < 0) first = i;
                last = i;
            }
        if (first >= 0) {
            const double a = fit->a(), b = fit->b();
            canvas.SetPen(PenStyle::Solid, 2);
            UserPoint p1 = fr.at(pts.x[first], a + b * pts.x[first]);
            UserPoint p2 = fr.at(pts.x[last], a + b * pts.x[last]);
            // Logits of the end classes may lie far outside the scale: keep the line inside.
            if (ClipToFrame(p1, p2)) canvas.Line(p1.x, p1.y, p2.x, p2.y, kChosen);
            canvas.SetPen(PenStyle::Solid, 1);
        }
    }
    return fr;
}

ReportDescriptor SelectionReport(const std::string& title, const LfqData& header,
                                 const SelectionCurve& curve, std::time_t when) {
    auto rep = MakeReport("frmOutProbability", title, header.speciesname, when);
    auto& in = rep.addSection("Data", false);
    in.fields.push_back({"File:", header.path});
    in.fields.push_back({"Species:", header.speciesname});
    in.fields.push_back({"Identifiers:", header.otherId});
    auto& out = rep.addSection("Results", true);
    out.fields.push_back(NumberField("L25:", curve.l25, "0.00"));
    out.fields.push_back(NumberField("L50:", curve.l50, "0.00"));
    out.fields.push_back(NumberField("L75:", curve.l75, "0.00"));
    return rep;
}

}  // namespace norvo
