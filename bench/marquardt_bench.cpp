// Speed of the fits on MarquardtFit: the plain and seasonal growth curves on 60 length-at-age
// readings (and on 600 after weights), and Appeldoorn's method on 40 and 400 tagged fish.
#include <benchmark/benchmark.h>

#include <cmath>

#include "growth/appeldoorn.h"
#include "growth/length_at_age.h"
#include "growth/vbgf.h"

namespace {

// Readings at ages 0.3..3 years on Loo 40, K 0.6, t0 -0.2 with some scatter; weights 0.5..1.4
// (so all are multiplied by 10) when `weighted`.
norvo::LaaData MakeLaa(int n, bool weighted) {
    norvo::LaaData d;
    d.unitOfAge = "year";
    for (int i = 0; i < n; ++i) {
        const double t = 0.3 + 2.7 * i / n;
        const double l = 40 * (1 - std::exp(-0.6 * (t + 0.2))) + 2.5 * std::sin(i * 1.7);
        const float w = weighted ? 0.5f + 0.1f * static_cast<float>(i % 10) : 1.0f;
        d.rows.push_back({static_cast<float>(t), static_cast<float>(l), w});
    }
    return d;
}

norvo::LaaOptions LaaOptions(const norvo::LaaData& d, bool seasonal) {
    norvo::LaaOptions o;
    o.constraints = norvo::DefaultLaaConstraints(d);
    o.constraints[norvo::kLaaT0] = {-2, 0, 2};
    if (seasonal) {
        o.constraints[norvo::kLaaC] = {0, 0.5f, 1};
        o.constraints[norvo::kLaaWP] = {0, 0.5f, 1};
    }
    return o;
}

void BM_LaaPlain(benchmark::State& state) {
    const auto d = MakeLaa(60, state.range(0) != 0);
    const auto o = LaaOptions(d, false);
    for (auto _ : state) benchmark::DoNotOptimize(norvo::ComputeLAA(d, o));
}
BENCHMARK(BM_LaaPlain)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

void BM_LaaSeasonal(benchmark::State& state) {
    const auto d = MakeLaa(60, state.range(0) != 0);
    const auto o = LaaOptions(d, true);
    for (auto _ : state) benchmark::DoNotOptimize(norvo::ComputeLAA(d, o));
}
BENCHMARK(BM_LaaSeasonal)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

// Fish tagged at lengths 10..40 and recaptured 60..420 days later on a seasonal curve.
norvo::GinData MakeGin(int n) {
    norvo::GinData d;
    for (int i = 0; i < n; ++i) {
        const float l1 = 10 + 30.0f * static_cast<float>((i * 37) % n) / static_cast<float>(n);
        const int days = 60 + (i * 53) % 360;
        const int m1 = 1 + i % 12, d1 = 1 + i % 28;
        const int start = norvo::MonthStart(m1) + d1 + days;
        const int y2 = 2000 + start / 365;
        int m2 = 12;
        while (m2 > 1 && norvo::MonthStart(m2) >= start % 365 + 1) --m2;
        const int d2 = std::max(1, start % 365 - norvo::MonthStart(m2));
        const double dt = days / 365.0;
        const double s = 0.6 * 0.5 / 6.2832 *
                         (std::sin(6.2832 * (start / 365.0 - 0.1)) -
                          std::sin(6.2832 * ((start - days) / 365.0 - 0.1)));
        const double l2 = 50 - (50 - l1) * std::exp(-0.6 * dt - s) + 0.3 * std::sin(i);
        d.rows.push_back({0, static_cast<float>(d1), static_cast<float>(m1), 2000, l1,
                          static_cast<float>(d2), static_cast<float>(m2), static_cast<float>(y2),
                          static_cast<float>(l2)});
    }
    return d;
}

void BM_Appeldoorn(benchmark::State& state) {
    const auto d = MakeGin(static_cast<int>(state.range(0)));
    norvo::AppeldoornOptions o;
    o.constraints = norvo::DefaultAppeldoornConstraints(d);
    for (auto _ : state) benchmark::DoNotOptimize(norvo::RunAppeldoorn(d, o));
}
BENCHMARK(BM_Appeldoorn)->Arg(40)->Arg(400)->Unit(benchmark::kMicrosecond);

}  // namespace
