#include "growth/powell_wetherall.h"

#include <gtest/gtest.h>

#include "base/fault.h"
#include "mortality/make_lfq.h"
#include "mortality/steady_state_lfq.h"

namespace norvo {
namespace {

using test::MakeLfq;

// Points set by hand, classes 1..n.
PowellWetherallData Points(std::vector<float> x, std::vector<float> y, std::vector<float> w) {
    PowellWetherallData d;
    d.lastClass = static_cast<int>(x.size());
    d.cutOff = {0};
    d.meanAbove = {0};
    d.cumF = {0};
    d.cutOff.insert(d.cutOff.end(), x.begin(), x.end());
    d.meanAbove.insert(d.meanAbove.end(), y.begin(), y.end());
    d.cumF.insert(d.cumF.end(), w.begin(), w.end());
    return d;
}

TEST(PowellWetherall, SteadyStateGivesLooWithinTheMidpointBias) {
    const test::SteadyState pop;
    const auto data = PowellWetherallMethod(pop.file(), {});
    ASSERT_TRUE(data.ok());
    EXPECT_EQ(data.lastClass, pop.classes());
    const auto fit = PowellWetherallFitFrom(data, 1);
    ASSERT_TRUE(fit.ok());
    ASSERT_TRUE(fit.loo && fit.zk);
    EXPECT_LT(fit.r, 0);
    EXPECT_NEAR(*fit.loo, pop.loo, pop.width / 2);
    EXPECT_NEAR(*fit.zk, pop.zk, 0.1);
}

TEST(PowellWetherall, PointsOfASmallFile) {
    // Classes 11, 13, 15, 17 (lower limits 10..16); the empty top class is no point.
    const LfqData file = MakeLfq(11, 2, {{4, 3, 2, 1, 0}});
    const auto d = PowellWetherallMethod(file, {});
    ASSERT_TRUE(d.ok());
    EXPECT_EQ(d.lastClass, 4);
    EXPECT_EQ(d.cumF[1], 10.f);
    EXPECT_EQ(d.cumF[4], 1.f);
    EXPECT_EQ(d.cutOff[1], 10.f);
    EXPECT_EQ(d.cutOff[4], 16.f);
    // (4*11 + 3*13 + 2*15 + 17) / 10 - 10
    EXPECT_FLOAT_EQ(d.meanAbove[1], 3.f);
    EXPECT_FLOAT_EQ(d.meanAbove[3], (2 * 15 + 17) / 3.f - 14);
    EXPECT_FLOAT_EQ(d.meanAbove[4], 1.f);
}

TEST(PowellWetherall, WeightedFitMatchesTheSumsAndLowerCutOffsDominate) {
    const auto d = Points({10, 12, 14, 16}, {8, 7, 5, 1}, {100, 10, 5, 1});
    const auto fit = PowellWetherallFitFrom(d, 1);
    double sw = 0, sx = 0, sy = 0, sxx = 0, sxy = 0;
    for (int i = 1; i <= 4; ++i) {
        const double w = d.cumF[i], x = d.cutOff[i], y = d.meanAbove[i];
        sw += w, sx += w * x, sy += w * y, sxx += w * x * x, sxy += w * x * y;
    }
    const double b = (sxy - sx * sy / sw) / (sxx - sx * sx / sw);
    EXPECT_NEAR(fit.b, b, 1e-4);
    EXPECT_NEAR(fit.a, sy / sw - sx / sw * b, 1e-3);
    // Unweighted, the steep top points would pull the slope far below this.
    EXPECT_GT(fit.b, -1.0);
    const double a = fit.a, b32 = fit.b;
    EXPECT_NEAR(*fit.loo, a / -b32, 1e-9);
    EXPECT_NEAR(*fit.zk, (b32 + 1) / -b32, 1e-9);
}

TEST(PowellWetherall, SlopeOfMinusOneGivesLooButNoZk) {
    const auto fit = PowellWetherallFitFrom(Points({10, 20, 30}, {30, 20, 10}, {3, 2, 1}), 1);
    ASSERT_TRUE(fit.ok());
    EXPECT_EQ(fit.b, -1.f);
    EXPECT_LE(fit.r, -0.9993f);  // a perfect line still counts as a negative slope
    ASSERT_TRUE(fit.loo);
    EXPECT_FLOAT_EQ(*fit.loo, 40);
    EXPECT_TRUE(fit.zkUndefined());
}

TEST(PowellWetherall, PositiveSlopeTooFewPointsAndDegenerateSums) {
    const auto up = PowellWetherallFitFrom(Points({10, 20, 30}, {5, 6, 8}, {3, 2, 1}), 1);
    EXPECT_TRUE(up.ok());
    EXPECT_TRUE(up.positiveSlope());
    ASSERT_EQ(up.notices.size(), 1u);
    EXPECT_EQ(up.notices[0].title, "Invalid Selection");
    EXPECT_EQ(up.notices[0].text,
              "ERROR! The regression slope is positive, please reselect points.");

    const auto d = Points({10, 20, 30, 40}, {30, 20, 10, 5}, {4, 3, 2, 1});
    for (int first : {3, 4, 0}) {
        const auto few = PowellWetherallFitFrom(d, first);
        ASSERT_FALSE(few.ok()) << first;
        EXPECT_EQ(few.refusal()->text, "ERROR! Please select 3 or more points.");
    }
    // One cut-off for all points leaves Cxx = 0; one mean for all leaves Cyy = 0.
    EXPECT_THROW(PowellWetherallFitFrom(Points({10, 10, 10}, {3, 2, 1}, {3, 2, 1}), 1),
                 ArithmeticFault);
    EXPECT_THROW(PowellWetherallFitFrom(Points({10, 20, 30}, {2, 2, 2}, {3, 2, 1}), 1),
                 ArithmeticFault);
}

TEST(PowellWetherall, RefusesNoSampleAndAnEmptySampleUnderPercent) {
    const LfqData file = MakeLfq(11, 2, {{4, 3, 2, 1}, {0, 0, 0, 0}});
    PowellWetherallOptions o;
    o.selected = {false, false};
    auto d = PowellWetherallMethod(file, o);
    ASSERT_FALSE(d.ok());
    EXPECT_EQ(d.refusal()->text,
              "No data was selected. Please select a data to include in the analysis to continue.");
    o.selected = {true, false};
    o.transform = CcTransform::Percent;
    d = PowellWetherallMethod(file, o);
    ASSERT_FALSE(d.ok());
    EXPECT_EQ(d.refusal()->text, EmptySampleText(2));
}

}  // namespace
}  // namespace norvo
