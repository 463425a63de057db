#include "growth/growth_settings.h"

#include <gtest/gtest.h>

#include "base/format.h"

namespace norvo {
namespace {

constexpr std::array<const char*, 6> kPatterns = {"0.00", "0.000", "0.000", "0.000", "0", "0.00"};

TEST(GrowthSettings, ParametersTravelAsTextAndComeBackWithTheirDecimals) {
    MemorySettingsStore settings;
    const GrowthParams p{.loo = 52.919998f, .k = 0.53f, .c = 0.5f, .wp = 0, .ss = 3, .sl = 12.5f};
    StoreGrowthParams(settings, &p, kPatterns);
    EXPECT_EQ(settings.runTime("LastLoo", "?"), "52.92");
    EXPECT_EQ(settings.runTime("LastK", "?"), "0.530");
    EXPECT_EQ(settings.runTime("LastSS", "?"), "3");
    EXPECT_EQ(settings.runTime("LastSL", "?"), "12.50");

    const auto read = ReadGrowthSettings(settings);
    for (size_t i = 0; i < read.size(); ++i) {
        ASSERT_TRUE(read[i]) << i;
        EXPECT_EQ(read[i]->pattern, kPatterns[i]) << i;
        EXPECT_EQ(Format(read[i]->value, read[i]->pattern),
                  settings.runTime(kGrowthSettingKeys[i], "?"))
            << i;
    }
    EXPECT_DOUBLE_EQ(read[1]->value, 0.53);
}

TEST(GrowthSettings, NoParametersStoreEmptyTextsThatReadAsNothing) {
    MemorySettingsStore settings;
    const GrowthParams p{.loo = 40, .k = 1};
    StoreGrowthParams(settings, &p, kPatterns);
    StoreGrowthParams(settings, nullptr, kPatterns);
    for (const char* key : kGrowthSettingKeys) EXPECT_EQ(settings.runTime(key, "?"), "") << key;
    for (const auto& v : ReadGrowthSettings(settings)) EXPECT_FALSE(v);
}

TEST(GrowthSettings, MissingKeysAndTextsThatAreNotNumbers) {
    MemorySettingsStore settings;
    auto read = ReadGrowthSettings(settings);
    // Missing keys read as their defaults: "0.00", and sample 1.
    for (size_t i : {0u, 1u, 2u, 3u, 5u}) {
        ASSERT_TRUE(read[i]) << i;
        EXPECT_EQ(read[i]->value, 0.0);
        EXPECT_EQ(read[i]->pattern, "0.00");
    }
    ASSERT_TRUE(read[4]);
    EXPECT_EQ(read[4]->value, 1.0);
    EXPECT_EQ(read[4]->pattern, "0");

    settings.setRunTime("LastLoo", " 39 ");
    settings.setRunTime("LastK", "unchanged");
    settings.setRunTime("LastC", "0,5");
    settings.setRunTime("LastWP", "inf");
    settings.setRunTime("LastSS", "");
    read = ReadGrowthSettings(settings);
    ASSERT_TRUE(read[0]);
    EXPECT_EQ(read[0]->value, 39.0);
    for (size_t i = 1; i < 5; ++i) EXPECT_FALSE(read[i]) << i;
}

}  // namespace
}  // namespace norvo
