#include "growth/phi_prime.h"

#include <gtest/gtest.h>

#include "base/format.h"

namespace norvo {
namespace {

// Worked by hand: K 0.5, Loo 50, Woo 1000.
//   log10 0.5 = -0.301030, log10 50 = 1.698970, log10 1000 = 3
//   phi' = -0.301030 + 3.397940 = 3.096910 -> "3.097";  phi = -0.301030 + 2 = 1.698970 -> "1.699"
TEST(PhiPrime, WorkedExample) {
    const auto r = ComputeParameters({50, 1000, 0.5f});
    ASSERT_TRUE(r.phiPrime && r.phi);
    EXPECT_NEAR(*r.phiPrime, 3.096910, 1e-6);
    EXPECT_NEAR(*r.phi, 1.698970, 1e-6);
    EXPECT_EQ(Format(*r.phiPrime, kPhiFormat), "3.097");
    EXPECT_EQ(Format(*r.phi, kPhiFormat), "1.699");
}

TEST(PhiPrime, AMissingSizeOrKLeavesItsIndexEmpty) {
    auto r = ComputeParameters({50, 0, 0.5f});
    EXPECT_TRUE(r.phiPrime.has_value());
    EXPECT_FALSE(r.phi.has_value());
    r = ComputeParameters({0, 1000, 0.5f});
    EXPECT_FALSE(r.phiPrime.has_value());
    EXPECT_TRUE(r.phi.has_value());
    r = ComputeParameters({50, 1000, 0});
    EXPECT_FALSE(r.phiPrime || r.phi);
    r = ComputeParameters({-3, 1000, -0.5f});
    EXPECT_FALSE(r.phiPrime || r.phi);
}

TEST(PhiPrime, SmallValuesFormatWithALeadingZero) {
    // K 0.1, Loo 3: -1 + 0.954243 = -0.045757
    EXPECT_EQ(Format(*ComputeParameters({3, 0, 0.1f}).phiPrime, kPhiFormat), "-0.046");
}

}  // namespace
}  // namespace norvo
