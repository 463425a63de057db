// Speed of the modal-progression computations on typical samples (60 classes, two or three
// cohorts): Bhattacharya's component with its subtraction, the mixture likelihood, a whole
// NORMSEP fit, and the growth and ages of 40 links.
#include <benchmark/benchmark.h>

#include <cmath>

#include "modal/bhattacharya.h"
#include "modal/linking.h"
#include "modal/normsep.h"
#include "numerics/normal_mixture.h"

namespace {

using namespace norvo;

double Phi(double x, double mean, double sd) {
    return 0.5 * std::erfc(-(x - mean) / (sd * std::sqrt(2.0)));
}

LfqData Sample() {
    LfqData d;
    d.smallestMl = 5.5;
    d.classInterval = 1;
    d.noOfSamples = 1;
    d.noOfClasses = 60;
    d.day = {15};
    d.month = {6};
    d.year = {2001};
    const double parts[3][3] = {{15, 2, 500}, {30, 3, 800}, {45, 4, 300}};
    for (int i = 0; i < 60; ++i) {
        const double lo = 5 + i;
        double f = 0;
        for (const auto& p : parts) f += p[2] * (Phi(lo + 1, p[0], p[1]) - Phi(lo, p[0], p[1]));
        d.freq.push_back({std::round(f)});
    }
    return d;
}

void BM_BhattacharyaComponent(benchmark::State& state) {
    const LfqData d = Sample();
    const BhSample start = StartBhattacharya(d, 1).sample;
    for (auto _ : state) {
        BhSample s = start;
        const BhTake t = PrepareComponent(s, 9, 17);
        AcceptComponent(s, t.component);
        benchmark::DoNotOptimize(s.observed.data());
    }
}
BENCHMARK(BM_BhattacharyaComponent);

void BM_NegLogLikelihood(benchmark::State& state) {
    const MixtureClasses c = SampleClasses(Sample(), 1);
    const std::vector<double> p = {15, 2, 0.3, 30, 3, 0.5, 45, 4};
    for (auto _ : state) benchmark::DoNotOptimize(NegLogLikelihood(p, c));
}
BENCHMARK(BM_NegLogLikelihood);

void BM_NormsepFit(benchmark::State& state) {
    const LfqData d = Sample();
    for (auto _ : state) benchmark::DoNotOptimize(RunNormsep(d, 1, {13.0, 32.0, 43.0}).fit.nll);
}
BENCHMARK(BM_NormsepFit)->Unit(benchmark::kMillisecond);

void BM_LinkGrowthAndAges(benchmark::State& state) {
    std::vector<LinkRow> links;
    for (int i = 0; i < 40; ++i) {
        const float l1 = 10.0f + static_cast<float>(i % 8) * 4;
        links.push_back(
            {1, 1 + i % 6, 2001 + i / 8, l1, 1, 7 + i % 6, 2001 + i / 8, l1 + (60 - l1) * 0.3f});
    }
    for (auto _ : state) {
        const LinkGrowth g = ComputeLinkGrowth(links);
        benchmark::DoNotOptimize(LinkAges(links, g).data());
    }
}
BENCHMARK(BM_LinkGrowthAndAges);

}  // namespace
