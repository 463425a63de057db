#include "numerics/marquardt.h"

#include <gtest/gtest.h>

#include <cmath>

#include "base/fault.h"

namespace norvo {
namespace {

std::vector<MarquardtObs> VbgfData(double loo, double k, double t0, int n = 12) {
    std::vector<MarquardtObs> data;
    for (int i = 0; i < n; ++i) {
        const double t = 0.5 + 0.5 * i;
        data.push_back(
            {static_cast<float>(t), static_cast<float>(loo * (1 - std::exp(-k * (t - t0))))});
    }
    return data;
}

MarquardtOptions Options(int model, std::vector<float> start, std::vector<float> lower,
                         std::vector<float> upper) {
    MarquardtOptions o;
    o.model = model;
    o.start = std::move(start);
    o.lower = std::move(lower);
    o.upper = std::move(upper);
    return o;
}

TEST(MarquardtFit, NoiseFreeVbgfGivesBackTheParameters) {
    const auto data = VbgfData(100, 0.5, -0.2);
    std::vector<int> seen;
    auto o = Options(kMarquardtVbgf, {80, 1, 0}, {50, 0.01f, -5}, {300, 10, 5});
    o.progress = [&](int i) { seen.push_back(i); };
    const MarquardtResult r = MarquardtFit(data, o);
    EXPECT_EQ(r.message, kMqConverged);
    EXPECT_EQ(r.icon, 0);
    EXPECT_NEAR(r.b[0], 100, 100e-6);
    EXPECT_NEAR(r.b[1], 0.5, 0.5e-6);
    EXPECT_NEAR(r.b[2], -0.2, 1e-6);
    EXPECT_NEAR(r.r2, 1, 1e-9);
    for (const auto& s : r.stars) EXPECT_EQ(s, "");
    ASSERT_EQ(static_cast<int>(seen.size()), r.iterations);
    for (size_t i = 0; i < seen.size(); ++i) EXPECT_EQ(seen[i], static_cast<int>(i));
    ASSERT_EQ(r.fitted.size(), data.size());
    EXPECT_NEAR(r.fitted[3], data[3].y, 1e-3);
}

TEST(MarquardtFit, NoisyFitGivesStandardErrorsAndAdjustedR2) {
    auto data = VbgfData(60, 0.8, 0.1, 10);
    const float noise[] = {0.4f, -0.3f, 0.2f, -0.5f, 0.1f, 0.3f, -0.2f, 0.4f, -0.1f, -0.3f};
    for (size_t i = 0; i < data.size(); ++i) data[i].y += noise[i];
    const auto r =
        MarquardtFit(data, Options(kMarquardtVbgf, {70, 1, 0}, {40, 0.01f, -5}, {200, 10, 5}));
    EXPECT_NE(r.message, "");
    for (float se : r.stdErr) EXPECT_GT(se, 0);
    EXPECT_LT(r.adjustedR2, r.r2);
    EXPECT_NEAR(r.adjustedR2, 1 - (1 - r.r2) * 9.0 / 7.0, 1e-12);
    EXPECT_NEAR(r.b[0], 60, 2);
}

TEST(MarquardtFit, ConstantsKeepTheirValuesAndStars) {
    const auto data = VbgfData(100, 0.5, 0);
    // Everything constant: nothing moves and the fit ends as converged.
    auto r =
        MarquardtFit(data, Options(kMarquardtVbgf, {90, 0.4f, 0}, {90, 0.4f, 0}, {90, 0.4f, 0}));
    EXPECT_EQ(r.message, kMqConverged);
    EXPECT_EQ(r.b, (std::vector<float>{90, 0.4f, 0}));
    EXPECT_EQ(r.stars, (std::vector<std::string>{"***", "***", "***"}));
    EXPECT_EQ(r.stdErr, (std::vector<float>{0, 0, 0}));

    // t0 fixed at its true value, the others free.
    r = MarquardtFit(data, Options(kMarquardtVbgf, {80, 1, 0}, {50, 0.01f, 0}, {300, 10, 0}));
    EXPECT_EQ(r.stars[2], "***");
    EXPECT_EQ(r.b[2], 0);
    EXPECT_NEAR(r.b[0], 100, 1e-3);
}

TEST(MarquardtFit, LimitedStepStopsOnTheConstraintWithItsMark) {
    const auto data = VbgfData(100, 0.5, 0);
    auto r =
        MarquardtFit(data, Options(kMarquardtVbgf, {80, 0.3f, 0}, {50, 0.01f, -1}, {90, 10, 1}));
    EXPECT_EQ(r.b[0], 90.0f);
    EXPECT_EQ(r.stars[0], "**");
    r = MarquardtFit(data, Options(kMarquardtVbgf, {120, 0.3f, 0}, {110, 0.01f, -1}, {300, 10, 1}));
    EXPECT_EQ(r.b[0], 110.0f);
    EXPECT_EQ(r.stars[0], "*");
}

TEST(MarquardtFit, SeasonalWithCFixedAtZeroDropsWinterPoint) {
    const auto data = VbgfData(100, 0.5, 0);
    const auto r = MarquardtFit(data, Options(kMarquardtSeasonal, {80, 1, 0.1f, 0, 0.5f},
                                              {50, 0.01f, -1, 0, 0}, {300, 10, 1, 0, 1}));
    EXPECT_EQ(r.stars[3], "***");
    EXPECT_EQ(r.stdErr[3], 0);
    EXPECT_EQ(r.stdErr[4], 0);  // no information on WP
    EXPECT_EQ(r.b[4], 0.5f);
    EXPECT_NEAR(r.b[0], 100, 1e-3);
}

TEST(MarquardtFit, AppeldoornModelFitsSeasonalIncrements) {
    // Increments of a seasonal curve, tagged at several lengths and times.
    const double loo = 80, k = 0.6, c = 0.5, wp = 0.3, pi2 = kMarquardtPiTwo;
    std::vector<MarquardtObs> data;
    for (int i = 0; i < 10; ++i) {
        const float tb = 90.0f + 0.13f * i, ta = tb + 0.3f + 0.07f * i;
        const float l1 = 10.0f + 5.0f * i;
        const double s =
            (k * c / pi2) * (std::sin(pi2 * (ta - (wp - 0.5))) - std::sin(pi2 * (tb - (wp - 0.5))));
        const double inc = (loo - l1) * (1 - std::exp(-k * (ta - tb) - s));
        data.push_back({ta, static_cast<float>(inc), tb, l1});
    }
    const auto r = MarquardtFit(data, Options(kMarquardtAppeldoorn, {70, 1, 0.3f, 0.5f},
                                              {60, 0.01f, 0, 0}, {200, 10, 1, 1}));
    EXPECT_EQ(r.message, kMqConverged);
    EXPECT_NEAR(r.b[0], loo, 1e-2);
    EXPECT_NEAR(r.b[1], k, 1e-3);
    EXPECT_NEAR(r.b[2], c, 1e-3);
    EXPECT_NEAR(r.b[3], wp, 1e-3);
    // Equal dates give a model value of 0.
    EXPECT_EQ(MarquardtModel(kMarquardtAppeldoorn, {80, 0.6, 0.5, 0.3}, {91, 0, 91, 20}), 0);
}

TEST(MarquardtFit, TooManyParametersIsRefusedWithoutAnIteration) {
    int calls = 0;
    auto o =
        Options(kMarquardtSeasonal, {1, 2, 3, 4, 5, 6}, {0, 0, 0, 0, 0, 0}, {9, 9, 9, 9, 9, 9});
    o.progress = [&](int) { ++calls; };
    const auto r = MarquardtFit(VbgfData(100, 0.5, 0), o);
    EXPECT_EQ(r.message, kMqAssumptionsNotMet);
    EXPECT_EQ(calls, 0);
    EXPECT_FALSE(r.assessed);
    EXPECT_EQ(r.b, o.start);
    EXPECT_TRUE(r.fitted.empty());
}

TEST(MarquardtFit, LeftOutObservationsAndFaults) {
    auto data = VbgfData(100, 0.5, 0, 8);
    data[2].x = kMarquardtLeftOut;
    const auto r =
        MarquardtFit(data, Options(kMarquardtVbgf, {80, 1, 0}, {50, 0.01f, -1}, {300, 10, 1}));
    EXPECT_EQ(r.fitted[2], kMarquardtLeftOut);
    EXPECT_NEAR(r.b[0], 100, 1e-3);

    // No degrees of freedom left for the standard errors.
    const auto three = VbgfData(100, 0.5, 0, 3);
    try {
        MarquardtFit(three, Options(kMarquardtVbgf, {80, 1, 0}, {50, 0.01f, -1}, {300, 10, 1}));
        FAIL();
    } catch (const ArithmeticFault& f) {
        EXPECT_EQ(f.number(), 11);
        EXPECT_NE(f.description().find("more observations (3) than parameters (3)"),
                  std::string::npos);
    }
    // exp overflows.
    EXPECT_THROW(MarquardtModel(kMarquardtVbgf, {100, 10, 0}, {-100, 0}), ArithmeticFault);
}

}  // namespace
}  // namespace norvo
