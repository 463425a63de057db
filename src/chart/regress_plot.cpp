#include "chart/regress_plot.h"

#include <algorithm>
#include <cmath>

#include "base/checked.h"
#include "base/format.h"
#include "chart/kind_a.h"

namespace norvo {
namespace {

constexpr double kFrameTopRegress = kFrameBottom - kRegressFrameHeight;  // 20
constexpr double kFrameRightRegress = kFrameLeft + kRegressFrameWidth;   // 90

// "0", "0.0", "0.00", ... with `decimals` places.
std::string Pattern(int decimals) {
    return decimals <= 0 ? std::string("0")
                         : "0." + std::string(static_cast<size_t>(decimals), '0');
}

// A range of values widened by a twentieth on each side; alike values get +-0.5.
void Widen(const std::vector<float>& v, double& low, double& high) {
    const auto [mn, mx] = std::minmax_element(v.begin(), v.end());
    low = *mn;
    high = *mx;
    if (high - low <= 0.0) {
        low -= 0.5;
        high += 0.5;
        return;
    }
    const double pad = (high - low) / 20.0;
    low -= pad;
    high += pad;
}

// Clips the segment to the box [x0, x1] x [y0, y1] (Liang-Barsky); false when nothing is left.
bool ClipSegment(double& ax, double& ay, double& bx, double& by, double x0, double x1, double y0,
                 double y1) {
    double t0 = 0.0, t1 = 1.0;
    const double dx = bx - ax, dy = by - ay;
    const double p[4] = {-dx, dx, -dy, dy};
    const double q[4] = {ax - x0, x1 - ax, ay - y0, y1 - ay};
    for (int i = 0; i < 4; ++i) {
        if (p[i] == 0.0) {
            if (q[i] < 0.0) return false;
            continue;
        }
        const double t = q[i] / p[i];
        if (p[i] < 0.0)
            t0 = std::max(t0, t);
        else
            t1 = std::min(t1, t);
        if (t0 > t1) return false;
    }
    const double sx = ax, sy = ay;
    ax = sx + t0 * dx;
    ay = sy + t0 * dy;
    bx = sx + t1 * dx;
    by = sy + t1 * dy;
    return true;
}

}  // namespace

UserPoint RegressPlotRange::toUser(double x, double y) const {
    return {kFrameLeft + Div(x - xMin, xMax - xMin) * kRegressFrameWidth,
            kFrameBottom - Div(y - yMin, yMax - yMin) * kRegressFrameHeight};
}

RegressPlotRange RegressionPlotRange(const RegressRun& run) {
    RegressPlotRange r;
    if (run.x.empty()) return r;
    Widen(run.x, r.xMin, r.xMax);
    Widen(run.y, r.yMin, r.yMax);
    return r;
}

std::string RegressTickText(int form, bool yAxis, double v, double step, char decimalSeparator) {
    if (AxisHasInverse(form, yAxis)) {
        const double shown = AxisNumber(form, yAxis, v);
        if (shown == 0.0) return "0";
        const int e = static_cast<int>(std::floor(std::log10(std::fabs(shown))));
        return FormatLocal(shown, Pattern(std::clamp(2 - e, 0, 6)), decimalSeparator);
    }
    const int e = step > 0.0 ? static_cast<int>(std::floor(std::log10(step))) : 0;
    return FormatLocal(v, Pattern(std::clamp(1 - e, 0, 6)), decimalSeparator);
}

RegressPlotRange DrawRegression(ChartCanvas& canvas, const XyfData& file, const RegressRun& run,
                                char decimalSeparator) {
    const RegressPlotRange range = RegressionPlotRange(run);
    BeginPercentCanvas(canvas);
    canvas.Line(kFrameLeft, kFrameBottom, kFrameRightRegress, kFrameBottom, kBlack);
    canvas.Line(kFrameLeft, kFrameBottom, kFrameLeft, kFrameTopRegress, kBlack);

    const double xStep = (range.xMax - range.xMin) / kRegressTickSteps;
    const double yStep = (range.yMax - range.yMin) / kRegressTickSteps;
    for (int k = 0; k <= kRegressTickSteps; ++k) {
        const double ux = kFrameLeft + k * kRegressFrameWidth / kRegressTickSteps;
        DrawXTick(canvas, ux);
        DrawXLabel(
            canvas, ux,
            RegressTickText(run.form, false, range.xMin + k * xStep, xStep, decimalSeparator));
        const double uy = kFrameBottom - k * kRegressFrameHeight / kRegressTickSteps;
        DrawYTick(canvas, uy);
        DrawYLabel(
            canvas, uy,
            RegressTickText(run.form, true, range.yMin + k * yStep, yStep, decimalSeparator));
    }
    if (!file.graphTitle.empty()) DrawPlotTitle(canvas, file.graphTitle, 3);
    DrawPlotTitle(canvas, FunctionTitle(run.form), 10);
    DrawYTitle(canvas, AxisTitle(run.form, true, file.yAxis), 2.0, 65.0);
    DrawXTitle(canvas, AxisTitle(run.form, false, file.xAxis), 45.0);

    for (size_t i = 0; i < run.x.size(); ++i)
        DrawPointMark(canvas, range.toUser(run.x[i], run.y[i]), kBlack, true);

    if (!run.x.empty()) {
        const auto [lo, hi] = std::minmax_element(run.x.begin(), run.x.end());
        const double a = run.fit.a(), b = run.fit.b();
        double x1 = *lo, y1 = a + b * x1, x2 = *hi, y2 = a + b * x2;
        if (ClipSegment(x1, y1, x2, y2, range.xMin, range.xMax, range.yMin, range.yMax)) {
            const UserPoint p = range.toUser(x1, y1), q = range.toUser(x2, y2);
            canvas.SetPen(PenStyle::Solid, 2);
            canvas.Line(p.x, p.y, q.x, q.y, kRed);
            canvas.SetPen(PenStyle::Solid, 1);
        }
    }
    return range;
}

ReportDescriptor RegressionReport(const XyfData& file, const RegressRun& run, std::time_t when) {
    const std::string form = kRegressForms.at(static_cast<size_t>(run.form));
    auto rep =
        MakeReport(kRegressReportScreen, kRegressReportTitle + form + ")", file.graphTitle, when);
    auto& in = rep.addSection("Data", false);
    in.fields.push_back({"File:", file.header.path});
    in.fields.push_back({"Graph title:", file.graphTitle});
    in.fields.push_back({"X-axis:", file.xAxis});
    in.fields.push_back({"Y-axis:", file.yAxis});
    in.fields.push_back({"Remarks:", file.header.remarks});
    if (run.c) in.fields.push_back(NumberField("Constant (C):", *run.c, "#0.000"));
    using R = RegressionResult;
    const auto& f = run.fit;
    auto& out = rep.addSection("Results", true);
    out.fields.push_back(NumberField("n:", f[R::kN], "#0"));
    out.fields.push_back(NumberField("a:", f[R::kA], "#0.0000"));
    out.fields.push_back(NumberField("SE of a:", f[R::kSeA], "#0.0000"));
    out.fields.push_back(NumberField("b:", f[R::kB], "#0.0000"));
    out.fields.push_back(NumberField("SE of b:", f[R::kSeB], "#0.0000"));
    out.fields.push_back(NumberField("r:", f[R::kR], "#0.000"));
    out.fields.push_back(NumberField("Variance of the fit (F):", f[R::kF], "#0.0"));
    return rep;
}

}  // namespace norvo
