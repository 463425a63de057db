#include "mortality/catch_curve_plot.h"

#include <algorithm>
#include <cmath>

#include "base/basic.h"
#include "base/checked.h"
#include "base/format.h"
#include "chart/kind_a.h"

namespace norvo {

namespace {

constexpr Colour kChosen = kRed;
constexpr Colour kExtrapolated = Rgb(0, 0, 192);

}  // namespace

std::vector<UserPoint> CatchCurvePointPositions(const CatchCurveRun& run, const CcScale& s,
                                                const Extrapolation* ex) {
    std::vector<UserPoint> pts(run.X.size());
    for (size_t i = 1; i < run.X.size(); ++i) {
        const int cls = static_cast<int>(i);
        const bool rebuilt =
            ex && cls >= run.firstPoint && cls < run.lastPoint && i < ex->yWorking.size();
        const double y = rebuilt ? ex->yWorking[i] : run.Y[i];
        pts[i] = {20 + run.X[i] * s.xScale, 85 - (y - s.yMin) * s.yScale};
    }
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
    DrawPlotTitle(canvas, kCcTitle, 2);
    if (ex) DrawPlotTitle(canvas, ExtrapolationSubtitle(*ex), 7);
    DrawYTitle(canvas, CatchCurveYLabel(run.growth.c));
    DrawXTitle(canvas, CatchCurveXLabel(run.growth.t0));

    const auto pts = CatchCurvePointPositions(run, s, ex);
    const int f = run.firstPoint, l = run.lastPoint;
    for (int i = run.firstClass; i <= run.lastClass; ++i) {
        const bool chosen = (f > 0 && i >= f && i <= l) || i == pickedFirst || i == pickedLast;
        DrawPointMark(canvas, pts[i], chosen ? kChosen : kBlack, true);
    }
    if (ex)
        for (int i = 1; i < static_cast<int>(ex->yExtra.size()) && i < f; ++i)
            DrawPointMark(canvas, {xOf(run.X[i]), yOf(ex->yExtra[i])}, kExtrapolated, false);
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

ReportDescriptor CatchCurveReport(const LfqData& data, const CatchCurveRun& run, std::time_t when) {
    auto rep = MakeReport("frmOutCatchCurve", kCcReportTitle, data.speciesname, when);
    auto& in = rep.addSection("Data", false);
    in.fields.push_back({"File:", data.path});
    in.fields.push_back({"Species:", data.speciesname});
    in.fields.push_back({"Identifiers:", data.otherId});
    in.fields.push_back(NumberField("Loo:", run.growth.loo, "0.00"));
    in.fields.push_back(NumberField("K:", run.growth.k, "0.000"));
    in.fields.push_back(NumberField("C:", run.growth.c, "0.00"));
    in.fields.push_back(NumberField("WP:", run.growth.wp, "0.00"));
    in.fields.push_back(NumberField("t0:", run.growth.t0, "0.00"));
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

}  // namespace norvo
