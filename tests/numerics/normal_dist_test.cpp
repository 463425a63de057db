#include "numerics/normal_dist.h"

#include <gtest/gtest.h>

#include <cmath>

#include "base/fault.h"

namespace norvo {
namespace {

TEST(NormalCdf, MatchesTheTableWithinTheApproximation) {
    // Standard normal table values; the approximation is good to about 1.5e-7.
    EXPECT_NEAR(NormalCdf(0, 0, 1), 0.5, 2e-7);
    EXPECT_NEAR(NormalCdf(1.96, 0, 1), 0.9750021, 2e-7);
    EXPECT_NEAR(NormalCdf(-1, 0, 1), 0.1586553, 2e-7);
    EXPECT_NEAR(NormalCdf(25, 20, 2.5), 0.9772499, 2e-7);
    EXPECT_NEAR(NormalCdf(3, 0, 1) + NormalCdf(-3, 0, 1), 1.0, 1e-15);
}

TEST(NormalCdf, ThirtyTwoBitFormFollowsTheSameSteps) {
    for (float x : {-4.0f, -1.3f, 0.0f, 0.7f, 2.2f}) {
        const float f = NormalCdf32(x * 3 + 30, 30, 3);
        EXPECT_NEAR(f, NormalCdf(x * 3.0 + 30, 30, 3), 2e-6) << x;
    }
    // Far in the tails the 32-bit form saturates to exactly 0 and 1.
    EXPECT_EQ(NormalCdf32(100, 0, 1), 1.0f);
}

TEST(NormalPdf, IsTheGaussianDensity) {
    EXPECT_NEAR(NormalPdf(0, 0, 1), 0.3989422804, 1e-10);
    EXPECT_NEAR(NormalPdf(12, 10, 2), 0.3989422804 / 2 * std::exp(-0.5), 1e-10);
    EXPECT_NEAR(NormalPdf32(12, 10, 2), 0.3989422804 / 2 * std::exp(-0.5), 1e-7);
}

TEST(NormalDist, ZeroSdIsADivisionFault) {
    EXPECT_THROW(NormalCdf(1, 1, 0), ArithmeticFault);
    EXPECT_THROW(NormalCdf32(1, 1, 0), ArithmeticFault);
    EXPECT_THROW(NormalPdf(1, 1, 0), ArithmeticFault);
}

}  // namespace
}  // namespace norvo
