// Speed of the ELEFAN I engine: one score on files of 12 samples x 40 classes and 24 samples x
// 80 classes at slow, medium and fast growth, and the restructuring of the larger file.
#include <benchmark/benchmark.h>

#include <cmath>

#include "growth/elefan.h"

namespace {

// Monthly samples of three cohorts growing along a plain curve, with some scatter, so that
// each sample shows a few peaks and troughs.
norvo::ElefanInput MakeFile(int nS, int nC) {
    norvo::ElefanInput in;
    in.nS = nS;
    in.nC = nC;
    in.ci = 1;
    in.firstMid = 0.5f;
    const double loo = nC * 0.9, k = 0.8;
    for (int s = 1; s <= nS; ++s) {
        in.day.push_back(15);
        in.month.push_back(static_cast<int16_t>((s - 1) % 12 + 1));
        const double t = (s - 1) / 12.0;
        for (int c = 1; c <= nC; ++c) {
            const double len = c - 0.5;
            double f = 0;
            for (int age = 0; age < 3; ++age) {
                const double mode = loo * (1 - std::exp(-k * (t + age + 0.3)));
                const double sd = 1.5 + 0.5 * age;
                f += (60.0 / (age + 1)) * std::exp(-0.5 * std::pow((len - mode) / sd, 2));
            }
            f += (s * 7 + c * 13) % 5;  // scatter
            in.freq.push_back(static_cast<float>(std::floor(f)));
        }
    }
    return in;
}

void BM_ComputeRn(benchmark::State& state) {
    const int nS = static_cast<int>(state.range(0));
    const int nC = static_cast<int>(state.range(1));
    const float k = static_cast<float>(state.range(2)) / 10.0f;
    const norvo::ElefanModel model = norvo::RestructureElefan(MakeFile(nS, nC));
    norvo::ElefanScratch scratch(model);
    norvo::GrowthParams p;
    p.loo = norvo::DefaultKScanLoo(model);
    p.k = k;
    const auto sp = norvo::DefaultStartingPoint(model, p.loo);
    p.ss = sp.ss;
    p.sl = sp.sl;
    for (auto _ : state) benchmark::DoNotOptimize(norvo::ComputeRn(model, p, scratch));
    state.counters["calls/s"] =
        benchmark::Counter(static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}
// Arguments: samples, classes, K x 10.
BENCHMARK(BM_ComputeRn)
    ->Args({12, 40, 1})
    ->Args({12, 40, 10})
    ->Args({12, 40, 50})
    ->Args({24, 80, 1})
    ->Args({24, 80, 10})
    ->Args({24, 80, 50});

void BM_RestructureElefan(benchmark::State& state) {
    const norvo::ElefanInput in = MakeFile(24, 80);
    for (auto _ : state) benchmark::DoNotOptimize(norvo::RestructureElefan(in));
}
BENCHMARK(BM_RestructureElefan);

}  // namespace
