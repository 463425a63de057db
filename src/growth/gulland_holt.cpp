#include "growth/gulland_holt.h"

#include <algorithm>
#include <cmath>

#include "base/checked.h"
#include "growth/growth_increments.h"

namespace norvo {

namespace {
constexpr double kOmega = 2 * kSeasonalPi / 365;
constexpr double kSeasonalNoise = 1e-4;  // percent
}  // namespace

std::string SeasonalText(double c) {
    if (c < 0.05) return "Seasonal growth oscillations are not significant (C<0.05).";
    if (c >= 0.1 && c <= 0.5)
        return "Seasonal growth oscillations are significant but small (C<0.5).";
    if (c > 0.5 && c <= 1) return "Seasonal growth oscillations are significant and strong (C<1).";
    return "Seasonal growth oscillations are very significant (C > 1).";
}

GullandHoltLine FitGullandHoltLine(std::vector<float> x, std::vector<float> y, float largestLength,
                                   std::optional<float> fixedLoo) {
    GullandHoltLine g;
    g.x = std::move(x);
    g.y = std::move(y);
    g.fixedLoo = fixedLoo;
    if (fixedLoo && !(*fixedLoo > 0)) {
        g.refuse(kGhNoFixedText, kGhNoFixedTitle);
        return g;
    }
    if (g.n() < 3) {
        g.noResult = true;
        return g;
    }
    // Constant x with varying rates would divide by zero inside the regression.
    if (std::all_of(g.x.begin(), g.x.end(), [&](float v) { return v == g.x.front(); })) {
        g.refuse(kGhSameLengthText, kGhRefusedTitle);
        return g;
    }
    LinearRegression(g.x, g.y, 0, g.n() - 1, g.regression);
    g.fitted = true;
    g.a = g.regression.a();
    g.b = g.regression.b();
    if (fixedLoo) {
        // The line through (Loo, 0) and the point of the means.
        const double meanX = g.regression[RegressionResult::kMeanX];
        const double meanY = g.regression[RegressionResult::kMeanY];
        if (meanX == *fixedLoo) {
            g.refuse(kGhRefusedText, kGhRefusedTitle);
            return g;
        }
        g.b = R4(meanY / (meanX - *fixedLoo));
        g.a = R4(-static_cast<double>(g.b) * *fixedLoo);
    }
    g.k = R4(-static_cast<double>(g.b) * 365);
    if (g.b >= 0) {
        if (g.b != 0) g.loo = R4(-static_cast<double>(g.a) / g.b);
        g.refuse(kGhRefusedText, kGhRefusedTitle);
        return g;
    }
    g.loo = fixedLoo ? *fixedLoo : R4(-static_cast<double>(g.a) / g.b);
    if (g.loo >= kGhLooCeiling || g.loo >= 3.0 * largestLength)
        g.refuse(kGhRefusedText, kGhRefusedTitle);
    return g;
}

double SeasonalFit::curve(double day) const {
    const double d = day > 182 ? day - 365 : day;
    return p * std::sin(kOmega * d) + q * std::cos(kOmega * d);
}

SeasonalFit FitSeasonal(const std::vector<int>& days, const std::vector<float>& x,
                        const std::vector<float>& y, float a, float b) {
    SeasonalFit s;
    double ss = 0, cc = 0, sc = 0, ys = 0, yc = 0;
    for (size_t i = 0; i < x.size(); ++i) {
        const double line = static_cast<double>(a) + static_cast<double>(b) * x[i];
        if (!(line > 0)) continue;
        const double dev = 100 * (y[i] - line) / line;
        s.points.push_back({days[i], dev});
        const double d = days[i] > 182 ? days[i] - 365 : days[i];
        const double sn = std::sin(kOmega * d), cs = std::cos(kOmega * d);
        ss += sn * sn;
        cc += cs * cs;
        sc += sn * cs;
        ys += dev * sn;
        yc += dev * cs;
    }
    // Normal equations of p sin + q cos; a singular pair (one date, or none) leaves no curve.
    const double det = ss * cc - sc * sc;
    if (s.points.size() >= 2 && std::fabs(det) > 1e-9 * std::max(1.0, ss * cc)) {
        s.p = (ys * cc - yc * sc) / det;
        s.q = (yc * ss - ys * sc) / det;
        const double amplitude = std::hypot(s.p, s.q);
        // An amplitude lost in the rounding of the rates is no oscillation.
        if (amplitude > kSeasonalNoise) {
            s.degenerate = false;
            s.c = amplitude / 100;
            // p sin + q cos = A sin(w d + phi); the minimum lies where w d + phi = -pi/2.
            const double phi = std::atan2(s.q, s.p);
            double day = (-kSeasonalPi / 2 - phi) / kOmega;
            day = std::fmod(day, 365.0);
            if (day < 0) day += 365;
            s.winterDay = day;
        }
    }
    s.text = SeasonalText(s.c);
    return s;
}

GullandHoltResult GullandHolt(const std::vector<GinRow>& rows, const GullandHoltOptions& options) {
    GullandHoltResult r;
    r.selected = FullFlags(rows, options.selected);
    if (options.fixedLoo && !(*options.fixedLoo > 0)) {
        r.fixedLoo = options.fixedLoo;
        r.refuse(kGhNoFixedText, kGhNoFixedTitle);
        return r;
    }
    r.absorb(CheckLibertyDays(rows, r.selected));
    if (!r.ok()) return r;
    std::vector<float> x, y;
    std::vector<int> days;
    for (size_t i = 0; i < rows.size(); ++i) {
        if (!r.selected[i]) continue;
        const auto& row = rows[i];
        const int dt = DaysAtLiberty(row);
        y.push_back(R4(Div(static_cast<double>(row[kLength2]) - row[kLength1], dt)));
        x.push_back(R4((static_cast<double>(row[kLength1]) + row[kLength2]) / 2));
        days.push_back(MidDayOfYear(row));
        r.rowOf.push_back(static_cast<int>(i));
    }
    static_cast<GullandHoltLine&>(r) =
        FitGullandHoltLine(std::move(x), std::move(y), LargestLength(rows), options.fixedLoo);
    if (r.hasLine()) r.seasonal = FitSeasonal(days, r.x, r.y, r.a, r.b);
    return r;
}

}  // namespace norvo
