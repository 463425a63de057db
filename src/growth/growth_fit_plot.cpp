#include "growth/growth_fit_plot.h"

#include <algorithm>
#include <cmath>
#include <functional>

#include "base/checked.h"
#include "base/format.h"
#include "chart/kind_a.h"

namespace norvo {
namespace {

constexpr double kLeft = 14, kRight = 85, kBottom = 85, kTop = 15;
constexpr int kTicks = 5;
constexpr const char* kTickPattern = "#0.0";

// Top of a range: the value x 1.1 rounded up to a whole number (at least 1).
double NiceTop(double v) {
    return std::max(1.0, std::ceil(v * 1.1));
}

// "#0.0", or more decimals when the steps of an axis are smaller than a tenth.
std::string TickPattern(double step) {
    const int decimals =
        step > 0 ? std::clamp(1 - static_cast<int>(std::floor(std::log10(step))), 1, 6) : 1;
    return "#0." + std::string(static_cast<size_t>(decimals), '0');
}

void DrawFrame(ChartCanvas& canvas, const FitPlotRange& r, const std::string& xTitle,
               const std::string& yTitle, char sep) {
    const std::string yPattern = TickPattern((r.yMax - r.yMin) / kTicks);
    BeginPercentCanvas(canvas);
    canvas.Line(kLeft, kBottom, kRight, kBottom, kBlack);
    canvas.Line(kLeft, kBottom, kLeft, kTop, kBlack);
    for (int k = 0; k <= kTicks; ++k) {
        const double ux = kLeft + k * (kRight - kLeft) / kTicks;
        DrawXTick(canvas, ux);
        DrawXLabel(canvas, ux,
                   FormatLocal(r.xMin + k * (r.xMax - r.xMin) / kTicks, kTickPattern, sep));
        const double uy = kBottom - k * (kBottom - kTop) / kTicks;
        canvas.Line(kLeft - 1, uy, kLeft, uy, kBlack);
        const std::string label =
            FormatLocal(r.yMin + k * (r.yMax - r.yMin) / kTicks, yPattern, sep);
        canvas.SetFont({kPlotFontFace, kKindALabelSize});
        canvas.MoveTo(
            kLeft - 2 - EstimatedTextWidthPoints(kKindALabelSize, label) * canvas.PointsToUserX(1),
            uy - 2);
        canvas.Print(label);
    }
    DrawYTitle(canvas, yTitle, 1.0, 65.0);
    DrawXTitle(canvas, xTitle, 40.0);
}

// A curve through the frame, the parts outside the y range left out.
void DrawCurve(ChartCanvas& canvas, const FitPlotRange& r, const std::function<double(double)>& f) {
    std::vector<UserPoint> run;
    auto flush = [&] {
        if (run.size() > 1) canvas.Polyline(run, kRed);
        run.clear();
    };
    const double step = (r.xMax - r.xMin) / kCurveSteps;
    for (int i = 0; i <= kCurveSteps; ++i) {
        const double x = r.xMin + i * step;
        double y = 0;
        try {
            y = f(x);
        } catch (const ArithmeticFault&) {
            flush();
            continue;
        }
        if (y < r.yMin || y > r.yMax) {
            flush();
            continue;
        }
        run.push_back(r.toUser(x, y));
    }
    flush();
}

std::string AgeUnitTitle(const std::string& unit) {
    return "Age (" + unit + ")";
}

}  // namespace

UserPoint FitPlotRange::toUser(double x, double y) const {
    return {kLeft + Div(x - xMin, xMax - xMin) * (kRight - kLeft),
            kBottom - Div(y - yMin, yMax - yMin) * (kBottom - kTop)};
}

bool FitPlotRange::toWorld(UserPoint p, double& x, double& y) const {
    if (p.x < kLeft || p.x > kRight || p.y < kTop || p.y > kBottom) return false;
    x = xMin + (p.x - kLeft) / (kRight - kLeft) * (xMax - xMin);
    y = yMin + (kBottom - p.y) / (kBottom - kTop) * (yMax - yMin);
    return true;
}

std::string SpeciesTitle(const LfqData& header) {
    return "Species: " + header.speciesname + " (" + header.otherId + ")";
}

FitPlotRange DrawLaaFit(ChartCanvas& canvas, const LaaData& data, const LaaRun& run, char sep) {
    const double divisor = LaaAgeDivisor(data.unitOfAge);
    FitPlotRange r;
    double ageMin = 0, ageMax = 0, lengthMax = 0;
    for (const auto& row : data.rows) {
        ageMin = std::min(ageMin, row[0] / divisor);
        ageMax = std::max(ageMax, row[0] / divisor);
        lengthMax = std::max<double>(lengthMax, row[1]);
    }
    if (run.fitted()) lengthMax = std::max<double>(lengthMax, run.estimate(kLaaLoo));
    r.xMin = std::floor(ageMin);
    r.xMax = std::max(r.xMin + 1, std::ceil(ageMax));
    r.yMax = NiceTop(lengthMax);
    const std::string unit = data.header.unitOfMeasurement;
    DrawFrame(canvas, r, AgeUnitTitle(divisor == 1 ? data.unitOfAge : "years"),
              "Length (" + unit + ")", sep);
    DrawPlotTitle(canvas, SpeciesTitle(data.header), 3);
    for (const auto& row : data.rows)
        DrawPointMark(canvas, r.toUser(row[0] / divisor, row[1]), kBlack, row[2] > 0);
    if (run.fitted()) {
        DrawPlotTitle(canvas, run.caption(sep), 9);
        DrawCurve(canvas, r, [&](double t) { return LaaCurve(run, t); });
    }
    return r;
}

FitPlotRange DrawLaaResiduals(ChartCanvas& canvas, const LaaData& data, const LaaRun& run,
                              char sep) {
    const double divisor = LaaAgeDivisor(data.unitOfAge);
    FitPlotRange r;
    double ageMin = 0, ageMax = 0, largest = 0;
    std::vector<std::pair<double, double>> points;
    for (const auto& row : data.rows) {
        const double age = row[0] / divisor;
        ageMin = std::min(ageMin, age);
        ageMax = std::max(ageMax, age);
        if (!run.fitted()) continue;
        const double res = row[1] - LaaCurve(run, static_cast<float>(age));
        largest = std::max(largest, std::abs(res));
        points.emplace_back(age, res);
    }
    r.xMin = std::floor(ageMin);
    r.xMax = std::max(r.xMin + 1, std::ceil(ageMax));
    const double top = largest > 0 ? largest * 1.1 : 1;
    r.yMin = -top;
    r.yMax = top;
    DrawFrame(canvas, r, AgeUnitTitle(divisor == 1 ? data.unitOfAge : "years"),
              "Residual (" + data.header.unitOfMeasurement + ")", sep);
    DrawPlotTitle(canvas, kLaaResidualTitle, 3);
    const UserPoint a = r.toUser(r.xMin, 0), b = r.toUser(r.xMax, 0);
    canvas.SetPen(PenStyle::Dashed, 1);
    canvas.Line(a.x, a.y, b.x, b.y, kBlack);
    canvas.SetPen(PenStyle::Solid, 1);
    for (const auto& [x, y] : points) DrawPointMark(canvas, r.toUser(x, y), kBlack, true);
    return r;
}

FitPlotRange DrawAppeldoornCurve(ChartCanvas& canvas, const GinData& data, const AppeldoornRun& run,
                                 char sep) {
    FitPlotRange r;
    const std::string unit = data.header.unitOfMeasurement;
    if (!run.fitted) {
        DrawFrame(canvas, r, kRelativeAgeTitle, "Length (" + unit + ")", sep);
        return r;
    }
    const double loo = run.fit.b[kApLoo], k = run.fit.b[kApK];
    // Relative age of a length on the plain curve; -1 at or above Loo.
    auto age = [&](double l) { return l < loo && k > 0 ? -std::log(1 - l / loo) / k : -1.0; };
    double xMax = k > 0 ? -std::log(0.05) / k : 1;
    for (const MarquardtObs& o : run.table) {
        const double a = age(o.length);
        if (a >= 0) xMax = std::max(xMax, a + (o.x - o.tb));
    }
    r.xMax = std::max(1.0, std::ceil(std::min(xMax, 100.0)));
    r.yMax = NiceTop(loo);
    DrawFrame(canvas, r, kRelativeAgeTitle, "Length (" + unit + ")", sep);
    DrawPlotTitle(canvas, SpeciesTitle(data.header), 3);
    const UserPoint a = r.toUser(0, loo), b = r.toUser(r.xMax, loo);
    canvas.SetPen(PenStyle::Dashed, 1);
    canvas.Line(a.x, a.y, b.x, b.y, kBlack);
    canvas.SetPen(PenStyle::Solid, 1);
    canvas.MoveTo(b.x + 1, b.y - 2);
    canvas.Print(kLooLabel);
    DrawCurve(canvas, r, [&](double t) { return AppeldoornCurve(run.fit, t); });
    for (const MarquardtObs& o : run.table) {
        const double a1 = age(o.length);
        if (a1 < 0) continue;
        const double l2 = o.length + o.y;
        const UserPoint p = r.toUser(a1, o.length), q = r.toUser(a1 + (o.x - o.tb), l2);
        canvas.Line(p.x, p.y, q.x, q.y, kBlack);
        DrawPointMark(canvas, p, kBlack, false);
        DrawPointMark(canvas, q, kBlack, true);
    }
    return r;
}

ReportDescriptor LaaReport(const LaaData& data, const LaaRun& run, std::time_t when) {
    auto rep = MakeReport(kLaaReportScreen, kLaaReportTitle, SpeciesTitle(data.header), when);
    auto& in = rep.addSection("Data", false);
    in.fields.push_back({"File:", data.header.path});
    in.fields.push_back({"Observations:", std::to_string(run.table.size())});
    in.fields.push_back({"Unit of age:", data.unitOfAge});
    auto& out = rep.addSection("Results", true);
    for (int p = 0; p < kLaaParams; ++p) {
        const auto param = static_cast<LaaParam>(p);
        out.fields.push_back({std::string(kLaaParamNames[p]) + ":",
                              Format(run.estimate(param), "#0.00") + " " + run.stars(param) +
                                  " (s.e. " + StdErrText(run.stdErr(param), "#0.0000") + ")"});
    }
    out.fields.push_back(NumberField("r:", run.fit.r2, "#0.0000"));
    out.fields.push_back(NumberField("Adjusted r:", run.fit.adjustedR2, "#0.0000"));
    rep.note = run.remarks;
    return rep;
}

ReportDescriptor AppeldoornReport(const GinData& data, const AppeldoornRun& run, std::time_t when) {
    auto rep = MakeReport(kApReportScreen, kApReportTitle, SpeciesTitle(data.header), when);
    auto& in = rep.addSection("Data", false);
    in.fields.push_back({"File:", data.header.path});
    in.fields.push_back({"Tagged fish:", std::to_string(run.table.size())});
    auto& out = rep.addSection("Results", true);
    constexpr const char* kPatterns[kApParams] = {"0.00", "0.000", "0.00", "0.00"};
    for (size_t p = 0; p < kApParams; ++p) {
        out.fields.push_back({std::string(kApParamNames[p]) + ":",
                              Format(run.fit.b[p], kPatterns[p]) + " (s.e. " +
                                  StdErrText(run.fit.stdErr[p], "0.000") + ")"});
    }
    rep.note = run.remarks;
    return rep;
}

}  // namespace norvo
