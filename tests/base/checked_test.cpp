#include "base/checked.h"

#include <gtest/gtest.h>

#include <cfloat>

#include "base/basic.h"

namespace norvo {
namespace {

int FaultNumberOf(auto&& f) {
    try {
        f();
    } catch (const ArithmeticFault& e) {
        return e.number();
    }
    return 0;
}

TEST(Checked, FaultsCarryTheClassicNumbersAndTexts) {
    EXPECT_EQ(FaultNumberOf([] { Div(1, 0); }), 11);
    EXPECT_EQ(FaultNumberOf([] { Ln(0); }), 5);
    EXPECT_EQ(FaultNumberOf([] { Ln(-1); }), 5);
    EXPECT_EQ(FaultNumberOf([] { Sqrt(-1e-9); }), 5);
    EXPECT_EQ(FaultNumberOf([] { Exp(1000); }), 6);
    EXPECT_EQ(FaultNumberOf([] { R4(1e39); }), 6);
    EXPECT_EQ(FaultNumberOf([] { CInt(32767.5); }), 6);  // rounds to 32768
    EXPECT_EQ(FaultNumberOf([] { CLng(3e9); }), 6);
    try {
        Div(1, 0);
    } catch (const ArithmeticFault& e) {
        EXPECT_EQ(e.description(), "Division by zero");
    }
}

TEST(Checked, FloatStoreIsRoundToNearest) {
    EXPECT_EQ(R4(0.1), 0.1f);
    EXPECT_EQ(R4(FLT_MAX), FLT_MAX);
    EXPECT_EQ(R4(3.4028235e38), FLT_MAX);  // rounds down into range
}

TEST(Checked, IntegerConversions) {
    EXPECT_EQ(Int(-2.5), -3);
    EXPECT_EQ(Fix(-2.5), -2);
    EXPECT_EQ(CInt(2.5), 2);
    EXPECT_EQ(CInt(3.5), 4);
    EXPECT_EQ(CInt(-2.5), -2);
    EXPECT_EQ(CLng(-32768.5), -32768);
    EXPECT_EQ(CInt(-32768.4), -32768);
}

// A loop whose end depends on a fault must end by it.
TEST(Checked, LoopEndsByOverflowFault) {
    float x = -1;
    int steps = 0;
    EXPECT_THROW(
        {
            while (true) {
                x = R4(static_cast<double>(x) * 10.0);
                ++steps;
            }
        },
        ArithmeticFault);
    EXPECT_LT(steps, 60);
}

}  // namespace
}  // namespace norvo
