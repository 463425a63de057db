// Speed of the growth-increment methods on files of 40 and 400 tagged fish: the Gulland and
// Holt line with its seasonal test, Munro's search, and Fabens' iteration.
#include <benchmark/benchmark.h>

#include <cmath>

#include "growth/fabens.h"
#include "growth/gulland_holt.h"
#include "growth/munro.h"

namespace {

// Fish tagged through two years at lengths 10..40 and recaptured 60..420 days later on the
// curve Loo 50, K 0.6, with a little scatter in the recapture length.
std::vector<norvo::GinRow> MakeRows(int n) {
    std::vector<norvo::GinRow> rows;
    for (int i = 0; i < n; ++i) {
        const float l1 = 10 + 30.0f * static_cast<float>((i * 37) % n) / static_cast<float>(n);
        const int days = 60 + (i * 53) % 360;
        const double l2 = 50 - (50 - l1) * std::exp(-0.6 * days / 365.0) + 0.3 * std::sin(i);
        const int m1 = 1 + i % 12;
        rows.push_back({0, 1, static_cast<float>(m1), 2000, l1, static_cast<float>(1 + days % 28),
                        static_cast<float>(m1), static_cast<float>(2000 + (days + 27) / 365 + 1),
                        static_cast<float>(l2)});
    }
    return rows;
}

void BM_GullandHolt(benchmark::State& state) {
    const auto rows = MakeRows(static_cast<int>(state.range(0)));
    for (auto _ : state) benchmark::DoNotOptimize(norvo::GullandHolt(rows, {}));
}
BENCHMARK(BM_GullandHolt)->Arg(40)->Arg(400)->Unit(benchmark::kMicrosecond);

void BM_Munro(benchmark::State& state) {
    const auto rows = MakeRows(static_cast<int>(state.range(0)));
    for (auto _ : state) benchmark::DoNotOptimize(norvo::Munro(rows, {}));
}
BENCHMARK(BM_Munro)->Arg(40)->Arg(400)->Unit(benchmark::kMicrosecond);

void BM_Fabens(benchmark::State& state) {
    const auto rows = MakeRows(static_cast<int>(state.range(0)));
    for (auto _ : state) benchmark::DoNotOptimize(norvo::Fabens(rows, {}));
}
BENCHMARK(BM_Fabens)->Arg(40)->Arg(400)->Unit(benchmark::kMicrosecond);

}  // namespace
