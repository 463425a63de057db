// Speed of the gillnet fit with its curves, of the recruitment projection (original and
// restructured data, with transformation and temporal weighting) and of the decomposition, on
// files of typical size: two nets of 60 classes; 12 monthly samples of 60 classes.
#include <benchmark/benchmark.h>

#include <cmath>

#include "selection/gillnet.h"
#include "selection/recruitment.h"
#include "selection/recruitment_normsep.h"

namespace {

norvo::LfqData MakeFile(int nS, int nC) {
    norvo::LfqData d;
    d.smallestMl = 0.5;
    d.classInterval = 1;
    d.noOfSamples = nS;
    d.noOfClasses = nC;
    d.freq.assign(static_cast<size_t>(nC), std::vector<double>(static_cast<size_t>(nS)));
    for (int s = 0; s < nS; ++s) {
        d.day.push_back(15);
        d.month.push_back(static_cast<int16_t>(s % 12 + 1));
        d.year.push_back(2001);
        const double mode = 12 + 2.5 * s;
        for (int c = 0; c < nC; ++c) {
            const double len = c + 0.5;
            d.freq[c][s] = std::floor(200 * std::exp(-0.5 * std::pow((len - mode) / 5, 2)) +
                                      40 * std::exp(-0.5 * std::pow((len - mode - 20) / 6, 2)) +
                                      (s * 7 + c * 13) % 5);
        }
    }
    return d;
}

void BM_Gillnet(benchmark::State& state) {
    const norvo::LfqData d = MakeFile(2, 60);
    norvo::GillnetOptions o;
    o.sampleA = 1;
    o.sampleB = 2;
    o.meshA = 5;
    o.meshB = 6;
    o.logNormal = state.range(0) != 0;
    for (auto _ : state) benchmark::DoNotOptimize(norvo::ComputeGillnet(d, o));
}
BENCHMARK(BM_Gillnet)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

void BM_Recruitment(benchmark::State& state) {
    const norvo::LfqData d = MakeFile(12, 60);
    norvo::RecruitmentOptions o;
    o.growth.loo = 70;
    o.growth.k = 0.6f;
    o.growth.c = state.range(1) != 0 ? 0.5f : 0;
    o.growth.wp = 0.2f;
    o.restructured = state.range(0) != 0;
    o.transform = norvo::CcTransform::Percent;
    o.temporal = true;
    for (auto _ : state) benchmark::DoNotOptimize(norvo::DoRecruitment(d, o));
}
BENCHMARK(BM_Recruitment)->Args({0, 0})->Args({1, 0})->Args({0, 1})->Unit(benchmark::kMicrosecond);

void BM_Normsep(benchmark::State& state) {
    norvo::RecruitmentOptions o;
    o.growth.loo = 70;
    o.growth.k = 0.6f;
    const auto r = norvo::DoRecruitment(MakeFile(12, 60), o);
    for (auto _ : state) benchmark::DoNotOptimize(norvo::DoNORMSEP(r.pattern, 3, 8));
}
BENCHMARK(BM_Normsep)->Unit(benchmark::kMicrosecond);

}  // namespace
