#include "growth/elefan_defaults.h"

#include <gtest/gtest.h>

#include "base/format.h"

namespace norvo {
namespace {

std::string Shown(const ShownNumber& n) {
    return Format(n.value, n.pattern);
}

TEST(ElefanDefaults, RangesFromTheLargestClassAsShown) {
    const ElefanDefaults d = DefaultElefanFields(44.5);
    EXPECT_EQ(d.lmax, 44.5f);
    EXPECT_EQ(Shown(d.surfaceLooFrom), "22.00");
    EXPECT_EQ(Shown(d.surfaceLooTo), "67");  // Int(66.75) + 1
    EXPECT_EQ(Shown(d.kscanLoo), "46.73");
    EXPECT_EQ(Shown(d.searchLoo), "46.73");
    EXPECT_EQ(Shown(d.searchLooStep), "0.10");
    EXPECT_EQ(Shown(d.surfaceKFrom), "0.01");
    EXPECT_EQ(Shown(d.surfaceKTo), "10");
    EXPECT_EQ(Shown(d.searchK), "1");
    EXPECT_EQ(Shown(d.searchKStep), "0.10");
    EXPECT_EQ(Shown(d.c), "0.00");
    EXPECT_EQ(Shown(d.wp), "0.00");
}

TEST(ElefanDefaults, LmaxIsTheTwoDecimalTextReadBackIn32Bits) {
    // 31.456 shows as "31.46": the ranges start from 31.46 as a float, not from 31.456.
    const ElefanDefaults d = DefaultElefanFields(31.456);
    EXPECT_EQ(d.lmax, 31.46f);
    EXPECT_EQ(d.surfaceLooFrom.value, 15.0);
    EXPECT_EQ(d.surfaceLooTo.value, 48.0);  // Int(47.19) + 1
    EXPECT_EQ(Shown(d.kscanLoo), Format(static_cast<double>(31.46f) * 1.05, "0.00"));
    // An empty file: every range from 0.
    const ElefanDefaults none = DefaultElefanFields(0);
    EXPECT_EQ(Shown(none.surfaceLooFrom), "0.00");
    EXPECT_EQ(Shown(none.surfaceLooTo), "1");
}

}  // namespace
}  // namespace norvo
