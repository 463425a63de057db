// Z from mean length: Beverton and Holt, and Ault and Ehrhardt's stepping search.
#include <gtest/gtest.h>

#include "base/fault.h"
#include "mortality/ault_ehrhardt.h"
#include "mortality/bh_mortality.h"

namespace norvo {
namespace {

// Worked by hand: Loo 50, K 0.5, Lmean 30, L' 20.
//   K (Loo - Lmean) = 0.5 x 20 = 10;  Lmean - L' = 10;  Z = 10 / 10 = 1.0
const MeanLengthInput kExample{50, 0.5f, 30, 20};

TEST(BevertonHoltZ, WorkedExample) {
    const auto r = ComputeBhMortality(kExample);
    ASSERT_TRUE(r.ok());
    EXPECT_FLOAT_EQ(r.z, 1.0f);
}

TEST(BevertonHoltZ, ChecksRunInOrderWithTheirMessages) {
    struct Case {
        MeanLengthInput in;
        const char* message;
    };
    const Case cases[] = {
        {{0.2f, 0.005f, 30, 40}, kLooLimitMessage},  // Loo first, though everything is wrong
        {{10000, 0.5f, 30, 20}, kLooLimitMessage},
        {{50, 10.01f, 30, 20}, kKLimitMessage},
        {{50, 0.009f, 30, 20}, kKLimitMessage},
        {{50, 0.5f, 50.5f, 20}, kLmeanLimitMessage},  // above Loo
        {{50, 0.5f, 0.2f, 0.1f}, kLmeanLimitMessage},
        {{50, 0.5f, 30, 30.5f}, kLcLimitMessage},  // above Lmean
        {{50, 0.5f, 30, 0.2f}, kLcLimitMessage},
    };
    for (const auto& c : cases) {
        const auto r = ComputeBhMortality(c.in);
        EXPECT_FALSE(r.ok());
        ASSERT_NE(r.refusal(), nullptr) << c.message;
        EXPECT_EQ(r.refusal()->title, "Invalid Input");
        EXPECT_EQ(r.refusal()->text, c.message);
    }
    // Both ends of each range pass; Lmean = Loo gives Z = 0.
    EXPECT_TRUE(ComputeBhMortality({9999, 10, 9999, 0.25f}).ok());
    EXPECT_FLOAT_EQ(ComputeBhMortality({50, 0.5f, 50, 20}).z, 0.0f);
}

TEST(BevertonHoltZ, MeanLengthAtCutOffIsADivisionByZero) {
    try {
        ComputeBhMortality({50, 0.5f, 30, 30});
        FAIL() << "expected a fault";
    } catch (const ArithmeticFault& f) {
        EXPECT_EQ(f.number(), 11);
    }
}

// Worked by hand with Lmax 45 (Z(B&H) = 1, z0 = 0.005):
//   R = (5/30)^(z/0.5),  T = (10 - 10 z) / (10 + 15 z)
//   z = 0.015: R 0.947666, T 0.963325, d 0.015659 < 0.05: the wide tolerance ends at once
//   z = 0.885: R 0.041944, T 0.049409, d 0.007465 (still above 0.005)
//   z = 0.895: R 0.040468, T 0.044824, d 0.004356 < 0.005: stop after 89 trials
//   R - T: -0.005351 at z0, +0.027778 at 1.0; the root lies at 0.909047
TEST(AultEhrhardt, WorkedExample) {
    const auto r = ComputeAultEhrhardt({kExample, 45});
    ASSERT_TRUE(r.ok());
    EXPECT_EQ(r.trials, 89);
    EXPECT_NEAR(r.z, 0.895, 1e-12);
    EXPECT_DOUBLE_EQ(r.zBevertonHolt, 1.0);
    ASSERT_TRUE(r.exactRoot.has_value());
    EXPECT_NEAR(*r.exactRoot, 0.909047, 1e-6);
    EXPECT_NEAR(AultEhrhardtDistance({kExample, 45}, 0.015), 0.015659, 1e-6);
}

TEST(AultEhrhardt, StopsOnceZPassesTheBevertonHoltValue) {
    // Loo 50, K 0.2, Lmean 40, L' 20, Lmax 45: Z(B&H) = 0.2 x 10 / 20 = 0.1, z0 = 0.0005.
    // R - T is 0.0018 at z0 and grows to 0.41 at 0.1: no trial comes within the tolerance,
    // the tenth trial 0.1005 passes 0.1 and ends the search; there is no root to show.
    const auto r = ComputeAultEhrhardt({{50, 0.2f, 40, 20}, 45});
    ASSERT_TRUE(r.ok());
    EXPECT_EQ(r.trials, 10);
    EXPECT_NEAR(r.z, 0.1005, 1e-7);
    EXPECT_FALSE(r.exactRoot.has_value());
}

TEST(AultEhrhardt, TheFirstStageOutlastsTheTrivialRootAtZero) {
    // Loo 50, K 0.3, Lmean 30, L' 20, Lmax 40: Z(B&H) = 0.6, z0 = 0.003. The first trial 0.013
    // lies within 0.005 of R = T, next to the trivial root at 0, and must not end the search.
    // Here d never reaches the first stage's 0.05 before the real crossing at z = 0.3 (R = T =
    // 1/3), so the search runs on to the Beverton and Holt bound; the root is shown beside it.
    const AultEhrhardtInput in{{50, 0.3f, 30, 20}, 40};
    ASSERT_LT(AultEhrhardtDistance(in, 0.013), 0.005);
    const auto r = ComputeAultEhrhardt(in);
    ASSERT_TRUE(r.ok());
    EXPECT_EQ(r.trials, 60);
    EXPECT_NEAR(r.z, 0.603, 1e-9);  // K is 0.3 as a float
    ASSERT_TRUE(r.exactRoot.has_value());
    EXPECT_NEAR(*r.exactRoot, 0.3, 1e-7);
}

TEST(AultEhrhardt, LmaxIsCheckedLast) {
    auto text = [](const AultEhrhardtResult& r) {
        return r.refusal() ? r.refusal()->text : std::string();
    };
    EXPECT_EQ(text(ComputeAultEhrhardt({kExample, 50.5f})), kLmaxLimitMessage);
    const auto both = ComputeAultEhrhardt({{50, 11, 30, 20}, 50.5f});
    EXPECT_EQ(text(both), kKLimitMessage);
    EXPECT_EQ(both.notices.size(), 1u);  // the first failed check alone
    EXPECT_EQ(text(ComputeAultEhrhardt({kExample, 0.2f})), kLmaxLimitMessage);
}

TEST(AultEhrhardt, AHugeSearchRangeEndsInAnOverflowNotALongLoop) {
    // Z(B&H) = 10 x 9000 / 0.5: far beyond what the 16-bit trial counter can step through.
    try {
        ComputeAultEhrhardt({{9999, 10, 999, 998.5f}, 9999});
        FAIL() << "expected a fault";
    } catch (const ArithmeticFault& f) {
        EXPECT_EQ(f.number(), 6);
    }
}

}  // namespace
}  // namespace norvo
