#include "mortality/catch_curve_plot.h"

#include <algorithm>
#include <cmath>

#include "numerics/basic.h"
#include "numerics/checked.h"
#include "numerics/format.h"
#include "plot/kind_a.h"

namespace norvo {

namespace {

constexpr Colour kChosen = kRed;
constexpr Colour kExtrapolated = Rgb(0, 0, 192);
constexpr Colour kGuide = Rgb(0, 128, 0);

void Title(ChartCanvas& canvas, const std::string& text, double y) {
    FontSpec font;
    font.sizePoints = 10;
    font.bold = true;
    canvas.SetFont(font);
    // Estimated width in points, over 8 points per canvas unit at the nominal size.
    const double width =
        EstimatedTextWidthPoints(font.sizePoints, text) * 96.0 / 72.0 * 100.0 / canvas.widthPx();
    canvas.MoveTo(57.5 - width / 2, y);
    canvas.Print(text);
    FontSpec plain;
    plain.sizePoints = kKindALabelSize;
    canvas.SetFont(plain);
}

void PointMark(ChartCanvas& canvas, UserPoint p, Colour colour, bool filled) {
    if (filled) canvas.FilledBox(p.x - 0.7, p.y - 0.7, p.x + 0.7, p.y + 0.7, colour);
    canvas.Circle(p.x, p.y, 1.1, colour);
}

}  // namespace

std::vector<UserPoint> CatchCurvePointPositions(const CatchCurveRun& run, const CcScale& s) {
    std::vector<UserPoint> pts(run.X.size());
    for (size_t i = 1; i < run.X.size(); ++i)
        pts[i] = {20 + run.X[i] * s.xScale, 85 - (run.Y[i] - s.yMin) * s.yScale};
    return pts;
}

int HitCatchCurvePoint(const std::vector<UserPoint>& points, int first, int last, double x,
                       double y) {
    for (int i = std::max(first, 1); i <= last && i < static_cast<int>(points.size()); ++i)
        if (std::fabs(points[i].x - x) <= 1 && std::fabs(points[i].y - y) <= 1) return i;
    return -1;
}

CcScale DrawCatchCurve(ChartCanvas& canvas, const CatchCurveRun& run, int pickedFirst,
                       int pickedLast, const Extrapolation* ex) {
    const CcScale s = CatchCurveScale(run, ex ? ex->yExtra : std::vector<float>{});
    BeginPercentCanvas(canvas);
    DrawPercentFrame(canvas, kFrameTop);
    const auto yOf = [&](double y) { return 85 - (y - s.yMin) * s.yScale; };
    const auto xOf = [&](double x) { return 20 + x * s.xScale; };
    for (double y = s.yMin; y <= s.yMax + 1e-9; y += s.yStep) {
        DrawYTick(canvas, yOf(y));
        DrawYLabel(canvas, yOf(y), Format(y, "0.0"));
    }
    for (double x = 0; x <= s.xMax + 1e-9; x += s.xStep) {
        DrawXTick(canvas, xOf(x));
        DrawXLabel(canvas, xOf(x), Format(x, "0.0"));
    }
    Title(canvas, kCcTitle, 2);
    if (ex) Title(canvas, ExtrapolationSubtitle(*ex), 7);
    DrawYTitle(canvas, CatchCurveYLabel(run.c));
    DrawXTitle(canvas, CatchCurveXLabel(run.t0));

    const auto pts = CatchCurvePointPositions(run, s);
    const int f = run.firstPoint, l = run.lastPoint;
    for (int i = run.firstClass; i <= run.lastClass; ++i) {
        const bool chosen = (f > 0 && i >= f && i <= l) || i == pickedFirst || i == pickedLast;
        PointMark(canvas, pts[i], chosen ? kChosen : kBlack, true);
    }
    if (ex)
        for (int i = 1; i < static_cast<int>(ex->yExtra.size()) && i < f; ++i)
            PointMark(canvas, {xOf(run.X[i]), yOf(ex->yExtra[i])}, kExtrapolated, false);
    if (f > 0 && l > f) {
        const double a = run.fit.a(), b = run.fit.b();
        double x1 = ex ? run.X[1] : run.X[f], x2 = run.X[l];
        if (!ex && xOf(x1) < 20 && b != 0) x1 = Div(run.Y[f] - a, b);
        if (yOf(b * x2 + a) > 85 && b != 0) x2 = Div(run.Y[l] - a, b);
        canvas.SetPen(PenStyle::Solid, 2);
        canvas.Line(xOf(x1), yOf(b * x1 + a), xOf(x2), yOf(b * x2 + a), kChosen);
        canvas.SetPen(PenStyle::Solid, 1);
    }
    return s;
}

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
    Title(canvas, kSelPlotTitle, 2);
    DrawYTitle(canvas, kSelPlotYLabel);
    DrawXTitle(canvas, LengthClassesLabel(unit));
    for (int i = 1; i <= in.nC && i < static_cast<int>(in.probability.size()); ++i)
        PointMark(canvas, {xOf(in.midlength(i)), yOf(std::clamp(in.probability[i], 0.f, 1.f))},
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
    Title(canvas, kSelLogitTitle, 2);
    DrawYTitle(canvas, kSelLogitYLabel);
    DrawXTitle(canvas, LengthClassesLabel(unit));
    for (int i = pts.firstClass; i <= n; ++i) {
        const auto p = fr.at(pts.x[i], pts.logit[i]);
        if (p.y < 5 || p.y > 95) continue;  // off the plot (logits of certain capture)
        PointMark(canvas, p, pts.selected[i] ? kChosen : kBlack, pts.selected[i]);
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
            const auto p1 = fr.at(pts.x[first], a + b * pts.x[first]);
            const auto p2 = fr.at(pts.x[last], a + b * pts.x[last]);
            canvas.Line(p1.x, p1.y, p2.x, p2.y, kChosen);
            canvas.SetPen(PenStyle::Solid, 1);
        }
    }
    return fr;
}

ReportDescriptor CatchCurveReport(const LfqData& data, const CatchCurveRun& run, std::time_t when) {
    auto rep = MakeReport("frmOutCatchCurve", kCcReportTitle, data.speciesname, when);
    auto& in = rep.addSection("Data", false);
    in.fields.push_back({"File:", data.path});
    in.fields.push_back({"Species:", data.speciesname});
    in.fields.push_back({"Identifiers:", data.otherId});
    in.fields.push_back(NumberField("Loo:", run.loo, "0.00"));
    in.fields.push_back(NumberField("K:", run.k, "0.000"));
    in.fields.push_back(NumberField("C:", run.c, "0.00"));
    in.fields.push_back(NumberField("WP:", run.wp, "0.00"));
    in.fields.push_back(NumberField("t0:", run.t0, "0.00"));
    auto& out = rep.addSection("Results", true);
    using R = RegressionResult;
    out.fields.push_back(
        {"Points used:", std::to_string(run.firstPoint) + " to " + std::to_string(run.lastPoint)});
    out.fields.push_back(NumberField("Z:", -run.fit.b(), "0.00"));
    out.fields.push_back({"95% interval of Z:", Format(-run.fit[R::kBHigh], "0.00") + " to " +
                                                    Format(-run.fit[R::kBLow], "0.00")});
    out.fields.push_back(NumberField("Intercept (a):", run.fit.a(), "0.000"));
    out.fields.push_back(NumberField("Correlation coef. (r):", run.fit.r(), "0.0000"));
    return rep;
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
