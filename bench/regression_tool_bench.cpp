// Speed of the regression tool: the transformation and fit of every form on 20, 200 and 2000
// pairs (a length-weight table is a few dozen), and the plot of the fitted pairs.
#include <benchmark/benchmark.h>

#include <cmath>

#include "chart/regress_plot.h"
#include "numerics/regression_tool.h"

namespace {

// Lengths 10 cm up with weights near 0.01 L^3, a little scatter on each.
norvo::XyfData MakePairs(int n) {
    norvo::XyfData d;
    d.graphTitle = "Length-weight";
    d.xAxis = "Length (cm)";
    d.yAxis = "Weight (g)";
    for (int i = 0; i < n; ++i) {
        const double len = 10.0 + 30.0 * i / n;
        d.x.push_back(static_cast<float>(len));
        d.y.push_back(
            static_cast<float>(0.01 * std::pow(len, 3) * (1.0 + 0.05 * ((i * 7) % 5 - 2))));
    }
    return d;
}

norvo::RegressOptions Options(int form) {
    norvo::RegressOptions o;
    o.form = form;
    o.c = form == norvo::kFormLnOneMinus ? 1000.0 : 0.5;  // above the largest weight (about 810)
    return o;
}

void BM_RunRegression(benchmark::State& state) {
    const auto data = MakePairs(static_cast<int>(state.range(0)));
    const auto o = Options(static_cast<int>(state.range(1)));
    for (auto _ : state) {
        auto run = norvo::RunRegression(data.x, data.y, o);
        benchmark::DoNotOptimize(run.fit);
    }
}
BENCHMARK(BM_RunRegression)
    ->ArgsProduct({{20, 200, 2000}, {0, 1, 2, 3, 4, 5, 6, 7, 8}})
    ->Unit(benchmark::kMicrosecond);

void BM_DrawRegression(benchmark::State& state) {
    const auto data = MakePairs(static_cast<int>(state.range(0)));
    const auto run = norvo::RunRegression(data.x, data.y, Options(norvo::kFormLogLog));
    norvo::ChartCanvas canvas;
    for (auto _ : state) {
        norvo::DrawRegression(canvas, data, run);
        benchmark::DoNotOptimize(canvas.commands().size());
    }
}
BENCHMARK(BM_DrawRegression)->Arg(20)->Arg(200)->Arg(2000)->Unit(benchmark::kMicrosecond);

}  // namespace
