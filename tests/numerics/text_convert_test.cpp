#include "numerics/text_convert.h"

#include <gtest/gtest.h>

#include "base/fault.h"

namespace norvo {
namespace {

class TextConvert : public ::testing::Test {
  protected:
    void SetUp() override { SetDecimalSeparator('.'); }
    void TearDown() override { ResetDecimalSeparator(); }
};

TEST_F(TextConvert, EmptyIsZeroAndNonNumbersFault) {
    EXPECT_EQ(TextToSingle(""), 0.0f);
    EXPECT_EQ(TextToDouble("  "), 0.0);
    EXPECT_EQ(TextToInteger(""), 0);
    EXPECT_EQ(TextToLong(""), 0);
    EXPECT_THROW(TextToSingle("abc"), ConversionFault);
    EXPECT_THROW(TextToSingle("1-2"), ConversionFault);
    EXPECT_THROW(TextToDouble("."), ConversionFault);
    EXPECT_THROW(TextToDouble("1e"), ConversionFault);
    EXPECT_THROW(TextToDouble("1,5"), ConversionFault);
}

TEST_F(TextConvert, ReadsSignsFractionsAndExponents) {
    EXPECT_EQ(TextToSingle("12.5"), 12.5f);
    EXPECT_EQ(TextToSingle(" -0.1 "), -0.1f);
    EXPECT_EQ(TextToDouble("+.25"), 0.25);
    EXPECT_EQ(TextToDouble("5."), 5.0);
    EXPECT_EQ(TextToDouble("1.5E3"), 1500.0);
    EXPECT_EQ(TextToDouble("2d-2"), 0.02);
    EXPECT_EQ(TextToDouble("1e-400"), 0.0);
}

TEST_F(TextConvert, IntegersRoundHalfToEvenAndOverflow) {
    EXPECT_EQ(TextToInteger("2.5"), 2);
    EXPECT_EQ(TextToInteger("3.5"), 4);
    EXPECT_EQ(TextToLong("-70000.5"), -70000);
    EXPECT_THROW(TextToInteger("32768"), ArithmeticFault);
    EXPECT_THROW(TextToLong("3e9"), ArithmeticFault);
    EXPECT_THROW(TextToSingle("1e39"), ArithmeticFault);
    EXPECT_THROW(TextToDouble("1e400"), ArithmeticFault);
}

TEST_F(TextConvert, FollowsTheDecimalSeparator) {
    SetDecimalSeparator(',');
    EXPECT_EQ(TextToSingle("1,5"), 1.5f);
    EXPECT_THROW(TextToSingle("1.5"), ConversionFault);
}

}  // namespace
}  // namespace norvo
