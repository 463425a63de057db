// Speed of the sample tools on a typical file (100 classes of 1 cm, 24 monthly samples): each
// tool's computation from the file's image to the new grid, without the disk.
#include <benchmark/benchmark.h>

#include <cmath>

#include "samples/adjust_smooth.h"
#include "samples/convert.h"
#include "samples/correct.h"
#include "samples/merge_pool.h"
#include "samples/raise.h"
#include "samples/sample_weight.h"

namespace {

using namespace norvo;

constexpr int kClasses = 100, kSamples = 24;

LfqData Data(double smallest = 5.5) {
    LfqData d;
    d.smallestMl = smallest;
    d.classInterval = 1;
    d.noOfSamples = kSamples;
    d.noOfClasses = kClasses;
    for (int s = 0; s < kSamples; ++s) {
        d.day.push_back(15);
        d.month.push_back(static_cast<int16_t>(s % 12 + 1));
        d.year.push_back(static_cast<int16_t>(2001 + s / 12));
    }
    for (int c = 0; c < kClasses; ++c) {
        std::vector<double> row;
        for (int s = 0; s < kSamples; ++s)
            row.push_back(std::round(200 * std::exp(-std::pow((c - 30 - s) / 12.0, 2))));
        d.freq.push_back(row);
    }
    return d;
}

std::vector<LfqSample> Records(const LfqData& d) {
    std::vector<LfqSample> out(d.noOfSamples);
    for (int s = 0; s < d.noOfSamples; ++s) {
        out[s].sampleNo = static_cast<int16_t>(s + 1);
        out[s].lwA = 0.01f;
        out[s].lwB = 3;
    }
    return out;
}

void BM_Merge(benchmark::State& state) {
    const LfqData a = Data(), b = Data(25.5);
    const auto ra = Records(a), rb = Records(b);
    for (auto _ : state) benchmark::DoNotOptimize(MergeData(a, ra, b, rb));
}
BENCHMARK(BM_Merge)->Unit(benchmark::kMicrosecond);

void BM_Pool(benchmark::State& state) {
    const LfqData d = Data();
    const std::vector<PoolSpec> pools = {{{0, 1, 2}, 1, 2, 2001}, {{3, 4, 5, 6}, 1, 5, 2001}};
    for (auto _ : state) benchmark::DoNotOptimize(PoolData(d, pools));
}
BENCHMARK(BM_Pool)->Unit(benchmark::kMicrosecond);

void BM_Adjust(benchmark::State& state) {
    const LfqData d = Data();
    const auto r = Records(d);
    for (auto _ : state) benchmark::DoNotOptimize(AdjustData(d, r, state.range(0) / 100.0));
}
BENCHMARK(BM_Adjust)->Arg(25)->Arg(70)->Arg(500)->Unit(benchmark::kMicrosecond);

void BM_Correct(benchmark::State& state) {
    const LfqData d = Data();
    const auto r = Records(d);
    for (auto _ : state) {
        const auto p = ProbabilitiesFromOgive(d, Ogive{20, 25, 80, 90});
        benchmark::DoNotOptimize(CorrectData(d, r, p.p));
    }
}
BENCHMARK(BM_Correct)->Unit(benchmark::kMicrosecond);

void BM_Smooth(benchmark::State& state) {
    const LfqData d = Data();
    const auto r = Records(d);
    for (auto _ : state) benchmark::DoNotOptimize(SmoothData(d, r, 5));
}
BENCHMARK(BM_Smooth)->Unit(benchmark::kMicrosecond);

void BM_Convert(benchmark::State& state) {
    const LfqData d = Data();
    const auto r = Records(d);
    for (auto _ : state) benchmark::DoNotOptimize(ConvertData(d, r, {2, 1.2, 0.9, 1.05}));
}
BENCHMARK(BM_Convert)->Unit(benchmark::kMicrosecond);

void BM_Raise(benchmark::State& state) {
    const LfqData d = Data();
    const auto r = Records(d);
    const std::vector<bool> all(kSamples, true);
    for (auto _ : state)
        benchmark::DoNotOptimize(RaiseData(d, r, all, RaiseOption::SqrtOfTotal, 0));
}
BENCHMARK(BM_Raise)->Unit(benchmark::kMicrosecond);

void BM_SampleWeight(benchmark::State& state) {
    const LfqData d = Data();
    const auto r = Records(d);
    for (auto _ : state) benchmark::DoNotOptimize(ComputeSampleWeights(d, r));
}
BENCHMARK(BM_SampleWeight)->Unit(benchmark::kMicrosecond);

}  // namespace
