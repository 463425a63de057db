#include "mortality/hoenig.h"

#include <gtest/gtest.h>

#include "base/fault.h"

namespace norvo {
namespace {

// Worked by hand.
//   Model 1, tmax 20: ln 20 = 2.995732; 1.44 - 0.984 x 2.995732 = -1.507800; Z = 0.221396
//   Model 2, tmax 20, tc 2, N 62: between rows 60 (0.228, 0.064) and 65 (0.224, 0.062), 2/5 of
//     the way: c = 0.2264, e = 0.0632; Z = 1/(0.2264 x 18) = 0.245387, s.e. = 1/(0.0632 x 18)
//     = 0.879044
//   N 5000 takes the last row: Z = 1/(0.137 x 18) = 0.405515, s.e. = 1/(0.025 x 18) = 2.222222
TEST(Hoenig, WorkedExamples) {
    auto r = ComputeHoenig({true, true, 20, 2, 62});
    ASSERT_TRUE(r.ok());
    EXPECT_NEAR(*r.z1, 0.221396, 1e-6);
    EXPECT_NEAR(*r.z2, 0.245387, 1e-6);
    EXPECT_NEAR(*r.se2, 0.879044, 1e-6);

    r = ComputeHoenig({false, true, 20, 2, 5000});
    EXPECT_FALSE(r.z1.has_value());
    EXPECT_NEAR(*r.z2, 0.405515, 1e-6);
    EXPECT_NEAR(*r.se2, 2.222222, 1e-6);
}

TEST(Hoenig, TableInterpolatesBetweenRowsAndClampsAtTheEnds) {
    EXPECT_DOUBLE_EQ(HoenigCoefficients(60).c, 0.228);
    EXPECT_DOUBLE_EQ(HoenigCoefficients(65).e, 0.062);
    EXPECT_NEAR(HoenigCoefficients(950).c, 0.138, 1e-12);
    EXPECT_NEAR(HoenigCoefficients(85).e, 0.0555, 1e-12);
    EXPECT_NEAR(HoenigCoefficients(7.5).c, 0.494, 1e-12);
    EXPECT_DOUBLE_EQ(HoenigCoefficients(1000).c, 0.137);
    EXPECT_DOUBLE_EQ(HoenigCoefficients(1001).c, 0.137);
    EXPECT_DOUBLE_EQ(HoenigCoefficients(1e6).e, 0.025);
    EXPECT_DOUBLE_EQ(HoenigCoefficients(1).c, 0.583);
}

TEST(Hoenig, SelectionAndTcChecks) {
    auto r = ComputeHoenig({false, false, 20, 2, 62});
    EXPECT_FALSE(r.ok());
    ASSERT_NE(r.refusal(), nullptr);
    EXPECT_EQ(r.refusal()->title, "No Selection");
    EXPECT_EQ(r.refusal()->text, "No model was selected to compute Z.");

    r = ComputeHoenig({true, true, 20, 20, 62});
    ASSERT_NE(r.refusal(), nullptr);
    EXPECT_EQ(r.refusal()->title, "Invalid Data");
    EXPECT_EQ(r.refusal()->text,
              "tc must be smaller than tmax. Please adjust the values and try again.");
    EXPECT_FALSE(r.z1.has_value());  // nothing computed
    // Model 1 alone does not look at tc.
    EXPECT_TRUE(ComputeHoenig({true, false, 20, 30, 62}).ok());
}

TEST(Hoenig, NonPositiveTmaxIsAnArithmeticFault) {
    EXPECT_THROW(ComputeHoenig({true, false, 0, 0, 0}), ArithmeticFault);
}

}  // namespace
}  // namespace norvo
