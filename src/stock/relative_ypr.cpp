#include "stock/relative_ypr.h"

#include <cmath>

#include "base/basic.h"
#include "base/checked.h"
#include "base/fault.h"

namespace norvo {

namespace {

constexpr double kTableStep = 0.05;
constexpr int kMaxE10Passes = 100000;

// The 32-bit loop counter's next value: a float sum, rounded once.
float NextSingle(float x, float step) {
    return R4(double(x) + double(step));
}

}  // namespace

YieldCurveTable FillYieldCurveTable(const YprEvaluator& yield, const YprEvaluator& biomass) {
    YieldCurveTable t;
    float e = 0.05f;
    for (int i = 1; i <= 20; ++i) {
        if (e >= 1) e = 0.99f;
        t.y[i] = R4(yield(e));
        t.b[i] = R4(biomass(e));
        e = R4(Int((double(e) + 0.05) * 100 + 0.5) / 100);
    }
    return t;
}

double FindE50(const YieldCurveTable& table) {
    const auto& b = table.b;
    for (int i = 1; i <= 19; ++i) {
        if (double(b[i]) - 0.5 > 0) continue;
        const double drop = double(b[i - 1]) - double(b[i]);
        if (!(drop > 0)) return 0;
        const double eHi = kTableStep * i;
        const double eLo = kTableStep * (i - 1);
        return eHi + (eLo - eHi) * (0.5 - b[i]) / drop;
    }
    return 1;
}

double FindEmax(const YieldCurveTable& table, const YprEvaluator& yield) {
    const auto& y = table.y;
    for (int i = 1; i <= 19; ++i) {
        if (!(double(y[i]) - double(y[i + 1]) > 0)) continue;
        // A 32-bit counter whose start, end and step are rounded once; the end is included.
        const float start = R4(kTableStep * (i - 1));
        const float end = R4(kTableStep * (i + 1));
        const float step = 0.001f;
        double best = y[i + 1];
        double eMax = 1;
        for (float e = start; e <= end; e = NextSingle(e, step)) {
            const float at = e;
            const double v = yield(e);
            if (v > best) {
                best = v;
                eMax = at;
            }
        }
        return eMax;
    }
    return 1;
}

double FindE10(double eMax, YieldCurveTable& table, const YprEvaluator& yield,
               const YprEvaluator& yieldAtA) {
    float probe = 0.001f;
    const double slope = yield(probe) / 0.001;
    const double target = 0.1 * slope;
    if (eMax == 1) return 1;
    auto& Y = table.y;
    Y[0] = 0;
    auto stepSlope = [&](int k) { return (double(Y[k]) - double(Y[k - 1])) / kTableStep; };
    int i = 0;
    for (int k = 3; k <= 20; ++k) {
        if (stepSlope(k) <= target) {
            i = k;
            break;
        }
    }
    if (i == 0) return 1 - kTableStep;

    double a = kTableStep * (i - 2), b = kTableStep * (i - 1), c = kTableStep * i;
    double ya = Y[i - 2], yb = Y[i - 1];
    double ga = std::abs(stepSlope(i - 2) - target);
    double gb = std::abs(stepSlope(i - 1) - target);
    double gc = std::abs(stepSlope(i) - target);
    float x = 0;
    int passes = 0;
    while (std::abs(ga - gb) >= 0.000001 && std::abs(gc - gb) >= 0.000001) {
        if (++passes > kMaxE10Passes) ThrowOverflow();
        x = R4(c - (0.5 + 1 / (1 + std::abs(ga - gb) / std::abs(gc - gb))) * (b - a));
        const double y = yield(x);
        // The stop test as designed: true when x lies half a unit or more from b.
        if (a - x == 0 || RoundHalfEven(b - x) != 0) {
            ga = gb;
            gc = gb;
            continue;
        }
        if (x <= b) {
            c = b;
            b = x;
            gc = gb;
            gb = std::abs(Div(std::abs(ya - y), std::abs(a - x)) - target);
            float xNext = R4(2.0 * x - c);
            if (a - xNext == 0) {
                ga = gb;
                gc = gb;
                continue;
            }
            const double yNext = yield(xNext);
            ga = std::abs(std::abs(Div(ya - yNext, a - xNext)) - target);
            yb = y;
            ya = yieldAtA(xNext);
            a = xNext;
        } else {
            const double oldB = b;
            a = oldB;
            b = x;
            ga = gb;
            gb = std::abs(std::abs(Div(yb - y, oldB - x)) - target);
            float xNext = R4(2.0 * x - a);
            if (x - xNext == 0) {
                ga = gb;
                gc = gb;
                continue;
            }
            c = xNext;
            ya = yb;
            yb = y;
            const double yNext = yield(xNext);
            gc = std::abs(std::abs(Div(yNext - y, xNext - x)) - target);
        }
    }
    return double(x) - kTableStep;
}

std::vector<CurvePoint> YprCurve(const YprEvaluator& f) {
    std::vector<CurvePoint> points;
    for (float e = 0; double(e) < 1.04; e = NextSingle(e, 0.1f)) {
        const double v = f(e);
        points.push_back({e, v});
    }
    return points;
}

std::vector<YprRow> YprReportRows(const YprEvaluator& yield, const YprEvaluator& biomass) {
    std::vector<YprRow> rows;
    for (float e : kYprReportE) {
        YprRow r;
        r.e = e;
        float ey = e, eb = e;
        r.y = yield(ey);
        r.b = biomass(eb);
        rows.push_back(r);
    }
    return rows;
}

float YPrimeTopTruncated(double largest) {
    return R4(Int((0.1 * largest + largest) * 100) / 100);
}

float YPrimeTopRounded(double largest) {
    return R4(RoundHalfEven(largest * 1.1 * 100) / 100);
}

}  // namespace norvo
