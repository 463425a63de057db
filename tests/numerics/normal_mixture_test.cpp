#include "numerics/normal_mixture.h"

#include <gtest/gtest.h>

#include <cmath>

#include "numerics/normal_dist.h"

namespace norvo {
namespace {

// Noise-free frequencies of a mixture: total x density at the midpoint x class width.
MixtureClasses Mixture(const std::vector<MixtureComponent>& comps, double first, double w,
                       int classes, double total) {
    MixtureClasses c{first, w, {}};
    for (int i = 0; i < classes; ++i) {
        double e = 0;
        for (const auto& k : comps) e += k.proportion * NormalPdf(c.mid(i), k.mean, k.sd);
        c.observed.push_back(total * e * w);
    }
    return c;
}

TEST(NormalMixture, ComponentsAndTheSpanOfOccupiedClasses) {
    EXPECT_EQ(ComponentCount(2), 1);
    EXPECT_EQ(ComponentCount(5), 2);
    EXPECT_EQ(ComponentCount(8), 3);
    const MixtureClasses c{11, 2, {0, 0, 3, 0, 5, 0}};
    EXPECT_DOUBLE_EQ(c.low(), 14);
    EXPECT_DOUBLE_EQ(c.high(), 20);
    const std::vector<double> start = MixtureStart({15, 18}, c);
    // sd = max(w/2, (high - low)/(4n)) = max(1, 0.75); one free proportion of 1/2.
    EXPECT_EQ(start, (std::vector<double>{15, 1, 0.5, 18, 1}));
}

TEST(NormalMixture, LikelihoodTruncatesEachComponentToTheSpan) {
    const MixtureClasses c{11, 2, {0, 4, 6, 0}};  // span 12 .. 16
    const double m1 = 13, s1 = 1.5, p1 = 0.3, m2 = 15.5, s2 = 2;
    const auto e = [&](double x) {
        return p1 * NormalPdf(x, m1, s1) / (NormalCdf(16, m1, s1) - NormalCdf(12, m1, s1)) +
               (1 - p1) * NormalPdf(x, m2, s2) / (NormalCdf(16, m2, s2) - NormalCdf(12, m2, s2));
    };
    EXPECT_NEAR(NegLogLikelihood({m1, s1, p1, m2, s2}, c),
                -(4 * std::log(e(13)) + 6 * std::log(e(15))), 1e-12);
}

TEST(NormalMixture, RecoversAWellSeparatedMixture) {
    const MixtureClasses c =
        Mixture({{20, 2.5, 0.35}, {38, 3.5, 0.45}, {55, 3, 0.2}}, 5, 1, 66, 5000);
    const MixtureFit fit = FitNormalMixture(c, {18, 41, 52});
    ASSERT_TRUE(fit.ok());
    EXPECT_EQ(fit.code, kSimplexConverged);
    ASSERT_EQ(fit.components.size(), 3u);
    const double expect[3][3] = {{20, 2.5, 0.35}, {38, 3.5, 0.45}, {55, 3, 0.2}};
    for (int k = 0; k < 3; ++k) {
        EXPECT_NEAR(fit.components[k].mean, expect[k][0], 0.01) << k;
        EXPECT_NEAR(fit.components[k].sd, expect[k][1], 0.01) << k;
        EXPECT_NEAR(fit.components[k].proportion, expect[k][2], 0.001) << k;
    }
    EXPECT_GT(fit.evaluations, 0);
}

TEST(NormalMixture, RefusesWithoutMeansOrFish) {
    const MixtureClasses c{10, 1, {0, 0, 0}};
    EXPECT_EQ(FitNormalMixture(c, {11}).refusal()->text, kMixtureEmptyText);
    const MixtureClasses some{10, 1, {1, 2, 1}};
    EXPECT_EQ(FitNormalMixture(some, {}).refusal()->text, kMixtureNoMeanText);
}

TEST(NormalMixture, NonConvergenceGivesTheFailureNotice) {
    const MixtureClasses c = Mixture({{20, 2.5, 0.5}, {38, 3.5, 0.5}}, 5, 1, 50, 1000);
    MixtureOptions o;
    o.limit = 3;
    const MixtureFit fit = FitNormalMixture(c, {15, 30}, o);
    EXPECT_EQ(fit.code, kSimplexLimit);
    ASSERT_NE(fit.refusal(), nullptr);
    EXPECT_EQ(fit.refusal()->text,
              "The routine could not find a set of acceptable parameter estimates with the "
              "starting  estimates provided. Please check and provide another set of starting "
              "estimates.");
    EXPECT_TRUE(fit.components.empty());
}

}  // namespace
}  // namespace norvo
