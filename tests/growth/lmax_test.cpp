#include "growth/lmax.h"

#include <gtest/gtest.h>

#include <cmath>

namespace norvo {
namespace {

LfqData MakeData(double firstMid, double width, const std::vector<std::vector<double>>& bySample) {
    LfqData d;
    d.smallestMl = firstMid;
    d.classInterval = width;
    d.noOfSamples = static_cast<int>(bySample.size());
    d.noOfClasses = static_cast<int>(bySample.front().size());
    d.freq.assign(d.noOfClasses, std::vector<double>(d.noOfSamples));
    for (int s = 0; s < d.noOfSamples; ++s) {
        for (int c = 0; c < d.noOfClasses; ++c) d.freq[c][s] = bySample[s][c];
    }
    return d;
}

TEST(ExtremeLengths, LastClassAboveZeroPerSampleSortedWithTies) {
    // Classes 10, 12, 14, 16, 18. A gap inside a sample does not stop the walk; an empty
    // sample gives no extreme.
    const LfqData d = MakeData(10, 2,
                               {
                                   {1, 5, 0, 2, 0},  // 16
                                   {3, 4, 1, 0, 0},  // 14
                                   {0, 0, 0, 0, 0},  // none
                                   {0, 1, 0, 0, 7},  // 18
                                   {2, 0, 6, 0, 0},  // 14
                               });
    EXPECT_EQ(ExtremeLengths(d), (std::vector<double>{14, 14, 16, 18}));
}

// Worked by hand for the extremes 40, 42, 42, 46 (n = 4):
//   P = 0.2, 0.4, 0.6, 0.8;  y = -ln(-ln P) = -0.475885, 0.087422, 0.671727, 1.499940
//   sum y = 1.783204, sum y^2 = 2.935146: mean y = 0.445801, sd y = 0.844629
//   mean x = 42.5; sum x^2 - (sum x)^2 / n = 7244 - 7225 = 19: sd x = sqrt(19 / 3) = 2.516611
//   beta = 2.516611 / 0.844629 = 2.979548;  u = 42.5 - beta x 0.445801 = 41.171715
//   at P = 0.99: y = 4.600149, L = 54.878080
//   K = (4.600149 - 0.445801) / 0.844629 = 4.918550
//   s.e. = 2.516611 / 2 x sqrt(1 + 1.1396 K + 1.1 K^2) = 7.252092: limits 47.625988, 62.130173
TEST(GumbelFit, WorkedExample) {
    const auto f = GumbelFit({46, 42, 40, 42});
    ASSERT_TRUE(f.ok);
    EXPECT_EQ(f.extremes, (std::vector<double>{40, 42, 42, 46}));
    EXPECT_DOUBLE_EQ(f.probabilities[1], 0.4);
    EXPECT_NEAR(f.reduced[0], -0.475885, 1e-6);
    EXPECT_NEAR(f.meanY, 0.445801, 1e-6);
    EXPECT_NEAR(f.sdY, 0.844629, 1e-6);
    EXPECT_NEAR(f.sdX, 2.516611, 1e-6);
    EXPECT_NEAR(f.beta, 2.979548, 1e-6);
    EXPECT_NEAR(f.u, 41.171715, 1e-6);
    EXPECT_NEAR(f.predicted, 54.878080, 1e-6);
    EXPECT_NEAR(f.standardError, 7.252092, 1e-6);
    EXPECT_NEAR(f.lower, 47.625988, 1e-6);
    EXPECT_NEAR(f.upper, 62.130173, 1e-6);
}

TEST(GumbelFit, CurveSpansTheProbabilityAxisWithinFiveHundredPoints) {
    const auto f = GumbelFit({40, 42, 42, 46});
    ASSERT_FALSE(f.curve.empty());
    EXPECT_LE(f.curve.size(), 500u);
    EXPECT_NEAR(f.curve.front().probability, 0.001, 1e-9);
    EXPECT_NEAR(f.curve.back().probability, 0.999, 1e-9);
    for (size_t i = 1; i < f.curve.size(); ++i) {
        const auto& p = f.curve[i];
        EXPECT_GT(p.predicted, f.curve[i - 1].predicted);
        EXPECT_GT(p.probability, f.curve[i - 1].probability);
        EXPECT_NEAR(p.predicted - p.lower, p.upper - p.predicted, 1e-9);
        EXPECT_GT(p.upper, p.predicted);
    }
    // The prediction lies on the curve: its probability is 0.99 at the predicted length.
    const double y = (f.predicted - f.u) / f.beta;
    EXPECT_NEAR(std::exp(-std::exp(-y)), 0.99, 1e-12);
    // Standard error is smallest near the mean of the reduced variates.
    EXPECT_LT(PredictionStandardError(f, f.meanY), PredictionStandardError(f, 4.0));
}

TEST(GumbelFit, AllExtremesEqualGiveNoPrediction) {
    const auto f = GumbelFit({42, 42, 42});
    EXPECT_FALSE(f.ok);
    EXPECT_TRUE(f.curve.empty());
    EXPECT_EQ(f.sdX, 0);
}

TEST(GumbelFit, TwoExtremesAreEnough) {
    const auto f = GumbelFit({30, 31});
    EXPECT_TRUE(f.ok);
    EXPECT_NEAR(f.probabilities[0], 1.0 / 3, 1e-15);
}

TEST(GumbelFit, FewerThanTwoIsACallersError) {
    EXPECT_THROW(GumbelFit({30}), std::invalid_argument);
}

TEST(ProbabilityAxis, SevenLabelsAtTheirReducedVariates) {
    ASSERT_EQ(std::size(kProbabilityTicks), 7u);
    EXPECT_STREQ(kProbabilityTicks[0].label, ".001");
    EXPECT_STREQ(kProbabilityTicks[6].label, ".999");
    EXPECT_NEAR(ReducedVariate(0.5), 0.366513, 1e-6);  // -ln(ln 2)
}

}  // namespace
}  // namespace norvo
