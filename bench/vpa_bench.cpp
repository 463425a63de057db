// Speed of the two VPAs on typical inputs: a catch-at-age table of 15 groups at three time
// intervals, and a length-cohort analysis of 12 monthly samples x 60 classes with temporal
// weighting and two plus-groups, plus the stacked-bar picture of its result.
#include <benchmark/benchmark.h>

#include <cmath>

#include "chart/chart_canvas.h"
#include "stock/vpa_age.h"
#include "stock/vpa_length.h"
#include "stock/vpa_plot.h"

namespace {

norvo::AgeVpaOptions AgeInput(float dt) {
    norvo::AgeVpaOptions o;
    o.m = 0.25f;
    o.ft = 0.6f;
    o.dt = dt;
    double n = 1e7;
    for (int i = 0; i < 15; ++i) {
        const double f = 0.1 + 0.05 * i, z = (0.25 + f) * dt;
        o.catches.push_back(static_cast<float>(f * dt / z * n * (1 - std::exp(-z))));
        n *= std::exp(-z);
    }
    return o;
}

norvo::LfqData LengthInput() {
    norvo::LfqData d;
    d.smallestMl = 1;
    d.classInterval = 2;
    d.noOfClasses = 60;
    d.noOfSamples = 12;
    d.freq.assign(60, std::vector<double>(12));
    for (int s = 0; s < 12; ++s) {
        d.day.push_back(15);
        d.month.push_back(static_cast<int16_t>(s + 1));
        d.year.push_back(2001);
        for (int c = 0; c < 60; ++c)
            d.freq[c][s] = 500 * std::exp(-0.5 * std::pow((c - 15 - s) / 8.0, 2)) + (c % 3);
    }
    return d;
}

norvo::LengthVpaOptions LengthOptions() {
    norvo::LengthVpaOptions o;
    o.m = 0.4f;
    o.ft = 0.8f;
    o.loo = 125;
    o.k = 0.35f;
    o.plusGroups = 2;
    o.temporal = true;
    return o;
}

void BM_AgeVpa(benchmark::State& state) {
    const auto o = AgeInput(static_cast<float>(state.range(0)) / 100);
    for (auto _ : state) benchmark::DoNotOptimize(norvo::RunAgeVpa(o));
}
BENCHMARK(BM_AgeVpa)->Arg(100)->Arg(50)->Arg(10)->Unit(benchmark::kMicrosecond);

void BM_LengthVpa(benchmark::State& state) {
    const auto data = LengthInput();
    const auto o = LengthOptions();
    for (auto _ : state) benchmark::DoNotOptimize(norvo::RunLengthVpa(data, o));
}
BENCHMARK(BM_LengthVpa)->Unit(benchmark::kMicrosecond);

void BM_LengthVpaPicture(benchmark::State& state) {
    const auto r = norvo::RunLengthVpa(LengthInput(), LengthOptions());
    for (auto _ : state) {
        norvo::ChartCanvas canvas;
        norvo::DrawVpaBars(canvas, norvo::BarsOf(r));
        norvo::PutLegend(canvas, norvo::kLengthLegend, norvo::kVpaLegendHome);
        benchmark::DoNotOptimize(canvas.commands().size());
    }
}
BENCHMARK(BM_LengthVpaPicture)->Unit(benchmark::kMicrosecond);

}  // namespace
