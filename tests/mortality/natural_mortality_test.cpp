// Natural mortality: Pauly's equation and Rikhter and Efanov's.
#include <gtest/gtest.h>

#include "base/format.h"
#include "mortality/pauly_m.h"
#include "mortality/rikhter_efanov.h"

namespace norvo {
namespace {

// Worked by hand.
// Length form, Loo 50, K 0.5, T 25 (natural logs, constants -0.0152 and 0.463):
//   ln 50 = 3.912023, ln 0.5 = -0.693147, ln 25 = 3.218876
//   -0.0152 - 1.091454 - 0.453526 + 1.490340 = -0.069840;  M = e^-0.069840 = 0.932542
// Weight form, Woo 1000, K 0.5, T 25 (base 10):
//   -0.2107 - 0.0824 x 3 + 0.6757 x (-0.301030) + 0.4687 x 1.397940 = -0.006092;
//   M = 10^-0.006092 = 0.986072
// Cold water, T 3.5: T' = e^(2.4629 - 0.3042 x 3.5) = e^1.3982 = 4.047907;
//   length form, Loo 50, K 0.5: M = 0.401393
TEST(PaulyM, WorkedExamples) {
    auto r = ComputePaulyM({PaulyForm::Length, 50, 0.5f, 25});
    ASSERT_TRUE(r.ok());
    EXPECT_NEAR(r.m, 0.932542, 1e-6);

    r = ComputePaulyM({PaulyForm::Weight, 1000, 0.5f, 25});
    ASSERT_TRUE(r.ok());
    EXPECT_NEAR(r.m, 0.986072, 1e-6);

    r = ComputePaulyM({PaulyForm::Length, 50, 0.5f, 3.5f});
    EXPECT_NEAR(r.temperatureUsed, 4.047907, 1e-6);
    EXPECT_NEAR(r.m, 0.401393, 1e-6);
}

TEST(PaulyM, ColdWaterCorrectionAtAndBelowThreeAndAHalf) {
    EXPECT_NEAR(PaulyTemperature(3.5f), 4.047907, 1e-6);
    EXPECT_NEAR(PaulyTemperature(3.6f), 3.6, 1e-6);
    EXPECT_NEAR(PaulyTemperature(-2), 21.5699, 1e-4);  // e^(2.4629 + 0.6084)
}

TEST(PaulyM, ChecksInOrderWithTheirLimits) {
    struct Case {
        PaulyInput in;
        const char* message;  // nullptr: passes
    };
    const Case cases[] = {
        {{PaulyForm::Length, 50, 10, 25}, nullptr},
        {{PaulyForm::Length, 50, 0.01f, 25}, nullptr},
        {{PaulyForm::Length, 50, 10.01f, 25}, kPaulyKMessage},
        {{PaulyForm::Length, 0, 10.01f, 40}, kPaulyKMessage},  // K before T and size
        {{PaulyForm::Length, 0, 1, 31.5f}, kPaulyTMessage},
        {{PaulyForm::Length, 50, 1, -2.5f}, kPaulyTMessage},
        {{PaulyForm::Length, 50, 1, -2}, nullptr},
        // Length form: 1e-5 .. 999999999 with the "g" text; 10^9 is 999999999 in 32 bits.
        {{PaulyForm::Length, 1e-5f, 1, 20}, nullptr},
        {{PaulyForm::Length, 1e9f, 1, 20}, nullptr},
        {{PaulyForm::Length, 9e-6f, 1, 20}, kPaulyGramSizeMessage},
        {{PaulyForm::Length, 2e9f, 1, 20}, kPaulyGramSizeMessage},
        // Weight form: 0.5 .. 999999 with the "cm" text.
        {{PaulyForm::Weight, 0.5f, 1, 20}, nullptr},
        {{PaulyForm::Weight, 999999, 1, 20}, nullptr},
        {{PaulyForm::Weight, 0.4f, 1, 20}, kPaulyCmSizeMessage},
        {{PaulyForm::Weight, 1000000, 1, 20}, kPaulyCmSizeMessage},
    };
    for (const auto& c : cases) {
        const auto r = ComputePaulyM(c.in);
        if (c.message == nullptr) {
            EXPECT_TRUE(r.ok()) << c.in.size << " " << c.in.k << " " << c.in.t;
        } else {
            ASSERT_NE(r.refusal(), nullptr) << c.message;
            EXPECT_EQ(r.refusal()->title, "Invalid Input");
            EXPECT_EQ(r.refusal()->text, c.message);
        }
    }
}

// Worked by hand: tm 2: 2^0.72 = 1.647182; 1.52 / 1.647182 - 0.16 = 0.762788.
// tm 22: 22^0.72 = 9.258579; 1.52 / 9.258579 - 0.16 = 0.004172, shown as "0.004".
TEST(RikhterEfanov, WorkedExamplesAndLimits) {
    auto r = ComputeRikhterEfanov({2});
    ASSERT_TRUE(r.ok());
    EXPECT_NEAR(r.m, 0.762788, 1e-6);
    r = ComputeRikhterEfanov({22});
    ASSERT_TRUE(r.ok());
    EXPECT_NEAR(r.m, 0.004172, 1e-6);
    EXPECT_EQ(Format(r.m, "0.000"), "0.004");

    EXPECT_TRUE(ComputeRikhterEfanov({0.1f}).ok());
    for (float bad : {0.09f, 22.01f, 0.0f}) {
        r = ComputeRikhterEfanov({bad});
        ASSERT_NE(r.refusal(), nullptr) << bad;
        EXPECT_EQ(r.refusal()->title, "Invalid Data");
        EXPECT_EQ(r.refusal()->text,
                  "Input exceeds limit (0.10 - 22 years) only. Please check entry.");
    }
}

}  // namespace
}  // namespace norvo
