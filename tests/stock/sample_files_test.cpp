#include "stock/sample_files.h"

#include <gtest/gtest.h>

#include <cmath>

#include "data/data_store.h"
#include "support/test_paths.h"

namespace norvo {
namespace {

int MonthsBetween(const SimSampleDate& a, const SimSampleDate& b) {
    return (b.year - a.year) * 12 + b.month - a.month;
}

TEST(SampleFiles, TagReturnsAndAgeReadingsFollowTheGrowthCurve) {
    SimulationInputs in = DefaultSimulationInputs();
    in.looCv = in.kCv = 0;
    const auto tags = SimulateTagging(in, 40);
    ASSERT_EQ(tags.size(), 40u);
    for (const auto& t : tags) {
        const int months = MonthsBetween(t.release, t.recapture);
        ASSERT_GE(months, 1);
        ASSERT_LE(months, 9);
        EXPECT_EQ(t.recapture.day, 15);
        // Without variability (Loo - L2) = (Loo - L1) exp(-K dt), up to reading to 0.1 cm.
        const double dt = months / 12.0;
        EXPECT_NEAR(30 - t.length2, (30 - t.length1) * std::exp(-1.5 * dt), 0.2);
        EXPECT_GT(t.length2, t.length1);
    }
    const auto ages = SimulateAgeLength(in, 60);
    ASSERT_EQ(ages.size(), 60u);
    for (const auto& a : ages) {
        ASSERT_GE(a.age, 0.25);
        ASSERT_LE(a.age, 3.0);
        EXPECT_NEAR(a.length, 30 * (1 - std::exp(-1.5 * a.age)), 0.06);
    }
    // The walk-through streams leave the length-frequency run untouched and repeat by seed.
    EXPECT_EQ(SimulateAgeLength(in, 5)[4].length, ages[4].length);
    EXPECT_DOUBLE_EQ(ReadToTenth(12.34), 12.3);
}

TEST(SampleFiles, TheBundledWalkThroughFilesHoldTheirRecords) {
    const auto count = [](const char* name, const char* table) {
        auto store = DataStore::open((test::BinDir() / name).string());
        return store.openRecords(std::string("SELECT * FROM [") + table + "]").recordCount();
    };
    EXPECT_EQ(count(kSimTaggingFile, "GIN_Measures"), 40);
    EXPECT_EQ(count(kSimAgeLengthFile, "LAA_Measures"), 60);
    EXPECT_EQ(count(kSimUngroupedFile, "ULF_Measures"), 50);
    auto store = DataStore::open((test::BinDir() / kSimAgeLengthFile).string());
    auto header = store.openRecords("SELECT * FROM [LAA]");
    EXPECT_EQ(AsText(header.getField("Unit_Of_Age_Measurement")), "years");
    EXPECT_EQ(AsText(header.getField("Sampling_Date")), "2001-01-15");
}

}  // namespace
}  // namespace norvo
