#include "mortality/length_samples.h"

#include <gtest/gtest.h>

#include <cmath>

#include "make_lfq.h"

namespace norvo {
namespace {

using test::MakeLfq;

TEST(LengthSamples, EmptySampleRefusedUnderPercentAndRootOnlyWhetherChosenOrNot) {
    const LfqData data = MakeLfq(10, 2, {{1, 2, 3}, {0, 0, 0}, {4, 5, 6}});
    EXPECT_TRUE(CheckSampleFrequencies(data, CcTransform::Raw).ok());
    for (auto kind : {CcTransform::Percent, CcTransform::SquareRoot}) {
        const Outcome o = CheckSampleFrequencies(data, kind);
        ASSERT_FALSE(o.ok());
        EXPECT_EQ(o.refusal()->title, "Invalid Data");
        EXPECT_EQ(o.refusal()->text, EmptySampleText(2));
    }
}

TEST(LengthSamples, NegativeFrequencyRefusedUnderEveryTransformNamingItsPlace) {
    const LfqData data = MakeLfq(10, 2, {{1, 2, 3}, {0, 0, 0}, {4, -5, 6}});
    for (auto kind : {CcTransform::Raw, CcTransform::Percent, CcTransform::SquareRoot}) {
        const Outcome o = CheckSampleFrequencies(data, kind);
        ASSERT_FALSE(o.ok());
        EXPECT_EQ(o.refusal()->title, "Invalid Data");
        EXPECT_EQ(o.refusal()->text,
                  "Sample 3, midlength 12, holds a negative frequency (-5). Frequencies cannot "
                  "be negative. Please correct the file.");
    }
}

TEST(LengthSamples, PoolsOnlyTheChosenSamplesAfterTransformAndWeight) {
    // Samples 15 Jan, 15 Feb, 15 Mar: 31, 28 and 28 days to the nearer neighbour.
    const LfqData data = MakeLfq(10, 2, {{1, 3}, {2, 2}, {10, 30}});
    auto freq = PreparedFrequencies(data, CcTransform::Percent, false);
    auto pool = PoolSelectedSamples(freq, {true, false, true});
    ASSERT_EQ(pool.size(), 3u);
    EXPECT_FLOAT_EQ(pool[1], 50.f);
    EXPECT_FLOAT_EQ(pool[2], 150.f);
    EXPECT_FLOAT_EQ(PoolSelectedSamples(freq, {})[1], 100.f);

    freq = PreparedFrequencies(data, CcTransform::Raw, true);
    pool = PoolSelectedSamples(freq, {false, true, false});
    EXPECT_FLOAT_EQ(pool[1], static_cast<float>(2 * std::sqrt(28.0)));
    EXPECT_FALSE(AnySampleSelected({false, false, false}, 3));
    EXPECT_TRUE(AnySampleSelected({}, 3));
}

}  // namespace
}  // namespace norvo
