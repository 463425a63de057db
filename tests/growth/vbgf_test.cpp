#include "growth/vbgf.h"

#include <gtest/gtest.h>

#include <cmath>

#include "numerics/fault.h"

namespace norvo {
namespace {

TEST(Vbgf, CurvesAtKnownPoints) {
    EXPECT_DOUBLE_EQ(VbgfPlain(0, 50, 0.5, 0), 0.0);
    EXPECT_DOUBLE_EQ(VbgfPlain(2, 50, 0.5, 0), (1 - std::exp(-1.0)) * 50);
    // The seasonal term vanishes where both sines are 0 (t and t0 on whole years from ts).
    EXPECT_NEAR(VbgfSeasonal(2.5, 50, 0.5, 0.5, 1, 0), VbgfPlain(2.5, 50, 0.5, 0.5), 1e-9);
    // A quarter year after ts the curve runs ahead of the plain one.
    EXPECT_GT(VbgfSeasonal(1.25, 50, 0.5, 0.5, 1, 0.5), VbgfPlain(1.25, 50, 0.5, 0.5));
    EXPECT_THROW(VbgfPlain(-2000, 50, 0.5, 0), ArithmeticFault);
}

TEST(Vbgf, GrowthLengthRoundsAddsAndFloors) {
    GrowthParams p;
    p.loo = 50;
    p.k = 0.5f;
    const float l = GrowthLength(2, p, 0);
    EXPECT_EQ(l, static_cast<float>(
                     static_cast<double>(static_cast<float>((1 - std::exp(-1.0)) * 50)) + 0.005));
    EXPECT_EQ(GrowthLength(-3, p, 0), 0.0f);  // below 0 is floored
    // C exactly 0 takes the plain curve whatever WP says; any other C the seasonal one.
    p.wp = 0.3f;
    EXPECT_EQ(GrowthLength(1.1, p, 0.2f), GrowthLength(1.1, GrowthParams{50, 0.5f}, 0.2f));
    p.c = 0.5f;
    EXPECT_NE(GrowthLength(1.1, p, 0.2f), GrowthLength(1.1, GrowthParams{50, 0.5f}, 0.2f));
}

TEST(Vbgf, GrowthT0) {
    GrowthParams p;
    p.loo = 30;
    p.k = 0.5f;
    EXPECT_FLOAT_EQ(GrowthT0(15, 0.25f, p), static_cast<float>(std::log(0.5) / 0.5 + 0.25));
    // The seasonal origin adds the term of t only: C sin((t - WP + 0.5) 2pi) / 2pi.
    p.c = 1;
    p.wp = 0.5f;
    EXPECT_FLOAT_EQ(GrowthT0(15, 0.25f, p), static_cast<float>(std::sin(0.25 * kTwoPi) / kTwoPi +
                                                               std::log(0.5) / 0.5 + 0.25));
    EXPECT_THROW(GrowthT0(30, 0, p), ArithmeticFault);
    p.k = 0;
    EXPECT_THROW(GrowthT0(15, 0, p), ArithmeticFault);
}

TEST(Vbgf, SampleTimeIgnoresTheYearAndAllowsMonthZero) {
    EXPECT_EQ(MonthStart(3), 59);
    EXPECT_EQ(MonthStart(12), 334);
    EXPECT_EQ(SampleTime(10, 0), static_cast<float>(10 / 365.0));
    EXPECT_EQ(SampleTime(15, 3), static_cast<float>(74 / 365.0));
    EXPECT_EQ(SampleTime(31, 12), 1.0f);
    EXPECT_THROW(SampleTime(1, 13), SubscriptFault);
    EXPECT_THROW(MonthStart(-1), SubscriptFault);
}

}  // namespace
}  // namespace norvo
