#include "numerics/series.h"

#include <gtest/gtest.h>

#include <vector>

#include "base/fault.h"

namespace norvo {
namespace {

TEST(ArrayMean, RangeRules) {
    const std::vector<float> v = {1, 2, 3, 4, 10};
    EXPECT_EQ(ArrayMean(v, 0, 0), 4.0f);   // whole array
    EXPECT_EQ(ArrayMean(v, 2, 3), 3.0f);   // positions 2..4
    EXPECT_EQ(ArrayMean(v, 4, -1), 7.0f);  // position 4 to the end
    EXPECT_EQ(ArrayMean({}, 0, 0), -9999.0f);
    EXPECT_EQ(ArrayMean(v, 6, 0), -9999.0f);  // starts just past the end: empty
    EXPECT_THROW(ArrayMean(v, 3, 4), SubscriptFault);
}

TEST(MakeSeries, ThreeFormsTwoKinds) {
    std::vector<double> d(2, -1.0);
    MakeSeries(1.0, 0.5, 3, 1, SeriesKind::Arithmetic, d);
    EXPECT_EQ(d, (std::vector<double>{-1.0, 1.0, 1.5, 2.0}));
    std::vector<float> f;
    MakeSeries(2.0f, 3.0f, 4, 0, SeriesKind::Geometric, f);
    EXPECT_EQ(f, (std::vector<float>{2, 6, 18, 54}));
    std::vector<int32_t> i;
    MakeSeries(5, -2, 3, 0, SeriesKind::Arithmetic, i);
    EXPECT_EQ(i, (std::vector<int32_t>{5, 3, 1}));
    MakeSeries(1 << 10, 1 << 10, 3, 0, SeriesKind::Geometric, i);
    EXPECT_EQ(i[2], 1 << 30);
    EXPECT_THROW(MakeSeries(1 << 20, 1 << 20, 2, 0, SeriesKind::Geometric, i), ArithmeticFault);
}

TEST(SmallHelpers, IncrementChecksOverflow) {
    int16_t a = 32766;
    Increment(a);
    EXPECT_EQ(a, 32767);
    EXPECT_THROW(Increment(a), ArithmeticFault);
    int32_t b = -2147483647;
    Decrement(b);
    EXPECT_THROW(Decrement(b), ArithmeticFault);
}

}  // namespace
}  // namespace norvo
