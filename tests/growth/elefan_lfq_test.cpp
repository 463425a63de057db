#include "growth/elefan_lfq.h"

#include <gtest/gtest.h>

namespace norvo {
namespace {

TEST(CheckElefanFile, RefusesAFileWithoutFishBeforeAnyComputation) {
    LfqData d;
    d.noOfSamples = 2;
    d.noOfClasses = 3;
    d.freq = {{0, 0}, {0, 0}, {0, 0}};
    const Outcome none = CheckElefanFile(d);
    ASSERT_FALSE(none.ok());
    EXPECT_EQ(none.refusal()->title, "Invalid Data");
    EXPECT_EQ(none.refusal()->text, kElefanNoFishText);
    d.freq[2][1] = 1;  // one fish anywhere will do
    EXPECT_TRUE(CheckElefanFile(d).ok());
}

}  // namespace
}  // namespace norvo
