// Speed of the Powell-Wetherall points and fit and of the Jones and van Zalinge points and fit,
// with their pictures, on 12 monthly samples of 60 classes.
#include <benchmark/benchmark.h>

#include <cmath>

#include "chart/chart_canvas.h"
#include "growth/powell_wetherall_plot.h"
#include "mortality/jones_van_zalinge_plot.h"

namespace {

// A steady-state stock with Z/K = 2 and Loo = 60: no class of the file is empty.
norvo::LfqData MakeFile() {
    norvo::LfqData d;
    d.smallestMl = 0.5;
    d.classInterval = 1;
    d.noOfClasses = 60;
    d.noOfSamples = 12;
    d.freq.assign(60, std::vector<double>(12, 0.0));
    auto above = [](double l) { return l >= 60 ? 0 : std::pow(60 - l, 2.0); };
    for (int s = 0; s < 12; ++s) {
        d.day.push_back(15);
        d.month.push_back(static_cast<int16_t>(s + 1));
        d.year.push_back(2001);
        for (int c = 0; c < 60; ++c)
            d.freq[static_cast<size_t>(c)][static_cast<size_t>(s)] =
                std::floor(above(c) - above(c + 1) + (s * 7 + c * 13) % 5) + 1;
    }
    return d;
}

void BM_PowellWetherall(benchmark::State& state) {
    const norvo::LfqData d = MakeFile();
    norvo::PowellWetherallOptions o;
    o.transform = norvo::CcTransform::Percent;
    o.temporal = true;
    norvo::ChartCanvas pw, pc;
    for (auto _ : state) {
        const auto data = norvo::PowellWetherallMethod(d, o);
        const auto fit = norvo::PowellWetherallFitFrom(data, 10);
        norvo::DrawPowellWetherall(pw, data, "cm", 10, &fit);
        norvo::DrawPseudoCatch(pc, data, "cm", 10);
        benchmark::DoNotOptimize(fit.loo);
    }
}
BENCHMARK(BM_PowellWetherall);

void BM_JonesVanZalinge(benchmark::State& state) {
    const norvo::LfqData d = MakeFile();
    norvo::JonesVanZalingeOptions o;
    o.loo = 60;
    o.k = 0.5f;
    o.transform = norvo::CcTransform::SquareRoot;
    o.temporal = true;
    o.points = norvo::PointRange{10, 50};
    norvo::ChartCanvas canvas;
    for (auto _ : state) {
        const auto run = norvo::RunJonesVanZalinge(d, o);
        norvo::DrawJonesVanZalinge(canvas, run);
        benchmark::DoNotOptimize(run.zk());
    }
}
BENCHMARK(BM_JonesVanZalinge);

}  // namespace
