#include "stock/vpa_length.h"

#include <gtest/gtest.h>

#include <cmath>

#include "../mortality/make_lfq.h"
#include "base/fault.h"

namespace norvo {
namespace {

using test::MakeLfq;

std::string RefusalText(const Outcome& o) {
    return o.refusal() ? o.refusal()->text : "";
}

LengthVpaOptions Params(float m, float ft, float loo, float k, int plus = 0) {
    LengthVpaOptions o;
    o.m = m;
    o.ft = ft;
    o.loo = loo;
    o.k = k;
    o.plusGroups = plus;
    return o;
}

// Catches of a steady-state population followed through classes of width 10 from L1 = 10
// under the given F by class; the last class takes all survivors at F = ft.
std::vector<double> ExactCatches(double n1, const std::vector<double>& f, double m, double loo,
                                 double k) {
    std::vector<double> c;
    double n = n1;
    for (size_t i = 0; i + 1 < f.size(); ++i) {
        const double lower = 10 + 10.0 * i;
        const double dt = std::log((loo - lower) / (loo - lower - 10)) / k;
        const double next = n * std::exp(-(m + f[i]) * dt);
        c.push_back(f[i] / (m + f[i]) * (n - next));
        n = next;
    }
    c.push_back(f.back() / (f.back() + m) * n);
    return c;
}

TEST(LengthVpa, ExactCatchesGiveBackTheirF) {
    const std::vector<double> f = {0.05, 0.3, 0.8, 1.2, 0.0, 0.9, 0.6, 0.7};
    const double m = 0.4, loo = 110, k = 0.3;
    auto catches = ExactCatches(1e5, f, m, loo, k);
    // Split over two samples so that the sum over samples is exercised.
    std::vector<double> half(catches.size());
    for (size_t i = 0; i < catches.size(); ++i) half[i] = catches[i] / 2;
    const LfqData data = MakeLfq(15, 10, {half, half});
    const auto r = RunLengthVpa(data, Params(0.4f, 0.7f, 110, 0.3f));
    ASSERT_TRUE(r.ok()) << RefusalText(r);
    EXPECT_EQ(r.n, 8);
    EXPECT_EQ(r.nUsed, 8);
    EXPECT_FALSE(r.plusAdjusted);
    EXPECT_EQ(r.L1, 10);
    double n = 1e5;
    for (int i = 1; i <= 8; ++i) {
        SCOPED_TRACE(i);
        EXPECT_NEAR(r.F[i], f[i - 1], 1e-5);
        EXPECT_NEAR(r.N[i] / n, 1, 1e-5);
        n *= std::exp(-(m + f[i - 1]) * r.Dt[i]);
    }
    // The empty class: F = 0, N from Pope's step alone, no iteration.
    EXPECT_EQ(r.F[5], 0.0f);
    EXPECT_EQ(r.rounds[5], 0);
    EXPECT_FLOAT_EQ(r.N[5], static_cast<float>(r.N[6] * std::exp(m * r.Dt[5])));
    EXPECT_NEAR(r.Dt[2], std::log(90.0 / 80.0) / static_cast<double>(0.3f), 1e-12);
}

TEST(LengthVpa, CohortStepEdges) {
    // Iteration: stops from the second round on, well within its limit.
    const CohortStep s = LengthCohortStep(1000, 400, 0.3, 0.5);
    EXPECT_GE(s.rounds, 2);
    EXPECT_LT(s.rounds, kLcaRoundLimit);
    const double z = 0.3 * 0.5 + s.f * 0.5;
    EXPECT_NEAR(s.f * 0.5 / z * (s.n - 1000), 400, 400 * 1e-4);
    // An empty next class starts from 1e-15: a huge but finite F.
    const CohortStep e = LengthCohortStep(0, 50, 0.3, 0.5);
    EXPECT_TRUE(std::isfinite(e.f));
    EXPECT_GT(e.f, std::log(50 / 1e-15) / 0.5 * 0.9);
    // No natural mortality and no catch: Er = 0/0.
    EXPECT_THROW(LengthCohortStep(1000, 0, 0, 0.5), ArithmeticFault);
}

TEST(LengthVpa, LooForcesPlusGroupsWithANotice) {
    const LfqData data = MakeLfq(15, 10, {{100, 300, 250, 180, 90, 40, 20, 5}});
    // Loo = 65 leaves (65 - 10)/10 -> 5 classes below it.
    auto r = RunLengthVpa(data, Params(0.3f, 0.5f, 65, 0.4f, 1));
    ASSERT_TRUE(r.ok());
    ASSERT_EQ(r.notices.size(), 1u);
    EXPECT_EQ(r.notices[0].text, kVpaPlusAdjustedText);
    EXPECT_EQ(r.plusGroups, 3);
    EXPECT_EQ(r.nUsed, 5);
    EXPECT_EQ(r.cPlus, 90 + 40 + 20 + 5);
    EXPECT_EQ(r.C[5], 155.0f);
    for (int i = 6; i <= 8; ++i) {
        EXPECT_EQ(r.C[i], 0.0f);
        EXPECT_EQ(r.N[i], 0.0f);
        EXPECT_EQ(r.F[i], 0.5f);
        EXPECT_EQ(r.Biomass[i], 0.0f);
    }
    EXPECT_FLOAT_EQ(r.N[5], 155 / (0.5 / 0.8));
    // The terminal class's weight runs to Loo when plus-groups lie beyond it.
    const double l = 50, w = 15;
    EXPECT_FLOAT_EQ(r.Biomass[5], static_cast<float>(r.N[5] / 0.8 * ClassWeight(l, w, 0.0001, 3)));

    // More plus-groups than Loo needs stay as they are, silently.
    r = RunLengthVpa(data, Params(0.3f, 0.5f, 65, 0.4f, 4));
    ASSERT_TRUE(r.ok());
    EXPECT_TRUE(r.notices.empty());
    EXPECT_EQ(r.nUsed, 4);
    EXPECT_EQ(r.cPlus, 180 + 90 + 40 + 20 + 5);
}

TEST(LengthVpa, RaisingScalesUsedClassesOnly) {
    const LfqData data = MakeLfq(15, 10, {{1, 2, 3, 4, 5, 6}});
    auto o = Params(0.3f, 0.5f, 200, 0.2f, 2);
    o.raise = 2;
    const auto r = RunLengthVpa(data, o);
    ASSERT_TRUE(r.ok());
    EXPECT_EQ(r.C[1], 100.0f);
    EXPECT_EQ(r.C[3], 300.0f);
    // Class 4 (raised) plus classes 5 and 6 as written.
    EXPECT_EQ(r.cPlus, 400 + 5 + 6);
    // Biomass of a class: Dt x mean number x W(L, dL).
    const double meanN = (r.N[2] - r.N[3]) / ((0.3 + r.F[2]) * r.Dt[2]);
    EXPECT_FLOAT_EQ(r.Biomass[2],
                    static_cast<float>(r.Dt[2] * meanN * ClassWeight(20, 10, 0.0001, 3)));
    EXPECT_NEAR(ClassWeight(20, 10, 0.0001, 3), 0.0001 / 4 * (std::pow(30, 4) - std::pow(20, 4)),
                1e-9);
}

TEST(LengthVpa, TransformationAndTemporalWeighting) {
    // Two samples on day numbers 74 (15 March) and 196 (15 July).
    const LfqData data = MakeLfq(15, 10, {{10, 30, 60}, {5, 5, 10}}, {15, 15}, {3, 7});
    auto o = Params(0.3f, 0.5f, 200, 0.2f);
    o.transform = CcTransform::Percent;
    o.selected = {false, true};
    auto r = RunLengthVpa(data, o);
    ASSERT_TRUE(r.ok());
    EXPECT_FLOAT_EQ(r.C[1], 25);
    EXPECT_FLOAT_EQ(r.C[3], 50);

    // Weighting takes neighbours whether selected or not: sample 2 is 122 days from sample 1
    // and 243 from the wrap to 74 + 365.
    o.transform = CcTransform::Raw;
    o.temporal = true;
    r = RunLengthVpa(data, o);
    EXPECT_FLOAT_EQ(r.C[1], static_cast<float>(5 * std::sqrt(122.0)));
    // A single sample measures against day 0 or the wrap.
    const LfqData one = MakeLfq(15, 10, {{10, 30, 60}}, {15}, {3});
    o.selected = {};
    r = RunLengthVpa(one, o);
    EXPECT_FLOAT_EQ(r.C[1], static_cast<float>(10 * std::sqrt(74.0)));
}

TEST(LengthVpa, Refusals) {
    const LfqData data = MakeLfq(15, 10, {{10, 30, 60, 20}, {0, 0, 0, 0}});
    auto check = [&](LengthVpaOptions o, const std::string& text) {
        const auto r = RunLengthVpa(data, o);
        EXPECT_EQ(RefusalText(r), text);
        EXPECT_TRUE(r.N.empty());
    };
    check(Params(0.3f, 0, 100, 0.2f), kVpaLengthFtText);
    check(Params(0.3f, 0.5f, 100, 0), kVpaLengthKText);
    check(Params(-0.3f, 0.5f, 100, 0.2f), kVpaLengthMText);
    check(Params(0.3f, 0.5f, 100, 0.2f, 3), kVpaPlusGroupsText);
    check(Params(0.3f, 0.5f, 100, 0.2f, -1), kVpaPlusGroupsText);
    check(Params(0.3f, 0.5f, 19.9f, 0.2f), kVpaLooInFirstClassText);
    check(Params(0.3f, 0.5f, 5, 0.2f), kVpaLooInFirstClassText);
    auto none = Params(0.3f, 0.5f, 100, 0.2f);
    none.selected = {false, false};
    check(none, kVpaNoSampleText);
    // The empty second sample is refused under percent even though it is not selected.
    auto pct = Params(0.3f, 0.5f, 100, 0.2f);
    pct.selected = {true, false};
    pct.transform = CcTransform::SquareRoot;
    check(pct, EmptySampleText(2));
    // Loo just above the first class leaves one class: the terminal one alone.
    const auto single = RunLengthVpa(data, Params(0.3f, 0.5f, 20.5f, 0.2f, 2));
    ASSERT_TRUE(single.ok());
    EXPECT_EQ(single.nUsed, 1);
    EXPECT_EQ(single.cPlus, 120);
}

}  // namespace
}  // namespace norvo
