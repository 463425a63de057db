// Raising samples to the catch and the weight of samples.
#include <gtest/gtest.h>

#include "sample_fixtures.h"
#include "samples/raise.h"
#include "samples/sample_weight.h"

namespace norvo {
namespace {

using test::MakeData;
using test::RecordsOf;

TEST(RaiseData, EachOptionGivesItsFactor) {
    const LfqData d = MakeData(10, 1, {{1, 3}, {2, 2}, {4, 5}});
    auto rec = RecordsOf(d);
    rec[0].twtCatch = 100;
    rec[0].wtSample = 4;
    rec[0].effort = 20;
    const std::vector<bool> first{true, false, false};
    auto factor = [&](RaiseOption o, const std::vector<bool>& sel) {
        return ComputeRaiseFactors(d, rec, sel, o, 3).factor;
    };
    EXPECT_EQ(factor(RaiseOption::CatchPerWeight, first), (std::vector<double>{25, 1, 1}));
    EXPECT_EQ(factor(RaiseOption::CatchPerEffort, first), (std::vector<double>{5, 1, 1}));
    EXPECT_EQ(factor(RaiseOption::Constant, {true, true, false}), (std::vector<double>{3, 3, 1}));
    EXPECT_EQ(factor(RaiseOption::SqrtOfTotal, {false, true, false}),
              (std::vector<double>{1, 0.5, 1}));
}

TEST(RaiseData, PercentOfTotalSumsToOneAndUnselectedStayAsTheyAre) {
    const LfqData d = MakeData(10, 1, {{1, 3, 0.7}, {2, 2, 9}}, "old");
    const auto run = RaiseData(d, RecordsOf(d), {true, false}, RaiseOption::PercentOfTotal, 0);
    ASSERT_TRUE(run.ok());
    EXPECT_NEAR(test::Sum(test::Column(run.table, 0)), 1, 1e-12);
    EXPECT_EQ(test::Column(run.table, 1), (std::vector<double>{2, 2, 9}));
    EXPECT_EQ(run.table.header.remarks, "old; Frequencies adjusted");
}

TEST(RaiseData, ZeroChecksRefuseSelectedSamplesOnly) {
    const LfqData d = MakeData(10, 1, {{1, 3}, {0, 0}});
    auto rec = RecordsOf(d);
    rec[0].twtCatch = 100;  // Wt_Sample 0, Effort 0
    const auto weight = RaiseData(d, rec, {true, false}, RaiseOption::CatchPerWeight, 0);
    EXPECT_EQ(test::RefusalText(weight), kRaiseZeroWeightText);
    EXPECT_EQ(weight.refusal()->title, "Invalid Data...");
    EXPECT_EQ(test::RefusalText(RaiseData(d, rec, {true, false}, RaiseOption::CatchPerEffort, 0)),
              kRaiseZeroEffortText);
    EXPECT_TRUE(RaiseData(d, rec, {false, false}, RaiseOption::CatchPerWeight, 0).ok());
    for (auto o : {RaiseOption::PercentOfTotal, RaiseOption::SqrtOfTotal}) {
        EXPECT_EQ(test::RefusalText(RaiseData(d, rec, {true, true}, o, 0)), RaiseNoFishText(2));
    }
    for (double c : {0.0, -2.0, 2e9})
        EXPECT_EQ(test::RefusalText(RaiseData(d, rec, {true, true}, RaiseOption::Constant, c)),
                  kRaiseConstantText);
}

TEST(ClassMeanWeight, IsTheMeanOfTheCurveOverTheClass) {
    // b = 1: the weight at the class centre.
    EXPECT_NEAR(ClassMeanWeight(2, 1, 10, 2), 22, 1e-12);
    // b = 3 over [0, 1]: a / 4.
    EXPECT_NEAR(ClassMeanWeight(0.01, 3, 0, 1), 0.0025, 1e-15);
}

TEST(ComputeSampleWeights, SumsWeightsPerSampleAndChecksCoefficients) {
    const LfqData d = MakeData(11, 2, {{1, 3}, {0, 0}});
    auto rec = RecordsOf(d);
    for (auto& r : rec) {
        r.lwA = 2;
        r.lwB = 1;
    }
    const auto w = ComputeSampleWeights(d, rec);
    ASSERT_TRUE(w.ok());
    EXPECT_NEAR(w.meanWeight[0][0], 22, 1e-12);
    EXPECT_NEAR(w.meanWeight[1][1], 26, 1e-12);
    EXPECT_NEAR(w.samples[0].sumF, 4, 1e-12);
    EXPECT_NEAR(w.samples[0].weight, 22 + 3 * 26, 1e-12);
    EXPECT_NEAR(w.samples[0].meanWeight, 25, 1e-12);
    EXPECT_EQ(w.samples[1].meanWeight, 0);  // no fish

    rec[1].lwA = 0;
    EXPECT_EQ(test::RefusalText(ComputeSampleWeights(d, rec)), NamingSample(kSwInvalidAText, 2));
}

}  // namespace
}  // namespace norvo
