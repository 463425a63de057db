#include "growth/vbgf.h"

#include <gtest/gtest.h>

#include <cmath>

#include "base/fault.h"

namespace norvo {
namespace {

TEST(Vbgf, SeasonalTermAndOverflow) {
    // The seasonal term vanishes where both sines are 0 (t and t0 on whole years from ts), and a
    // quarter year after ts the curve runs ahead of the plain one.
    EXPECT_NEAR(VbgfSeasonal(2.5, 50, 0.5, 0.5, 1, 0), VbgfPlain(2.5, 50, 0.5, 0.5), 1e-9);
    EXPECT_GT(VbgfSeasonal(1.25, 50, 0.5, 0.5, 1, 0.5), VbgfPlain(1.25, 50, 0.5, 0.5));
    EXPECT_THROW(VbgfPlain(-2000, 50, 0.5, 0), ArithmeticFault);
}

TEST(Vbgf, GrowthLengthRoundsAddsAndFloors) {
    GrowthParams p;
    p.loo = 50;
    p.k = 0.5f;
    const float stored = static_cast<float>((1 - std::exp(-1.0)) * 50);
    EXPECT_EQ(GrowthLength(2, p, 0), static_cast<float>(static_cast<double>(stored) + 0.005));
    EXPECT_EQ(GrowthLength(-3, p, 0), 0.0f);
    // C exactly 0 takes the plain curve whatever WP says.
    p.wp = 0.3f;
    const GrowthParams plain{50, 0.5f};
    EXPECT_EQ(GrowthLength(1.1, p, 0.2f), GrowthLength(1.1, plain, 0.2f));
    p.c = 0.5f;
    EXPECT_NE(GrowthLength(1.1, p, 0.2f), GrowthLength(1.1, plain, 0.2f));
}

TEST(Vbgf, SampleTimeIgnoresTheYearAndAllowsMonthZero) {
    EXPECT_EQ(SampleTime(10, 0), static_cast<float>(10 / 365.0));
    EXPECT_EQ(SampleTime(15, 3), static_cast<float>(74 / 365.0));
    EXPECT_EQ(SampleTime(31, 12), 1.0f);
    EXPECT_THROW(SampleTime(1, 13), SubscriptFault);
    EXPECT_THROW(MonthStart(-1), SubscriptFault);
}

}  // namespace
}  // namespace norvo
