#include "growth/vbgf_plot.h"

#include <algorithm>
#include <cmath>

#include "base/checked.h"
#include "base/format.h"
#include "chart/kind_a.h"
#include "chart/rotated_text.h"
#include "growth/elefan.h"
#include "growth/elefan_lfq.h"
#include "numerics/validators.h"

namespace norvo {

float ComputeL(double t, const GrowthParams& p, float t0) {
    double l = 0;
    if (p.c == 0.0f) {
        l = (1.0 - Exp(-(t - t0) * p.k)) * p.loo;
    } else {
        const double s =
            static_cast<double>(p.k) * p.c / kTwoPi * std::sin(((t - p.wp) + 0.5) * kTwoPi);
        l = (1.0 - Exp(-(s + (t - t0) * p.k))) * p.loo;
    }
    const float r = R4(static_cast<double>(R4(l)) + 0.005);
    return r < 0.0f ? 0.0f : r;
}

float ComputeT0(float sl, float t, const GrowthParams& p) {
    return GrowthT0(sl, t, p);
}

int SampleDayCount(const LfqData& data, int s) {
    const auto i = static_cast<size_t>(s);
    return int(data.year[i]) * 365 + MonthStart(data.month[i]) + data.day[i];
}

std::vector<int> SampleDays(const LfqData& data) {
    std::vector<int> days;
    if (data.noOfSamples <= 0) return days;
    const int origin = SampleDayCount(data, 0);
    for (int s = 0; s < data.noOfSamples; ++s) days.push_back(SampleDayCount(data, s) - origin);
    return days;
}

namespace {

int LastDay(const std::vector<int>& days) {
    return days.empty() ? 0 : std::max(0, *std::max_element(days.begin(), days.end()));
}

// The curve length, taken as 0 where the exponential would run far past any length (a young
// cohort long before it is born) so that a long axis cannot overflow it.
float LengthAt(double t, const GrowthParams& p, float t0) {
    if ((t - t0) * p.k < -600.0) return 0.0f;
    return ComputeL(t, p, t0);
}

}  // namespace

CurveTable ComputePoints(const LfqData& data, const GrowthParams& p) {
    CurveTable table;
    const std::vector<int> days = SampleDays(data);
    if (days.empty()) return table;
    const int ss = std::clamp(static_cast<int>(p.ss) - 1, 0, data.noOfSamples - 1);
    const auto si = static_cast<size_t>(ss);
    const float tSS = SampleTime(data.day[si], data.month[si]);
    const float t0 = ComputeT0(p.sl, tSS, p);
    const double daySS = days[si];
    const double firstLower = data.smallestMl - data.classInterval / 2;
    const double lastUpper = data.largestMl + data.classInterval / 2;
    // Times in years on the axis: day d is at tSS + (d - daySS) / 365.
    const double tFirst = tSS - daySS / 365.0;
    const double tLast = tSS + (LastDay(days) - daySS) / 365.0;

    // Cohort m is the curve m years older than the one through the starting point.
    auto fill = [&](int m) {
        auto at = [&](double t) { return LengthAt(t + m, p, t0); };
        // Back from the starting sample in whole years while the curve still stands within
        // the classes, not before the axis starts.
        double start = tSS;
        while (start >= tFirst && at(start - 1) >= firstLower) start -= 1;
        // Monthly steps at most, fewer on a long axis; the last point falls on the last sample.
        const double span = std::max(0.0, tLast - start);
        const int n = std::min(kMaxCohortPoints, static_cast<int>(std::ceil(span * 12 - 1e-9)) + 1);
        const double step = n > 1 ? span / (n - 1) : 0.0;
        const auto c = static_cast<size_t>(table.cohorts);
        bool inside = false, growing = false;
        for (int j = 0; j < n; ++j) {
            const double t = start + j * step;
            const float l = at(t);
            table.length[c][static_cast<size_t>(j)] = l;
            table.day[c][static_cast<size_t>(j)] = R4(daySS + (t - tSS) * 365.0);
            if (l >= firstLower && l < lastUpper) inside = true;
            if (l < 0.98 * p.loo) growing = true;
        }
        if (m != 0 && (!inside || !growing)) return false;
        table.points[c] = n;
        ++table.cohorts;
        return true;
    };

    fill(0);
    // Older and younger cohorts alternately; a younger one that has not reached the first
    // class by the last sample ends the younger side, an older one at its asymptote the older.
    bool older = true, younger = true;
    for (int m = 1; m <= 60 && table.cohorts < kMaxCohorts && (older || younger); ++m) {
        if (older && !fill(m)) older = false;
        if (table.cohorts >= kMaxCohorts) break;
        if (younger && !fill(-m)) younger = LengthAt(tLast - m, p, t0) >= firstLower;
    }
    return table;
}

std::vector<std::vector<double>> RestructureData(const LfqData& data) {
    const ElefanModel model = RestructureElefan(ElefanInputFromLfq(data));
    std::vector<std::vector<double>> out(static_cast<size_t>(data.noOfClasses),
                                         std::vector<double>(data.noOfSamples, 0.0));
    for (int c = 0; c < data.noOfClasses; ++c)
        for (int s = 0; s < data.noOfSamples; ++s)
            out[static_cast<size_t>(c)][static_cast<size_t>(s)] = model.pointsMaster(s + 1, c + 1);
    return out;
}

int ScrollRangeDays(const LfqData& data) {
    const double end = LastDay(SampleDays(data)) + kBarRoomDays;
    return std::max(0, static_cast<int>(std::ceil(end - kWindowDays)));
}

double DisplayAllZoom(const LfqData& data) {
    return std::max(1.0, (LastDay(SampleDays(data)) + kBarRoomDays) / kWindowDays);
}

int LengthTickStep(int classes) {
    if (classes < 10) return 1;
    if (classes <= 30) return 2;
    if (classes <= 80) return 5;
    return 10;
}

namespace {

// Every how many months a label is written, so labels do not run into each other.
int MonthLabelEvery(double zoom) {
    if (zoom <= 1.5) return 1;
    if (zoom <= 3) return 2;
    if (zoom <= 5) return 3;
    if (zoom <= 10) return 6;
    return 12;
}

void DrawTimeAxis(ChartCanvas& canvas, const LfqData& data, const PlotLayout& lay) {
    canvas.Line(kTimeAxisLeft, kTimeAxisY, kTimeAxisRight, kTimeAxisY, kBlack);
    const int origin = SampleDayCount(data, 0);
    const int year0 = data.year[0];
    const double lastDay = lay.windowStartDay + (kTimeAxisRight - kTimeAxisLeft) / lay.xPerDay;
    const int every = MonthLabelEvery(lay.zoom);
    FontStyle font;
    font.sizePoints = kKindALabelSize;
    canvas.SetFont(font);
    bool yearShown = false;
    for (int year = year0; year <= year0 + 200; ++year) {
        for (int month = 1; month <= 12; ++month) {
            const double day = double(year) * 365 + MonthStart(month) + 1 - origin;
            if (day > lastDay) return;
            if (day < lay.windowStartDay) continue;
            const double x = lay.X(day);
            canvas.Line(x, kTimeAxisY, x, kTimeAxisY + 1, kBlack);
            if ((month - 1) % every != 0) continue;
            canvas.MoveTo(x, kTimeAxisY + 1.5);
            canvas.Print(kMonthLabels[static_cast<size_t>(month - 1)]);
            // The year goes under January, and under the first label when January is not shown.
            if (month == 1 || !yearShown) {
                yearShown = true;
                canvas.MoveTo(x, kTimeAxisY + 4.5);
                canvas.Print(std::to_string(year));
            }
        }
    }
}

void DrawLengthAxis(ChartCanvas& canvas, const LfqData& data, const PlotLayout& lay) {
    const double top = lay.Y(lay.firstLower + lay.classes * lay.classInterval);
    canvas.Line(kTimeAxisLeft, kTimeAxisY, kTimeAxisLeft, top, kBlack);
    const int step = LengthTickStep(lay.classes);
    for (int c = 0; c <= lay.classes; c += step) {
        const double length = lay.firstLower + c * lay.classInterval;
        const double y = lay.Y(length);
        canvas.Line(kTimeAxisLeft - 1, y, kTimeAxisLeft, y, kBlack);
        const std::string text = Format(length, "0.0");
        const double w = canvas.PointsToUserX(EstimatedTextWidthPoints(kKindALabelSize, text));
        canvas.MoveTo(kTimeAxisLeft - 1.5 - w, y - 1.5);
        canvas.Print(text);
    }
    DrawRotatedText(canvas, "Length (" + data.unitOfMeasurement + ")", 900, kKindALabelSize, 2.0,
                    60.0);
}

}  // namespace

PlotLayout PlotHisto(ChartCanvas& canvas, const LfqData& data, const HistoOptions& o,
                     const std::vector<std::vector<double>>* restructured) {
    BeginPercentCanvas(canvas);
    PlotLayout lay;
    if (data.noOfSamples <= 0 || data.noOfClasses <= 0) return lay;
    lay.zoom = o.displayAll ? DisplayAllZoom(data) : 1.0;
    lay.windowStartDay =
        o.displayAll ? 0.0 : std::clamp(o.scrollDay, 0.0, double(ScrollRangeDays(data)));
    lay.xPerDay = (kTimeAxisRight - kTimeAxisLeft) / (kWindowDays * lay.zoom);
    lay.classes = data.noOfClasses;
    lay.yPerClass = (kTimeAxisY - kLengthAxisTop) / data.noOfClasses;
    lay.firstLower = data.smallestMl - data.classInterval / 2;
    lay.classInterval = data.classInterval;

    DrawTimeAxis(canvas, data, lay);
    DrawLengthAxis(canvas, data, lay);

    const bool useRestructured = o.restructured && restructured != nullptr;
    const auto& table = useRestructured ? *restructured : data.freq;
    double largest = 0;
    for (const auto& row : table)
        for (double v : row) largest = std::max(largest, std::abs(v));
    if (largest <= 0) return lay;

    const std::vector<int> days = SampleDays(data);
    const double maxUnits = kMaxBarUnits / lay.zoom;
    const double top = lay.Y(lay.firstLower + lay.classes * lay.classInterval);
    for (int s = 0; s < data.noOfSamples; ++s) {
        const double x = lay.X(days[static_cast<size_t>(s)]);
        if (x < kTimeAxisLeft - maxUnits || x > kTimeAxisRight) continue;
        if (x >= kTimeAxisLeft) canvas.Line(x, kTimeAxisY, x, top, Rgb(128, 128, 128));
        for (int c = 0; c < data.noOfClasses; ++c) {
            const double v = table[static_cast<size_t>(c)][static_cast<size_t>(s)];
            if (v == 0) continue;
            double x1 = x, x2 = x + v / largest * maxUnits;
            if (x2 < x1) std::swap(x1, x2);
            x1 = std::max(x1, kTimeAxisLeft);
            x2 = std::min(x2, kTimeAxisRight);
            if (x2 <= x1) continue;
            const double y1 = lay.Y(lay.firstLower + (c + 1) * lay.classInterval);
            const double y2 = lay.Y(lay.firstLower + c * lay.classInterval);
            if (o.solid)
                canvas.FilledBox(x1, y1, x2, y2, o.barColour);
            else
                canvas.Box(x1, y1, x2, y2, o.barColour);
        }
    }
    return lay;
}

namespace {

// Clips the segment to the rectangle (Liang-Barsky); false when nothing of it is inside.
bool ClipSegment(double& x1, double& y1, double& x2, double& y2, double left, double top,
                 double right, double bottom) {
    double t0 = 0, t1 = 1;
    const double dx = x2 - x1, dy = y2 - y1;
    const double p[4] = {-dx, dx, -dy, dy};
    const double q[4] = {x1 - left, right - x1, y1 - top, bottom - y1};
    for (int i = 0; i < 4; ++i) {
        if (p[i] == 0) {
            if (q[i] < 0) return false;
            continue;
        }
        const double r = q[i] / p[i];
        if (p[i] < 0)
            t0 = std::max(t0, r);
        else
            t1 = std::min(t1, r);
        if (t0 > t1) return false;
    }
    const double ox = x1, oy = y1;
    x1 = ox + t0 * dx;
    y1 = oy + t0 * dy;
    x2 = ox + t1 * dx;
    y2 = oy + t1 * dy;
    return true;
}

}  // namespace

void PlotCurve(ChartCanvas& canvas, const PlotLayout& lay, const CurveTable& table, Colour colour) {
    if (lay.classes <= 0) return;
    const double top = lay.Y(lay.firstLower + lay.classes * lay.classInterval);
    for (int c = 0; c < table.cohorts; ++c) {
        const auto ci = static_cast<size_t>(c);
        for (int j = 1; j < table.points[ci]; ++j) {
            const auto a = static_cast<size_t>(j - 1), b = static_cast<size_t>(j);
            double x1 = lay.X(table.day[ci][a]), y1 = lay.Y(table.length[ci][a]);
            double x2 = lay.X(table.day[ci][b]), y2 = lay.Y(table.length[ci][b]);
            if (ClipSegment(x1, y1, x2, y2, kTimeAxisLeft, top, kTimeAxisRight, kTimeAxisY))
                canvas.Line(x1, y1, x2, y2, colour);
        }
    }
}

CurveCheck CheckCurveInputs(const CurveInputs& in, const LfqData& data) {
    CurveCheck out;
    // Each check as the common validators make it, with their notice.
    auto real = [&](std::optional<double> v, double low, double high, const char* message) {
        if (v && InRange(*v, low, high)) return true;
        out.refuse(message, kValidatorTitle);
        return false;
    };
    auto whole = [&](std::optional<double> v, double low, double high, const char* message) {
        if (v && InRange(*v, low, high) && IsWholeValue(*v)) return true;
        out.refuse(message, kValidatorTitle);
        return false;
    };
    const double firstLower = data.smallestMl - data.classInterval / 2;
    const double lastUpper = data.largestMl + data.classInterval / 2;
    if (!real(in.loo, 1e-6, 1e6, kVbgfInvalidLoo) || !real(in.k, 1e-6, 100, kVbgfInvalidK) ||
        !real(in.c, 0, 1, kVbgfInvalidC) || !real(in.wp, 0, 1, kVbgfInvalidWP) ||
        !whole(in.ss, 1, data.noOfSamples, kVbgfInvalidSS) ||
        !real(in.sl, firstLower, lastUpper, kVbgfInvalidSL))
        return out;
    out.params.loo = R4(*in.loo);
    out.params.k = R4(*in.k);
    out.params.c = R4(*in.c);
    out.params.wp = R4(*in.wp);
    out.params.ss = R4(*in.ss);
    out.params.sl = R4(*in.sl);
    return out;
}

}  // namespace norvo
