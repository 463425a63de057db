#include "selection/recruitment.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numeric>

#include "base/fault.h"
#include "growth/elefan.h"
#include "growth/elefan_lfq.h"
#include "mortality/make_lfq.h"

namespace norvo {
namespace {

GrowthParams Growth(float loo, float k, float t0 = 0, float c = 0, float wp = 0) {
    GrowthParams g;
    g.loo = loo;
    g.k = k;
    g.t0 = t0;
    g.c = c;
    g.wp = wp;
    return g;
}

RecruitmentOptions Options(const GrowthParams& g) {
    RecruitmentOptions o;
    o.growth = g;
    return o;
}

// Three monthly samples of a file with classes 5, 10, ..., 60.
LfqData ThreeSamples() {
    return test::MakeLfq(5, 5,
                         {{0, 3, 12, 30, 22, 9, 4, 6, 5, 2, 1, 0},
                          {1, 8, 20, 14, 6, 3, 7, 9, 4, 2, 0, 0},
                          {0, 0, 4, 16, 25, 12, 5, 3, 6, 4, 2, 1}},
                         {10, 20, 5}, {2, 5, 9});
}

TEST(Recruitment, MonthOfADay) {
    EXPECT_EQ(RecruitMonth(0), 0);  // lost
    EXPECT_EQ(RecruitMonth(0.001), 1);
    EXPECT_EQ(RecruitMonth(31), 1);
    EXPECT_EQ(RecruitMonth(31.001), 2);
    EXPECT_EQ(RecruitMonth(334), 11);
    EXPECT_EQ(RecruitMonth(334.5), 12);
    EXPECT_STREQ(RecruitmentTimeLabel(0), kRcRelativeTime);
    EXPECT_STREQ(RecruitmentTimeLabel(-0.2f), kRcAbsoluteTime);
}

TEST(Recruitment, PatternIsRotatedToItsLowestMonthAndSumsToAHundred) {
    const RecruitmentResult r = DoRecruitment(ThreeSamples(), Options(Growth(80, 0.6f)));
    ASSERT_TRUE(r.ok());
    EXPECT_EQ(r.pattern[1], 0.f);
    float lowest = r.monthShare[1];
    for (int m = 1; m <= 12; ++m) lowest = std::min(lowest, r.monthShare[m]);
    EXPECT_EQ(r.monthShare[r.startMonth], lowest);
    EXPECT_NEAR(std::accumulate(r.pattern.begin() + 1, r.pattern.end(), 0.0), 100, 1e-3);
    for (int p = 1; p <= 12; ++p) {
        const int m = (r.startMonth + p - 2) % 12 + 1;
        EXPECT_EQ(r.labels[p], kRcMonthNames[m]);
        EXPECT_NEAR(
            r.pattern[p],
            (r.monthShare[m] - lowest) * 100 /
                (std::accumulate(r.monthShare.begin() + 1, r.monthShare.end(), 0.0) - 12 * lowest),
            1e-3);
    }
}

TEST(Recruitment, OneClassIsSpreadOverTheTimeItTakesToGrowThroughIt) {
    // One fish class 20..30 (midlength 25), Loo 100, K 1: each tenth adds 0.1 F / dt, and
    // the months together hold the sum over the ten tenths.
    const LfqData d = test::MakeLfq(15, 10, {{0, 10, 0}}, {1}, {1});
    const RecruitmentResult r = DoRecruitment(d, Options(Growth(100, 1)));
    double expected = 0;
    for (int m = 1; m <= 10; ++m) {
        const double l1 = 20 + (m - 1), l2 = 20 + m;
        expected += 0.1 * 10 / std::log((100 - l1) / (100 - l2));
    }
    EXPECT_NEAR(std::accumulate(r.monthShare.begin() + 1, r.monthShare.end(), 0.0), expected, 1e-3);

    // With 0.98 Loo at 25.5 the class gives only its five tenths below the limit.
    const RecruitmentResult cut = DoRecruitment(d, Options(Growth(26.0204f, 1)));
    int months = 0;
    for (int m = 1; m <= 12; ++m) months += cut.monthShare[m] > 0;
    double five = 0;
    for (int m = 1; m <= 5; ++m)
        five += 0.1 * 10 / std::log((26.0204f - (19.0 + m)) / (26.0204f - (20.0 + m)));
    EXPECT_NEAR(std::accumulate(cut.monthShare.begin() + 1, cut.monthShare.end(), 0.0), five,
                1e-3 * five);
}

TEST(Recruitment, SelectionTransformationAndWeighting) {
    const LfqData d = ThreeSamples();
    RecruitmentOptions o = Options(Growth(80, 0.6f, 0.1f, 0.5f, 0.3f));
    o.selected = {true, false, true};
    // A deselected sample enters neither the projection nor the sums: the same as a file
    // without it.
    LfqData without = d;
    without.noOfSamples = 2;
    for (auto& row : without.freq) row.erase(row.begin() + 1);
    without.day.erase(without.day.begin() + 1);
    without.month.erase(without.month.begin() + 1);
    const auto a = DoRecruitment(d, o);
    o.selected.clear();
    const auto b = DoRecruitment(without, o);
    EXPECT_EQ(a.monthShare, b.monthShare);
    EXPECT_EQ(a.timeLabel, kRcAbsoluteTime);

    // Percent of the sample total: a sample ten times larger weighs the same.
    LfqData big = d;
    for (auto& row : big.freq) row[0] *= 10;
    o.transform = CcTransform::Percent;
    const auto p1 = DoRecruitment(d, o), p10 = DoRecruitment(big, o);
    for (int m = 1; m <= 12; ++m) EXPECT_NEAR(p1.pattern[m], p10.pattern[m], 1e-3);
    // Square root: the rows are divided by the root of their totals.
    o.transform = CcTransform::SquareRoot;
    const auto f = RecruitmentFrequencies(d, o);
    EXPECT_FLOAT_EQ(f[0][4], static_cast<float>(30 * 100 / std::sqrt(94.0)));
    EXPECT_EQ(f[0][1], 0.f);

    // Temporal weighting multiplies whole rows by the root of the days to the nearest sample.
    o.transform = CcTransform::Raw;
    o.temporal = true;
    const auto w = RecruitmentFrequencies(d, o);
    const double days[] = {41, 140, 248};
    EXPECT_FLOAT_EQ(w[0][4], static_cast<float>(30 * std::sqrt(days[0])));
    EXPECT_FLOAT_EQ(w[1][2], static_cast<float>(8 * std::sqrt(days[1] - days[0])));
}

TEST(Recruitment, RestructuredDataProjectOnlyThePositivePoints) {
    const LfqData d = ThreeSamples();
    RecruitmentOptions o = Options(Growth(80, 0.6f));
    o.restructured = true;
    const auto f = RecruitmentFrequencies(d, o);
    const ElefanModel model = RestructureElefan(ElefanInputFromLfq(d));
    int positive = 0;
    for (int s = 0; s < 3; ++s)
        for (int j = 1; j <= 12; ++j) {
            const float p = model.pointsMaster(s + 1, j);
            EXPECT_EQ(f[s][j], p > 0 ? p : 0.f) << s << " " << j;
            positive += p > 0;
        }
    EXPECT_GT(positive, 0);
    EXPECT_TRUE(DoRecruitment(d, o).ok());
}

TEST(Recruitment, NothingToProjectIsTheDivisionFaultNamingItsCause) {
    // Every class at or above 0.98 of Loo (the lower limit of class 1 is 2.5).
    const LfqData d = ThreeSamples();
    try {
        DoRecruitment(d, Options(Growth(2.5f, 0.6f)));
        ADD_FAILURE() << "no fault";
    } catch (const ArithmeticFault& f) {
        EXPECT_EQ(f.code(), FaultNumber::DivisionByZero);
        EXPECT_EQ(f.description(), kRcNothingProjected);
    }
    // An empty Loo divides by zero too.
    EXPECT_THROW(DoRecruitment(d, Options(Growth(0, 0.6f))), ArithmeticFault);
    // A restructured sample of one class holds no peak.
    RecruitmentOptions o = Options(Growth(100, 1));
    o.restructured = true;
    EXPECT_THROW(DoRecruitment(test::MakeLfq(15, 10, {{0, 10, 0}}), o), ArithmeticFault);
}

}  // namespace
}  // namespace norvo
