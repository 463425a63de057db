// Shepherd's score of one pair of Loo and K, the K-scan (190 scores) and the 21 x 21 surface on a
// file of 24 monthly samples of 100 classes, on one thread.
#include <benchmark/benchmark.h>

#include <cmath>

#include "growth/shepherd_search.h"

namespace norvo {
namespace {

// Yearly cohorts of a von Bertalanffy curve (Loo 90, K 0.8) sampled monthly, each a normal mode.
ShepherdData Simulated(int samples, int classes) {
    ElefanInput in;
    in.nS = samples;
    in.nC = classes;
    in.ci = 1;
    in.firstMid = 0.5f;
    for (int s = 0; s < samples; ++s) {
        const int month = s % 12 + 1;
        in.day.push_back(15);
        in.month.push_back(static_cast<int16_t>(month));
        const double t = s / 12 + SampleTime(15, month);
        for (int c = 0; c < classes; ++c) {
            double f = 0;
            for (int age = 0; age < 6; ++age) {
                const double mean = 90 * (1 - std::exp(-0.8 * (t - s / 12 + age + 0.1)));
                f += 1000 * std::exp(-0.6 * age) *
                     std::exp(-0.5 * std::pow((c + 0.5 - mean) / 2.5, 2));
            }
            in.freq.push_back(static_cast<float>(std::floor(f)));
        }
    }
    return ShepherdDataOf(in);
}

const ShepherdData& File() {
    static const ShepherdData d = Simulated(24, 100);
    return d;
}

void BM_ShepherdScore(benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(ShepherdScore(File(), 95, 0.8f));
}
BENCHMARK(BM_ShepherdScore);

void BM_ShepherdKScan(benchmark::State& state) {
    const ShepherdScorer scorer(File());
    ParallelRn rn(scorer, 1);
    SearchSink sink;
    for (auto _ : state) benchmark::DoNotOptimize(ShepherdKScan(rn, scorer.data(), 95, sink));
}
BENCHMARK(BM_ShepherdKScan)->Unit(benchmark::kMillisecond);

void BM_ShepherdSurface(benchmark::State& state) {
    const ShepherdScorer scorer(File());
    ParallelRn rn(scorer, 1);
    SearchSink sink;
    for (auto _ : state) benchmark::DoNotOptimize(ShepherdSurface(rn, 0.1f, 2, 60, 120, 1, sink));
}
BENCHMARK(BM_ShepherdSurface)->Unit(benchmark::kMillisecond);

void BM_ShepherdStartLength(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(ShepherdStartLength(File(), 95, 0.8f, kShepherdPhase2));
}
BENCHMARK(BM_ShepherdStartLength);

}  // namespace
}  // namespace norvo
