// The searches on the real scoring engine: files simulated with known growth, parallel runs
// identical to single-threaded ones, and the starting-point modes.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>

#include "growth/elefan.h"
#include "growth/elefan_search.h"
#include "growth/elefan_search_engine.h"

namespace norvo {
namespace {

// A query: growth parameters with the starting point.
GrowthParams Query(float loo, float k, float c, float wp, float ss, float sl) {
    return {.loo = loo, .k = k, .c = c, .wp = wp, .ss = ss, .sl = sl};
}

struct Simulation {
    int samples = 12;
    int classes = 40;
    float ci = 1;
    double loo = 35;
    double k = 1;
    double sd = 1;
    int monthsApart = 1;
};

// Yearly cohorts born in April growing by the plain von Bertalanffy curve, each a normal
// component of its own strength, sampled on the 15th of every `monthsApart` month.
ElefanInput Simulate(const Simulation& sim) {
    static const int kMonthStart[13] = {0, 0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334};
    ElefanInput in;
    in.nS = sim.samples;
    in.nC = sim.classes;
    in.ci = sim.ci;
    in.firstMid = sim.ci / 2;
    in.freq.assign(static_cast<size_t>(in.nS) * in.nC, 0.0f);
    for (int s = 0; s < sim.samples; ++s) {
        const int months = s * sim.monthsApart;
        const int month = months % 12 + 1;
        const double t = months / 12 + (15.0 + kMonthStart[month]) / 365.0;
        in.day.push_back(15);
        in.month.push_back(static_cast<int16_t>(month));
        for (int born = -6; born <= months / 12; ++born) {
            const double age = t - (born + 0.25);
            if (age <= 0) continue;
            const double mean = sim.loo * (1 - std::exp(-sim.k * age));
            const double n = 1000 * std::exp(-1.2 * age);
            for (int c = 0; c < sim.classes; ++c) {
                const double mid = in.firstMid + c * sim.ci;
                const double z = (mid - mean) / sim.sd;
                const double f = n * sim.ci * std::exp(-0.5 * z * z) / (sim.sd * 2.5066282746);
                in.freq[static_cast<size_t>(s) * in.nC + c] += static_cast<float>(std::round(f));
            }
        }
    }
    return in;
}

std::vector<Simulation> ThreeFiles() {
    return {{10, 30, 1.0f, 28, 1.0, 1.0, 1},
            {12, 24, 2.0f, 45, 0.5, 2.0, 2},
            {8, 36, 0.5f, 17, 1.4, 0.6, 1}};
}

bool SameBits(float a, float b) {
    return std::memcmp(&a, &b, sizeof a) == 0;
}

void ExpectSameQuery(const GrowthParams& a, const GrowthParams& b) {
    EXPECT_TRUE(SameBits(a.loo, b.loo) && SameBits(a.k, b.k) && SameBits(a.c, b.c) &&
                SameBits(a.wp, b.wp) && SameBits(a.ss, b.ss) && SameBits(a.sl, b.sl));
}

TEST(SearchOnEngine, KScanAtTheTrueLooPeaksNearTheTrueK) {
    for (double k : {0.6, 1.0}) {
        Simulation sim;
        sim.k = k;
        auto scorer = MakeElefanScorerFromInput(Simulate(sim));
        ParallelRn rn(*scorer, 2);
        SearchSink sink;
        const auto [ss, sl] = scorer->defaultStart(static_cast<float>(sim.loo));
        const auto res = KScan(rn, {static_cast<float>(sim.loo), 0, 0, false, ss, sl}, sink);
        ASSERT_TRUE(res);
        EXPECT_NEAR(res->best.params.k, k, 0.15 * k) << "true K " << k;
        EXPECT_GT(res->best.rn, 0.5f);
    }
}

TEST(SearchOnEngine, ParallelRunsAreBitIdenticalToOneThread) {
    for (const Simulation& sim : ThreeFiles()) {
        auto scorer = MakeElefanScorerFromInput(Simulate(sim));
        ParallelRn one(*scorer, 1);
        ParallelRn two(*scorer, 2);
        ParallelRn three(*scorer, 3);
        SearchSink sink;
        const float loo = static_cast<float>(sim.loo);
        const auto [ss, sl] = scorer->defaultStart(loo);

        const KScanInput kin{loo, 0, 0, false, ss, sl};
        const auto k1 = KScan(one, kin, sink);
        const auto k2 = KScan(two, kin, sink);
        ASSERT_TRUE(k1 && k2);
        EXPECT_EQ(std::memcmp(&k1->table, &k2->table, sizeof(KScanTable)), 0);
        EXPECT_EQ(k1->best.column, k2->best.column);

        const SurfaceInput sin{0.2f, 2.0f, loo * 0.8f, loo * 1.3f, 0.3f, 0.5f, ss, sl};
        const GrowthParams previous = Query(loo, 1, 0, 0, ss, sl);
        const auto s1 = ResponseSurface(one, sin, previous, sink);
        const auto s3 = ResponseSurface(three, sin, previous, sink);
        ASSERT_TRUE(s1 && s3);
        EXPECT_EQ(std::memcmp(&s1->grid, &s3->grid, sizeof s1->grid), 0);
        EXPECT_TRUE(SameBits(s1->min, s3->min) && SameBits(s1->max, s3->max));

        AutoSearchInput ain;
        ain.loo = loo * 1.1f;
        ain.k = 0.5f;
        ain.c = 0.2f;
        ain.wp = 0.5f;
        ain.looStep = 1;
        ain.kStep = 0.05f;
        ain.cStep = 0.1f;
        ain.wpStep = 0.1f;
        const auto a1 = AutoSearch(one, ain, previous, sink);
        const auto a2 = AutoSearch(two, ain, previous, sink);
        ASSERT_TRUE(a1 && a2);
        ASSERT_EQ(a1->rows.size(), a2->rows.size());
        for (size_t i = 0; i < a1->rows.size(); ++i) {
            ExpectSameQuery(a1->rows[i].params, a2->rows[i].params);
            EXPECT_TRUE(SameBits(a1->rows[i].rn, a2->rows[i].rn));
        }
        ExpectSameQuery(a1->state, a2->state);
    }
}

TEST(SearchOnEngine, SearchImprovesOnItsSeedAndEndsOnTheLastPairTried) {
    Simulation sim;
    auto scorer = MakeElefanScorerFromInput(Simulate(sim));
    ParallelRn rn(*scorer, 2);
    SearchSink sink;
    AutoSearchInput in;
    in.loo = 38;
    in.k = 0.7f;
    in.looStep = 0.5f;
    in.kStep = 0.05f;
    const auto res = AutoSearch(rn, in, GrowthParams{}, sink);
    ASSERT_TRUE(res);
    ASSERT_GE(res->rows.size(), 2u);
    EXPECT_GT(res->rows.back().rn, res->rows.front().rn);
    for (size_t i = 1; i < res->rows.size(); ++i) EXPECT_GT(res->rows[i].rn, res->rows[i - 1].rn);
    // Every row's starting pair is the last one below its Loo: the last sample, the largest
    // length from FirstMid in half classes.
    const RnLayout& lay = scorer->layout();
    for (const SearchRow& row : res->rows) {
        EXPECT_EQ(row.params.ss, lay.nS);
        EXPECT_LT(row.params.sl, row.params.loo);
    }
}

TEST(SearchOnEngine, FaultsOfTheEngineEndTheRun) {
    Simulation sim;
    auto scorer = MakeElefanScorerFromInput(Simulate(sim));
    ParallelRn rn(*scorer, 2);
    SearchSink sink;
    // A surface whose Loo range reaches below the starting length takes the logarithm of a
    // non-positive number.
    EXPECT_THROW(
        ResponseSurface(rn, {0.5f, 1, 30, 10, 0, 0, 1, 20}, Query(30, 1, 0, 0, 1, 20), sink),
        ArithmeticFault);
}

}  // namespace
}  // namespace norvo
