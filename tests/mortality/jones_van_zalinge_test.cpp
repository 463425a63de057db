#include "mortality/jones_van_zalinge.h"

#include <gtest/gtest.h>

#include "make_lfq.h"
#include "numerics/validators.h"
#include "steady_state_lfq.h"

namespace norvo {
namespace {

using test::MakeLfq;

JonesVanZalingeOptions Growth(float loo, float k) {
    JonesVanZalingeOptions o;
    o.loo = loo;
    o.k = k;
    return o;
}

TEST(JonesVanZalinge, SteadyStateGivesZkExactly) {
    const test::SteadyState pop;
    auto o = Growth(static_cast<float>(pop.loo), 0.3f);
    o.points = PointRange{1, pop.classes()};
    const auto run = RunJonesVanZalinge(pop.file(), o);
    ASSERT_TRUE(run.ok());
    EXPECT_EQ(run.usable, pop.classes());
    EXPECT_NEAR(run.zk(), pop.zk, 1e-4);
    EXPECT_NEAR(run.fit.r(), 1, 1e-6);
    EXPECT_LT(run.zkLow(), run.zk());
    EXPECT_GT(run.zkHigh(), run.zk());
    // A stretch of the same line gives the same slope, to the 32-bit sums of the regression.
    o.points = PointRange{9, 4};
    EXPECT_NEAR(RunJonesVanZalinge(pop.file(), o).zk(), pop.zk, 1e-3);
}

TEST(JonesVanZalinge, PointsStopBelowLoo) {
    // Lower limits 10, 12, 14, 16, 18; Loo 17 leaves four classes.
    const LfqData file = MakeLfq(11, 2, {{5, 4, 3, 2, 1}});
    const auto run = JonesVanZalingeMethod(file, Growth(17, 1));
    ASSERT_TRUE(run.ok());
    EXPECT_EQ(run.usable, 4);
    EXPECT_FLOAT_EQ(run.cumCatch[1], 15);
    EXPECT_FLOAT_EQ(run.logCum[5], 0);
    EXPECT_FLOAT_EQ(run.logLoo[1], std::log(7.f));
    EXPECT_FLOAT_EQ(run.logLoo[4], 0);
    const auto s = JonesVanZalingeScale(run);
    EXPECT_EQ(s.yTop, 3);  // ln 15 = 2.7
    EXPECT_EQ(s.xTop, 2);  // ln 7 = 1.9
}

TEST(JonesVanZalinge, GrowthChecks) {
    const LfqData file = MakeLfq(11, 2, {{5, 4, 3, 2, 1}});
    auto text = [&](float loo, float k) {
        const Outcome o = CheckJonesVanZalingeInput(file, loo, k);
        return o.ok() ? std::string() : o.refusal()->text;
    };
    EXPECT_EQ(text(0, 1), kCcInvalidLooText);
    EXPECT_EQ(text(std::nanf(""), 1), kCcInvalidLooText);
    EXPECT_EQ(text(30, 0), kCcInvalidKText);
    // 11 + 3 * 2 = 17 exactly is too small; just above passes.
    EXPECT_EQ(text(17, 1),
              "The Loo input is too small to generate data points of the plot. Please adjust "
              "input.");
    EXPECT_EQ(text(17.01f, 1), "");
    const auto run = RunJonesVanZalinge(file, Growth(17, 1));
    EXPECT_TRUE(run.growthRefused);
    EXPECT_EQ(run.refusal()->title, "Invalid Input...");
}

TEST(JonesVanZalinge, EmptyTopClassesAreNamedBeforeTheirLogarithm) {
    // The empty classes lie above Loo, and still stop the run.
    const LfqData file = MakeLfq(11, 2, {{5, 4, 3, 2, 0, 0}});
    const auto run = RunJonesVanZalinge(file, Growth(19, 1));
    ASSERT_FALSE(run.ok());
    EXPECT_FALSE(run.growthRefused);
    EXPECT_EQ(run.refusal()->text, JvzEmptyTopText(5, 6));
    EXPECT_NE(JvzEmptyTopText(6, 6).find("Class 6 "), std::string::npos);
}

TEST(JonesVanZalinge, Selections) {
    const LfqData file = MakeLfq(11, 2, {{5, 4, 3, 2, 1}});
    auto run = JonesVanZalingeMethod(file, Growth(17, 1));
    Outcome o = JvzChoosePoints(run, 2, 3);
    ASSERT_FALSE(o.ok());
    EXPECT_EQ(o.refusal()->text, "ERROR! Please select 3 or more points.");
    o = JvzChoosePoints(run, 3, 5);  // class 5 lies above Loo
    ASSERT_FALSE(o.ok());
    EXPECT_EQ(o.refusal()->title, "No Selection");
    EXPECT_FALSE(run.fitted());
    EXPECT_TRUE(JvzChoosePoints(run, 4, 2).ok());
    EXPECT_EQ(run.first, 2);
    EXPECT_EQ(run.last, 4);
    EXPECT_EQ(run.fit.n(), 3);
}

TEST(JonesVanZalinge, RefusesNoSampleAndAnEmptySampleUnderRoot) {
    const LfqData file = MakeLfq(11, 2, {{5, 4, 3, 2, 1}, {0, 0, 0, 0, 0}});
    auto o = Growth(30, 1);
    o.selected = {false, false};
    EXPECT_EQ(RunJonesVanZalinge(file, o).refusal()->text, kJvzNoDataText);
    o.selected = {true, false};
    o.transform = CcTransform::SquareRoot;
    EXPECT_EQ(RunJonesVanZalinge(file, o).refusal()->text, EmptySampleText(2));
}

}  // namespace
}  // namespace norvo
