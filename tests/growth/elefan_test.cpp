#include "growth/elefan.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <thread>
#include <vector>

#include "base/checked.h"
#include "base/fault.h"

namespace norvo {
namespace {

ElefanInput MakeInput(float firstMid, float ci, const std::vector<std::vector<float>>& rows,
                      const std::vector<std::array<int16_t, 2>>& dates) {
    ElefanInput in;
    in.nS = static_cast<int32_t>(rows.size());
    in.nC = static_cast<int32_t>(rows.front().size());
    in.firstMid = firstMid;
    in.ci = ci;
    for (size_t s = 0; s < rows.size(); ++s) {
        in.freq.insert(in.freq.end(), rows[s].begin(), rows[s].end());
        in.day.push_back(dates[s][0]);
        in.month.push_back(dates[s][1]);
    }
    return in;
}

int FaultNumber(auto&& f) {
    try {
        f();
    } catch (const Fault& e) {
        return e.number();
    }
    return 0;
}

// The golden file: first midlength 10, class interval 2, eight classes (edges 9, 11, ... 25).
//
// Working of sample 1 (classes 2..7 occupied, compact n = 6, A = 2 6 3 1 4 2):
//   five-cell sums / 5:   11/5   12/5   16/5   16/5   10/5   7/5
//   ratios:               .90909 2.5    .9375  .3125  2      1.42857   mean r = 1.347944
//   ratio / r - 1:        -.32558 .85468 -.30450 -.76817 .48374 .05982   (cell 0: -1)
//   lone-peak penalty:    j=2 cell 0 empty -> /2; j=5 j+2 redirected -> /2; j=6 -> /4
//                         -.32558 .42734 -.30450 -.76817 .24187 .01495
//   balance q = .68416 / -1.39824:  -.15930 .42734 -.14899 -.37587 .24187 .01495
//   peaks: .42734 (ended by class 4), .24187 (run .24187 .01495)    ASP(1) = .66921
// Sample 2 (classes 1..5, A = 1 0 0 5 2): ratios 5 0 0 3.5714 1.4286, r = 2,
//   cells 1.5 -1 -1 .78571 -.28571; penalties /16 and /8; balance q = .19196 / -.28571:
//   .09375 0 0 .09821 -.19196; ASP(2) = .19196
// Sample 3 holds one class (n = 1, nothing), sample 4 nothing (n = -8, skipped).
// Sample 5 (all eight classes): peaks .28333 and .3125; ASP(5) = .59583.
const std::vector<std::vector<float>> kGoldenFreq = {
    {0, 2, 6, 3, 1, 4, 2, 0}, {1, 0, 0, 5, 2, 0, 0, 0}, {0, 0, 0, 0, 0, 7, 0, 0},
    {0, 0, 0, 0, 0, 0, 0, 0}, {3, 8, 4, 0, 0, 2, 9, 5},
};
const std::vector<std::array<int16_t, 2>> kGoldenDates = {
    {15, 3}, {1, 7}, {20, 11}, {10, 5}, {28, 0}};
const float kGoldenPoints[5][8] = {
    {0.000000f, -0.159304f, 0.427338f, -0.148992f, -0.375867f, 0.241871f, 0.014954f, 0.0f},
    {0.093750f, 0.000000f, 0.000000f, 0.098214f, -0.191964f, 0.000000f, 0.000000f, 0.0f},
    {0, 0, 0, 0, 0, 0, 0, 0},
    {0, 0, 0, 0, 0, 0, 0, 0},
    {-0.192857f, 0.283333f, 0.016667f, 0.000000f, 0.000000f, -0.482143f, 0.312500f, 0.0625f},
};
constexpr float kGoldenAsp = 1.457007f;

// Walks worked from the steps: Loo, K, C, WP, SS, SL -> Rn, ESP, curve origin.
// For the first: t(1) = 74/365, t0 = ln(1 - 14/30)/0.5 + t(1) = -1.054478; in sample 1 the
// curve is at 3.62 (below the lowest edge 11), then 14.005 (class 3, +.42734), 20.295
// (class 6, +.24187) and 24.11, past the sample's top edge 23.
struct GoldenWalk {
    float loo, k, c, wp, ss, sl;
    float rn, esp, t0;
};
const GoldenWalk kGoldenWalks[] = {
    {30, 0.5f, 0, 0, 1, 14, 0.272f, 0.631114f, -1.054478f},
    {30, 1, 0, 0, 1, 14, 0.251f, 0.581207f, -0.4258689f},
    {26, 0.8f, 0, 0, 2, 11, 0.093f, -0.048413f, -0.1889278f},
    {40, 0.3f, 0, 0, 5, 24, 0.093f, -0.047791f, -2.97759f},
    {24, 1.5f, 0, 0, 1, 12, 0.032f, -0.721136f, -0.2593584f},
    {30, 0.5f, 0.5f, 0.2f, 1, 14, 0.272f, 0.631114f, -1.055847f},
    {30, 1, 1, 0.5f, 3, 20, 0.067f, -0.261789f, -0.3141737f},
    {26, 0.8f, 0.3f, 0.9f, 2, 11, 0.154f, 0.272212f, -0.1611966f},
    {22, 2, 0, 0, 5, 10, 0.046f, -0.494219f, -0.2263556f},
    {35, 0.6f, 0.7f, 0.1f, 5, 16, 0.088f, -0.086492f, -0.9252262f},
    {28, 1.2f, 0, 0, 2, 18, 0.251f, 0.581207f, -0.359386f},
    {30, 0.5f, 0.0001f, 0, 1, 14, 0.272f, 0.631114f, -1.054493f},  // tiny C: seasonal route
};

GrowthParams Params(const GoldenWalk& w) {
    GrowthParams p;
    p.loo = w.loo;
    p.k = w.k;
    p.c = w.c;
    p.wp = w.wp;
    p.ss = w.ss;
    p.sl = w.sl;
    return p;
}

class GoldenFile : public ::testing::Test {
  protected:
    ElefanModel model = RestructureElefan(MakeInput(10, 2, kGoldenFreq, kGoldenDates));
};

TEST_F(GoldenFile, RestructuredPoints) {
    EXPECT_EQ(model.lastMid(), 24.0f);
    EXPECT_EQ(model.sampleFirstMid(1), 12.0f);
    EXPECT_EQ(model.sampleLastMid(1), 22.0f);
    EXPECT_EQ(model.sampleClasses(3), 1);
    EXPECT_EQ(model.sampleClasses(4), -8);  // an empty sample scans the whole row both ways
    EXPECT_EQ(model.sampleFirstMid(4), 26.0f);
    EXPECT_EQ(model.sampleLastMid(4), 8.0f);
    for (int s = 1; s <= 5; ++s) {
        for (int k = 1; k <= 8; ++k) {
            EXPECT_NEAR(model.pointsMaster(s, k), kGoldenPoints[s - 1][k - 1], 2e-6)
                << "sample " << s << " class " << k;
        }
    }
    EXPECT_NEAR(model.asp(), kGoldenAsp, 2e-6);
}

TEST_F(GoldenFile, ScoresOfTwelveParameterSets) {
    ElefanScratch scratch(model);
    for (const auto& w : kGoldenWalks) {
        float esp = 0, t0 = 0;
        const float rn = ComputeRn(model, Params(w), scratch, &esp, &t0);
        EXPECT_EQ(rn, w.rn) << "Loo " << w.loo << " K " << w.k << " C " << w.c;
        EXPECT_NEAR(esp, w.esp, 2e-6) << "Loo " << w.loo << " K " << w.k;
        EXPECT_FLOAT_EQ(t0, w.t0) << "Loo " << w.loo << " K " << w.k;
    }
}

TEST_F(GoldenFile, WalksLeaveTheTableAsFoundAndRunInParallel) {
    ElefanScratch scratch(model);
    std::vector<float> first;
    for (const auto& w : kGoldenWalks) first.push_back(ComputeRn(model, Params(w), scratch));
    for (int s = 1; s <= model.nS(); ++s) {
        for (int k = 1; k <= model.nC(); ++k) {
            ASSERT_EQ(scratch.point(s, k), model.pointsMaster(s, k));
        }
    }
    // Four threads, each with its own scratch, score every set many times over.
    std::vector<std::thread> threads;
    std::vector<int> mismatches(4, 0);
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&, i] {
            ElefanScratch own(model);
            for (int rep = 0; rep < 50; ++rep) {
                for (size_t j = 0; j < first.size(); ++j) {
                    if (ComputeRn(model, Params(kGoldenWalks[j]), own) != first[j]) {
                        ++mismatches[static_cast<size_t>(i)];
                    }
                }
            }
        });
    }
    for (auto& t : threads) t.join();
    EXPECT_EQ(mismatches, std::vector<int>(4, 0));
}

TEST_F(GoldenFile, DefaultStartingPoint) {
    // Lmax 24 * 1.05 = 25.2. The highest point below 0.95 * Loo is sample 1 class 3;
    // its length counts from the sample's own first class: 12 + 3 * 2 - 2 = 16.
    const float loo = DefaultKScanLoo(model);
    EXPECT_EQ(loo, 25.2f);
    const StartingPoint sp = DefaultStartingPoint(model, loo);
    EXPECT_EQ(sp.ss, 1.0f);
    EXPECT_EQ(sp.sl, 16.0f);
    // The 32-bit product as it is, not rounded to two decimals.
    EXPECT_EQ(DefaultKScanLoo(33.333), R4(static_cast<double>(33.333f) * 1.05));
    EXPECT_EQ(DefaultKScanLoo(37.5), 39.375f);
}

TEST_F(GoldenFile, ParameterFaults) {
    ElefanScratch scratch(model);
    GrowthParams p = Params(kGoldenWalks[0]);
    p.sl = p.loo;
    EXPECT_EQ(FaultNumber([&] { ComputeRn(model, p, scratch); }), 5);  // log of 0
    p = Params(kGoldenWalks[0]);
    p.k = 0;
    EXPECT_EQ(FaultNumber([&] { ComputeRn(model, p, scratch); }), 11);
    p = Params(kGoldenWalks[0]);
    p.ss = 6;
    EXPECT_THROW(ComputeRn(model, p, scratch), SubscriptFault);
    p.ss = 0.4f;  // rounds to sample 0
    EXPECT_THROW(ComputeRn(model, p, scratch), SubscriptFault);
}

TEST(ElefanScore, ThreeDecimalsWithTheFourStores) {
    EXPECT_EQ(ElefanScore(0, 1), 0.101f);
    EXPECT_EQ(ElefanScore(0.5f, 1), 0.317f);
    EXPECT_EQ(ElefanScore(1, 1), 1.0f);
    EXPECT_EQ(ElefanScore(-1, 1), 0.010f);
    EXPECT_EQ(ElefanScore(static_cast<float>(std::log10(0.25)), 1), 0.025f);
    EXPECT_EQ(FaultNumber([] { ElefanScore(0, 0); }), 11);
}

TEST(Restructure, EndsOfARow) {
    // Three classes 1 1 4: ratios .8333 .8333 3.3333, r = 5/3, cells -.5 -.5 1. The peak in the
    // last position has both right-hand neighbours redirected to the empty cell 0: quartered to
    // .25; the balance scales the troughs to -.125 each. The tail then halves the trough in the
    // last but one class. The mirror image 4 1 1 loses its trough in the last class.
    const auto right = RestructureElefan(MakeInput(5, 1, {{1, 1, 4}}, {{1, 1}}));
    EXPECT_NEAR(right.pointsMaster(1, 1), -0.125f, 1e-6);
    EXPECT_NEAR(right.pointsMaster(1, 2), -0.0625f, 1e-6);
    EXPECT_NEAR(right.pointsMaster(1, 3), 0.25f, 1e-6);
    EXPECT_NEAR(right.asp(), 0.25f, 1e-6);
    const auto left = RestructureElefan(MakeInput(5, 1, {{4, 1, 1}}, {{1, 1}}));
    EXPECT_NEAR(left.pointsMaster(1, 1), 0.25f, 1e-6);
    EXPECT_NEAR(left.pointsMaster(1, 2), -0.0625f, 1e-6);
    EXPECT_EQ(left.pointsMaster(1, 3), 0.0f);
}

TEST(Restructure, OneClassSamplesEarnNothing) {
    const auto m = RestructureElefan(MakeInput(10, 2, {{0, 5, 0}, {0, 0, 3}}, {{1, 1}, {1, 2}}));
    EXPECT_EQ(m.asp(), 0.0f);
    ElefanScratch scratch(m);
    GrowthParams p;
    p.loo = 20;
    p.k = 1;
    p.ss = 1;
    p.sl = 10;
    EXPECT_EQ(FaultNumber([&] { ComputeRn(m, p, scratch); }), 11);  // ESP / ASP with ASP 0
}

TEST(Restructure, ZeroClassIntervalDividesByZero) {
    EXPECT_EQ(FaultNumber([] { RestructureElefan(MakeInput(10, 0, {{1, 2, 3}}, {{1, 1}})); }), 11);
}

TEST(ScoreCurveHit, ClassEdgesAndPeakConsumption) {
    // One sample over five classes of 2 from 10: edges 9 11 13 15 17 19.
    const auto m = RestructureElefan(MakeInput(10, 2, {{1, 6, 5, 1, 3}}, {{1, 1}}));
    ElefanScratch scratch(m);
    ASSERT_GT(m.pointsMaster(1, 2), 0);
    ASSERT_GT(m.pointsMaster(1, 3), 0);
    ASSERT_LE(m.pointsMaster(1, 4), 0);
    float esp = 0;
    ScoreCurveHit(m, scratch, 1, 13.0f, esp);  // on the edge between classes 2 and 3
    EXPECT_EQ(esp, m.pointsMaster(1, 3));
    // The whole peak (classes 2 and 3) is consumed; the trough stays.
    EXPECT_EQ(scratch.point(1, 2), 0.0f);
    EXPECT_EQ(scratch.point(1, 3), 0.0f);
    EXPECT_EQ(scratch.point(1, 4), m.pointsMaster(1, 4));
    ScoreCurveHit(m, scratch, 1, 12.0f, esp);  // the consumed peak earns nothing again
    EXPECT_EQ(esp, m.pointsMaster(1, 3));
    ScoreCurveHit(m, scratch, 1, 15.5f, esp);  // a trough costs
    EXPECT_EQ(esp, R4(static_cast<double>(m.pointsMaster(1, 3)) + m.pointsMaster(1, 4)));
    const float before = esp;
    ScoreCurveHit(m, scratch, 1, 8.99f, esp);   // below the sample
    ScoreCurveHit(m, scratch, 1, 19.01f, esp);  // above it
    ScoreCurveHit(m, scratch, 1, 19.0f, esp);   // on its top edge: the scan gives up
    EXPECT_EQ(esp, before);
}

TEST(ScoreCurveHit, ClassOfMatchesTheFloatSummedLoop) {
    // Awkward decimals: the float-summed edges drift from the products.
    const float firstMid = 10.1f, ci = 0.3f;
    const int nC = 200;
    std::vector<std::vector<float>> rows(1, std::vector<float>(nC, 1.0f));
    const auto m = RestructureElefan(MakeInput(firstMid, ci, rows, {{1, 1}}));
    const float half = R4(ci / 2.0);
    auto loopClass = [&](float L) {
        float e = R4(static_cast<double>(firstMid) - half);
        if (L < e) return 0;
        int k = 1;
        while (R4(static_cast<double>(ci) + e) <= L) {
            e = R4(static_cast<double>(e) + ci);
            if (++k > nC) return nC + 1;
        }
        return k;
    };
    int checked = 0;
    for (int k = 1; k <= nC + 1; ++k) {
        const float edge = m.classEdge(k);
        for (float L :
             {edge, std::nextafter(edge, 0.0f), std::nextafter(edge, 1e9f), R4(edge + ci / 3.0)}) {
            ASSERT_EQ(m.classOf(L), loopClass(L)) << "L = " << L;
            ++checked;
        }
    }
    EXPECT_EQ(checked, 4 * (nC + 1));
    // The summed top edge falls short of the sample's upper limit, formed from the product:
    // a length in between lies in no class of the table.
    const float top = m.classEdge(nC + 1);
    ASSERT_LT(top, R4(static_cast<double>(m.sampleLastMid(1)) + half));
    ElefanScratch scratch(m);
    float esp = 0;
    EXPECT_THROW(ScoreCurveHit(m, scratch, 1, top, esp), SubscriptFault);
}

TEST(Walk, EdgesAtAndBelowZero) {
    GrowthParams p;
    p.loo = 30;
    p.k = 0.5f;
    p.ss = 1;
    p.sl = 10;
    // First edge exactly 0: the back-step stops as soon as the curve is floored at 0.
    const auto zero = RestructureElefan(MakeInput(1, 2, {{3, 1, 5, 2, 1, 4}}, {{1, 6}}));
    ElefanScratch s0(zero);
    EXPECT_GT(ComputeRn(zero, p, s0), 0.0f);
    // First edge below 0: the curve never gets there; the walk ends by an overflow fault.
    const auto below = RestructureElefan(MakeInput(0.5f, 2, {{3, 1, 5, 2, 1, 4}}, {{1, 6}}));
    ElefanScratch s1(below);
    EXPECT_EQ(FaultNumber([&] { ComputeRn(below, p, s1); }), 6);
    // The scratch is usable again after the fault.
    EXPECT_EQ(ComputeRn(zero, p, s0), ComputeRn(zero, p, s0));
}

// Samples of one date made of lone spikes in classes of 1 from 5, each spike where a cohort of
// the curve below crosses: the curve hits every peak, at its top, in the order the peaks were
// found. Sample s holds the cohorts whose bits are set in masks[s - 1].
GrowthParams SpikeCurve() {
    GrowthParams p;
    p.loo = 200;
    p.k = 0.4f;
    p.ss = 1;
    p.sl = 30.25f;
    return p;
}

ElefanInput SpikeFile(const std::vector<unsigned>& masks) {
    const GrowthParams p = SpikeCurve();
    const float t = SampleTime(15, 3);
    const float t0 = GrowthT0(p.sl, t, p);
    // Cohort lengths from the first above the lowest edge, a year apart.
    float at = t;
    while (GrowthLength(at, p, t0) > 5) at = R4(at - 1.0);
    std::vector<int> classes;
    for (float L = GrowthLength(at = R4(at + 1.0), p, t0); L < 150;
         L = GrowthLength(at = R4(at + 1.0), p, t0))
        classes.push_back(static_cast<int>(std::floor(L - 5)) + 1);
    std::vector<std::vector<float>> rows;
    std::vector<std::array<int16_t, 2>> dates;
    for (unsigned mask : masks) {
        std::vector<float> row(150, 0.0f);
        for (size_t c = 0; c < classes.size(); ++c)
            if (mask & (1u << c)) row[static_cast<size_t>(classes[c]) - 1] = 3;
        rows.push_back(row);
        dates.push_back({15, 3});
    }
    return MakeInput(5.5f, 1, rows, dates);
}

TEST(Walk, ACurveThroughEveryPeakScoresExactlyOne) {
    const std::vector<unsigned> masks = {0x3u, 0x3u, 0xbu};  // 2, 2 and 3 peaks
    const ElefanModel m = RestructureElefan(SpikeFile(masks));
    ElefanScratch scratch(m);
    float esp = 0;
    EXPECT_EQ(ComputeRn(m, SpikeCurve(), scratch, &esp), 1.0f);
    EXPECT_EQ(esp, m.asp());
    // Summed sample by sample, the same peaks make a different ASP, and the perfect fit would
    // score 1.001: the file tells the two sums apart.
    float bySample = 0;
    for (int s = 1; s <= m.nS(); ++s) {
        float sub = 0;
        for (int k = 1; k <= m.nC(); ++k)
            if (m.pointsMaster(s, k) > 0) sub = R4(static_cast<double>(sub) + m.pointsMaster(s, k));
        bySample = R4(static_cast<double>(bySample) + sub);
    }
    EXPECT_NE(bySample, m.asp());
    EXPECT_EQ(ElefanScore(esp, bySample), 1.001f);
}

TEST(Walk, MonthOutOfRangeFaultsWhenScored) {
    const auto m = RestructureElefan(MakeInput(10, 2, {{1, 6, 5}, {2, 7, 1}}, {{1, 1}, {1, 13}}));
    ElefanScratch scratch(m);
    GrowthParams p;
    p.loo = 30;
    p.k = 1;
    p.ss = 1;
    p.sl = 10;
    EXPECT_THROW(ComputeRn(m, p, scratch), SubscriptFault);
}

}  // namespace
}  // namespace norvo
