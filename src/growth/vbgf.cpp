#include "growth/vbgf.h"

#include <cmath>

#include "base/checked.h"
#include "base/fault.h"

namespace norvo {

double VbgfPlain(double t, double loo, double k, double t0) {
    return CheckFinite((1.0 - Exp(-((t - t0) * k))) * loo);
}

double VbgfSeasonal(double t, double loo, double k, double t0, double c, double wp) {
    const double ts = wp - 0.5;
    const double a = (t - t0) * k;
    const double b = k * c / kTwoPi;
    const double s0 = std::sin((t0 - ts) * kTwoPi) * b;
    const double s1 = std::sin((t - ts) * kTwoPi) * b;
    return CheckFinite((1.0 - Exp(-a - s1 + s0)) * loo);
}

int16_t MonthStart(int month) {
    if (month < 0 || month > 12) throw SubscriptFault("MonthStart");
    return kMonthStart[static_cast<size_t>(month)];
}

float SampleTime(int day, int month) {
    return R4((day + MonthStart(month)) / 365.0);
}

float GrowthLength(double t, const GrowthParams& p, float curveT0) {
    const double v = p.c == 0.0f ? VbgfPlain(t, p.loo, p.k, curveT0)
                                 : VbgfSeasonal(t, p.loo, p.k, curveT0, p.c, p.wp);
    const float l = R4(static_cast<double>(R4(v)) + 0.005);
    return l < 0.0f ? 0.0f : l;
}

double GrowthT0Log(float sl, float loo) {
    return Ln(1.0 - Div(sl, loo));
}

float GrowthT0(float sl, float t, const GrowthParams& p) {
    return GrowthT0FromLog(GrowthT0Log(sl, p.loo), t, p);
}

float GrowthT0FromLog(double lg, float t, const GrowthParams& p) {
    const float x = R4(Div(lg, p.k));
    if (p.c == 0.0f) return R4(static_cast<double>(x) + t);
    return R4(p.c * std::sin(((static_cast<double>(t) - p.wp) + 0.5) * kTwoPi) / kTwoPi + x + t);
}

}  // namespace norvo
