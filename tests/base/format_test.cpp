#include "base/format.h"

#include <gtest/gtest.h>

#include "base/fault.h"

namespace norvo {
namespace {

TEST(Format, PatternsOfTheSystem) {
    EXPECT_EQ(Format(3.14159, "0"), "3");
    EXPECT_EQ(Format(3.14159, "0.0"), "3.1");
    EXPECT_EQ(Format(3.14159, "0.00"), "3.14");
    EXPECT_EQ(Format(3.14159, "0.000"), "3.142");
    EXPECT_EQ(Format(0.5, "#0.000"), "0.500");
    EXPECT_EQ(Format(1234567.891, "#,##0.00"), "1,234,567.89");
    EXPECT_EQ(Format(7, "00"), "07");
    EXPECT_EQ(Format(42, "0000"), "0042");
    EXPECT_EQ(Format(12.25, "#0.0"), "12.3");
    EXPECT_EQ(Format(12.5, "#0"), "13");
    EXPECT_EQ(Format(999.5, "#,##0.00"), "999.50");
    EXPECT_EQ(Format(999.999, "#,##0.00"), "1,000.00");
}

TEST(Format, RoundsHalfAwayFromZeroOnFifteenDigits) {
    EXPECT_EQ(Format(2.5, "0"), "3");
    EXPECT_EQ(Format(-2.5, "0"), "-3");
    EXPECT_EQ(Format(0.125, "0.00"), "0.13");
    EXPECT_EQ(Format(1.005, "0.00"), "1.01");  // 1.00499999999999989... to 15 digits is 1.005
    EXPECT_EQ(Format(-0.001, "0.00"), "0.00");
    EXPECT_EQ(Format(0.0, "0.00"), "0.00");
    EXPECT_EQ(Format(1e-20, "0.000"), "0.000");
    EXPECT_EQ(Format(123456789012.0, "0"), "123456789012");
}

TEST(Format, LocalSeparatorAndFaults) {
    EXPECT_EQ(FormatLocal(0.1, "0.0", ','), "0,1");
    EXPECT_THROW(Format(1.0 / 0.0, "0.00"), ArithmeticFault);
}

}  // namespace
}  // namespace norvo
