// Speed of the relative yield-per-recruit analyses on typical inputs (M/K 1.5, Lc/Loo or
// L50/Loo 0.3, a selection table of 40 classes of 2 cm): the 2-D analyses with their reference
// points, the tops of the Y' axis and the surfaces with their drawing.
#include <benchmark/benchmark.h>

#include <cmath>

#include "chart/surface3d.h"
#include "stock/relative_ypr_knife.h"
#include "stock/relative_ypr_ogive.h"
#include "stock/relative_ypr_plot.h"

namespace {

using namespace norvo;

OgiveClasses TypicalClasses() {
    std::vector<float> len;
    for (int i = 0; i < 40; ++i) len.push_back(5.0f + 2.0f * i);
    return ClassesOfTable(len, 22.0f, 27.0f);
}

void BM_KnifeAnalysis(benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(AnalyseKnife(1.5f, 0.3f));
}
BENCHMARK(BM_KnifeAnalysis)->Unit(benchmark::kMillisecond);

void BM_KnifeTops(benchmark::State& state) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(YPrimeMaxFromSurface(1.5f));
        benchmark::DoNotOptimize(FindYPrimeMaxKnife(1.5f));
    }
}
BENCHMARK(BM_KnifeTops)->Unit(benchmark::kMillisecond);

void BM_KnifeSurfaceDrawn(benchmark::State& state) {
    SurfaceStyle style = YprSurfaceStyle(false, false);
    style.floor = style.ceiling = style.isopleths = true;
    for (auto _ : state) {
        ChartCanvas canvas;
        DrawSurface(canvas, YprSurfaceGrid(KnifeSurface(1.5f, false)), style);
        benchmark::DoNotOptimize(canvas.commands().size());
    }
}
BENCHMARK(BM_KnifeSurfaceDrawn)->Unit(benchmark::kMillisecond);

void BM_OgiveAnalysis(benchmark::State& state) {
    const OgiveClasses c = TypicalClasses();
    for (auto _ : state) benchmark::DoNotOptimize(AnalyseOgive(c, 1.5f, 0.3f, 90.0f));
}
BENCHMARK(BM_OgiveAnalysis)->Unit(benchmark::kMillisecond);

void BM_OgiveTop(benchmark::State& state) {
    const OgiveClasses c = TypicalClasses();
    for (auto _ : state) benchmark::DoNotOptimize(FindYPrimeMaxSelection(c, 1.5f, 90.0f));
}
BENCHMARK(BM_OgiveTop)->Unit(benchmark::kMillisecond);

void BM_OgiveSurfaceDrawn(benchmark::State& state) {
    const OgiveClasses c = TypicalClasses();
    SurfaceStyle style = YprSurfaceStyle(true, false);
    style.floor = style.ceiling = style.isopleths = true;
    for (auto _ : state) {
        ChartCanvas canvas;
        DrawSurface(canvas, YprSurfaceGrid(OgiveSurface(c, 1.5f, 90.0f, false)), style);
        benchmark::DoNotOptimize(canvas.commands().size());
    }
}
BENCHMARK(BM_OgiveSurfaceDrawn)->Unit(benchmark::kMillisecond);

}  // namespace
