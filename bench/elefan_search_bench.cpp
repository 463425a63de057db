// The ELEFAN I searches on one thread and on two: the K-scan with its starting-point scan (up to
// 60 samples x 200 classes), the response surface, the finer 101 x 101 surface and the automatic
// search with a variable starting point.
#include <benchmark/benchmark.h>

#include <cmath>

#include "growth/elefan.h"
#include "growth/elefan_search.h"
#include "growth/elefan_search_engine.h"

namespace norvo {
namespace {

// A query: growth parameters with the starting point.
GrowthParams Query(float loo, float k, float c, float wp, float ss, float sl) {
    return {.loo = loo, .k = k, .c = c, .wp = wp, .ss = ss, .sl = sl};
}

// Yearly cohorts of a plain von Bertalanffy curve (Loo 0.9 of the top class, K 1) sampled
// monthly, each a normal component.
ElefanInput Simulated(int samples, int classes) {
    static const int kMonthStart[13] = {0, 0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334};
    ElefanInput in;
    in.nS = samples;
    in.nC = classes;
    in.ci = 1;
    in.firstMid = 0.5f;
    in.freq.assign(static_cast<size_t>(samples) * classes, 0.0f);
    const double loo = 0.9 * classes, k = 1.0, sd = classes / 40.0;
    for (int s = 0; s < samples; ++s) {
        const int month = s % 12 + 1;
        const double t = s / 12 + (15.0 + kMonthStart[month]) / 365.0;
        in.day.push_back(15);
        in.month.push_back(static_cast<int16_t>(month));
        for (int born = -6; born <= s / 12; ++born) {
            const double age = t - (born + 0.25);
            if (age <= 0) continue;
            const double mean = loo * (1 - std::exp(-k * age));
            const double n = 1000 * std::exp(-1.2 * age);
            for (int c = 0; c < classes; ++c) {
                const double z = (in.firstMid + c - mean) / sd;
                in.freq[static_cast<size_t>(s) * classes + c] +=
                    static_cast<float>(std::round(n * std::exp(-0.5 * z * z) / (sd * 2.5066)));
            }
        }
    }
    return in;
}

void BM_KScanWithStartingPointScan(benchmark::State& state) {
    const auto scorer = MakeElefanScorerFromInput(
        Simulated(static_cast<int>(state.range(0)), static_cast<int>(state.range(1))));
    ParallelRn rn(*scorer, static_cast<int>(state.range(2)));
    const float loo = 0.9f * static_cast<float>(state.range(1));
    const auto [ss, sl] = scorer->defaultStart(loo);
    SearchSink sink;
    for (auto _ : state) benchmark::DoNotOptimize(KScan(rn, {loo, 0, 0, false, ss, sl}, sink));
}
BENCHMARK(BM_KScanWithStartingPointScan)
    ->ArgNames({"samples", "classes", "threads"})
    ->Args({12, 40, 1})
    ->Args({12, 40, 2})
    ->Args({24, 70, 1})
    ->Args({24, 70, 2})
    ->Args({24, 80, 1})
    ->Args({24, 80, 2})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

// Five years of monthly samples at 0.5 cm classes: the large file users wait on.
ElefanInput LargeFile() {
    ElefanInput in = Simulated(60, 200);
    in.ci = 0.5f;
    in.firstMid = 0.25f;
    return in;
}

void BM_KScanLargeFile(benchmark::State& state) {
    const auto scorer = MakeElefanScorerFromInput(LargeFile());
    ParallelRn rn(*scorer, static_cast<int>(state.range(0)));
    const float loo = 0.9f * 100;
    const auto [ss, sl] = scorer->defaultStart(loo);
    SearchSink sink;
    for (auto _ : state) benchmark::DoNotOptimize(KScan(rn, {loo, 0, 0, false, ss, sl}, sink));
}
BENCHMARK(BM_KScanLargeFile)
    ->ArgName("threads")
    ->Arg(2)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime()
    ->Iterations(1);

// The finer 101 x 101 surface over a starting point fixed by the user.
void BM_FineSurface(benchmark::State& state) {
    const auto scorer = MakeElefanScorerFromInput(
        Simulated(static_cast<int>(state.range(0)), static_cast<int>(state.range(1))));
    ParallelRn rn(*scorer, static_cast<int>(state.range(2)));
    const float loo = 0.9f * static_cast<float>(state.range(1));
    const auto [ss, sl] = scorer->defaultStart(loo);
    const SurfaceInput in{0.2f, 2.0f, loo * 0.8f, loo * 1.2f, 0, 0, ss, sl};
    SearchSink sink;
    for (auto _ : state) benchmark::DoNotOptimize(ComputeFineSurface(rn, in, 101, sink));
}
BENCHMARK(BM_FineSurface)
    ->ArgNames({"samples", "classes", "threads"})
    ->Args({12, 40, 2})
    ->Args({24, 70, 2})
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

void BM_ResponseSurface(benchmark::State& state) {
    const auto scorer = MakeElefanScorerFromInput(Simulated(24, 80));
    ParallelRn rn(*scorer, static_cast<int>(state.range(0)));
    const auto [ss, sl] = scorer->defaultStart(72);
    const SurfaceInput in{0.2f, 2.0f, 60, 90, 0, 0, ss, sl};
    const GrowthParams previous = Query(72, 1, 0, 0, ss, sl);
    SearchSink sink;
    for (auto _ : state) benchmark::DoNotOptimize(ResponseSurface(rn, in, previous, sink));
}
BENCHMARK(BM_ResponseSurface)
    ->ArgName("threads")
    ->Arg(1)
    ->Arg(2)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

void BM_AutoSearchVariableStart(benchmark::State& state) {
    const auto scorer = MakeElefanScorerFromInput(Simulated(12, 40));
    ParallelRn rn(*scorer, static_cast<int>(state.range(0)));
    AutoSearchInput in;
    in.loo = 38;
    in.k = 0.6f;
    in.looStep = 0.5f;
    in.kStep = 0.05f;
    SearchSink sink;
    for (auto _ : state) benchmark::DoNotOptimize(AutoSearch(rn, in, GrowthParams{}, sink));
}
BENCHMARK(BM_AutoSearchVariableStart)
    ->ArgName("threads")
    ->Arg(1)
    ->Arg(2)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

void BM_AutoSearchVariableStartLarger(benchmark::State& state) {
    const auto scorer = MakeElefanScorerFromInput(Simulated(24, 70));
    ParallelRn rn(*scorer, static_cast<int>(state.range(0)));
    AutoSearchInput in;
    in.loo = 66;
    in.k = 0.6f;
    in.looStep = 0.5f;
    in.kStep = 0.05f;
    SearchSink sink;
    for (auto _ : state) benchmark::DoNotOptimize(AutoSearch(rn, in, GrowthParams{}, sink));
}
BENCHMARK(BM_AutoSearchVariableStartLarger)
    ->ArgName("threads")
    ->Arg(2)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

}  // namespace
}  // namespace norvo
