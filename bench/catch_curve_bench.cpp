// Speed of the catch curve from file to probabilities of capture: the plain pipeline with its
// default stretch and extrapolation, and the seasonal binning, on 12 samples of 60 classes.
#include <benchmark/benchmark.h>

#include <cmath>

#include "mortality/catch_curve_run.h"

namespace {

// Monthly samples of a stock with Z = 1 under knife-edge selection at 20 length units.
norvo::LfqData MakeFile() {
    norvo::LfqData d;
    d.smallestMl = 0.5;
    d.classInterval = 1;
    d.noOfClasses = 60;
    d.noOfSamples = 12;
    d.freq.assign(60, std::vector<double>(12, 0.0));
    const double loo = 70, k = 0.5;
    for (int s = 0; s < 12; ++s) {
        d.day.push_back(15);
        d.month.push_back(static_cast<int16_t>(s + 1));
        d.year.push_back(2001);
        for (int c = 0; c < 60; ++c) {
            const double len = c + 0.5;
            if (len < 20 || len >= loo) continue;
            const double age = -std::log(1 - len / loo) / k + s / 12.0;
            d.freq[static_cast<size_t>(c)][static_cast<size_t>(s)] =
                std::floor(1000 * std::exp(-age) * (1 + (s * 7 + c * 13) % 5 / 10.0));
        }
    }
    return d;
}

void BM_CatchCurvePlainWithExtrapolation(benchmark::State& state) {
    const norvo::LfqData d = MakeFile();
    norvo::CatchCurveOptions o;
    o.growth.loo = 70;
    o.growth.k = 0.5f;
    o.extrapolate = norvo::MortalityOptions{{}, 0.4, {}};
    for (auto _ : state) benchmark::DoNotOptimize(norvo::RunCatchCurve(d, o));
}
BENCHMARK(BM_CatchCurvePlainWithExtrapolation);

void BM_CatchCurveSeasonalBinning(benchmark::State& state) {
    const norvo::LfqData d = MakeFile();
    norvo::CatchCurveOptions o;
    o.growth.loo = 70;
    o.growth.k = 0.5f;
    o.growth.c = 0.5f;
    o.growth.wp = 0.2f;
    for (auto _ : state) benchmark::DoNotOptimize(norvo::CatchCurveMethod(d, o));
}
BENCHMARK(BM_CatchCurveSeasonalBinning);

}  // namespace
