#include "growth/elefan_defaults.h"

#include <gtest/gtest.h>

namespace norvo {
namespace {

TEST(ElefanDefaults, PatternedFieldsFormattedTheOthersAsTheir32BitValue) {
    const ElefanDefaults d = DefaultElefanFields(44.5);
    EXPECT_EQ(d.lmax, 44.5f);
    EXPECT_EQ(ShownText(d.surfaceLooFrom), "22.00");
    EXPECT_EQ(ShownText(d.surfaceLooTo), "67");  // Int(66.75) + 1
    EXPECT_EQ(ShownText(d.kscanLoo), "46.725");
    EXPECT_EQ(ShownText(d.searchLoo), "46.725");
    EXPECT_EQ(ShownText(d.searchLooStep), "0.10");
    EXPECT_EQ(ShownText(d.surfaceKFrom), "0.01");
    EXPECT_EQ(ShownText(d.surfaceKTo), "10");
    EXPECT_EQ(ShownText(d.searchK), "1");
    EXPECT_EQ(ShownText(d.searchKStep), "0.10");
    EXPECT_EQ(ShownText(d.c), "0.00");
    EXPECT_EQ(ShownText(d.wp), "0.00");
}

TEST(ElefanDefaults, LooIsNotRoundedToTwoDecimals) {
    // Lmax 37.5: 39.375 exactly, where a two-decimal field would hold 39.38.
    const ElefanDefaults d = DefaultElefanFields(37.5);
    EXPECT_EQ(d.kscanLoo.value, 39.375);
    EXPECT_EQ(ShownText(d.kscanLoo), "39.375");
    // Lmax is the 32-bit value: 31.456 stays 31.456 (as a float), not 31.46.
    const ElefanDefaults odd = DefaultElefanFields(31.456);
    EXPECT_EQ(odd.lmax, 31.456f);
    EXPECT_EQ(odd.surfaceLooTo.value, 48.0);  // Int(47.184) + 1
    EXPECT_EQ(ShownText(odd.kscanLoo), "33.0288");
    // An empty file: every range from 0.
    const ElefanDefaults none = DefaultElefanFields(0);
    EXPECT_EQ(ShownText(none.surfaceLooFrom), "0.00");
    EXPECT_EQ(ShownText(none.surfaceLooTo), "1");
}

}  // namespace
}  // namespace norvo
